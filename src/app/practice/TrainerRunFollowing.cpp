// What happens to a run of the trainer when the player or the record changes.

#include "app/practice/SongPractice.h"
#include "app/practice/TrainerRun.h"
#include "engine/LB_AudioController.h"

namespace lyrabox {

bool TrainerRun::songHasChanged() const
{
    const std::shared_ptr<const DecodedSong> song = m_song.lock();
    return song == nullptr || m_audio->decodedSong() != song;
}

/// After a load that has failed, the player has the samples of the former song, and its speed.
void TrainerRun::followSong()
{
    if (isRunning() && songHasChanged())
        stop(TrainerEnd::SongChanged);
    else if (isRunning() && m_audio->currentTrack() != m_track)
        stop(TrainerEnd::ByHand);
    Q_EMIT changed();
}

/// A load sets the speed of the new song. That is not the player's hand.
void TrainerRun::followSpeed()
{
    if (!isRunning() || m_isActing)
        return;
    if (songHasChanged())
        stop(TrainerEnd::SongChanged);
    else if (const double speed = m_audio->playbackSpeedPct(); speed == m_strip.speed)
        return;
    else if (m_rotation)
        carryOut(m_rotation->speedSet(speed));
    else
        carryOut(m_trainer.speedSet(speed));
}

void TrainerRun::followLoop()
{
    if (m_isActing)
        return;
    if (!isRunning()) {
        Q_EMIT changed();
        return;
    }
    const std::optional<LoopRange> range = m_audio->loop();
    if (songHasChanged()) {
        stop(TrainerEnd::SongChanged);
    } else if (range == m_range) {
        return;
    } else if (!range || m_practice->calledUp() != m_loop) {
        stop(TrainerEnd::LoopCleared);
    } else { // it was moved
        m_range = *range;
        prepareNextPass(trainer().order().next);
    }
}

void TrainerRun::followCalledUp()
{
    if (m_isActing)
        return;
    const std::optional<PracticeId> calledUp = m_practice->calledUp();
    if (!isRunning()) {
        Q_EMIT changed();
    } else if (calledUp == m_loop) {
        return;
    } else if (calledUp && m_audio->loop() == m_range && !m_rotation) {
        m_loop = calledUp; // A file that was read again has other identifiers.
        Q_EMIT changed();
    } else if (m_rotation && m_practice->record().loop(*m_loop) == nullptr) {
        carryOut(m_rotation->remove(*m_loop));
    } else {
        stop(TrainerEnd::LoopCleared);
    }
}

/// Settings that were changed apply at once, at the present speed. Loops that were deleted leave a
/// rotation.
void TrainerRun::followRecord()
{
    if (m_rotation) {
        for (const PracticeId id : m_rotation->loops()) {
            if (m_rotation && id != m_loop && m_practice->record().loop(id) == nullptr)
                carryOut(m_rotation->remove(id));
        }
    } else if (isRunning()) {
        TrainerSettings wanted = settings();
        clean(wanted);
        const double tempo = songTempo();
        const bool isBeats = wanted.unit == TempoUnit::BeatsPerMinute;
        if (isBeats && tempo <= 0.0) {
            stop();
            return;
        }
        const std::vector<int> ladder = ladderSpeeds(wanted, tempo);
        if (wanted != m_trainer.settings() || ladder != m_firstLadder) {
            const double speed = m_strip.speed;
            m_trainer.start(wanted, speed, tempo); // keeps the speed from before the run
            m_firstLadder = ladder;
            carryOut(m_trainer.speedSet(speed));
            return;
        }
    }
    Q_EMIT changed();
}

} // namespace lyrabox
