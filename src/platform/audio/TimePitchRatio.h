#pragma once

#include <cstdint>

namespace lyrabox {

/// A pitch scale as a fraction: the frequency heard over the frequency in the song.
struct PitchRatio {
    std::uint32_t numerator = 1;
    std::uint32_t denominator = 1;

    double value() const { return static_cast<double>(numerator) / denominator; }
    bool operator==(const PitchRatio &) const = default;
};

/// Neither part of a PitchRatio exceeds this.
constexpr std::uint32_t maximumPitchRatioPart = 10000;

/// The fraction nearest to 2^(cents / 1200), cents within ±2400, with both parts within
/// maximumPitchRatioPart. Any thread.
PitchRatio pitchRatioForCents(double cents) noexcept;

} // namespace lyrabox
