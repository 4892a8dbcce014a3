#include "app/practice/WaveView.h"

#include "app/practice/WaveAccessible.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/MonotonicClock.h"

#include <QEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

using namespace std::chrono_literals;

namespace lyrabox {

namespace {

constexpr auto motionInterval = 16ms; // 60 times a second
constexpr double usualSeconds = 16.0; // shown of a new song
constexpr double jumpSeconds = 0.12;  // The position is exact to 70 ms at worst.
constexpr double lineReach = 8.0;     // points that the line and its head take on each side

double now()
{
    return static_cast<double>(monotonicTime().count());
}

} // namespace

WaveView::WaveView(LB_AudioController *audio, SongPractice *practice, SongPeaks *peaks,
                   std::function<void(quint64)> seek, QWidget *parent)
    : QWidget(parent),
      m_audio(audio),
      m_practice(practice),
      m_peaks(peaks),
      m_seek(std::move(seek)),
      m_tiles(*peaks)
{
    installAccessibleWave();
    setObjectName(QStringLiteral("practiceWave"));
    setAccessibleName(tr("Wave"));
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    setLayoutDirection(Qt::LeftToRight); // Time runs from left to right in every language.
    m_motion.setInterval(motionInterval);
    m_motion.setTimerType(Qt::PreciseTimer);
    connect(&m_motion, &QTimer::timeout, this, &WaveView::showPosition);
    connect(peaks, &SongPeaks::songChanged, this, &WaveView::showSong);
    connect(peaks, &SongPeaks::grown, this, [this] {
        m_tiles.forgetIncomplete();
        update();
    });
    connect(audio, &LB_AudioController::positionSet, this, &WaveView::showJump);
    connect(audio, &LB_AudioController::runningChanged, this, &WaveView::updateMotion);
    connect(audio, &LB_AudioController::loopChanged, this, [this] { update(); });
}

WaveArea WaveView::area() const
{
    return {m_peaks->frames(), static_cast<double>(width())};
}

void WaveView::setScale(WaveScale scale)
{
    if (scale == m_scale)
        return;
    m_scale = scale;
    update();
    Q_EMIT scaleChanged();
}

void WaveView::setFollowing(bool follows)
{
    if (std::exchange(m_isFollowing, follows) == follows)
        return;
    if (follows)
        setScale(area().following(m_scale, line()));
    Q_EMIT followingChanged(follows);
}

void WaveView::scrollByHand(double points)
{
    setFollowing(false);
    setScale(area().scrolled(m_scale, points));
}

void WaveView::zoomAroundLine(double factor)
{
    const double x = m_scale.xOf(line());
    const bool isVisible = x >= 0.0 && x <= width();
    setScale(area().zoomed(m_scale, factor, isVisible ? x : width() / 2.0));
}

void WaveView::zoomToLoop()
{
    const std::optional<LoopRange> loop = shownLoop();
    if (!loop)
        return;
    const WaveScale whole = area().loop(*loop);
    if (m_scaleBeforeLoop && whole == m_scale) {
        setScale(area().inside(*std::exchange(m_scaleBeforeLoop, std::nullopt)));
        setFollowing(true);
        return;
    }
    m_scaleBeforeLoop = m_scale;
    setFollowing(false);
    setScale(whole);
}

void WaveView::showWholeSong()
{
    setScale(area().wholeSong());
}

void WaveView::showFrame(double frame)
{
    scrollByHand(m_scale.xOf(frame) - width() / 2.0);
}

void WaveView::seekTo(double frame)
{
    const double last = static_cast<double>(m_peaks->frames());
    if (last > 0.0)
        m_seek(static_cast<quint64>(std::clamp(frame, 0.0, last)));
}

/// Shows a song from its usual distance.
void WaveView::showSong()
{
    m_tiles.forget();
    m_press.reset();
    m_scaleBeforeLoop.reset();
    m_line.jumpTo(static_cast<double>(m_audio->heardFrame()), now());
    setScale(area().seconds(usualSeconds, m_peaks->samples().sampleRate, line()));
    setFollowing(true);
    updateMotion();
    update();
    Q_EMIT lineMoved();
}

/// Shows where the user has gone.
void WaveView::showJump()
{
    setFollowing(true);
    m_line.jumpTo(static_cast<double>(m_audio->heardFrame()), now());
    moveLine(line());
    update();
    QAccessibleValueChangeEvent event(this, line() / m_peaks->samples().sampleRate);
    QAccessible::updateAccessibility(&event);
}

void WaveView::updateMotion()
{
    const bool moves = isVisible() && m_audio->isRunning() && m_peaks->frames() > 0;
    if (moves == m_motion.isActive())
        return;
    if (moves)
        m_motion.start();
    else
        m_motion.stop();
    showPosition();
}

void WaveView::showPosition()
{
    if (m_motion.isActive() && !m_audio->isRunning())
        m_motion.stop(); // The song has come to its end.
    if (window()->isMinimized())
        return;
    const double rate = m_peaks->samples().sampleRate;
    const double speed = static_cast<double>(m_audio->playbackSpeedPct()) / 100.0;
    const auto frame = static_cast<double>(m_audio->heardFrame());
    const double before = line();
    if (m_motion.isActive())
        m_line.measured(frame, now(), speed * rate / 1000.0, jumpSeconds * rate);
    else
        m_line.jumpTo(frame, now());
    if (line() != before)
        moveLine(before);
}

/// Shows the line, which was at the frame `before`.
void WaveView::moveLine(double before)
{
    const double x = m_scale.xOf(line());
    const bool isOutside = x < 0.0 || x > width();
    // A wave that moves under a drag would pull the loop along.
    if (m_isFollowing && !m_press && !m_isHeld && (m_motion.isActive() || isOutside))
        setScale(area().following(m_scale, line()));
    updateAround(before);
    updateAround(line());
    Q_EMIT lineMoved();
}

void WaveView::updateAround(double frame)
{
    const double x = m_scale.xOf(frame);
    if (x > -lineReach && x < width() + lineReach)
        update(QRectF(x - lineReach, 0.0, 2.0 * lineReach, height()).toAlignedRect());
}

std::optional<LoopRange> WaveView::shownLoop() const
{
    if (m_press && m_press->isDrag && !m_press->beat)
        return m_press->loop;
    return m_audio->loop();
}

void WaveView::setLoopColor(const QColor &color)
{
    if (std::exchange(m_loopColor, color) != color)
        update();
}

void WaveView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    setScale(area().inside(m_scale));
}

void WaveView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    showPosition();
    updateMotion();
}

void WaveView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_press.reset();
    updateMotion();
}

void WaveView::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void WaveView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}

} // namespace lyrabox
