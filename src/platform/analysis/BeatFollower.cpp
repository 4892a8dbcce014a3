#include "platform/analysis/BeatFollower.h"

#include "platform/analysis/BeatHold.h"
#include "platform/analysis/BeatPath.h"
#include "platform/analysis/BeatPlaces.h"
#include "platform/analysis/OnsetStrength.h"
#include "platform/analysis/TempoPath.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace lyrabox {

namespace {

constexpr double hop = OnsetStrength::hop;

// A beat that was tapped is on the curve as an onset that is as high, and as wide as taps are off.
constexpr float tapHeight = 3.0F;
constexpr double tapWidth = 0.02;   // seconds
constexpr double startReach = 0.07; // likewise

/// How much low notes count in addition, where nobody has tapped: they are on the beat more often
/// than others. In a shuffle, nothing else tells the beat from the short note before it.
constexpr float lowShare = 0.5F;

/// Steps of a curve, up to, but not including, `to`.
struct Steps {
    std::size_t from = 0;
    std::size_t to = 0;
};

/// The steps with onsets. Empty if there is none.
Steps sounding(std::span<const float> curve)
{
    constexpr float onset = 2.0F;
    const auto isOnset = [](float value) { return value >= onset; };
    const auto first = std::find_if(curve.begin(), curve.end(), isOnset);
    if (first == curve.end())
        return {};
    const auto last = std::find_if(curve.rbegin(), curve.rend(), isOnset);
    return {static_cast<std::size_t>(first - curve.begin()),
            static_cast<std::size_t>(curve.rend() - last)};
}

/// Widens the steps, so that the beats that were tapped are among them.
Steps widened(Steps steps, const TappedBeats &taps, std::size_t size)
{
    const double margin = taps.period / hop / 2.0;
    const double from = std::max(0.0, taps.frame(-taps.before) / hop - margin);
    const double to = std::max(0.0, taps.frame(taps.after) / hop + margin);
    Steps result{std::min(size, static_cast<std::size_t>(from)),
                 std::min(size, static_cast<std::size_t>(to) + 1)};
    if (steps.to > steps.from)
        result = {std::min(result.from, steps.from), std::max(result.to, steps.to)};
    return result;
}

/// Raises the curve at the beats that were tapped.
void mark(std::vector<float> &curve, const TappedBeats &taps, double stepsPerSecond)
{
    const double width = tapWidth * stepsPerSecond;
    for (int beat = -taps.before; beat <= taps.after; ++beat) {
        const double middle = taps.frame(beat) / hop;
        const auto from = static_cast<std::ptrdiff_t>(std::max(0.0, middle - 4.0 * width));
        const auto to = std::min(static_cast<std::ptrdiff_t>(curve.size()),
                                 static_cast<std::ptrdiff_t>(middle + 4.0 * width));
        for (std::ptrdiff_t step = from; step < to; ++step) {
            const double distance = (static_cast<double>(step) - middle) / width;
            curve[static_cast<std::size_t>(step)] +=
                tapHeight * static_cast<float>(std::exp(-0.5 * distance * distance));
        }
    }
}

/// A curve and the periods to go with it.
struct Terrain {
    std::vector<float> curve;
    std::vector<float> marked; ///< the curve with the taps
    std::vector<float> periods;

