#pragma once

#include <chrono>

namespace lyrabox {

/// The time on a clock that never goes back and that nobody can set, in whole milliseconds. Only
/// differences mean something. Any thread.
inline std::chrono::milliseconds monotonicTime()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

} // namespace lyrabox
