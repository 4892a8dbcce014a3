#include "platform/audio/TimePitchLibrary.h"

#include <array>
#include <charconv>
#include <utility>

namespace lyrabox {

namespace {

// According to its changelog, and confirmed with 3.1.2 and 3.3.0.
constexpr std::array<TimePitchLibrary, 2> libraries{{
    {.major = 3, .minor = 0, .makesMidAndSide = false, .allocatesInReset = false},
    {.major = 3, .minor = 2, .makesMidAndSide = true, .allocatesInReset = true},
}};

std::pair<int, int> majorAndMinor(std::string_view version) noexcept
{
    std::pair<int, int> result{0, 0};
    const char *const end = version.data() + version.size();
    const auto first = std::from_chars(version.data(), end, result.first);
    if (first.ptr != end)
        std::from_chars(first.ptr + 1, end, result.second);
    return result;
}

} // namespace

std::span<const TimePitchLibrary> timePitchLibraries() noexcept
{
    return libraries;
}

const TimePitchLibrary &timePitchLibraryFor(std::string_view version) noexcept
{
    const std::pair wanted = majorAndMinor(version);
    const TimePitchLibrary *found = libraries.data();
    for (const TimePitchLibrary &library : libraries) {
        if (std::pair(library.major, library.minor) <= wanted)
            found = &library;
    }
    return *found;
}

} // namespace lyrabox
