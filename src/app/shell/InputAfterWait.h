#pragma once

#include "engine/TrackRecord.h"
#include "platform/foundation/MonotonicClock.h"
#include "platform/foundation/ProgressPacer.h"

#include <QObject>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace lyrabox {

class StateButton;

/// What the user does while the main thread loads a song or builds a list is handled when it is
/// done, all at once, and was meant for what the screen showed before. This object knows which
/// input that is, and what it means:
///
/// - A song picked is played once: of several the last, and not one that was being loaded anyway.
/// - Play, pressed again because nothing was heard yet, stays Play. Where the button showed Pause
///   when the wait began, every press counts as always.
/// - What a held key repeated is dropped, Escape once it has stopped the work, and so is a click at
/// a row of a list that was just being
///   replaced; everything else is handled as it comes, in its order.
///
/// Work that is too short to show its progress makes no such wait. Main thread.
class InputAfterWait : public QObject {
    Q_OBJECT

public:
    /// `playButton` shows what a press of it would do; `songs` is the view of the list. Neither is
    /// owned.
    InputAfterWait(StateButton *playButton, QWidget *songs, ProgressClock clock = &monotonicTime);
    ~InputAfterWait() override;

    /// What the main thread is busy with; told while it is.
    enum class Work { Load, List };
    void waiting(Work work);

    /// Escape, pressed in this wait, has stopped the work: it is not delivered as well.
    void dropEscape() { m_dropsEscape = true; }

    /// Whether what is handled now was done during the last wait. Until a tenth of a second after
    /// it: nobody answers to its end sooner.
    bool isFromWait() const;

    /// Before a press of the play button is acted on: carries out what was picked before it, and
    /// tells whether the press asks for playing whatever the button's state has become.
    bool pressMeansPlay();

    /// The user picked `track`; `loaded` is the song that the player has now. `play` is called at
    /// once, at the end of the wait's input, or never.
    void pick(const TrackRecordRef &track, const TrackRecordRef &loaded,
              std::function<void()> play);

    /// Ends the wait's input; public for tests.
    void settle();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isOnSongs(const QObject *watched) const;

    QWidget *m_songs;
    ProgressClock m_clock;
    QTimer m_settleTimer;
    bool m_busy = false;   ///< since the wait was told of, the event loop has not run a whole round
    bool m_hasRun = false; ///< but it runs
    bool m_listChanged = false;
    bool m_loaded = false;
    bool m_showedPlay = false;
    bool m_dropsEscape = false;
    int m_stateBefore = 0; ///< of the button, before the event that is handled now
    std::chrono::milliseconds m_end{};
    bool m_settling = false;
    std::function<void()> m_picked;
};

} // namespace lyrabox
