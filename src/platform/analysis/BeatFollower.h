#pragma once

#include "platform/analysis/BeatCurve.h"
#include "platform/analysis/SongSamples.h"
#include "platform/analysis/TapFit.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stop_token>
#include <vector>

namespace lyrabox {

/// A beat of a song.
struct FollowedBeat {
    std::uint64_t frame = 0;
    float hold = 0.0F; ///< how sure it is: from 0, where only its neighbours tell its place, to 1
};

/// The beats of a song, as far as they could be followed, in their order.
struct FollowedBeats {
    std::vector<FollowedBeat> beats;
    std::size_t one = 0;       ///< the index of the beat that was tapped first
    double tempo = 0.0;        ///< beats a minute, the middle one
    bool isLostBefore = false; ///< the song goes on before the first beat, but the beats are lost
    bool isLostAfter = false;  ///< the same behind the last beat
};

/// Follows the beats from those that were tapped outwards to both ends of the song. Tempo, octave
/// and the first beat are those of the taps; the tempo may change gradually, by up to 1.7 times.
/// Where the beats cannot be followed with certainty, they end. The beats that were tapped are
/// always among the result, even in silence.
///
/// `onsets` are the songOnsets() of the song. They do not depend on the taps, so keep them for the
/// next time. Without them the result is empty.
///
/// Any thread. For four minutes it takes about 0.1 s. Returns within 10 ms after a stop is
/// requested; the result is then empty. Throws std::bad_alloc without memory.
FollowedBeats followTaps(const SongSamples &song, const SongOnsets &onsets, const TappedBeats &taps,
                         const std::stop_token &stop = {});

/// Guesses the beats of a whole song. `tempo` is what is known about it, in beats a minute, exact
/// to 5 % and brought within TapLimits; a guess without it is often half or twice as fast as a
/// listener's. Nothing tells which beat is the first of a bar: `one` is 0. Empty if the song has no
/// onsets.
///
/// Any thread; time, stop and errors as for followTaps().
FollowedBeats suggestBeats(const SongSamples &song, const SongOnsets &onsets,
                           std::optional<double> tempo, const std::stop_token &stop = {});

} // namespace lyrabox
