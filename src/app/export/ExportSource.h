#pragma once

#include "app/export/ExportPlan.h"

#include <optional>
#include <vector>

class LB_AudioController;

namespace lyrabox {

class Metronome;
class SongPractice;
class SongSound;

/// What the player and the practice record offer for an export. Main thread.
class ExportSource {
public:
    /// All must outlive the object.
    ExportSource(const LB_AudioController *audio, const SongPractice *practice,
                 const SongSound *sound, const Metronome *metronome)
        : m_audio(audio), m_practice(practice), m_sound(sound), m_metronome(metronome)
    {}

    /// Whether there is a song, and its loops are known.
    bool hasSong() const;
    std::uint64_t songFrames() const;
    /// The title of the song, or the name of its file.
    QString songTitle() const;

    /// How the player sounds now. `loop` is what will be exported; none for the song or for
    /// several loops. The bars that the user has told of a loop count for that loop only.
    exportPlan::Heard heard(std::optional<LoopRange> loop) const;

    /// A loop that can be exported.
    struct Loop {
        exportPlan::Part part;
        bool sounds = false; ///< the player repeats it
    };
    /// The loops that can be played. If the one that sounds is not kept, it comes first.
    std::vector<Loop> loops() const;

    /// Fills in the song's file and its tags. The title is the caller's.
    void describe(ExportRequest &request) const;

private:
    const LB_AudioController *m_audio;
    const SongPractice *m_practice;
    const SongSound *m_sound;
    const Metronome *m_metronome;
};

} // namespace lyrabox
