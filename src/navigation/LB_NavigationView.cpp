#include "navigation/LB_NavigationView.h"

#include "app/controls/SecondsToMinutesTransformer.h"
#include "engine/LB_AudioController.h"
#include "library/LB_QueueController.h"
#include "navigation/NavigationAccessible.h"
#include "platform/foundation/MonotonicClock.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QEnterEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>

using namespace std::chrono_literals;

namespace {

constexpr auto refreshInterval = 250ms;
constexpr auto hoverTime = 3000ms;
constexpr qint64 glideMilliseconds = 250; // One refresh interval.
constexpr double maxGlideSeconds = 2.0;
constexpr double repaintStep = 0.5;  // In device pixels.
constexpr int minGlideInterval = 33; // In milliseconds.
constexpr double edgeMargin = 1.0;   // The edge is anti-aliased.

constexpr double textMargin = 12.0;
constexpr double textBottom = 3.0;
constexpr double hoverBottom = 22.0;
constexpr double textHeight = 17.0;
constexpr double hoverHeight = 14.0;
constexpr double hoverEdge = 22.0;
constexpr int textPixels = 17;
constexpr int hoverPixels = 14;

qint64 monotonicMilliseconds()
{
    return lyrabox::monotonicTime().count();
}

/// Equal, or both NaN.
bool sameFraction(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

} // namespace

namespace lyrabox {

double playFraction(quint64 frame, quint64 totalFrames)
{
    return static_cast<double>(static_cast<float>(frame) / static_cast<float>(totalFrames));
}

quint64 frameAtPosition(double x, double width, quint64 totalFrames)
{
    const double frame = x / width * static_cast<double>(static_cast<float>(totalFrames));
    return frame > 0.0 ? static_cast<quint64>(frame)
                       : 0; // The pointer is left of the view, or the view has no width.
}

double hoverTextPosition(double x, double width)
{
    return x < hoverEdge ? hoverEdge : std::min(x, width - hoverEdge);
}

} // namespace lyrabox

LB_NavigationView::LB_NavigationView(QWidget *parent)
    : QWidget(parent), m_clock(&monotonicMilliseconds)
{
    lyrabox::installAccessibleNavigation();
    // Tab gives the view the keyboard focus, a click does not.
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    m_refreshTimer.setInterval(refreshInterval);
    connect(&m_refreshTimer, &QTimer::timeout, this, &LB_NavigationView::updateTimeDisplay);
    m_hoverTimer.setInterval(hoverTime);
    m_hoverTimer.setSingleShot(true);
    connect(&m_hoverTimer, &QTimer::timeout, this, &LB_NavigationView::hideHoverTime);
}

void LB_NavigationView::awakeFromNib()
{
    updateTimeDisplay();
    m_refreshTimer.start();
}

void LB_NavigationView::seekToFrame(quint64 frame)
{
    if (m_audio->loopStartIsSet() && m_audio->loopStartFrame() >= frame)
        m_audio->setCurrentFrame(m_audio->loopStartFrame());
    else
        m_audio->setCurrentFrame(frame);
    updateTimeDisplay();
}

void LB_NavigationView::seekToSecond(double second)
{
    const auto total = static_cast<double>(m_audio->totalSeconds());
    if (total <= 0.0 || std::isnan(second))
        return;
    const double inside = std::clamp(second, 0.0, std::max(0.0, total - 1.0));
    const double rate = m_audio->audioBufferFormat().mSampleRate;
    seekToFrame(static_cast<quint64>(inside * rate));
}

void LB_NavigationView::seekBySeconds(double seconds)
{
    const double rate = m_audio->audioBufferFormat().mSampleRate;
    if (!(rate > 0.0))
        return;
    const double present = static_cast<double>(m_audio->currentFrame()) / rate;
    // seekToSecond() stops one second before the end, so within that second forward does nothing.
    if (seconds > 0.0 && present >= static_cast<double>(m_audio->totalSeconds()) - 1.0)
        return;
    seekToSecond(present + seconds);
}

void LB_NavigationView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        seekBySeconds(-keyStepSeconds);
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        seekBySeconds(keyStepSeconds);
        break;
    case Qt::Key_PageDown:
        seekBySeconds(-pageStepSeconds);
        break;
    case Qt::Key_PageUp:
        seekBySeconds(pageStepSeconds);
        break;
    case Qt::Key_Home:
        seekToSecond(0.0);
        break;
    case Qt::Key_End:
        seekBySeconds(static_cast<double>(m_audio->totalSeconds()));
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void LB_NavigationView::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void LB_NavigationView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}

void LB_NavigationView::updateTimeDisplay()
{
    const QString elapsed = lyrabox::timeText(static_cast<quint64>(m_audio->currentSeconds()));
    const QString total = lyrabox::timeText(static_cast<quint64>(m_audio->totalSeconds()));
    const quint64 totalFrames = m_audio->totalFrames();
    const double loopStart = lyrabox::playFraction(m_audio->loopStartFrame(), totalFrames);
    const bool loopStartIsSet = m_audio->loopStartIsSet();

    const bool changed = elapsed != m_elapsedText || total != m_totalText ||
                         totalFrames != m_shownTotalFrames ||
                         loopStartIsSet != m_playLayer.loopStartIsSet() ||
                         (loopStartIsSet && !sameFraction(loopStart, m_playLayer.loopStart()));
    m_elapsedText = elapsed;
    m_totalText = total;
    m_shownTotalFrames = totalFrames;
    m_playLayer.setLoopStart(loopStart);
    m_playLayer.setLoopStartIsSet(loopStartIsSet);
    if (changed)
        update();
    glideTo(lyrabox::playFraction(m_audio->currentFrame(), totalFrames));

    if (m_audio->trackHasEnded())
        m_audio->changeAfterWhatIsHeld([this] { m_queue->playNextTrack(); });
    m_audio->haltWhenPlayedOut();
}

