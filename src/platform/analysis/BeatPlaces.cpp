#include "platform/analysis/BeatPlaces.h"

#include "platform/analysis/AttackPlace.h"
#include "platform/analysis/OnsetStrength.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace lyrabox {

namespace {

constexpr std::ptrdiff_t attackReach = 4; // steps, 23 ms
constexpr float leastOnset = 0.002F;
constexpr std::ptrdiff_t neighbours = 3; // to either side
constexpr double unseenWeight = 0.02;    // of a beat without an attack
constexpr double ownWeight = 2.0;
constexpr double farthest = 0.015; // seconds from the line; what is farther is another note

/// The attack next to a beat, if there is one.
std::optional<double> attackAt(const SongSamples &song, std::span<const float> onsets,
                               std::size_t beat)
{
    const auto size = static_cast<std::ptrdiff_t>(onsets.size());
    const auto middle = static_cast<std::ptrdiff_t>(beat);
    const auto from = onsets.begin() + std::clamp<std::ptrdiff_t>(middle - attackReach, 0, size);
    const auto to = onsets.begin() + std::clamp<std::ptrdiff_t>(middle + attackReach + 1, 0, size);
    const auto strongest = std::max_element(from, to);
    if (strongest == to || *strongest < leastOnset)
        return std::nullopt;
    const auto step = static_cast<std::uint64_t>(strongest - onsets.begin());
    if (const auto frame = attackFrame(song, step * OnsetStrength::hop))
        return static_cast<double>(*frame);
    return std::nullopt;
}

struct Observation {
    double place = 0.0;
    double weight = 0.0;
};

/// Where the line through the observations around `index` puts it.
double onLine(std::span<const Observation> observations, std::ptrdiff_t index)
{
    const auto size = static_cast<std::ptrdiff_t>(observations.size());
    const double origin = observations[static_cast<std::size_t>(index)].place;
    double count = 0.0, x = 0.0, y = 0.0, xx = 0.0, xy = 0.0;
    for (std::ptrdiff_t i = std::max<std::ptrdiff_t>(0, index - neighbours);
         i <= std::min(size - 1, index + neighbours); ++i) {
        const Observation &observation = observations[static_cast<std::size_t>(i)];
        const auto distance = static_cast<double>(i - index);
        const double weight = observation.weight * (i == index ? ownWeight : 1.0) *
                              (1.0 - std::abs(distance) / static_cast<double>(neighbours + 1));
        count += weight;
        x += weight * distance;
        y += weight * (observation.place - origin);
        xx += weight * distance * distance;
        xy += weight * distance * (observation.place - origin);
    }
    const double spread = count * xx - x * x;
    const double slope = spread > 1.0e-9 ? (count * xy - x * y) / spread : 0.0;
    return origin + (y - slope * x) / count;
}

std::vector<double> onLines(std::span<const Observation> observations)
{
    std::vector<double> places(observations.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        places[i] = onLine(observations, static_cast<std::ptrdiff_t>(i));
    return places;
}

/// The middle one of the distances from the beats to their attacks.
double usualLateness(std::span<const std::optional<double>> attacks,
                     std::span<const std::size_t> beats)
{
    std::vector<double> distances;
    for (std::size_t i = 0; i < beats.size(); ++i) {
        if (attacks[i])
            distances.push_back(*attacks[i] - static_cast<double>(beats[i] * OnsetStrength::hop));
    }
    if (distances.empty())
        return 0.0;
    const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::nth_element(distances.begin(), middle, distances.end());
    return *middle;
}

} // namespace

std::vector<double> placeBeats(const SongSamples &song, std::span<const float> onsets,
                               std::span<const std::size_t> beats, const std::stop_token &stop)
{
    std::vector<std::optional<double>> attacks;
    for (const std::size_t beat : beats) {
        if (stop.stop_requested())
            return {};
        attacks.push_back(attackAt(song, onsets, beat));
    }
    const double lateness = usualLateness(attacks, beats);
    std::vector<Observation> observations;
    for (std::size_t i = 0; i < beats.size(); ++i) {
        const double unseen = static_cast<double>(beats[i] * OnsetStrength::hop) + lateness;
        observations.push_back({attacks[i].value_or(unseen), attacks[i] ? 1.0 : unseenWeight});
    }
    const std::vector<double> rough = onLines(observations);
    for (std::size_t i = 0; i < observations.size(); ++i) {
        if (std::abs(observations[i].place - rough[i]) > farthest * song.sampleRate)
            observations[i].weight = unseenWeight;
    }
    return onLines(observations);
}

} // namespace lyrabox
