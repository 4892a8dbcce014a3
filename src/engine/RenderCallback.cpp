#include "engine/AudioEngineControl.h"
#include "engine/SongFrames.h"
#include "engine/StreamAhead.h"

#include <algorithm>

namespace lyrabox::engine {

namespace {

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

/// Copies the song from `position` into the buffers, behind their first `skipped` frames.
void copySong(const AudioEngineState &engine, std::uint64_t position, std::uint64_t total,
              AudioBufferList &ioData, std::uint32_t channels, std::uint32_t skipped) noexcept
{
    const std::uint32_t bytesPerFrame = std::max(engine.streamFormat.mBytesPerFrame, 1U);
    for (std::uint32_t i = 0; i < channels; ++i) {
        const AudioBuffer &buffer = ioData.mBuffers[i];
        const std::byte *channel = engine.channelBuffers[i].load(std::memory_order_acquire);
        const std::uint64_t before =
            std::min<std::uint64_t>(buffer.mDataByteSize, std::uint64_t{skipped} * bytesPerFrame);
        copyFrames(static_cast<std::byte *>(buffer.mData) + before, buffer.mDataByteSize - before,
                   channel, position, channel ? total : 0, bytesPerFrame);
    }
}

/// Writes the next `frames` frames of the lead-in to the beginning of the buffers.
void writeLeadIn(AudioBufferList &ioData, std::uint32_t channels, std::uint32_t frames) noexcept
{
    for (std::uint32_t i = 0; i < channels; ++i) {
        const AudioBuffer &buffer = ioData.mBuffers[i];
        const auto fitting = static_cast<std::uint32_t>(buffer.mDataByteSize / sizeof(float));
        copyLeadIn(static_cast<float *>(buffer.mData), std::min(frames, fitting), i,
                   reading().leadIn.left());
    }
}

/// Passes the slice through the channel tools, if they are on.
void processChannels(AudioBufferList &ioData, std::uint32_t channels,
                     const StreamAhead::Place &place) noexcept
{
    ReadingPointExchange &exchange = reading();
    if (!exchange.channels.isOn() || channels < 2)
        return;
    const AudioBuffer &left = ioData.mBuffers[0];
    const AudioBuffer &right = ioData.mBuffers[1];
    const std::uint32_t bytes = std::min(left.mDataByteSize, right.mDataByteSize);
    StreamAhead ahead(place, exchange.leadIn);
    exchange.channels.process(static_cast<float *>(left.mData), static_cast<float *>(right.mData),
                              std::min<std::uint32_t>(bytes / sizeof(float), place.slice), ahead);
}

/// The loop has its end at or before `start`, so the position jumps. Returns the new position.
std::uint64_t jumpBack(const AudioEngineState &engine, std::uint64_t start,
                       std::uint64_t loopEnd) noexcept
{
    ReadingPoint &point = reading().current;
    const LastSlice &last = reading().lastSlice;
    const std::uint64_t loopStart = engine.loopStartFrame.load(std::memory_order_relaxed);
    // The end was reached by playing if the last slice began before it and led to here. A loop
    // that was set or moved since, so that the position was outside, has not been played.
    const bool wasPlayed = last.wasLooping && last.loopEnd == loopEnd && last.start < loopEnd;
    if (wasPlayed && point.frame == start && loopStart < loopEnd) {
        ++point.passes;
        point.passedLoop = {.start = loopStart, .end = loopEnd};
    }
    // A loop whose end is not after its start never plays, so it would be silent for ever.
    if (loopStart >= loopEnd) {
        point.jump(start, loopStart);
        return loopStart;
    }
    const std::uint64_t goesTo = placeAfterJump(loopStart);
    point.jump(start, goesTo, reading().leadIn.beginAtWrap(start, goesTo));
    return goesTo;
}

/// What the callback has to know of a seek, or of the first slice after a start.
void takeSeekAndStart(std::uint64_t position, std::uint64_t seekCount) noexcept
{
    ReadingPointExchange &exchange = reading();
    if (exchange.current.seekCount != seekCount) {
        exchange.current.seek(position, seekCount);
        exchange.lastSlice = {};
        exchange.leadIn.cancel();
        exchange.clicks.seek();
        exchange.channels.seek();
    }
    if (const std::uint32_t silent = exchange.leadIn.beginRequested(position))
        exchange.current.jump(position, position, silent);
}

} // namespace

Status renderCallback(void * /*inRefCon*/, std::uint32_t inNumberFrames,
                      AudioBufferList &ioData) noexcept
{
    AudioEngineState &engine = state();
    ReadingPointExchange &exchange = reading();
    const std::uint64_t seekCount = exchange.seekCount.load(std::memory_order_acquire);
    const std::uint64_t start = engine.currentFrame.load(std::memory_order_acquire);
    const std::uint64_t total = engine.totalFrames.load(std::memory_order_acquire);
    takeSeekAndStart(start, seekCount);

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
    LeadInReader &leadIn = exchange.leadIn;
    const bool loops = engine.isLooping.load(std::memory_order_acquire);
    const std::uint64_t loopEnd = engine.loopEndFrame.load(std::memory_order_relaxed);
    // Tested once per callback, so the end is overshot by up to one slice: docs/kept-on-purpose.md.
    if (loops && position >= loopEnd && !leadIn.isActive())
        position = jumpBack(engine, start, loopEnd);
    exchange.lastSlice = {.wasLooping = loops, .start = position, .loopEnd = loopEnd};

    const std::uint32_t channels = std::min(ioData.mNumberBuffers, maximumChannels);
    const std::uint32_t silent = std::min(leadIn.framesLeft(), inNumberFrames);
    if (silent > 0) {
        writeLeadIn(ioData, channels, silent);
        exchange.clicks.readLeadIn(leadIn.current(), leadIn.done(), silent);
        leadIn.advance(silent);
    }
    const std::uint32_t played = inNumberFrames - silent;
    copySong(engine, position, total, ioData, channels, silent);
    if (played > 0)
        exchange.clicks.readSong(position, played,
                                 loops && position < loopEnd ? loopEnd : ClickSchedule::noEnd);
    processChannels(ioData, channels,
                    {.start = position,
                     .position = position + played,
                     .slice = inNumberFrames,
                     .silent = silent,
                     .isLooping = loops,
                     .loopEnd = loopEnd});
    engine.channelIndex.store(channels, std::memory_order_relaxed);

    if (moveOn(engine, start, position + played)) {
        exchange.current.advance(position + played, silent, played);
        exchange.published.publish(exchange.current);
    }
    return status::noError;
}

} // namespace lyrabox::engine
