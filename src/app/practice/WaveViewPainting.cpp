// How the wave is drawn. Everything is placed on whole device pixels, so that nothing blurs while
// the wave moves.

#include "app/controls/SecondsToMinutesTransformer.h"
#include "app/practice/TimeRuler.h"
#include "app/practice/WaveColors.h"
#include "app/practice/WaveView.h"
#include "engine/LB_AudioController.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double labelSize = 10.0; // points
constexpr double bracketTop = 3.0;
constexpr double bracketHeight = 14.0;
constexpr double bracketRadius = 3.0;
constexpr double endWidth = 2.0;
constexpr double knobRadius = 5.0;
constexpr double lineWidth = 2.0;
constexpr double headHalf = 5.0; // half the width of the line's head
constexpr double headHeight = 7.0;

/// `points` in whole device pixels, at least one.
double pixels(double points, double ratio)
{
    return std::max(1.0, std::round(points * ratio));
}

double columnFrames(const WaveScale &scale, double ratio)
{
    return scale.framesPerPoint / ratio;
}

std::int64_t columnOf(double frame, const WaveScale &scale, double ratio)
{
    return std::llround(frame / columnFrames(scale, ratio));
}

} // namespace

double WaveView::deviceX(double frame, double ratio) const
{
    return static_cast<double>(columnOf(frame, m_scale, ratio) -
                               columnOf(m_scale.first, m_scale, ratio));
}

void WaveView::paintEvent(QPaintEvent *)
{
    ++m_paintCount;
    QPainter painter(this);
    alignToDevicePixels(painter);
    // A widget that is rendered into an image has the ratio of the image.
    const double ratio = painter.deviceTransform().m11();
    painter.scale(1.0 / ratio, 1.0 / ratio);
    const double columns = std::ceil(width() * ratio);
    const double top = pixels(laneHeight, ratio);
    const double bottom = std::ceil(height() * ratio);
    painter.fillRect(QRectF(0.0, top, columns, bottom - top), waveColors::background);
    if (m_peaks->frames() == 0)
        return;

    const std::int64_t first = columnOf(m_scale.first, m_scale, ratio);
    const std::int64_t end = first + static_cast<std::int64_t>(columns);
    std::int64_t loopFirst = first;
    std::int64_t loopEnd = end;
    if (const std::optional<LoopRange> loop = shownLoop()) {
        loopFirst = columnOf(static_cast<double>(loop->start), m_scale, ratio);
        loopEnd = columnOf(static_cast<double>(loop->end), m_scale, ratio);
        const double from = std::max(0.0, static_cast<double>(loopFirst - first));
        const double to = std::min(columns, static_cast<double>(loopEnd - first));
        if (to > from)
            painter.fillRect(QRectF(from, top, to - from, bottom - top),
                             waveColors::loopBackground);
    }
    const bool hasBars = !shownGrid().isEmpty();
    if (!hasBars)
        drawRuler(painter, columns, ratio);
    m_tiles.setShape(columnFrames(m_scale, ratio), static_cast<int>(bottom - top), ratio);
    painter.save();
    painter.translate(0.0, top);
    m_tiles.draw(painter, first, end, loopFirst, loopEnd);
    painter.restore();
    if (hasBars)
        drawBars(painter, ratio);
    painter.setRenderHint(QPainter::Antialiasing);
    drawLostTexts(painter, ratio);
    drawLoop(painter, ratio);
    drawLine(painter, ratio);
    if (hasFocus())
        drawFocusRing(painter, QRectF(0.0, top, columns, bottom - top), 0.0);
}

/// Marks the time below the wave.
void WaveView::drawRuler(QPainter &painter, double width, double ratio) const
{
    const double rate = m_peaks->samples().sampleRate;
    const double step = timeRuler::step(m_scale.framesPerPoint / rate);
    const double bottom = std::ceil(height() * ratio);
    const double from = std::max(0.0, m_scale.first / rate);
    const double to =
        std::min(static_cast<double>(m_peaks->frames()), m_scale.frameAt(width / ratio)) / rate;
    QFont font = uiFont(labelSize);
    font.setPixelSize(static_cast<int>(std::lround(labelSize * ratio)));
    painter.setFont(font);
    painter.setPen(Theme::secondaryText);
    for (auto mark = static_cast<std::int64_t>(std::floor(from / step));
         static_cast<double>(mark) * step <= to; ++mark) {
        const double seconds = static_cast<double>(mark) * step;
        const double x = deviceX(seconds * rate, ratio);
        painter.fillRect(QRectF(x, pixels(laneHeight, ratio), pixels(1.0, ratio), bottom),
                         Theme::hairline);
        painter.drawText(QPointF(x + 4.0 * ratio, bottom - 4.0 * ratio),
                         timeRuler::text(seconds, step));
    }
}

void WaveView::drawLoop(QPainter &painter, double ratio) const
{
    const double top = pixels(laneHeight, ratio);
    const double bottom = std::ceil(height() * ratio);
    const double thickness = pixels(endWidth, ratio);
    const auto drawEnd = [&](double x) {
        painter.fillRect(QRectF(x - std::floor(thickness / 2.0), top, thickness, bottom - top),
                         m_loopColor);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_loopColor);
        painter.drawEllipse(QPointF(x, (top + bottom) / 2.0), knobRadius * ratio,
                            knobRadius * ratio);
    };
    const std::optional<LoopRange> loop = shownLoop();
    if (!loop) {
        if (m_audio->loopStartIsSet() && !m_press)
            drawEnd(deviceX(static_cast<double>(m_audio->loopStartFrame()), ratio));
        return;
    }
    const double from = deviceX(static_cast<double>(loop->start), ratio);
    const double to = deviceX(static_cast<double>(loop->end), ratio);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_loopColor);
    painter.drawRoundedRect(QRectF(from, std::round(bracketTop * ratio), std::max(1.0, to - from),
                                   std::round(bracketHeight * ratio)),
                            bracketRadius * ratio, bracketRadius * ratio);
    drawEnd(from);
    drawEnd(to);
}

void WaveView::drawLine(QPainter &painter, double ratio) const
{
    const double x = deviceX(line(), ratio);
    const double thickness = pixels(lineWidth, ratio);
    const double left = x - std::floor(thickness / 2.0);
    const double top = pixels(laneHeight, ratio);
    painter.fillRect(QRectF(left, top, thickness, std::ceil(height() * ratio) - top), Theme::text);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::text);
    const double middle = left + thickness / 2.0;
    painter.drawPolygon(QPolygonF{{middle - headHalf * ratio, top},
                                  {middle + headHalf * ratio, top},
                                  {middle, top + headHeight * ratio}});
}

} // namespace lyrabox
