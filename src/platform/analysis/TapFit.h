#pragma once

#include <cstdint>
#include <span>
#include <variant>

namespace lyrabox {

/// Beats that a player has tapped, evened out.
struct TappedBeats {
    double first = 0.0;  ///< the frame of the beat tapped first, which may be before the song
    double period = 0.0; ///< frames from beat to beat
    int before = 0;      ///< beats tapped at places before `first`
    int after = 0;       ///< beats from `first` to the last one tapped

    /// The frame of a beat, 0 being the first.
    double frame(int beat) const { return first + period * beat; }
};

/// Why taps are no beats.
enum class TapFault {
    TooFew,  ///< fewer than TapLimits::fewest at different places
    TooSlow, ///< slower than TapLimits::slowest
    TooFast, ///< faster than TapLimits::fastest
    Uneven,  ///< they are not about equally far apart, even if some were left out
};

/// What can be tapped.
struct TapLimits {
    static constexpr int fewest = 4;
    static constexpr double slowest = 25.0; ///< beats a minute
    static constexpr double fastest = 320.0;
};

/// Finds the beats of taps at these places of a song. The first tap is the first beat of a bar. The
/// others may be in any order: in a loop, places repeat. Taps at nearly the same place count as
/// one, and a beat that was left out is filled in.
///
/// With eight taps that are off by up to 40 ms, the period is exact to about 5 ms.
std::variant<TappedBeats, TapFault> fitTaps(std::span<const std::uint64_t> taps, double sampleRate);

} // namespace lyrabox
