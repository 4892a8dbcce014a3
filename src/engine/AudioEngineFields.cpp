#include "engine/AudioEngineControl.h"
#include "platform/audio/SoundRanges.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lyrabox::engine {

namespace {

using Lock = std::lock_guard<std::mutex>;

} // namespace

std::uint64_t currentFrame()
{
    return state().currentFrame.load(std::memory_order_relaxed);
}

const ReadingPoint &newestReadingPoint()
{
    ReadingPointExchange &exchange = reading();
    if (const ReadingPoint *newest = exchange.published.takeNewest())
        exchange.lastSeen = *newest;
    return exchange.lastSeen;
}

std::uint64_t heldSongFrames()
{
    const Chain &chain = control().chain;
    if (!chain.timePitch || !chain.output)
        return 0;
    const float percent = chain.timePitch->parameter(parameter::rate) * 100.0F;
    const double speed = speedRange.clamped(percent) / 100.0;
    const double held = chain.timePitch->latencyFrames() + speed * chain.output->heldFrames();
    return static_cast<std::uint64_t>(std::max(0.0, std::round(held)));
}

std::uint64_t heardFrameLocked()
{
    const ReadingPoint &point = newestReadingPoint();
    // The callback has read nothing since the last seek.
    if (point.seekCount != reading().seekCount.load(std::memory_order_relaxed))
        return std::min(currentFrame(), totalFrames());
    return std::min(point.positionBefore(heldSongFrames()), totalFrames());
}

std::uint64_t heardFrame()
{
    const Lock lock(control().mutex);
    return heardFrameLocked();
}

std::uint64_t totalFrames()
{
    return state().totalFrames.load(std::memory_order_relaxed);
}

std::uint64_t loopStartFrame()
{
    return state().loopStartFrame.load(std::memory_order_relaxed);
}

void setLoopStartFrame(std::uint64_t frame)
{
    state().loopStartFrame.store(frame, std::memory_order_relaxed);
}

std::uint64_t loopEndFrame()
{
    return state().loopEndFrame.load(std::memory_order_relaxed);
}

void setLoopEndFrame(std::uint64_t frame)
{
    state().loopEndFrame.store(frame, std::memory_order_relaxed);
}

bool isLooping()
{
    return state().isLooping.load(std::memory_order_relaxed);
}

void setIsLooping(bool looping)
{
    // A release store: a callback that sees the loop also sees the points that were set before.
    state().isLooping.store(looping, std::memory_order_release);
}

bool trackHasEnded()
{
    return state().trackHasEnded.load(std::memory_order_acquire);
}

void setTrackHasEnded(bool ended)
{
    state().trackHasEnded.store(ended, std::memory_order_relaxed);
}

QByteArray albumArtData()
{
    return state().albumArtData;
}

AudioStreamBasicDescription streamFormat()
{
    const Lock lock(control().mutex);
    return state().streamFormat;
}

std::int64_t wholeSeconds(std::uint64_t frames, double sampleRate)
{
    if (!(sampleRate > 0.0))
        return 0;
    const double seconds = static_cast<double>(frames) / sampleRate;
    constexpr double limit = 9223372036854775808.0; // 2^63
    return seconds < limit ? static_cast<std::int64_t>(seconds)
                           : std::numeric_limits<std::int64_t>::max();
}

} // namespace lyrabox::engine
