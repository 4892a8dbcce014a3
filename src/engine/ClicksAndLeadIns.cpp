#include "engine/ClicksAndLeadIns.h"

#include "engine/AudioEngineControl.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox::engine {

namespace {

using Lock = std::lock_guard<std::mutex>;

} // namespace

void setClicks(std::shared_ptr<const ClickTable> clicks)
{
    const Lock lock(control().mutex);
    reading().clicks.setTable(std::move(clicks));
}

std::shared_ptr<const ClickTable> clicks()
{
    const Lock lock(control().mutex);
    return reading().clicks.table();
}

void setClickSound(const ClickSound &sound)
{
    ClickSound valid = sound;
    valid.loudness = std::isnan(sound.loudness) ? 0.0F : std::clamp(sound.loudness, 0.0F, 1.0F);
    const Lock lock(control().mutex);
    reading().clicks.setSound(valid);
}

void setLeadInAtWrap(const LeadIn &leadIn)
{
    const Lock lock(control().mutex);
    reading().leadIn.setAtWrap(leadIn);
}

void setRunUp(std::uint64_t frames)
{
    reading().runUp.store(frames, std::memory_order_relaxed);
}

void setLeadInAtStart(const LeadIn &leadIn)
{
    const Lock lock(control().mutex);
    reading().atStart = leadIn;
}

std::optional<HeardLeadIn> heardLeadIn()
{
    const Lock lock(control().mutex);
    const ReadingPoint &point = newestReadingPoint();
    if (point.jumps == 0 || point.seekCount != reading().seekCount.load(std::memory_order_relaxed))
        return std::nullopt;
    const std::uint64_t read = point.silenceRead + point.framesSinceJump;
    const std::uint64_t held = heldSongFrames();
    if (read < held || read - held >= point.silence)
        return std::nullopt;
    return HeardLeadIn{.frames = point.silence, .done = read - held};
}

PassCount passes()
{
    const Lock lock(control().mutex);
    const ReadingPoint &point = newestReadingPoint();
    ReadingPointExchange &exchange = reading();
    std::uint64_t unheard = 0;
    // Right after a seek nothing is held.
    if (point.seekCount == exchange.seekCount.load(std::memory_order_relaxed))
        unheard = std::min(point.passes, point.jumpsWithin(heldSongFrames()));
    // A jump that was no pass may be among them. What was heard stays heard.
    exchange.passesHeard = std::max(exchange.passesHeard, point.passes - unheard);
    return {.ended = point.passes, .heard = exchange.passesHeard, .loop = point.passedLoop};
}

void dropClicksAndLeadIns()
{
    const Lock lock(control().mutex);
    ReadingPointExchange &exchange = reading();
    exchange.clicks.setTable(nullptr);
    exchange.leadIn.setAtWrap({});
    exchange.atStart = {};
    exchange.runUp.store(0, std::memory_order_relaxed);
    if (std::exchange(exchange.startIsRequested, false))
        exchange.leadIn.request({});
}

} // namespace lyrabox::engine