void LB_NavigationView::glideTo(double fraction)
{
    if (sameFraction(fraction, m_playLayer.playProgress()))
        return;
    // A seek or a new song is shown at once. Normal progress glides until the next refresh.
    const double seconds = std::abs(fraction - m_playLayer.playProgress()) *
                           static_cast<double>(m_audio->totalSeconds());
    const bool jump = !std::isfinite(fraction) || !std::isfinite(m_playLayer.playProgress()) ||
                      fraction < m_playLayer.playProgress() || seconds > maxGlideSeconds;
    m_glideFrom = jump ? fraction : displayedProgress();
    m_glideStart = m_clock();
    m_playLayer.setPlayProgress(fraction);
    if (jump) {
        m_glideTimer.stop();
        m_shownProgress = fraction;
        update();
        lyrabox::announcePosition(this);
    } else {
        scheduleGlideStep();
    }
}

double LB_NavigationView::displayedProgress() const
{
    const double target = m_playLayer.playProgress();
    const double part =
        static_cast<double>(m_clock() - m_glideStart) / static_cast<double>(glideMilliseconds);
    if (part >= 1.0 || !std::isfinite(target) || !std::isfinite(m_glideFrom))
        return target;
    return m_glideFrom + (target - m_glideFrom) * std::max(0.0, part);
}

double LB_NavigationView::edgeInDevicePixels(double fraction) const
{
    return std::isfinite(fraction) ? fraction * width() * devicePixelRatioF() : 0.0;
}

void LB_NavigationView::scheduleGlideStep()
{
    const double distance =
        std::abs(edgeInDevicePixels(m_playLayer.playProgress()) - edgeInDevicePixels(m_glideFrom));
    const double steps = std::max(1.0, distance / repaintStep);
    const int interval = std::max(minGlideInterval, static_cast<int>(glideMilliseconds / steps));
    m_glideTimer.start(interval, this);
}

void LB_NavigationView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_glideTimer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    const double displayed = displayedProgress();
    const double edge = edgeInDevicePixels(displayed);
    const double shownEdge = edgeInDevicePixels(m_shownProgress);
    if (std::abs(edge - shownEdge) >= repaintStep) {
        updateBetween(shownEdge / devicePixelRatioF(), edge / devicePixelRatioF());
        m_shownProgress = displayed;
    }
    if (displayed == m_playLayer.playProgress())
        m_glideTimer.stop();
}

void LB_NavigationView::updateBetween(double from, double to)
{
    const QRectF strip(std::min(from, to) - edgeMargin, 0.0, std::abs(to - from) + 2.0 * edgeMargin,
                       height());
    update(strip.toAlignedRect());
}

void LB_NavigationView::paintEvent(QPaintEvent *)
{
    ++m_paintCount;
    QPainter painter(this);
    lyrabox::alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    m_backLayer.drawLayerInContext(layerBounds(), painter);
    lyrabox::PlayLayerDelegate shown = m_playLayer;
    // Paint the progress that was marked for update, not the current one, which may be further.
    shown.setPlayProgress(m_shownProgress);
    shown.drawLayerInContext(layerBounds(), painter);
    if (hasFocus())
        lyrabox::drawFocusRing(painter, layerBounds(), lyrabox::Theme::radius);

    painter.setLayoutDirection(Qt::LeftToRight); // Time runs from left to right in every language.
    painter.setPen(Qt::white);
    QFont textFont = font();
    textFont.setPixelSize(textPixels);
    painter.setFont(textFont);
    const QRectF line(textMargin, height() - textBottom - textHeight, width() - 2 * textMargin,
                      textHeight);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignBottom | Qt::TextDontClip, m_elapsedText);
    painter.drawText(line, Qt::AlignRight | Qt::AlignBottom | Qt::TextDontClip, m_totalText);
    if (m_hoverText.isEmpty())
        return;
    textFont.setPixelSize(hoverPixels);
    painter.setFont(textFont);
    constexpr double hoverWidth = 50.0;
    painter.drawText(QRectF(m_hoverX - hoverWidth / 2, height() - hoverBottom - hoverHeight,
                            hoverWidth, hoverHeight),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, m_hoverText);
}

void LB_NavigationView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        seekToFrame(
            lyrabox::frameAtPosition(event->position().x(), width(), m_audio->totalFrames()));
}

void LB_NavigationView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_audio->totalSeconds() <= 0)
        return;
    showHoverTime(event->position().x());
    m_hoverTimer.start();
}

void LB_NavigationView::enterEvent(QEnterEvent *event)
{
    showHoverTime(event->position().x());
}

void LB_NavigationView::leaveEvent(QEvent *)
{
    hideHoverTime();
}

void LB_NavigationView::hideHoverTime()
{
    setHover(QString(), m_hoverX);
}

void LB_NavigationView::showHoverTime(double x)
{
    const qint64 total = m_audio->totalSeconds();
    if (total <= 0)
        return;
    const double inside = std::clamp(x, 0.0, static_cast<double>(width()));
    const auto seconds = static_cast<quint32>(static_cast<double>(total) * (inside / width()));
    setHover(lyrabox::timeText(static_cast<quint64>(seconds)),
             lyrabox::hoverTextPosition(inside, width()));
}

void LB_NavigationView::setHover(const QString &text, double x)
{
    if (text == m_hoverText && x == m_hoverX)
        return;
    m_hoverText = text;
    m_hoverX = x;
    update();
}

QSize LB_NavigationView::sizeHint() const
{
    return {400, 40};
}
