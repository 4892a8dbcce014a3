#include "app/practice/SongTones.h"

#include "app/practice/SongPractice.h"
#include "app/practice/SongSound.h"
#include "engine/LB_AudioController.h"
#include "platform/analysis/SongPartials.h"

#include <cmath>
#include <new>
#include <utility>

namespace lyrabox {

SongTones::SongTones(LB_AudioController *audio, SongPractice *practice, SongPeaks *peaks,
                     SongSound *sound, QObject *parent)
    : QObject(parent),
      m_audio(audio),
      m_practice(practice),
      m_peaks(peaks),
      m_sound(sound),
      m_settings(storedSoundSettings())
{
    connect(peaks, &SongPeaks::songChanged, this, &SongTones::forgetSong);
    connect(peaks, &SongPeaks::grown, this, &SongTones::workOn);
    connect(peaks, &SongPeaks::wantedChanged, this, &SongTones::followView);
    connect(&practice->store(), &PracticeStore::recordChanged, this, &SongTones::followRecord);
    connect(audio, &LB_AudioController::speedOrPitchChanged, this, &SongTones::changed);
}

SongTones::~SongTones()
{
    stop();
}

/// While another song is being loaded, its record is open before the peaks have its samples.
bool SongTones::isRecordOfSong() const
{
    return m_peaks->frames() > 0 && m_peaks->song() == m_audio->decodedSong();
}

std::optional<PracticeTuning> SongTones::known() const
{
    if (!isRecordOfSong())
        return std::nullopt;
    const PracticeSound &sound = m_practice->record().sound;
    if (sound.tuning)
        return sound.tuning;
    return m_found ? m_found->tuning : std::nullopt;
}

bool SongTones::isListening() const
{
    return m_peaks->frames() > 0 && !m_found && !known();
}

std::optional<HeardTuning> SongTones::tuning() const
{
    const std::optional<PracticeTuning> song = known();
    if (!song || !song->isClear)
        return std::nullopt;
    return heardTuning(song->tuning, static_cast<double>(m_audio->playbackPitch()),
                       m_settings.ownA);
}

std::optional<KeyGuess> SongTones::keys() const
{
    const std::optional<HeardTuning> heard = tuning();
    const PracticeSound &sound = m_practice->record().sound;
    const std::optional<KeyGuess> song = sound.tuning ? sound.keys
                                         : m_found    ? m_found->keys
                                                      : std::nullopt;
    if (!heard || !song)
        return std::nullopt;
    const int semitones = heard->semitones + readAbove(m_settings.instrument);
    return KeyGuess{.first = transposed(song->first, semitones),
                    .second = transposed(song->second, semitones)};
}

bool SongTones::canTune() const
{
    const std::optional<HeardTuning> heard = tuning();
    const auto pitch = static_cast<double>(m_audio->playbackPitch());
    const std::optional<int> wanted = heard ? pitchInTune(*heard, pitch) : std::nullopt;
    return wanted && *wanted != std::lround(pitch);
}

void SongTones::tune()
{
    if (canTune())
        m_audio->setPlaybackPitch(static_cast<float>(
            *pitchInTune(*tuning(), static_cast<double>(m_audio->playbackPitch()))));
}

void SongTones::setSettings(SoundSettings settings)
{
    clean(settings);
    if (std::exchange(m_settings, settings) == settings)
        return;
    store(settings);
    Q_EMIT changed();
}

/// The song is shown again, or no longer.
void SongTones::followView()
{
    if (m_peaks->isWanted())
        workOn();
    else
        stop();
}

/// There is another song, or none.
void SongTones::forgetSong()
{
    stop();
    m_found.reset();
    Q_EMIT changed();
}

/// The record is another one, or has other content.
void SongTones::followRecord()
{
    noteFindings();
    Q_EMIT changed();
}

void SongTones::stop()
{
    if (const auto job = std::exchange(m_job, std::nullopt))
        m_peaks->runner().cancel(*job);
}

void SongTones::workOn()
{
    const bool isReady = m_peaks->frames() > 0 && m_peaks->isComplete() && m_peaks->isWanted();
    if (m_job || m_found || !isReady)
        return;
    m_job = m_peaks->runner().run(
        [song = m_peaks->song(), needsTones = !known()](const std::stop_token &stop) {
            return foundIn(samplesOf(song.get()), needsTones, stop);
        },
        [this](Found found) {
            m_job.reset();
            m_found = std::move(found);
            if (m_found->isMono)
                m_sound->noteMono(m_peaks->song());
            noteFindings();
            Q_EMIT changed();
        });
}

/// Any thread.
SongTones::Found SongTones::foundIn(const SongSamples &song, bool needsTones,
                                    const std::stop_token &stop)
{
    Found found{.isMono = song.isMono()};
    if (!needsTones)
        return found;
    try {
        const SongPartials partials = songPartials(song, stop);
        const std::optional<SongTuning> tuning = songTuning(partials);
        found.tuning =
            PracticeTuning{.isClear = tuning.has_value(), .tuning = tuning.value_or(SongTuning())};
        if (tuning)
            found.keys = songKey(partials, tuning->cents);
    } catch (const std::bad_alloc &) {
        found.tuning.reset();
    }
    return found;
}

/// Puts what was found into the record, unless that has it.
void SongTones::noteFindings()
{
    if (m_found && m_found->tuning && isRecordOfSong() && !m_practice->record().sound.tuning)
        m_practice->store().setFindings(m_found->tuning, m_found->keys);
}

} // namespace lyrabox
