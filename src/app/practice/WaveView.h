#pragma once

#include "app/practice/LoopHands.h"
#include "app/practice/SmoothPosition.h"
#include "app/practice/SongPeaks.h"
#include "app/practice/WaveColors.h"
#include "app/practice/WaveScale.h"
#include "app/practice/WaveTiles.h"

#include <QColor>
#include <QStaticText>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class LB_AudioController;

namespace lyrabox {

class SongBeats;
class SongPractice;

/// What places that are dragged in a wave snap to.
enum class SnapTo {
    Beat,   ///< beats, else attacks, else zero crossings
    Attack, ///< attacks, else zero crossings
    Off
};

/// The wave of the song around the place that is heard, with the loop. While the song plays, the
/// line stays in its place and the wave moves; scrolling stops that until a seek or setFollowing().
/// The mouse seeks, makes loops, and moves their ends and the beats of the song. Redraws 60 times a
/// second while the song plays and the view is visible, and otherwise only when something changes.
/// Main thread.
class WaveView : public QWidget {
    Q_OBJECT

public:
    /// The height of the strip above the wave, which holds the bracket of the loop, in points.
    static constexpr int laneHeight = 20;

    /// `audio`, `practice` and `peaks` must outlive the view. `seek` is called with the frame of a
    /// click.
    WaveView(LB_AudioController *audio, SongPractice *practice, SongPeaks *peaks,
             std::function<void(quint64)> seek, QWidget *parent = nullptr);

    /// Shows beats; `beats` must outlive the view. Without them there are none.
    void setBeats(SongBeats *beats);

    LB_AudioController *audio() const { return m_audio; }

    /// Which part of the song is shown.
    WaveScale scale() const { return m_scale; }
    /// The frame at the line.
    double line() const { return m_line.position(); }

    bool isFollowing() const { return m_isFollowing; }
    /// Whether the wave moves while the song plays.
    void setFollowing(bool follows);

    /// Shows twice or half as much, with the line in its place if it can be seen.
    void zoomIn() { zoomAroundLine(0.5); }
    void zoomOut() { zoomAroundLine(2.0); }
    /// Shows the loop, or, if it is shown, what was shown before. Does nothing without a loop.
    void zoomToLoop();
    void showWholeSong();
    /// Moves the view so that `frame` is in its middle, as scrolling does.
    void showFrame(double frame);
    /// Seeks as a click does.
    void seekTo(double frame);

    /// The loop as it is drawn: while a drag lasts, the one that it will make.
    std::optional<LoopRange> shownLoop() const;

    /// The beats as they are drawn: while one of them is dragged, as they will be.
    const BeatGrid &shownGrid() const;

    SnapTo snapTo() const { return m_snapTo; }
    void setSnapTo(SnapTo snapTo) { m_snapTo = snapTo; }
    /// What a drag with these keys snaps to now. It points to shownGrid().
    loopHands::Snap snap(Qt::KeyboardModifiers modifiers) const;

    /// While it is held, the wave does not move under the mouse.
    void setHeld(bool held) { m_isHeld = held; }
    /// The colour of the loop's ends and of its bracket.
    void setLoopColor(const QColor &color);

    /// Reads the position, and shows it if it has changed. The timer of the motion calls it.
    void showPosition();

    /// Whether the view redraws regularly now.
    bool isMoving() const { return m_motion.isActive(); }
    /// How often the view has painted itself. Tests use it to show that it rests.
    quint64 paintCount() const { return m_paintCount; }

    QSize minimumSizeHint() const override { return {200, 80}; }

Q_SIGNALS:
    /// Another part of the song is shown.
    void scaleChanged();
    void followingChanged(bool follows);
    /// line() has changed.
    void lineMoved();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    WaveArea area() const;
    void setScale(WaveScale scale);
    void scrollByHand(double points);
    void zoomAroundLine(double factor);
    void showSong();
    void showJump();
    void updateMotion();
    void moveLine(double frame);
    void updateAround(double frame);

    loopHands::Grip gripAt(QPointF point) const;
    void showGrip(loopHands::Grip grip);
    void dragTo(double x, Qt::KeyboardModifiers modifiers);
    void finishDrag();

    void showBeats();
    std::optional<std::uint64_t> beatAt(QPointF point) const;
    void dragBeat(double frame, Qt::KeyboardModifiers modifiers);
    WaveGround groundOf(double columnFrames, std::int64_t first, std::int64_t end) const;
    void layLabels();
    void drawBars(QPainter &painter, double ratio);
    void drawLostTexts(QPainter &painter, double ratio) const;
    void drawRuler(QPainter &painter, double width, double ratio) const;
    void drawLoop(QPainter &painter, double ratio) const;
    void drawLine(QPainter &painter, double ratio) const;
    double deviceX(double frame, double ratio) const;

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    SongPeaks *m_peaks;
    std::function<void(quint64)> m_seek;
    SongBeats *m_beats = nullptr;
    SnapTo m_snapTo = SnapTo::Beat;
    WaveTiles m_tiles;
    WaveScale m_scale;
    std::optional<WaveScale> m_scaleBeforeLoop;
    bool m_isFollowing = true;
    bool m_isHeld = false;
    QColor m_loopColor = waveColors::loop;
    SmoothPosition m_line;
    QTimer m_motion;
    quint64 m_paintCount = 0;

    /// The button that is held down on the view.
    struct Press {
        loopHands::Drag drag;
        QPointF point;
        bool isDrag = false;                    ///< moved far enough
        std::optional<LoopRange> loop;          ///< that the drag would make
        std::optional<std::uint64_t> beat = {}; ///< that is dragged instead
        std::uint64_t target = 0;               ///< where it comes to lie
        std::optional<BeatGrid> grid = {};      ///< with the beat there
    };
    std::optional<Press> m_press;

    std::vector<LoopRange> m_lost; ///< where the beats are lost

    /// The numbers of bars, laid out for more than what is shown, because the wave moves.
    struct Labels {
        /// The number of a bar, and the frame of its first beat.
        struct Number {
            double frame;
            QStaticText text;
        };
        WaveScale scale{0.0, 0.0}; ///< that they were laid out for
        double from = 0.0;
        double to = 0.0;
        std::vector<Number> numbers;
    };
    Labels m_labels;
};

} // namespace lyrabox
