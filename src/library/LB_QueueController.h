#pragma once

#include "engine/TrackRecord.h"
#include "platform/foundation/MonotonicClock.h"
#include "platform/foundation/ProgressPacer.h"
#include "platform/foundation/Status.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>

class LB_AudioController;
class QLabel;

namespace lyrabox {
class StateButton;
}

/// Decides which song plays next. Holds a list in queued order, a copy that may be shuffled, and a
/// position in that copy. Main thread only. Outlets are not owned; set them once, before
/// awakeFromNib().
class LB_QueueController : public QObject {
    Q_OBJECT

public:
    /// Value of currentIndex() if the current song is not in content().
    static constexpr std::uint64_t notFound = 9223372036854775807U;

    explicit LB_QueueController(QObject *parent = nullptr);

    /// Reads the remembered shuffle state. Call it once, after the outlets are set.
    void awakeFromNib();

    LB_AudioController *audio() const { return m_audio; }
    void setAudio(LB_AudioController *audio) { m_audio = audio; }
    QLabel *errorField() const { return m_errorField; }
    /// The label that shows load errors.
    void setErrorField(QLabel *field);

    /// The list in queued order.
    const lyrabox::TrackRecordList &orderedArray() const { return m_orderedArray; }

    /// The list in playing order.
    const lyrabox::TrackRecordList &content() const { return m_content; }
    void setContent(const lyrabox::TrackRecordList &content);
    std::uint64_t currentIndex() const { return m_currentIndex; }
    bool isShuffling() const { return m_isShuffling; }
    void setIsShuffling(bool shuffling);
    const std::optional<QString> &queuedListID() const { return m_queuedListID; }

    /// Queues a list. The position moves to the current song if the list contains it.
    void setPlayQueueWithListID(const lyrabox::TrackRecordList &list,
                                const std::optional<QString> &listID);

    /// Loads a song and starts it. On failure shows the error and empties the player.
    void playTrack(const lyrabox::TrackRecordRef &track);

    /// Loads the next song. Skips songs that cannot be loaded and shows the error of the last one.
    /// The user can stop a long run of them; then the player is empty and the position stays where
    /// it was stopped.
    void playNextTrack();

    /// Loads the previous song, skipping like playNextTrack(). Call it only if
    /// canPlayPreviousTrack().
    void playPreviousTrack();
    bool canPlayPreviousTrack() const { return m_currentIndex != 0; }

    /// Whether a song follows the current one.
    bool hasNextTrack() const { return m_currentIndex + 1 < m_content.size(); }

    /// The song that playNextTrack() would load first. Null if there is none.
    lyrabox::TrackRecordRef nextTrack() const;

    /// Whether a song precedes the current one. Unlike canPlayPreviousTrack(), false if the
    /// current song is not in the content.
    bool hasPreviousTrack() const
    {
        return canPlayPreviousTrack() && m_currentIndex <= m_content.size();
    }

    /// Reorders the queue after a click on the button. isShuffling() must have the new state
    /// already.
    void shuffleButtonPressed(lyrabox::StateButton *sender);

    /// The queued list in random order. The current song comes first, if the list contains it.
    lyrabox::TrackRecordList shuffledArray() const;

    /// Shows that the current track could not be loaded.
    void displayLoadError(lyrabox::Status status);

    /// Whether songs that cannot be loaded are being skipped. Each of them becomes the current
    /// track and is announced. Observers that only display the current track can wait for
    /// skippingEnded().
    bool isSkipping() const { return m_isSkipping; }

    /// Sets a function that is called while songs are skipped: first after a quarter of a second,
    /// then at most every 50 ms. It gets the number of songs skipped and the number of songs in
    /// this direction. It must not process events.
    void setProgressHook(lyrabox::ProgressHook hook) { m_progressHook = std::move(hook); }

    /// Sets the probe that says whether the user wants to stop skipping.
    void setStopProbe(lyrabox::StopProbeMaker maker) { m_makeStopProbe = std::move(maker); }

    /// Replaces the clock of the progress. For tests.
    void setProgressClock(lyrabox::ProgressClock clock) { m_progressClock = std::move(clock); }

    /// Replaces the source of uniform random 32-bit numbers. For tests.
    void setRandomSource(std::function<std::uint32_t()> source) { m_random = std::move(source); }

Q_SIGNALS:
    void isShufflingChanged(bool shuffling);
    /// The content or the position in it may have changed.
    void queueChanged();

    /// The skipping has ended: the last song was loaded, or none was.
    void skippingEnded();

private:
    class Skip;

    void showLoadError(const lyrabox::TrackRecordRef &track, lyrabox::Status status);
    std::uint64_t indexOfCurrentTrack(const lyrabox::TrackRecordList &list) const;

    /// Returns noError for a position outside the content; nothing is loaded then.
    lyrabox::Status loadTrackAtCurrentIndex();

    LB_AudioController *m_audio = nullptr;
    QLabel *m_errorField = nullptr;
    lyrabox::TrackRecordList m_orderedArray;
    lyrabox::TrackRecordList m_content;
    std::uint64_t m_currentIndex = 0;
    std::optional<QString> m_queuedListID;
    bool m_isShuffling = false;
    bool m_isSkipping = false;
    lyrabox::ProgressHook m_progressHook;
    lyrabox::StopProbeMaker m_makeStopProbe;
    lyrabox::ProgressClock m_progressClock = &lyrabox::monotonicTime;
    std::function<std::uint32_t()> m_random;
};
