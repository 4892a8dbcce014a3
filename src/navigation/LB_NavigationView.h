#pragma once

#include "navigation/NavigationLayers.h"

#include <QBasicTimer>
#include <QTimer>
#include <QWidget>

#include <functional>

class LB_AudioController;
class LB_QueueController;

namespace lyrabox {

/// `frame` / `totalFrames` in single precision. NaN if there are no frames. See
/// docs/kept-on-purpose.md.
double playFraction(quint64 frame, quint64 totalFrames);

/// The frame at `x` in a view of width `width`. The total is rounded to single precision. See
/// docs/kept-on-purpose.md.
quint64 frameAtPosition(double x, double width, quint64 totalFrames);

/// The centre of the hover text for a pointer at `x`. At least 22 points from either end.
double hoverTextPosition(double x, double width);

} // namespace lyrabox

/// The bar that shows and sets the position. A timer refreshes it four times a second, notices the
/// end of the song and asks the queue for the next one (see docs/kept-on-purpose.md). Main thread
/// only. References are not owned; set them once, before awakeFromNib().
class LB_NavigationView : public QWidget {
    Q_OBJECT

public:
    explicit LB_NavigationView(QWidget *parent = nullptr);

    LB_AudioController *audio() const { return m_audio; }
    void setAudio(LB_AudioController *audio) { m_audio = audio; }
    LB_QueueController *queue() const { return m_queue; }
    void setQueue(LB_QueueController *queue) { m_queue = queue; }

    /// Shows the position and starts the refresh timer.
    void awakeFromNib();

    /// Seeks to `frame`. If the loop start is set and not before `frame`, seeks to the loop start
    /// instead.
    void seekToFrame(quint64 frame);

    /// Seeks to a time. Times past the end count as one second before the end. Does nothing without
    /// a song.
    void seekToSecond(double second);

    /// Seeks relative to the current position; negative values go back. In the last second of the
    /// song, forward does nothing, so it never moves back.
    void seekBySeconds(double seconds);

    /// Step of the arrow keys and of PageUp and PageDown.
    static constexpr double keyStepSeconds = 5.0;
    static constexpr double pageStepSeconds = 30.0;

    /// Shows the player's position. Starts the next song if the current one has ended.
    void updateTimeDisplay();

    /// Removes the hover text.
    void hideHoverTime();

    QString elapsedText() const { return m_elapsedText; }
    QString totalText() const { return m_totalText; }
    QString hoverText() const { return m_hoverText; }

    /// Centre of the hover text in points.
    double hoverPosition() const { return m_hoverX; }
    const lyrabox::PlayLayerDelegate &playLayerDelegate() const { return m_playLayer; }

    /// The fraction that is drawn now. It glides to playLayerDelegate()'s between refreshes.
    double displayedProgress() const;

    /// The timer that removes the hover text 3 s after the last move of the pointer, and the
    /// refresh timer.
    QTimer *hoverTimer() { return &m_hoverTimer; }
    QTimer *refreshTimer() { return &m_refreshTimer; }

    /// How often the view has painted itself. Tests use it to show that an idle program draws
    /// nothing.
    quint64 paintCount() const { return m_paintCount; }

    /// Replaces the clock of the glide, in milliseconds. For tests.
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
    double m_shownProgress = 0.0; ///< Painted, or about to be painted by a pending update.
    quint64 m_paintCount = 0;
    quint64 m_shownTotalFrames = 0;
};
