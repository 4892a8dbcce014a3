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

/// Decides which song plays next: the list in the order queued, or a shuffled copy of it, and a
/// position in it. Main thread only. Outlets are set once, before awakeFromNib(), and are not
/// owned.
class LB_QueueController : public QObject {
    Q_OBJECT

public:
    /// currentIndex() when the current song is not in the content.
    static constexpr std::uint64_t notFound = 9223372036854775807U;

    explicit LB_QueueController(QObject *parent = nullptr);

    void awakeFromNib();

    LB_AudioController *audio() const { return m_audio; }
    void setAudio(LB_AudioController *audio) { m_audio = audio; }
    QLabel *errorField() const { return m_errorField; }
    void setErrorField(QLabel *field);

    const lyrabox::TrackRecordList &orderedArray() const { return m_orderedArray; }
    const lyrabox::TrackRecordList &content() const { return m_content; }
    void setContent(const lyrabox::TrackRecordList &content);
    std::uint64_t currentIndex() const { return m_currentIndex; }
    bool isShuffling() const { return m_isShuffling; }
    void setIsShuffling(bool shuffling);
    const std::optional<QString> &queuedListID() const { return m_queuedListID; }

    void setPlayQueueWithListID(const lyrabox::TrackRecordList &list,
                                const std::optional<QString> &listID);
    void playTrack(const lyrabox::TrackRecordRef &track);
    /// A song that does not load is skipped; the last one skipped is reported. While many are
    /// skipped in a row the user may stop it, which empties the player and leaves the position at
    /// the song where it was stopped.
    void playNextTrack();

    /// Ask canPlayPreviousTrack() first.
    void playPreviousTrack();
    bool canPlayPreviousTrack() const { return m_currentIndex != 0; }

    /// Whether there is a song to go on or back to.
    bool hasNextTrack() const { return m_currentIndex + 1 < m_content.size(); }
    bool hasPreviousTrack() const
    {
        return m_currentIndex != 0 && m_currentIndex <= m_content.size();
    }

    /// The button's state has been taken into isShuffling() already.
    void shuffleButtonPressed(lyrabox::StateButton *sender);
    lyrabox::TrackRecordList shuffledArray() const;
    void displayLoadError(lyrabox::Status status);

    /// Whether songs that do not load are being skipped. Each of them becomes the current track and
    /// is announced as such; who only shows what is current can wait for skippingEnded().
    bool isSkipping() const { return m_isSkipping; }

    /// Called while songs are skipped, from a quarter of a second on and at most every 50 ms, with
    /// the number of songs skipped and of those that there are in this direction. It must not
    /// process events.
    void setProgressHook(lyrabox::ProgressHook hook) { m_progressHook = std::move(hook); }

    /// Lets the user stop the skipping.
    void setStopProbe(lyrabox::StopProbeMaker maker) { m_makeStopProbe = std::move(maker); }
    void setProgressClock(lyrabox::ProgressClock clock) { m_progressClock = std::move(clock); }

    /// Replaces the source of uniform random 32-bit numbers.
    void setRandomSource(std::function<std::uint32_t()> source) { m_random = std::move(source); }

Q_SIGNALS:
    void isShufflingChanged(bool shuffling);
    /// The content or the position in it may have changed.
    void queueChanged();

    /// The last of several songs has become the current track, or none has.
    void skippingEnded();

private:
    class Skip;

    void showLoadError(const lyrabox::TrackRecordRef &track, lyrabox::Status status);
    std::uint64_t indexOfCurrentTrack(const lyrabox::TrackRecordList &list) const;

    /// 0 also for a position outside the content, where nothing is loaded.
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
