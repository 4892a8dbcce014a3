#include "app/practice/PressedPlace.h"

#include "engine/LB_AudioController.h"
#include "platform/foundation/MonotonicClock.h"
#include "practice/SongTime.h"

#include <utility>

namespace lyrabox {

namespace {

std::optional<PressedPlace> &presentPlace()
{
    static std::optional<PressedPlace> place;
    return place;
}

} // namespace

PressedPlaceScope::PressedPlaceScope(const PressedPlace &place)
    : m_outer(std::exchange(presentPlace(), place))
{}

PressedPlaceScope::~PressedPlaceScope()
{
    presentPlace() = m_outer;
}

PressedPlace pressedPlace(const LB_AudioController *audio)
{
    if (presentPlace())
        return *presentPlace();
    return {.frame = audio->heardFrame(), .time = monotonicTime()};
}

quint64 frameHeardBefore(quint64 heard, std::chrono::microseconds age, double speed,
                         const std::optional<LoopRange> &loop)
{
    constexpr double second = 1e6;
    const auto way = static_cast<quint64>(static_cast<double>(age.count()) / second * speed *
                                          static_cast<double>(practiceRate));
    const bool isInLoop = loop && heard >= loop->start && heard < loop->end;
    if (isInLoop && heard - loop->start < way) {
        // It has jumped since.
        const quint64 before = way - (heard - loop->start);
        return before < loop->end - loop->start ? loop->end - before : loop->start;
    }
    return heard > way ? heard - way : 0;
}

} // namespace lyrabox
