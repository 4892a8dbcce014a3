#include "platform/analysis/BeatCurve.h"

#include "platform/analysis/OnsetStrength.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace lyrabox {

namespace {

/// The notes of a beat may be apart by some milliseconds.
constexpr std::array<float, 5> smoothing{1.0F / 9, 2.0F / 9, 3.0F / 9, 2.0F / 9, 1.0F / 9};

constexpr double meanReach = 0.5;    // seconds to either side
constexpr double usualReach = 6.0;   // likewise
constexpr float leastUsual = 0.001F; // so that the noise of a quiet part counts little
constexpr float highest = 4.0F;      // no single onset decides

std::vector<float> smoothed(std::span<const float> values)
{
    const auto size = static_cast<std::ptrdiff_t>(values.size());
    constexpr std::ptrdiff_t reach = smoothing.size() / 2;
    std::vector<float> result(values.size());
    for (std::ptrdiff_t i = 0; i < size; ++i) {
        for (std::ptrdiff_t j = std::max<std::ptrdiff_t>(0, i - reach);
             j <= std::min(size - 1, i + reach); ++j)
            result[static_cast<std::size_t>(i)] +=
                smoothing[static_cast<std::size_t>(j - i + reach)] *
                values[static_cast<std::size_t>(j)];
    }
    return result;
}

/// The mean of the values up to `reach` before and behind each. Outside they are 0.
std::vector<float> runningMeans(std::span<const float> values, std::size_t reach)
{
    std::vector<double> sums(values.size() + 1);
    for (std::size_t i = 0; i < values.size(); ++i)
        sums[i + 1] = sums[i] + double{values[i]};
    std::vector<float> means(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::size_t from = i - std::min(i, reach);
        const std::size_t to = std::min(i + reach + 1, values.size());
        means[i] = static_cast<float>((sums[to] - sums[from]) / static_cast<double>(2 * reach + 1));
    }
    return means;
}

} // namespace

double stepRate(double sampleRate)
{
    return sampleRate / double{OnsetStrength::hop};
}

SongOnsets songOnsets(const SongSamples &song, const std::stop_token &stop)
{
    const auto steps = static_cast<std::size_t>(song.frames() / OnsetStrength::hop) + 1;
    SongOnsets result{std::vector<float>(steps), std::vector<float>(steps)};
    OnsetStrength onsets(song);
    for (std::size_t step = 0; step < steps; ++step) {
        if (stop.stop_requested())
            return {};
        onsets.next();
        result.all[step] = onsets.growth();
        result.low[step] = onsets.lowGrowth();
    }
    return result;
}

std::vector<float> beatCurve(std::span<const float> onsets, double stepsPerSecond)
{
    const auto steps = [stepsPerSecond](double seconds) {
        return static_cast<std::size_t>(seconds * stepsPerSecond) + 1;
    };
    std::vector<float> curve = smoothed(onsets);
    const std::vector<float> means = runningMeans(curve, steps(meanReach));
    std::vector<float> squares(curve.size());
    for (std::size_t i = 0; i < curve.size(); ++i) {
        curve[i] -= means[i];
        squares[i] = curve[i] * curve[i];
    }
    const std::vector<float> usual = runningMeans(squares, steps(usualReach));
    for (std::size_t i = 0; i < curve.size(); ++i)
        curve[i] = std::min(highest, curve[i] / std::max(leastUsual, std::sqrt(usual[i])));
    return curve;
}

} // namespace lyrabox
