#pragma once

#include <chrono>

namespace lyrabox {

/// The time of a monotonic clock in whole milliseconds. Only differences are meaningful. Any
/// thread.
inline std::chrono::milliseconds monotonicTime()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

} // namespace lyrabox
