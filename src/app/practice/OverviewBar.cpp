#include "app/practice/OverviewBar.h"

#include "app/practice/WaveColors.h"
#include "app/practice/WaveView.h"
#include "engine/LB_AudioController.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

OverviewBar::OverviewBar(WaveView *wave, SongPeaks *peaks, QWidget *parent)
    : QWidget(parent), m_wave(wave), m_peaks(peaks), m_tiles(*peaks)
{
    setFixedHeight(usualHeight);
    setLayoutDirection(Qt::LeftToRight);
    const auto redraw = [this] {
        m_tiles.forgetIncomplete();
        update();
    };
    connect(peaks, &SongPeaks::grown, this, redraw);
    connect(peaks, &SongPeaks::songChanged, this, [this] {
        m_tiles.forget();
        update();
    });
    connect(wave->audio(), &LB_AudioController::loopChanged, this, [this] { update(); });
    connect(wave, &WaveView::lineMoved, this, &OverviewBar::showLine);
    // While the wave moves, the frame around its part moves with the line.
    connect(wave, &WaveView::scaleChanged, this, [this] {
        if (!m_wave->isMoving() || !m_wave->isFollowing())
            update();
    });
}

double OverviewBar::framesPerPoint() const
{
    return std::max(1.0, static_cast<double>(m_peaks->frames())) / std::max(1, width());
}

/// Redraws only if the line has come to another pixel.
void OverviewBar::showLine()
{
    const double pixels = m_wave->line() / framesPerPoint() * devicePixelRatioF();
    const int x = static_cast<int>(std::lround(pixels));
    if (std::exchange(m_lineX, x) != x)
        update();
}

void OverviewBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    const double ratio = painter.deviceTransform().m11();
    painter.scale(1.0 / ratio, 1.0 / ratio);
    const double columns = std::ceil(width() * ratio);
    const double bottom = std::ceil(height() * ratio);
    painter.fillRect(QRectF(0.0, 0.0, columns, bottom), waveColors::background);
    if (m_peaks->frames() == 0)
        return;
    const double columnFrames = static_cast<double>(m_peaks->frames()) / columns;
    const auto columnOf = [&](double frame) { return std::llround(frame / columnFrames); };
    const std::optional<LoopRange> loop = m_wave->shownLoop();
    const auto end = static_cast<std::int64_t>(columns);
    m_tiles.setShape(columnFrames, static_cast<int>(bottom), ratio);
    m_tiles.draw(painter, 0, end, loop ? columnOf(static_cast<double>(loop->start)) : 0,
                 loop ? columnOf(static_cast<double>(loop->end)) : end);

    painter.setRenderHint(QPainter::Antialiasing);
    const WaveScale scale = m_wave->scale();
    const double left = std::max<double>(0.0, static_cast<double>(columnOf(scale.first)));
    const auto last = static_cast<double>(columnOf(scale.frameAt(m_wave->width())));
    const double right = std::min(columns, last);
    QColor tint = Theme::accent;
    tint.setAlpha(36);
    painter.setBrush(tint);
    painter.setPen(QPen(Theme::accent, std::max(1.0, std::round(ratio))));
    painter.drawRoundedRect(
        QRectF(left + 0.5, 0.5, std::max(3.0, right - left - 1.0), bottom - 1.0), 2.0 * ratio,
        2.0 * ratio);
    const auto line = static_cast<double>(columnOf(m_wave->line()));
    painter.fillRect(QRectF(line, 0.0, std::max(1.0, std::round(ratio)), bottom), Theme::text);
}

void OverviewBar::showPart(double x)
{
    if (m_peaks->frames() > 0)
        m_wave->showFrame(x * framesPerPoint());
}

void OverviewBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        showPart(event->position().x());
}

void OverviewBar::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        showPart(event->position().x());
}

} // namespace lyrabox
