#pragma once

#include <cstdint>

namespace lyrabox {

/// A pitch shift as a fraction: the frequency that is heard divided by the frequency in the song.
struct PitchRatio {
    std::uint32_t numerator = 1;
    std::uint32_t denominator = 1;

    double value() const { return static_cast<double>(numerator) / denominator; }
    bool operator==(const PitchRatio &) const = default;
};

/// Neither part of a PitchRatio exceeds this.
constexpr std::uint32_t maximumPitchRatioPart = 10000;

/// The fraction nearest to 2^(cents / 1200) whose parts are at most maximumPitchRatioPart. `cents`
/// is clamped to pitchRange. Any thread.
PitchRatio pitchRatioForCents(double cents) noexcept;

} // namespace lyrabox
