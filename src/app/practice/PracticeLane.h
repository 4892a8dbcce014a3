#pragma once

#include "app/practice/LaneLayout.h"
#include "practice/PracticeEdits.h"

#include <QHash>
#include <QStaticText>
#include <QWidget>

#include <optional>

class QHelpEvent;

namespace lyrabox {

class PracticeStore;
class SongPeaks;
class WaveView;

/// The strip above a wave with the markers and the brackets of the kept loops. It lies over the
/// strip of the WaveView, moves with it, and leaves to it everything that concerns the loop that
/// sounds. A click goes to a marker or calls a loop up; a drag moves markers, loops and their ends,
/// and snaps as the wave does. Main thread.
class PracticeLane : public QWidget {
    Q_OBJECT

public:
    /// The lane is a child of `wave`. `peaks` and `store` must outlive it.
    PracticeLane(WaveView *wave, SongPeaks *peaks, PracticeStore *store);

    /// The loop that is called up.
    void setCalledUp(std::optional<PracticeId> id);

    /// What is shown now.
    laneLayout::Lane lane() const { return layAt(devicePixelRatioF()); }

Q_SIGNALS:
    void playRequested(lyrabox::PracticeId loop);
    void seekRequested(lyrabox::PracticeId marker);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    /// A name as it was laid out last.
    struct Name {
        QString text;
        double width = 0.0;       ///< of the whole text, in points
        double shownWidth = -1.0; ///< of its room, in points
        double ratio = 0.0;       ///< device pixels per point
        QStaticText shown;
    };
    /// The button that is held down on a marker, or on a loop that does not sound.
    struct Press {
        laneLayout::Hit hit;
        double x = 0.0;
        bool isDrag = false;                       ///< moved far enough
        std::optional<PracticeEdit> edit = {};     ///< that the drag would make
        std::optional<PracticeRecord> record = {}; ///< with that edit
    };

    laneLayout::Lane layAt(double ratio) const;
    laneLayout::Hit hitAt(double x) const { return laneLayout::hitAt(lane(), x); }
    std::optional<laneLayout::Sounding> sounding() const;
    const PracticeRecord &record() const;
    QString nameOf(PracticeId id) const;
    Name &named(PracticeId id) const;
    void showRecord();
    void showColor();
    void endPress();
    void dragTo(double x, const loopHands::Snap &snap);
    void showCursor(const laneLayout::Hit &hit);
    bool showToolTip(const QHelpEvent &event);
    void drawBracket(QPainter &painter, const laneLayout::Bracket &bracket, double ratio) const;
    void drawFlag(QPainter &painter, const laneLayout::Flag &flag, const QColor &color,
                  double ratio) const;
    void drawName(QPainter &painter, PracticeId id, const laneLayout::NameRoom &room,
                  double ratio) const;

    WaveView *m_wave;
    SongPeaks *m_peaks;
    PracticeStore *m_store;
    std::optional<PracticeId> m_calledUp;
    std::optional<Press> m_press;
    mutable QHash<PracticeId, Name> m_names; ///< that were needed since the record changed
};

} // namespace lyrabox
