#include "app/practice/SongPractice.h"

#include "app/practice/LoopEdits.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <utility>

namespace lyrabox {

namespace {

LoopRange rangeOf(const PracticeLoop &loop)
{
    return {.start = loop.from, .end = loop.to};
}

} // namespace

SongPractice::SongPractice(LB_AudioController *audio, std::function<void(quint64)> seek,
                           QString folder, SongReaderFactory makeReader, QObject *parent)
    : QObject(parent),
      m_audio(audio),
      m_seek(std::move(seek)),
      m_store(std::move(folder), std::move(makeReader), m_runner)
{
    connect(&m_store, &PracticeStore::recordChanged, this, &SongPractice::followRecord);
    connect(&m_store, &PracticeStore::stateChanged, this, &SongPractice::problemChanged);
    connect(audio, &LB_AudioController::loopChanged, this, &SongPractice::followPlayer);
    // A song that has just been loaded starts before its load is announced.
    connect(audio, &LB_AudioController::aboutToStart, this, [this] {
        if (m_audio->decodedSong() != m_samples.lock())
            followTrack();
    });
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, notification::currentTrackChanged, [this] { followTrack(); });
    center.addObserver(this, notification::applicationWillTerminate, [this] { m_store.save(); });
}

SongPractice::~SongPractice() = default;

void SongPractice::setOpen(bool open)
{
    if (std::exchange(m_isOpen, open) == open)
        return;
    if (!open)
        m_store.save();
    else if (!m_store.hasSong())
        followTrack();
    Q_EMIT openChanged();
}

/// Opens the player's song.
void SongPractice::followTrack()
{
    const TrackRecordRef track = m_audio->currentTrack();
    const std::shared_ptr<const DecodedSong> samples = m_audio->decodedSong();
    // After a load that has failed, the player still has the samples of another song.
    const bool isLoaded =
        track && samples && (samples != m_samples.lock() || track == m_track.lock());
    m_track = track;
    m_samples = samples;
    if (m_isOpen && isLoaded)
        m_store.openSong({.path = track->fileURL.toLocalFile(),
                          .title = track->title.value_or(QString()),
                          .artist = track->artist,
                          .frames = m_audio->totalFrames()});
    else if (m_store.hasSong())
        m_store.closeSong();
}

bool SongPractice::isPlayable(const PracticeLoop &loop) const
{
    return loop.isWithin(m_audio->totalFrames());
}

const PracticeLoop *SongPractice::calledUpLoop() const
{
    return m_calledUp ? record().loop(*m_calledUp) : nullptr;
}

/// Tells of the change, and lets the selection follow.
void SongPractice::setCalledUp(std::optional<PracticeLoop> loop)
{
    const auto id = loop ? std::optional(loop->id) : std::nullopt;
    if (loop)
        m_calledUpCopy = std::move(*loop);
    const auto before = std::exchange(m_calledUp, id);
    if (id && id != before)
        select(id);
    else if (!id && before && m_selection == before)
        select(std::nullopt);
    if (before != id)
        Q_EMIT calledUpChanged();
}

/// A loop that reaches to the song's end is played up to the last frame that jumps back.
LoopRange SongPractice::playedRange(LoopRange range) const
{
    const quint64 last = m_audio->lastLoopEnd();
    if (range.end > last && range.start < last)
        range.end = last;
    return range;
}

/// The record is another one, or has other content.
void SongPractice::followRecord()
{
    if (m_calledUp) {
        const PracticeLoop *kept = calledUpLoop();
        if (kept == nullptr) // A file that is read again has other identifiers.
            kept = loopEdits::sameLoop(record(), m_calledUpCopy);
        if (kept == nullptr || !isPlayable(*kept)) {
            setCalledUp(std::nullopt);
        } else {
            const LoopRange range = playedRange(rangeOf(*kept));
            setCalledUp(*kept);
            if (m_audio->loop() != range)
                m_audio->setLoop(range);
        }
    }
    if (m_selection && !record().loop(*m_selection) && !record().marker(*m_selection))
        select(std::nullopt);
}

