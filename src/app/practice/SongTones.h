#pragma once

#include "app/practice/SongPeaks.h"
#include "app/practice/SoundSettings.h"
#include "practice/PracticeRecord.h"

#include <QObject>

#include <optional>

class LB_AudioController;

namespace lyrabox {

class SongPractice;
class SongSound;

/// Tuning and key of the song that the pane shows, as they are heard at the present pitch. The song
/// is analysed after its peaks are measured. What is found is noted in its record, so that it need
/// not be analysed again. Main thread; the analysis runs on the thread of the peaks.
class SongTones : public QObject {
    Q_OBJECT

public:
    /// All must outlive this object. `sound` is told whether the song is mono.
    SongTones(LB_AudioController *audio, SongPractice *practice, SongPeaks *peaks, SongSound *sound,
              QObject *parent = nullptr);
    ~SongTones() override;

    bool hasSong() const { return m_peaks->frames() > 0; }
    /// Whether tuning and key are not known yet, because the analysis runs or waits.
    bool isListening() const;

    /// The tuning at the present pitch. None if it is not clear or not known.
    std::optional<HeardTuning> tuning() const;
    /// The keys at the present pitch, as the musician's instrument reads them. None as above.
    std::optional<KeyGuess> keys() const;

    /// Whether tune() would change the pitch.
    bool canTune() const;
    /// Sets the player's pitch so that the song is in tune with the musician's A.
    void tune();

    const SoundSettings &settings() const { return m_settings; }
    /// Numbers are brought within their ranges. The settings are stored.
    void setSettings(SoundSettings settings);

Q_SIGNALS:
    /// Anything above has changed.
    void changed();

private:
    /// What an analysis has found.
    struct Found {
        bool isMono = false;
        std::optional<PracticeTuning> tuning = {}; ///< none without memory, or if it was known
        std::optional<KeyGuess> keys = {};
    };
    static Found foundIn(const SongSamples &song, bool needsTones, const std::stop_token &stop);

    void followView();
    void forgetSong();
    void followRecord();
    void workOn();
    void stop();
    void noteFindings();
    bool isRecordOfSong() const;
    std::optional<PracticeTuning> known() const;

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    SongPeaks *m_peaks;
    SongSound *m_sound;
    SoundSettings m_settings;
    std::optional<Found> m_found; ///< none until the song was analysed
    std::optional<BackgroundRunner::Job> m_job;
};

} // namespace lyrabox
