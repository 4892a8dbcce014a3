#include "practice/CountIn.h"

#include "practice/SongTime.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double shortestBeat = practiceRate / 20.0;
constexpr double longestBeat = practiceRate * 12.0;
constexpr int longestBar = 12;

bool isBeat(double frames)
{
    return frames >= shortestBeat && frames <= longestBeat; // false for NaN
}

int beatsOf(const CountInLength &length)
{
    return std::clamp(length.amount, 1, CountInLength::maximumBeats);
}

} // namespace

LeadIn countIn(const CountInPlace &place, const CountInLength &length)
{
    if (!isBeat(place.beatFrames))
        return {};
    const int bar = std::clamp(place.beatsPerBar, 1, longestBar);
    const int next = (std::clamp(place.nextBeat, 1, bar) - 1);
    const double toBeat = std::isfinite(place.framesToBeat)
                              ? std::clamp(place.framesToBeat, 0.0, place.beatFrames)
                              : 0.0;
    int count = beatsOf(length);
    if (length.unit == CountInLength::Unit::Bars) {
        const int bars = std::clamp(length.amount, 1, CountInLength::maximumBars);
        // The place lies in the bar of the beat before it.
        const int begun = toBeat > 0.0 && next == 0 ? bar : next;
        count = bars * bar + begun;
    }
    const double frames = count * place.beatFrames - toBeat;
    LeadIn leadIn;
    leadIn.frames = static_cast<std::uint32_t>(std::lround(std::max(0.0, frames)));
    for (int i = 0; i < count; ++i) {
        const auto frame = static_cast<std::uint32_t>(std::lround(i * place.beatFrames));
        if (frame >= leadIn.frames)
            break;
        const int beat = ((next - count + i) % bar + bar) % bar;
        leadIn.clicks[leadIn.clickCount] = {
            .frame = frame, .kind = beat == 0 ? ClickKind::Accent : ClickKind::Beat};
        ++leadIn.clickCount;
    }
    return leadIn;
}

LeadIn rest(double beatFrames, int beats)
{
    if (!isBeat(beatFrames))
        return {};
    const int count = beatsOf({.unit = CountInLength::Unit::Beats, .amount = beats});
    return {.frames = static_cast<std::uint32_t>(std::lround(count * beatFrames))};
}

} // namespace lyrabox
