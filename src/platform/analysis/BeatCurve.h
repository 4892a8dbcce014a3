#pragma once

#include "platform/analysis/SongSamples.h"

#include <cstddef>
#include <span>
#include <stop_token>
#include <vector>

/// Of each step of OnsetStrength::hop frames, how well it fits a beat.
namespace lyrabox {

/// How much begins in every step of a song: OnsetStrength::growth() and lowGrowth().
struct SongOnsets {
    std::vector<float> all;
    std::vector<float> low;
};

/// Measures a song. Empty if a stop is requested. A second of the song takes about a millisecond.
SongOnsets songOnsets(const SongSamples &song, const std::stop_token &stop = {});

/// Steps per second.
double stepRate(double sampleRate);

/// The onsets above the mean of their surroundings, in units of what is usual there, so that
/// quiet and loud parts of a song count alike: about 3 at an onset, about 0 between, 0 in silence.
std::vector<float> beatCurve(std::span<const float> onsets, double stepsPerSecond);

} // namespace lyrabox
