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

/// Decides what to do with input that the user made while the main thread was busy.
///
/// While the main thread loads a song or builds a list it handles no events. Input made during this
/// wait arrives in one burst afterwards, but refers to the old screen. This object knows which
/// input that is, and treats it specially:
///
/// - If the user picked several songs, only the last one is played, and only once. A song that was
///   just loaded is not loaded again.
/// - If the user pressed Play again because there was no sound yet, the press still means Play. If
///   the button showed Pause when the wait began, presses work as usual.
/// - Repeats of a held key are dropped, and so is the Escape that stopped the work.
/// - Clicks on a list that was being replaced are dropped.
///
/// All other input is handled as usual, in order. Work that is too short to show its progress does
/// not count as a wait. Main thread.
class InputAfterWait : public QObject {
    Q_OBJECT

public:
    /// `playButton` is the button that plays and pauses; `songs` is the view of the song list.
    /// Neither is owned; both must outlive the object. `clock` is replaced in tests.
    InputAfterWait(StateButton *playButton, QWidget *songs, ProgressClock clock = &monotonicTime);
    ~InputAfterWait() override;

    /// What the main thread works on.
    enum class Work { Load, List };

    /// Call this repeatedly while the main thread is busy with `work`.
    void noteWork(Work work);

    /// Call this when Escape has stopped the work. The key press is then not delivered.
    void dropEscape() { m_dropsEscape = true; }

    /// Whether input that is handled now was made during the last wait. True until a tenth of a
    /// second after the wait, because nobody reacts to its end any faster.
    bool isFromWait() const;

    /// Call this before acting on a press of the play button. Plays the song that was picked before
    /// the press, if any. Returns whether the press means Play, whatever the button's state is.
    bool pressMeansPlay();

    /// The user picked `track`. `loaded` is the song that the player has now; both may be null.
    /// `play` is called at once, when the input of the wait has been handled, or never.
    void pick(const TrackRecordRef &track, const TrackRecordRef &loaded,
              std::function<void()> play);

    /// Ends the special treatment of input. Public for tests.
    void settle();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isOnSongs(const QObject *watched) const;

    QWidget *m_songs;
    ProgressClock m_clock;
    QTimer m_settleTimer;
    bool m_busy = false;   ///< the event loop has not completed a round since noteWork()
    bool m_hasRun = false; ///< the event loop has begun its first round
    bool m_listChanged = false;
    bool m_loaded = false;
    bool m_showedPlay = false; ///< the button showed Play when the wait began
    bool m_dropsEscape = false;
    int m_stateBefore = 0;             ///< the play button's state before the current event
    std::chrono::milliseconds m_end{}; ///< when input is new again
    bool m_settling = false;           ///< input may still be from the wait
    std::function<void()> m_picked;    ///< plays the song picked last
};

} // namespace lyrabox
