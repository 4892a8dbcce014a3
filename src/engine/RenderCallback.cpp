#include "engine/AudioEngineControl.h"

#include <algorithm>
#include <cstring>

namespace lyrabox::engine {

namespace {

/// Copies `bytes` from frame `position` of a channel that holds `total` frames. Positions count
/// modulo 2^64, so a position just below 2^64 lies just before frame 0. Frames outside the channel
/// are silence.
void copyFrames(std::byte *destination, std::uint64_t bytes, const std::byte *channel,
                std::uint64_t position, std::uint64_t total, std::uint64_t bytesPerFrame) noexcept
{
    while (bytes > 0) {
        const bool isInside = position < total;
        // Outside the channel, silence runs until the position wraps to 0. An empty channel is all
        // silence.
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

/// Moves the position from `from` to `to`. A seek that came in between wins: the position stays and
/// the result is false.
bool moveOn(AudioEngineState &engine, std::uint64_t from, std::uint64_t to) noexcept
{
    return engine.currentFrame.compare_exchange_strong(from, to, std::memory_order_relaxed);
}

/// Ends the song and parks the position at `end`. If a seek came in between, does nothing: the song
/// goes on from there.
void endSong(AudioEngineState &engine, std::uint64_t start, std::uint64_t end) noexcept
{
    if (!moveOn(engine, start, end))
        return;
    if (OutputUnit *output = engine.outputUnit.load(std::memory_order_acquire))
        output->stop();
    if (TimePitchUnit *timePitch = engine.timePitchUnit.load(std::memory_order_acquire))
        timePitch->sourceHasEnded();
    // A seek that came after the end was decided is dropped.
    engine.currentFrame.store(end, std::memory_order_relaxed);
    engine.trackHasEnded.store(true, std::memory_order_release);
}

void copySong(const AudioEngineState &engine, std::uint64_t position, std::uint64_t total,
              AudioBufferList &ioData, std::uint32_t channels) noexcept
{
    const std::uint32_t bytesPerFrame = std::max(engine.streamFormat.mBytesPerFrame, 1U);
    for (std::uint32_t i = 0; i < channels; ++i) {
        const AudioBuffer &buffer = ioData.mBuffers[i];
        const std::byte *channel = engine.channelBuffers[i].load(std::memory_order_acquire);
        copyFrames(static_cast<std::byte *>(buffer.mData), buffer.mDataByteSize, channel, position,
                   channel ? total : 0, bytesPerFrame);
    }
}

} // namespace

Status renderCallback(void * /*inRefCon*/, std::uint32_t inNumberFrames,
                      AudioBufferList &ioData) noexcept
{
    AudioEngineState &engine = state();
    ReadingPoint &point = reading().current;
    const std::uint64_t seekCount = reading().seekCount.load(std::memory_order_acquire);
    const std::uint64_t start = engine.currentFrame.load(std::memory_order_acquire);
    const std::uint64_t total = engine.totalFrames.load(std::memory_order_acquire);
    if (point.seekCount != seekCount)
        point = {.frame = start, .seekCount = seekCount};

    // The margin has 32 bits and the rest 64 bits on purpose. Both may wrap, past the song's end
    // and before its start. The song also ends two buffers early on purpose:
    // docs/kept-on-purpose.md.
    const std::uint32_t margin = 2U * inNumberFrames;
    const std::uint64_t remaining = total - start;
    if (remaining <= margin) {
        endSong(engine, start, total - margin);
        return status::noError;
    }

    std::uint64_t position = start;
    // Tested once per callback, so the end is overshot by up to one slice: docs/kept-on-purpose.md.
    if (engine.isLooping.load(std::memory_order_acquire) &&
        position >= engine.loopEndFrame.load(std::memory_order_relaxed)) {
        position = engine.loopStartFrame.load(std::memory_order_relaxed);
        point.jump(start, position);
    }
    const std::uint32_t channels = std::min(ioData.mNumberBuffers, maximumChannels);
    copySong(engine, position, total, ioData, channels);
    engine.channelIndex.store(channels, std::memory_order_relaxed);

    if (moveOn(engine, start, position + inNumberFrames)) {
        point.frame = position + inNumberFrames;
        point.framesSinceJump += inNumberFrames;
        reading().published.publish(point);
    }
    return status::noError;
}

} // namespace lyrabox::engine
