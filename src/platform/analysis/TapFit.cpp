#include "platform/analysis/TapFit.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace lyrabox {

namespace {

/// Taps nearer than this are one, in seconds. In two passes of a loop, the same beat is tapped at
/// places that differ.
constexpr double samePlace = 0.085;

/// The mean distance of the taps from even beats, as a share of the period.
constexpr double mostUneven = 0.16;

struct Place {
    double frame;
    int taps;
};

/// The taps in their order, those at the same place as one at their mean.
std::vector<Place> distinctPlaces(std::span<const std::uint64_t> taps, double sampleRate)
{
    std::vector<std::uint64_t> sorted(taps.begin(), taps.end());
    std::sort(sorted.begin(), sorted.end());
    std::vector<Place> places;
    for (const std::uint64_t tap : sorted) {
        const auto frame = static_cast<double>(tap);
        if (places.empty() || frame - places.back().frame > samePlace * sampleRate) {
            places.push_back({frame, 1});
        } else {
            Place &last = places.back();
            last.frame += (frame - last.frame) / ++last.taps;
        }
    }
    return places;
}

double medianDistance(const std::vector<Place> &places)
{
    std::vector<double> distances;
    for (std::size_t i = 1; i < places.size(); ++i)
        distances.push_back(places[i].frame - places[i - 1].frame);
    const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::nth_element(distances.begin(), middle, distances.end());
    return *middle;
}

/// A straight line through the places by the least squares.
struct Line {
    double start = 0.0;
    double period = 0.0;

    double number(double frame) const { return std::round((frame - start) / period); }

    void fit(const std::vector<Place> &places)
    {
        double count = 0.0, x = 0.0, y = 0.0, xx = 0.0, xy = 0.0;
        for (const Place &place : places) {
            const double beat = number(place.frame);
            const double weight = place.taps;
            const double offset = place.frame - places.front().frame;
            count += weight;
            x += weight * beat;
            y += weight * offset;
            xx += weight * beat * beat;
            xy += weight * beat * offset;
        }
        const double spread = count * xx - x * x;
        if (spread <= 0.0)
            return;
        period = (count * xy - x * y) / spread;
        start = places.front().frame + (y - period * x) / count;
    }
};

} // namespace

std::variant<TappedBeats, TapFault> fitTaps(std::span<const std::uint64_t> taps, double sampleRate)
{
    const std::vector<Place> places = distinctPlaces(taps, sampleRate);
    if (places.size() < static_cast<std::size_t>(TapLimits::fewest))
        return TapFault::TooFew;
    Line line{.start = places.front().frame, .period = medianDistance(places)};
    for (int pass = 0; pass < 2; ++pass)
        line.fit(places);
    const double tempo = 60.0 * sampleRate / line.period;
    if (tempo > TapLimits::fastest)
        return TapFault::TooFast;
    if (!(tempo >= TapLimits::slowest))
        return TapFault::TooSlow;
    double squares = 0.0;
    for (const Place &place : places) {
        const double beat = (place.frame - line.start) / line.period;
        squares += (beat - std::round(beat)) * (beat - std::round(beat));
    }
    if (std::sqrt(squares / static_cast<double>(places.size())) > mostUneven)
        return TapFault::Uneven;
    const double first = line.number(static_cast<double>(taps.front()));
    return TappedBeats{
        .first = line.start + line.period * first,
        .period = line.period,
        .before = static_cast<int>(first - line.number(places.front().frame)),
        .after = static_cast<int>(line.number(places.back().frame) - first),
    };
}

} // namespace lyrabox
