#pragma once

#include "navigation/NavigationLayers.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <functional>

class LB_AudioController;
class LB_QueueController;

namespace lyrabox {

/// Minutes, colon, two-digit seconds; minutes are not wrapped into hours.
QString timeText(qint64 seconds);

/// `frame` over `totalFrames`, divided in single precision; not a number when there are no frames.
double playFraction(quint64 frame, quint64 totalFrames);

/// The frame that a click at `x` in a view of `width` means; the total goes through single
/// precision.
quint64 frameAtPosition(double x, double width, quint64 totalFrames);

/// Where the centre of the hover text stands for a pointer at `x`: never nearer than 22 points to
/// an end.
double hoverTextPosition(double x, double width);

} // namespace lyrabox

/// The bar that shows and sets the position. A timer refreshes it four times a second, notices the
/// end of the song there and asks the queue for the next. Main thread only. References are set
/// once, before awakeFromNib(), and are not owned.
class LB_NavigationView : public QWidget {
    Q_OBJECT

public:
    explicit LB_NavigationView(QWidget *parent = nullptr);

    LB_AudioController *audio() const { return m_audio; }
    void setAudio(LB_AudioController *audio) { m_audio = audio; }
    LB_QueueController *queue() const { return m_queue; }
    void setQueue(LB_QueueController *queue) { m_queue = queue; }

    /// Starts the timer.
    void awakeFromNib();

    /// Moves the position there, or to the loop start when that is set and lies at or behind
    /// `frame`.
    void seekToFrame(quint64 frame);

    /// The same by time; beyond the song's end it goes to a second before it, and without a song
    /// nowhere.
    void seekToSecond(double second);

    /// Moves on by so many seconds, or back by a negative number. Never goes back in place of on:
    /// in the song's last second there is no way on.
    void seekBySeconds(double seconds);

    /// What an arrow key moves by, and PageUp and PageDown.
    static constexpr double keyStepSeconds = 5.0;
    static constexpr double pageStepSeconds = 30.0;

    /// Shows the player's position, and starts the next song when the present one has ended.
    void updateTimeDisplay();

    /// Empties the hover text.
    void hideHoverTime();

    QString elapsedText() const { return m_elapsedText; }
    QString totalText() const { return m_totalText; }
    QString hoverText() const { return m_hoverText; }

    /// The centre of the hover text.
    double hoverPosition() const { return m_hoverX; }
    const lyrabox::PlayLayerDelegate &playLayerDelegate() const { return m_playLayer; }

    /// The fraction drawn now; it glides to the delegate's between two refreshes.
    double displayedProgress() const;

    /// The timer that empties the hover text 3 s after the pointer's last move, and the one that
    /// refreshes.
    QTimer *hoverTimer() { return &m_hoverTimer; }
    QTimer *refreshTimer() { return &m_refreshTimer; }

    /// How often the view has painted itself. For the proof that a resting program draws nothing.
    quint64 paintCount() const { return m_paintCount; }

    /// Replaces the clock of the glide; milliseconds.
    void setClock(std::function<qint64()> clock) { m_clock = std::move(clock); }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void showHoverTime(double x);
    void setHover(const QString &text, double x);
    void glideTo(double fraction);
    void scheduleGlideStep();
    void updateBetween(double from, double to);
    double edgeInDevicePixels(double fraction) const;
    QRectF layerBounds() const { return QRectF(rect()); }

    LB_AudioController *m_audio = nullptr;
    LB_QueueController *m_queue = nullptr;
    lyrabox::BackLayerDelegate m_backLayer;
    lyrabox::PlayLayerDelegate m_playLayer;
    QString m_elapsedText;
    QString m_totalText;
    QString m_hoverText;
    double m_hoverX = 0.0;
    QTimer m_refreshTimer;
    QTimer m_hoverTimer;
    std::function<qint64()> m_clock;
    double m_glideFrom = 0.0;
    qint64 m_glideStart = 0;
    QBasicTimer m_glideTimer;
    double m_shownProgress = 0.0; ///< what is painted, or will be by the update that is under way
    quint64 m_paintCount = 0;
    quint64 m_shownTotalFrames = 0;
};
