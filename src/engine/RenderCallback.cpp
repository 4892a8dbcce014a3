#include "engine/AudioEngineControl.h"

#include <algorithm>
#include <cstring>

namespace lyrabox::engine {

namespace {

/// Copies `bytes` from frame `position` of a channel that holds `total` frames. Positions are taken
/// modulo 2^64, so a position just below 2^64 lies just before frame 0. Frames that the channel
/// does not have are silence.
void copyFrames(std::byte *destination, std::uint64_t bytes, const std::byte *channel,
                std::uint64_t position, std::uint64_t total, std::uint64_t bytesPerFrame) noexcept
{
    while (bytes > 0) {
        const bool isInside = position < total;
        // From outside, the channel begins again where the position wraps to 0; never when it is
        // empty.
        const std::uint64_t framesInRun = isInside ? total - position : 0 - position;
        const bool runIsShorter =
            (isInside || total > 0) && framesInRun < bytes / bytesPerFrame + 1;
        const std::uint64_t run =
            runIsShorter ? std::min(bytes, framesInRun * bytesPerFrame) : bytes;
        if (isInside)
            std::memcpy(destination, channel + position * bytesPerFrame, run);
        else
            std::memset(destination, 0, run);
        destination += run;
        bytes -= run;
        position += framesInRun;
    }
}

} // namespace

Status renderCallback(void * /*inRefCon*/, std::uint32_t inNumberFrames,
                      AudioBufferList &ioData) noexcept
{
    AudioEngineState &engine = state();
    const std::uint64_t start = engine.currentFrame.load(std::memory_order_acquire);
    const std::uint64_t total = engine.totalFrames.load(std::memory_order_acquire);

    // Whoever seeks while this runs wins: the position moves on only from where it was found.
    const auto moveOn = [&engine, start](std::uint64_t frame) {
        std::uint64_t expected = start;
        return engine.currentFrame.compare_exchange_strong(expected, frame,
                                                           std::memory_order_relaxed);
    };

    // 32 bits and 64 bits on purpose; both may wrap, the position past the end as well as before
    // the start.
    const std::uint32_t margin = 2U * inNumberFrames;
    const std::uint64_t remaining = total - start;
    if (remaining <= margin) {
        // Either the seek holds and the song goes on from there, or the song has ended and the seek
        // came too late; never half of each.
        const std::uint64_t end = total - margin;
        if (!moveOn(end))
            return status::noError;
        if (OutputUnit *output = engine.outputUnit.load(std::memory_order_acquire))
            output->stop();
        if (TimePitchUnit *timePitch = engine.timePitchUnit.load(std::memory_order_acquire))
            timePitch->sourceHasEnded();
        engine.currentFrame.store(end, std::memory_order_relaxed);
        engine.trackHasEnded.store(true, std::memory_order_release);
        return status::noError;
    }

    std::uint64_t position = start;
    if (engine.isLooping.load(std::memory_order_acquire) &&
        position >= engine.loopEndFrame.load(std::memory_order_relaxed))
        position = engine.loopStartFrame.load(std::memory_order_relaxed);

    const std::uint32_t bytesPerFrame = std::max(engine.streamFormat.mBytesPerFrame, 1U);
    const std::uint32_t channels = std::min(ioData.mNumberBuffers, maximumChannels);
    for (std::uint32_t i = 0; i < channels; ++i) {
        const AudioBuffer &buffer = ioData.mBuffers[i];
        const std::byte *channel = engine.channelBuffers[i].load(std::memory_order_acquire);
        copyFrames(static_cast<std::byte *>(buffer.mData), buffer.mDataByteSize, channel, position,
                   channel ? total : 0, bytesPerFrame);
    }
    engine.channelIndex.store(channels, std::memory_order_relaxed);

    moveOn(position + inNumberFrames);
    return status::noError;
}

} // namespace lyrabox::engine