/// The player's loop was set or cleared, here or elsewhere.
void SongPractice::followPlayer()
{
    if (!m_calledUp)
        return;
    const PracticeLoop *kept = calledUpLoop();
    if (kept == nullptr || m_audio->loop() != playedRange(rangeOf(*kept)))
        setCalledUp(std::nullopt);
}

bool SongPractice::play(PracticeId loop)
{
    const PracticeLoop *kept = record().loop(loop);
    if (kept == nullptr || !isPlayable(*kept))
        return false;
    const PracticeLoop called = *kept;
    m_calledUp.reset(); // The change of the player's loop is no change of a loop that is called up.
    m_audio->setLoop(playedRange(rangeOf(called)));
    if (called.speed && !m_speedIsHeld)
        m_audio->setPlaybackSpeedPct(static_cast<float>(*called.speed));
    if (called.pitch)
        m_audio->setPlaybackPitch(static_cast<float>(*called.pitch));
    setCalledUp(called);
    playFromStart();
    if (!m_audio->isRunning()) {
        m_audio->playPauseButton()->setState(1);
        m_audio->playPauseButtonPressed(m_audio->playPauseButton());
    }
    return true;
}

void SongPractice::playFromStart()
{
    if (const std::optional<LoopRange> loop = m_audio->loop())
        m_audio->startAtFrame(loop->start);
}

bool SongPractice::seekTo(PracticeId marker)
{
    const PracticeMarker *kept = record().marker(marker);
    if (kept == nullptr || kept->at >= m_audio->totalFrames())
        return false;
    m_seek(kept->at);
    return true;
}

void SongPractice::select(std::optional<PracticeId> entry)
{
    if (std::exchange(m_selection, entry) != entry)
        Q_EMIT selectionChanged();
}

void SongPractice::changeLoop(LoopRange range, loopHands::Grip grip, PracticeStep step)
{
    const PracticeLoop *kept = grip == loopHands::Grip::Nothing ? nullptr : calledUpLoop();
    bool isEdited = false;
    if (kept != nullptr) {
        PracticeLoop changed = *kept;
        changed.from = range.start;
        changed.to = range.end;
        isEdited =
            m_store.apply({PutLoop{changed}}, step); // followRecord() moves the player's loop
    }
    if (!isEdited)
        m_audio->setLoop(playedRange(range));
    m_audio->setCurrentFrame(
        loopHands::playedFrom(grip, range, m_audio->audioBufferFormat().mSampleRate));
}

bool SongPractice::canKeepLoop() const
{
    const std::optional<LoopRange> loop = m_audio->loop();
    return loop && loop->start < loop->end && loop->end <= m_audio->totalFrames() && !m_calledUp &&
           !m_store.isReadOnly() && record().loops.size() < PracticeLimits::loops;
}

bool SongPractice::keepLoop()
{
    if (!canKeepLoop())
        return false;
    const PracticeLoop loop = loopEdits::keptLoop(record(), *m_audio->loop());
    if (!m_store.apply({PutLoop{loop}}))
        return false;
    setCalledUp(loop);
    return true;
}

std::optional<PracticeId> SongPractice::addMarker(quint64 frame, const QString &name)
{
    const PracticeMarker marker{.at = frame, .name = name};
    if (!m_store.apply({PutMarker{marker}}))
        return std::nullopt;
    select(marker.id);
    return marker.id;
}

bool SongPractice::rename(PracticeId entry, const QString &name)
{
    if (const PracticeLoop *kept = record().loop(entry)) {
        PracticeLoop loop = *kept;
        loop.name = name;
        return m_store.apply({PutLoop{loop}});
    }
    if (const PracticeMarker *kept = record().marker(entry)) {
        PracticeMarker marker = *kept;
        marker.name = name;
        return m_store.apply({PutMarker{marker}});
    }
    return false;
}

bool SongPractice::remove(PracticeId entry)
{
    if (record().loop(entry) != nullptr)
        return m_store.apply({RemoveLoop{entry}});
    if (record().marker(entry) != nullptr)
        return m_store.apply({RemoveMarker{entry}});
    return false;
}

void SongPractice::askForName(PracticeId entry)
{
    if (!m_store.isReadOnly() && (record().loop(entry) || record().marker(entry)))
        Q_EMIT nameWanted(entry);
}

} // namespace lyrabox
