#pragma once

#include <span>
#include <string_view>

namespace lyrabox {

/// Differences between the versions of Rubber Band that the stretcher must know about. A new
/// version that differs gets a new row in timePitchLibraries().
struct TimePitchLibrary {
    int major; ///< the first version that
    int minor; ///< behaves like this

    /// The library turns left and right into mid and side itself, and back again. Otherwise the
    /// stretcher has to do so.
    bool makesMidAndSide;

    /// RubberBandStretcher::reset() allocates memory, so the callback thread must not call it.
    bool allocatesInReset;
};

/// One row per difference, the oldest version first. Any thread.
std::span<const TimePitchLibrary> timePitchLibraries() noexcept;

/// The row for `version`, for example "3.1.2": the last row that is not newer. Any thread.
const TimePitchLibrary &timePitchLibraryFor(std::string_view version) noexcept;

} // namespace lyrabox
