#pragma once

#include "platform/analysis/SongSamples.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

/// Songs that the tests of this folder make.
namespace lyrabox::test {

constexpr double songRate = 44100.0;

/// The samples of a song, which begins silent.
struct MadeSong {
    explicit MadeSong(std::size_t frames) : left(frames), right(frames) {}

    SongSamples samples() const { return {left, right, songRate}; }
    SongSamples mono() const { return {left, left, songRate}; }

    /// Adds a tone to both channels from `begin` on. It fades away by the factor e in `decay`
    /// seconds, or not at all without one.
    void addTone(std::size_t begin, double frequency, double level, double decay = INFINITY)
    {
        for (std::size_t i = begin; i < left.size(); ++i) {
            const double time = static_cast<double>(i - begin) / songRate;
            if (time > 8.0 * decay)
                break;
            const auto value =
                static_cast<float>(level * std::exp(-time / decay) *
                                   std::sin(2.0 * std::numbers::pi * frequency * time));
            left[i] += value;
            right[i] += value;
        }
    }

    /// Adds different noise to each channel, of the RMS `level`.
    void addNoise(double level, unsigned seed = 1)
    {
        std::mt19937 random(seed);
        const auto peak = static_cast<float>(level * std::sqrt(3.0));
        std::uniform_real_distribution<float> values(-peak, peak);
        for (std::size_t i = 0; i < left.size(); ++i) {
            left[i] += values(random);
            right[i] += values(random);
        }
    }

    std::vector<float> left;
    std::vector<float> right;
};

} // namespace lyrabox::test
