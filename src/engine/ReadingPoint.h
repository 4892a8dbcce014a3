#pragma once

#include "platform/audio/TripleBuffer.h"

#include <atomic>
#include <cstdint>

namespace lyrabox::engine {

/// The read position of the render routine, and the loop's last jump. Together they tell which
/// position was read a moment ago. Positions and distances are in frames of the song.
struct ReadingPoint {
    std::uint64_t frame = 0;           ///< the next frame to render
    std::uint64_t seekCount = 0;       ///< the number of seeks before `frame` was read
    std::uint64_t jumps = 0;           ///< how often the same loop has jumped since the last seek
    std::uint64_t jumpedFrom = 0;      ///< the frame before the last jump; valid if `jumps` > 0
    std::uint64_t jumpedTo = 0;        ///< the frame after the last jump
    std::uint64_t framesSinceJump = 0; ///< frames that were read after the last jump

    /// The render routine went from `from` to `to` because of a loop.
    void jump(std::uint64_t from, std::uint64_t to) noexcept
    {
        jumps = jumps > 0 && from == jumpedFrom && to == jumpedTo ? jumps + 1 : 1;
        jumpedFrom = from;
        jumpedTo = to;
        framesSinceJump = 0;
    }

    /// The position that was read `distance` frames ago. 0 if it lies before the song.
    std::uint64_t positionBefore(std::uint64_t distance) const noexcept;
};

/// Hands the reading point from the callback thread to the main thread.
struct ReadingPointExchange {
    ReadingPoint current; ///< callback thread
    TripleBuffer<ReadingPoint> published;
    ReadingPoint lastSeen; ///< main thread, under the engine's mutex
    /// How often a seek has set the position. It rises after the position was set, so a callback
    /// that sees the new count also sees the new position.
    std::atomic<std::uint64_t> seekCount{0};
};

} // namespace lyrabox::engine