    /// The same backwards.
    Terrain reversed() const
    {
        return {{curve.rbegin(), curve.rend()},
                {marked.rbegin(), marked.rend()},
                {periods.rbegin(), periods.rend()}};
    }
};

/// Beats in one direction, up to the end or to where they are lost.
struct Followed {
    std::vector<std::size_t> steps;
    std::vector<float> holds;
    bool isLost = false;
};

Followed follow(const Terrain &terrain, BeatStart start, std::size_t sure,
                const std::stop_token &stop)
{
    const BeatPath path = findBeatPath(terrain.marked, terrain.periods, start, stop);
    BeatHold hold = holdOf(path, terrain.curve, sure);
    Followed followed;
    for (std::size_t i = 0; i < hold.count; ++i)
        followed.steps.push_back(path.beats[i].step);
    followed.isLost = hold.isLost;
    hold.holds.resize(hold.count);
    followed.holds = std::move(hold.holds);
    return followed;
}

/// Puts the beats before the first one, which were followed backwards, in front of the others.
Followed joined(const Followed &back, const Followed &onwards, std::size_t steps)
{
    Followed all;
    for (std::size_t i = back.steps.size(); i-- > 1;) {
        all.steps.push_back(steps - 1 - back.steps[i]);
        all.holds.push_back(back.holds[i]);
    }
    all.steps.insert(all.steps.end(), onwards.steps.begin(), onwards.steps.end());
    all.holds.insert(all.holds.end(), onwards.holds.begin(), onwards.holds.end());
    return all;
}

/// Follows the beats both ways from the one tapped first, whose step is `first`.
std::optional<Followed> followBothWays(const Terrain &terrain, double first, double reach,
                                       const TappedBeats &taps, FollowedBeats &result,
                                       const std::stop_token &stop)
{
    const Followed onwards = follow(terrain,
                                    {static_cast<std::size_t>(std::max(0.0, first - reach)),
                                     static_cast<std::size_t>(std::max(0.0, first + reach)) + 1},
                                    static_cast<std::size_t>(taps.after) + 1, stop);
    if (onwards.steps.empty())
        return std::nullopt;
    const std::size_t start = terrain.curve.size() - 1 - onwards.steps.front();
    const Followed back = follow(terrain.reversed(), {start, start + 1},
                                 static_cast<std::size_t>(taps.before) + 1, stop);
    if (back.steps.empty())
        return std::nullopt;
    result.one = back.steps.size() - 1;
    result.isLostBefore = back.isLost;
    result.isLostAfter = onwards.isLost;
    return joined(back, onwards, terrain.curve.size());
}

double middleTempo(const std::vector<FollowedBeat> &beats, double sampleRate)
{
    std::vector<double> distances;
    for (std::size_t i = 1; i < beats.size(); ++i)
        distances.push_back(static_cast<double>(beats[i].frame - beats[i - 1].frame));
    if (distances.empty())
        return 0.0;
    const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::nth_element(distances.begin(), middle, distances.end());
    return 60.0 * sampleRate / *middle;
}

/// Gives the beats, whose steps are counted from `origin`, their exact places. False if a stop is
/// requested.
bool place(const SongSamples &song, std::span<const float> onsets, Followed followed,
           std::size_t origin, FollowedBeats &result, const std::stop_token &stop)
{
    for (std::size_t &step : followed.steps)
        step += origin;
    const std::vector<double> places = placeBeats(song, onsets, followed.steps, stop);
    if (places.empty())
        return false;
    for (std::size_t i = 0; i < places.size(); ++i)
        result.beats.push_back(
            {static_cast<std::uint64_t>(std::max(0.0, std::round(places[i]))), followed.holds[i]});
    result.tempo = middleTempo(result.beats, song.sampleRate);
    return true;
}

template <typename Value>
std::vector<Value> part(const std::vector<Value> &values, Steps steps)
{
    return {values.begin() + static_cast<std::ptrdiff_t>(steps.from),
            values.begin() + static_cast<std::ptrdiff_t>(steps.to)};
}

} // namespace

FollowedBeats followTaps(const SongSamples &song, const SongOnsets &onsets, const TappedBeats &taps,
                         const std::stop_token &stop)
{
    const double stepsPerSecond = stepRate(song.sampleRate);
    const std::vector<float> curve = beatCurve(onsets.all, stepsPerSecond);
    const std::vector<float> periods = tempoPath(curve, stepsPerSecond,
                                                 TempoHint{.period = taps.period / hop,
                                                           .from = taps.frame(-taps.before) / hop,
                                                           .to = taps.frame(taps.after) / hop},
                                                 stop);
    if (periods.empty())
        return {};
    std::vector<float> marked = curve;
    mark(marked, taps, stepsPerSecond);
    const Steps steps = widened(sounding(curve), taps, curve.size());
    const Terrain terrain{part(curve, steps), part(marked, steps), part(periods, steps)};
    FollowedBeats result;
    const auto followed =
        followBothWays(terrain, taps.first / hop - static_cast<double>(steps.from),
                       startReach * stepsPerSecond, taps, result, stop);
    if (!followed || !place(song, onsets.all, *followed, steps.from, result, stop))
        return {};
    return result;
}

FollowedBeats suggestBeats(const SongSamples &song, const SongOnsets &onsets,
                           std::optional<double> tempo, const std::stop_token &stop)
{
    const double stepsPerSecond = stepRate(song.sampleRate);
    const std::vector<float> curve = beatCurve(onsets.all, stepsPerSecond);
    const Steps steps = sounding(curve);
    if (steps.to == steps.from)
        return {};
    std::optional<TempoHint> hint;
    if (tempo)
        hint = TempoHint{.period = 60.0 * stepsPerSecond /
                                   std::clamp(*tempo, TapLimits::slowest, TapLimits::fastest)};
    const std::vector<float> periods = tempoPath(curve, stepsPerSecond, hint, stop);
    if (periods.empty())
        return {};
    const std::vector<float> low = beatCurve(onsets.low, stepsPerSecond);
    std::vector<float> both = curve;
    for (std::size_t step = 0; step < both.size(); ++step)
        both[step] += lowShare * low[step];
    const Terrain terrain{part(curve, steps), part(both, steps), part(periods, steps)};
    const auto firstPeriod = static_cast<std::size_t>(terrain.periods.front());
    const Followed followed =
        follow(terrain, {0, firstPeriod}, std::numeric_limits<std::size_t>::max(), stop);
    FollowedBeats result;
    if (!place(song, onsets.all, followed, steps.from, result, stop))
        return {};
    return result;
}

} // namespace lyrabox
