#pragma once

#include "engine/LeadInReader.h"
#include "engine/LoopRange.h"
#include "platform/audio/ChannelStage.h"
#include "platform/audio/ClickSchedule.h"
#include "platform/audio/TripleBuffer.h"

#include <atomic>
#include <cstdint>

namespace lyrabox::engine {

/// The read position of the render routine, and the loop's last jump. Together they tell which
/// position was read a moment ago. Positions and distances are in frames of the song. A lead-in is
/// a jump with silence behind it; the position then stands still.
struct ReadingPoint {
    std::uint64_t frame = 0;           ///< the next frame to render
    std::uint64_t seekCount = 0;       ///< the number of seeks before `frame` was read
    std::uint64_t jumps = 0;           ///< how often the same loop has jumped since the last seek
    std::uint64_t jumpedFrom = 0;      ///< the frame before the last jump; valid if `jumps` > 0
    std::uint64_t jumpedTo = 0;        ///< the frame after the last jump
    std::uint64_t framesSinceJump = 0; ///< frames of the song that were read after the last jump
    std::uint64_t silence = 0;         ///< frames of silence after each of these jumps
    std::uint64_t silenceRead = 0;     ///< frames of silence that were read after the last jump

    std::uint64_t passes =
        0; ///< how often a loop has jumped because its end was reached by playing
    LoopRange passedLoop{.start = 0, .end = 0}; ///< the loop of the last pass

    /// A seek went to `position`.
    void seek(std::uint64_t position, std::uint64_t count) noexcept;

    /// The render routine went from `from` to `to` because of a loop or a lead-in, and reads
    /// `silentFrames` frames of silence before it goes on.
    void jump(std::uint64_t from, std::uint64_t to, std::uint64_t silentFrames = 0) noexcept;

    /// The render routine has read silence, and then the song up to `next`.
    void advance(std::uint64_t next, std::uint64_t silentFrames, std::uint64_t songFrames) noexcept
    {
        frame = next;
        silenceRead += silentFrames;
        framesSinceJump += songFrames;
    }

    /// The position that was read `distance` frames ago. 0 if it lies before the song.
    std::uint64_t positionBefore(std::uint64_t distance) const noexcept;

    /// How many of the jumps lie within the last `distance` frames.
    std::uint64_t jumpsWithin(std::uint64_t distance) const noexcept;

private:
    /// The song frames of one round of the loop.
    std::uint64_t round() const noexcept
    {
        return jumpedFrom > jumpedTo ? jumpedFrom - jumpedTo : 0;
    }
};

/// What the render routine has seen of the loop in its last slice.
struct LastSlice {
    bool wasLooping = false; ///< false right after a seek, too
    std::uint64_t start = 0; ///< the first frame of the slice
    std::uint64_t loopEnd = 0;
};

/// What the callback thread and the control side tell each other about reading the song.
struct ReadingPointExchange {
    ReadingPoint current; ///< callback thread
    LastSlice lastSlice;  ///< callback thread
    TripleBuffer<ReadingPoint> published;
    ReadingPoint lastSeen;         ///< main thread, under the engine's mutex
    std::uint64_t passesHeard = 0; ///< main thread, under the engine's mutex
    /// How often a seek has set the position. It rises after the position was set, so a callback
    /// that sees the new count also sees the new position.
    std::atomic<std::uint64_t> seekCount{0};
    /// How many frames before its start a loop goes on after its jump. Set on the control side.
    std::atomic<std::uint64_t> runUp{0};

    LeadInReader leadIn;
    LeadIn atStart;                ///< control side, under the engine's mutex
    bool startIsRequested = false; ///< the same: a lead-in at a start may not have begun
    ClickSchedule clicks;
    ChannelStage channels;
};

} // namespace lyrabox::engine
