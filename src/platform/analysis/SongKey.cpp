#include "platform/analysis/SongKey.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace lyrabox {

namespace {

constexpr std::size_t fewestPartials = 60;

/// By which power of its amplitude a partial counts: soft notes are notes, too.
constexpr double compression = 0.4;
constexpr double harmonicWeight = 0.5;

/// Hz. Above it there are more harmonics than notes.
constexpr float highestNote = 1000.0F;

using Profile = std::array<double, 12>;

/// How often each degree sounds in a key, by Albrecht and Shanahan (2013).
constexpr Profile majorProfile{0.238, 0.006, 0.111, 0.006, 0.137, 0.094,
                               0.016, 0.214, 0.009, 0.080, 0.008, 0.081};
constexpr Profile minorProfile{0.220, 0.006, 0.104, 0.123, 0.019, 0.103,
                               0.012, 0.214, 0.062, 0.022, 0.061, 0.052};

/// The share of each pitch class, C being 0.
Profile chromaOf(const SongPartials &song, double cents)
{
    Profile chroma{};
    double all = 0.0;
    for (const SteadyPartial &partial : song.partials) {
        if (partial.hertz > highestNote)
            continue;
        const double note = 12.0 * std::log2(partial.hertz / 440.0) - cents / 100.0;
        const double nearest = std::round(note);
        // Between two notes a partial belongs to neither.
        const double fit = std::cos(std::numbers::pi * (note - nearest));
        double weight = fit * std::pow(static_cast<double>(partial.level), compression);
        weight *= partial.isHarmonic ? harmonicWeight : 1.0;
        const int pitchClass = ((static_cast<int>(nearest) + 9) % 12 + 12) % 12;
        chroma[static_cast<std::size_t>(pitchClass)] += weight;
        all += weight;
    }
    for (double &share : chroma)
        share /= all > 0.0 ? all : 1.0;
    return chroma;
}

/// The square of the distance between a key's profile and the chroma.
double distanceOf(const KeyOfSong &key, const Profile &chroma)
{
    const Profile &profile = key.isMinor ? minorProfile : majorProfile;
    double sum = 0.0;
    for (std::size_t degree = 0; degree < 12; ++degree) {
        const std::size_t note = (degree + static_cast<std::size_t>(key.tonic)) % 12;
        sum += std::pow(chroma[note] - profile[degree], 2.0);
    }
    return sum;
}

} // namespace

KeyOfSong transposed(KeyOfSong key, int semitones)
{
    key.tonic = ((key.tonic + semitones) % 12 + 12) % 12;
    return key;
}

std::optional<KeyGuess> songKey(const SongPartials &song, double cents)
{
    if (song.partials.size() < fewestPartials)
        return std::nullopt;
    const Profile chroma = chromaOf(song, cents);
    std::array<std::pair<double, KeyOfSong>, 24> keys;
    for (int i = 0; i < 24; ++i) {
        const KeyOfSong key{.tonic = i % 12, .isMinor = i >= 12};
        keys[static_cast<std::size_t>(i)] = {distanceOf(key, chroma), key};
    }
    std::partial_sort(keys.begin(), keys.begin() + 2, keys.end(),
                      [](const auto &a, const auto &b) { return a.first < b.first; });
    return KeyGuess{keys[0].second, keys[1].second};
}

} // namespace lyrabox
