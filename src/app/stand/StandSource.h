#pragma once

#include "app/practice/SmoothPosition.h"
#include "app/stand/StandText.h"

class LB_AudioController;

namespace lyrabox {

class Metronome;
class PracticePane;
class SongPractice;

/// What the player and the pane know of the song that plays. Main thread.
class StandSource {
public:
    /// All must outlive the object.
    StandSource(const LB_AudioController *audio, SongPractice *practice, const Metronome *metronome,
                const PracticePane *pane)
        : m_audio(audio), m_practice(practice), m_metronome(metronome), m_pane(pane)
    {}

    /// The facts of this moment.
    StandFacts facts();

    const LB_AudioController *audio() const { return m_audio; }
    SongPractice *practice() const { return m_practice; }
    const Metronome *metronome() const { return m_metronome; }
    const PracticePane *pane() const { return m_pane; }

private:
    void addLoop(StandFacts &facts) const;
    void addPlace(StandFacts &facts);
    void addTrainer(StandFacts &facts) const;

    const LB_AudioController *m_audio;
    SongPractice *m_practice;
    const Metronome *m_metronome;
    const PracticePane *m_pane;
    SmoothPosition m_line;
};

} // namespace lyrabox
