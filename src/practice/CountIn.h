#pragma once

#include "platform/audio/Clicks.h"

#include <cstdint>

namespace lyrabox {

/// The beats around the place where the music begins after a count-in.
struct CountInPlace {
    double beatFrames = 22050.0; ///< the length of a beat, in frames of the song
    /// Frames from the place to the next beat; 0 if it is a beat. Less than `beatFrames`.
    double framesToBeat = 0.0;
    int nextBeat = 1;    ///< of that beat in its bar, from 1
    int beatsPerBar = 4; ///< 1 to 12
};

/// How long to count.
struct CountInLength {
    enum class Unit { Bars, Beats };
    static constexpr int maximumBars = 2;
    static constexpr int maximumBeats = 24;

    Unit unit = Unit::Bars;
    int amount = 1; ///< at least 1, at most the maximum of the unit; others count as the nearest

    bool operator==(const CountInLength &) const = default;
};

/// The silence and the clicks before the place. The clicks are the song's beats, continued to the
/// front. Bars are counted whole, from beat 1 on: if the place is no beat 1, a pick-up, the clicks
/// run on through the bar that has begun, up to the place. So many beats are counted as they are.
///
/// No lead-in at all if the length of a beat is not between a twentieth of a second and twelve
/// seconds.
LeadIn countIn(const CountInPlace &place, const CountInLength &length);

/// Silence without clicks, as long as so many beats. The same limits hold.
LeadIn rest(double beatFrames, int beats);

} // namespace lyrabox
