#pragma once

#include "app/practice/LoopHands.h"
#include "engine/DecodedSong.h"
#include "engine/TrackRecord.h"
#include "practice/PracticeStore.h"

#include <QObject>

#include <functional>
#include <optional>

class LB_AudioController;

namespace lyrabox {

/// The kept loops and markers of the song that plays: its PracticeStore, the loop that is called
/// up, and the entry that is selected. Opens the record when a song is loaded, before the song is
/// heard, and saves when the program ends. Main thread.
///
/// A loop is called up while it is the loop that the player repeats. Whatever changes the one
/// changes the other. It is no longer called up when the player's loop is cleared, or becomes
/// another one.
class SongPractice : public QObject {
    Q_OBJECT

public:
    /// `audio` must outlive this object. `seek` seeks to a frame by the navigation bar's rule.
    /// PracticeStore describes `folder` and `makeReader`. No song is opened before setOpen(true).
    SongPractice(LB_AudioController *audio, std::function<void(quint64)> seek, QString folder,
                 SongReaderFactory makeReader, QObject *parent = nullptr);
    ~SongPractice() override;

    /// Whether the pane is open. While it is closed, songs that are loaded are not opened here. The
    /// present song stays open, so its edits can still be undone when the pane is opened again; its
    /// edits are written.
    void setOpen(bool open);
    bool isOpen() const { return m_isOpen; }

    PracticeStore &store() { return m_store; }
    const PracticeStore &store() const { return m_store; }
    const PracticeRecord &record() const { return m_store.record(); }

    /// Whether the loop can be called up: all of it lies within the song.
    bool isPlayable(const PracticeLoop &loop) const;

    /// The loop that is called up. Null or none if there is none.
    std::optional<PracticeId> calledUp() const { return m_calledUp; }
    const PracticeLoop *calledUpLoop() const;

    /// Calls a loop up, selects it, and plays it from its start. That is the state after two
    /// presses of the loop button. Sets the speed and the pitch that are kept with the loop. Starts
    /// playback if the player is paused. False if the loop is unknown or not playable.
    bool play(PracticeId loop);

    /// Whether play() leaves the speed as it is, because somebody else sets it. False at first.
    void setSpeedHeld(bool held) { m_speedIsHeld = held; }

    /// Plays the player's loop, kept or not, from its start, after the lead-in of a start if there
    /// is one. Does nothing without a loop.
    void playFromStart();

    /// Goes to a marker by the navigation bar's rule. False if it is unknown or beyond the song.
    bool seekTo(PracticeId marker);

    /// The selected loop or marker of the list. Call it with nothing to select none.
    std::optional<PracticeId> selection() const { return m_selection; }
    void select(std::optional<PracticeId> entry);

    /// Makes the player repeat `range`, and plays what has changed at once. `grip` says what was
    /// moved. With Grip::Nothing it is a new loop, which is not kept. Otherwise, if a loop is
    /// called up, that loop is edited.
    void changeLoop(LoopRange range, loopHands::Grip grip, PracticeStep step = PracticeStep::New);

    /// Whether the player repeats a loop that can be kept and is not kept yet.
    bool canKeepLoop() const;
    /// Keeps the player's loop. It is called up then. False if that is not possible.
    bool keepLoop();

    /// Adds a marker and selects it. None if the record refuses it.
    std::optional<PracticeId> addMarker(quint64 frame, const QString &name = {});

    /// Changes the name of a loop or marker. False if it is unknown or the record refuses it.
    bool rename(PracticeId entry, const QString &name);

    /// Removes a loop or marker. A loop that sounds goes on, but is no longer kept. False as above.
    bool remove(PracticeId entry);

    /// Asks the list for the name of an entry: sends nameWanted().
    void askForName(PracticeId entry);

Q_SIGNALS:
    /// The pane was opened or closed.
    void openChanged();
    void calledUpChanged();
    void selectionChanged();
    /// PracticeStore::problem() or isIdentifying() changed. For recordChanged() see store().
    void problemChanged();
    /// The user wants to type a name for this loop or marker.
    void nameWanted(lyrabox::PracticeId entry);

private:
    LoopRange playedRange(LoopRange range) const;
    void followTrack();
    void followRecord();
    void followPlayer();
    void setCalledUp(std::optional<PracticeLoop> loop);

    LB_AudioController *m_audio;
    std::function<void(quint64)> m_seek;
    BackgroundRunner m_runner; ///< hashes songs
    PracticeStore m_store;
    bool m_isOpen = false;
    bool m_speedIsHeld = false;
    std::weak_ptr<TrackRecord> m_track; ///< the player's, when it was last told of
    std::weak_ptr<const DecodedSong> m_samples;
    std::optional<PracticeId> m_calledUp;
    PracticeLoop m_calledUpCopy; ///< as it was last seen, to find it in a file that is read again
    std::optional<PracticeId> m_selection;
};

} // namespace lyrabox
