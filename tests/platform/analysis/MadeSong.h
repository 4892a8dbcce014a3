#pragma once

#include "platform/analysis/SongSamples.h"

#include <cmath>
#include <cstddef>
#include <initializer_list>
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
            if (time > 15.0 * decay) // -130 dB
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

    /// Adds a note like that of a string: ten partials that begin at once and fade away.
    void addPluck(std::size_t begin, double frequency, double level, double decay)
    {
        for (int partial = 1; partial <= 10; ++partial)
            addTone(begin, frequency * partial, level / partial, decay / partial);
    }

    /// Adds a chord of steady notes.
    void addChord(std::initializer_list<double> frequencies, double level)
    {
        for (const double frequency : frequencies) {
            for (int partial = 1; partial <= 8; ++partial)
                addTone(0, frequency * partial, level / partial);
        }
    }

    /// Adds 2 ms of noise that fade away. The first sample is the loudest.
    void addClick(std::size_t at, float level)
    {
        std::mt19937 random(static_cast<unsigned>(at));
        std::uniform_real_distribution<float> values(-level, level);
        for (std::size_t i = 0; i < 88 && at + i < left.size(); ++i) {
            const float value =
                (i == 0 ? level : values(random)) * std::exp(static_cast<float>(i) / -30.0F);
            left[at + i] += value;
            right[at + i] += value;
        }
    }

    std::vector<float> left;
    std::vector<float> right;
};

} // namespace lyrabox::test
