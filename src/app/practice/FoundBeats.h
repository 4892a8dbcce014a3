#pragma once

#include "engine/LoopRange.h"
#include "platform/analysis/BeatFollower.h"
#include "practice/BeatGrid.h"

#include <memory>
#include <stop_token>

namespace lyrabox {

/// The beats of a song as grids: what the background thread finds. Any thread. All return within
/// 10 ms after a stop is requested, with any result. Without memory they find nothing.
namespace foundBeats {

/// What does not depend on taps.
struct Heard {
    std::shared_ptr<const SongOnsets> onsets; ///< never null
    LoopRange sounding{~std::uint64_t{0}, 0}; ///< from the first note to the last; ends before it
                                              ///< starts if there are none
};

/// A second of the song takes about a millisecond.
Heard heardIn(const SongSamples &song, const std::stop_token &stop);

/// The beats from the taps outwards, as far as they can be followed; at least those tapped. Bars
/// have so many beats. Takes about 0.1 s for four minutes.
BeatGrid ofTaps(const SongSamples &song, const SongOnsets &onsets, const TappedBeats &taps,
                int beatsPerBar, const std::stop_token &stop);

/// A guess, near a tempo if one is given. Its bars mean nothing. Takes as long as ofTaps().
BeatGrid guessed(const SongSamples &song, const SongOnsets &onsets, std::optional<double> tempo,
                 int beatsPerBar, const std::stop_token &stop);

} // namespace foundBeats
} // namespace lyrabox
