#pragma once

#include <span>
#include <string_view>

namespace lyrabox {

/// What a version of Rubber Band does that the stretcher has to know. A new version that differs
/// is a new row of timePitchLibraries().
struct TimePitchLibrary {
    int major; ///< the first version
    int minor; ///< that does so

    /// Given two channels that belong together it works on mid and side, and gives left and right
    /// back. Otherwise it is fed with mid and side.
    bool makesMidAndSide;

    /// RubberBandStretcher::reset() allocates memory, so that it must not be called on the callback
    /// thread.
    bool allocatesInReset;
};

/// One row per change, the oldest version first. Any thread.
std::span<const TimePitchLibrary> timePitchLibraries() noexcept;

/// The row for `version` ("3.1.2"): the last one that is not newer. Any thread.
const TimePitchLibrary &timePitchLibraryFor(std::string_view version) noexcept;

} // namespace lyrabox
