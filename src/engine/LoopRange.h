#pragma once

#include <cstdint>

namespace lyrabox {

/// A loop, in frames of the song. Playback jumps back to `start` when it reaches `end`, at the next
/// slice of 128 frames.
struct LoopRange {
    std::uint64_t start;
    std::uint64_t end;

    bool operator==(const LoopRange &) const = default;
};

} // namespace lyrabox
