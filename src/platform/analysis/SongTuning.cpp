#include "platform/analysis/SongTuning.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <span>

namespace lyrabox {

namespace {

constexpr std::size_t steps = 200; ///< of the histogram, half a cent each
constexpr double kernel = 5.0;     ///< cents, the width of the curve that each partial adds
constexpr double nearness = 15.0;  ///< cents: what is that near to the tuning belongs to it

/// The share of the sound that must be that near. Anything anywhere would have 0.3 there.
constexpr double clearShare = 0.52;
constexpr std::size_t fewestPartials = 60;
constexpr int fewestClasses = 3;
constexpr double smallestClass = 0.04; ///< of the sound that is near

constexpr double partSeconds = 8.0;
constexpr double leastDrift = 8.0;    ///< cents
constexpr double fastestDrift = 12.0; ///< cents from one part to the next

/// A partial as it counts here.
struct Deviation {
    double cents; ///< from the nearest note
    double weight;
    int pitchClass; ///< 0 to 11
};

/// The distance on the circle of 100 cents, from -50 to 50.
double around(double cents)
{
    return cents - 100.0 * std::round(cents / 100.0);
}

/// Low partials are less exact, so they count less.
double weightOf(const SteadyPartial &partial)
{
    const double exactness = 1.0 / (1.0 + std::pow(200.0 / partial.hertz, 2.0));
    return std::sqrt(static_cast<double>(partial.level)) * exactness;
}

std::vector<Deviation> deviationsOf(std::span<const SteadyPartial> partials)
{
    std::vector<Deviation> deviations;
    for (const SteadyPartial &partial : partials) {
        if (partial.isHarmonic)
            continue;
        const double cents = centsFromNote(partial.hertz);
        const double note = 12.0 * std::log2(partial.hertz / 440.0) - cents / 100.0;
        const int pitchClass = (static_cast<int>(std::lround(note)) % 12 + 12) % 12;
        deviations.push_back({cents, weightOf(partial), pitchClass});
    }
    return deviations;
}

/// The highest place of the histogram, smoothed.
double modeOf(const std::vector<Deviation> &deviations)
{
    std::array<double, steps> histogram{};
    for (const Deviation &deviation : deviations) {
        const auto step = static_cast<std::size_t>((deviation.cents + 50.0) * 2.0) % steps;
        histogram[step] += deviation.weight;
    }
    double best = -1.0;
    std::size_t place = 0;
    constexpr int reach = 30;
    for (std::size_t at = 0; at < steps; ++at) {
        double sum = 0.0;
        for (int i = -reach; i <= reach; ++i)
            sum += std::exp(-0.5 * std::pow(i / 2.0 / kernel, 2.0)) *
                   histogram[(at + steps + static_cast<std::size_t>(i)) % steps];
        if (sum > best) {
            best = sum;
            place = at;
        }
    }
    return (static_cast<double>(place) + 0.5) / 2.0 - 50.0;
}

/// The mean about the mode, repeated until it stays.
double refined(const std::vector<Deviation> &deviations, double mode)
{
    for (int i = 0; i < 20; ++i) {
        double sum = 0.0;
        double weights = 0.0;
        for (const Deviation &deviation : deviations) {
            const double distance = around(deviation.cents - mode);
            const double weight =
                deviation.weight * std::exp(-0.5 * std::pow(distance / kernel, 2.0));
            sum += weight * distance;
            weights += weight;
        }
        if (weights <= 0.0)
            break;
        mode += sum / weights;
    }
    return around(mode);
}

/// A clear tuning of these partials.
std::optional<double> clearTuning(std::span<const SteadyPartial> partials)
{
    const std::vector<Deviation> deviations = deviationsOf(partials);
    if (deviations.size() < fewestPartials)
        return std::nullopt;
    const double tuning = refined(deviations, modeOf(deviations));
    double all = 0.0;
    double near = 0.0;
    std::array<double, 12> classes{};
    for (const Deviation &deviation : deviations) {
        all += deviation.weight;
        const double distance = around(deviation.cents - tuning);
        if (std::abs(distance) > nearness)
            continue;
        near += deviation.weight;
        // The nearest note of this tuning may be the next one of A = 440 Hz.
        const double notes = std::round((deviation.cents - tuning - distance) / 100.0);
        const int shifted = deviation.pitchClass + static_cast<int>(notes) + 12;
        classes[static_cast<std::size_t>(shifted % 12)] += deviation.weight;
    }
    const auto used = std::ranges::count_if(
        classes, [near](double weight) { return weight > smallestClass * near; });
    const bool isClear = near > clearShare * all && used >= fewestClasses;
    return isClear ? std::optional(tuning) : std::nullopt;
}

/// The clear tunings of the song's parts, each as near as possible to the one before.
std::vector<double> tuningsOfParts(const SongPartials &song)
{
    std::vector<double> tunings;
    const auto partWindows =
        static_cast<std::uint32_t>(std::max(1.0, partSeconds * song.windowsPerSecond));
    auto begin = song.partials.begin();
    while (begin != song.partials.end()) {
        const std::uint32_t limit = (begin->window / partWindows + 1) * partWindows;
        const auto end = std::find_if(begin, song.partials.end(), [limit](const auto &partial) {
            return partial.window >= limit;
        });
        if (std::optional<double> tuning = clearTuning(std::span(begin, end))) {
            if (!tunings.empty())
                *tuning = tunings.back() + around(*tuning - tunings.back());
            tunings.push_back(*tuning);
        }
        begin = end;
    }
    return tunings;
}

double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Each value replaced by the median of it and its neighbours, so that one odd part is no drift. At
/// the ends, what the next two values lead to takes the place of the missing neighbour.
std::vector<double> smoothed(const std::vector<double> &values)
{
    std::vector<double> result = values;
    for (std::size_t i = 1; i + 1 < values.size(); ++i)
        result[i] = medianOf({values[i - 1], values[i], values[i + 1]});
    if (values.size() >= 4) {
        const auto end = [](double value, double next, double second) {
            return medianOf({value, next, 3.0 * next - 2.0 * second});
        };
        const std::size_t last = values.size() - 1;
        result[0] = end(values[0], result[1], result[2]);
        result[last] = end(values[last], result[last - 1], result[last - 2]);
    }
    return result;
}

bool movesSlowly(const std::vector<double> &tunings)
{
    return std::ranges::adjacent_find(tunings, [](double a, double b) {
               return std::abs(a - b) > fastestDrift;
           }) == tunings.end();
}

} // namespace

double SongTuning::hertz() const
{
    return 440.0 * std::exp2(cents / 1200.0);
}

std::optional<SongTuning> songTuning(const SongPartials &song)
{
    const std::optional<double> whole = clearTuning(song.partials);
    const std::vector<double> parts = smoothed(tuningsOfParts(song));
    const bool hasPath = parts.size() >= 4 && movesSlowly(parts);
    if (!hasPath)
        return whole ? std::optional(SongTuning{*whole, *whole, *whole}) : std::nullopt;
    const auto [lowest, highest] = std::ranges::minmax(parts);
    if (whole && highest - lowest < leastDrift)
        return SongTuning{*whole, *whole, *whole};
    if (highest - lowest < leastDrift)
        return std::nullopt;
    // The same number of tones up or down for all three, so that the middle is within a quarter
    // tone.
    const double middle = medianOf(parts);
    const double shift = around(middle) - middle;
    return SongTuning{middle + shift, lowest + shift, highest + shift};
}

} // namespace lyrabox
