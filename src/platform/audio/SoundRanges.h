#pragma once

#include <cstddef>
#include <cstdint>

namespace lyrabox {

/// The lowest and the highest value of a setting, both included.
struct ValueRange {
    float minimum;
    float maximum;

    /// The value of the range that is nearest to `value`. A NaN stays a NaN.
    constexpr float clamped(float value) const
    {
        if (value < minimum)
            return minimum;
        return value > maximum ? maximum : value;
    }
    constexpr bool operator==(const ValueRange &) const = default;
};

/// The range in which each setting has an effect. The interface offers the same ranges.
constexpr ValueRange speedRange{.minimum = 10.0F, .maximum = 200.0F};          ///< percent
constexpr ValueRange pitchRange{.minimum = -2400.0F, .maximum = 2400.0F};      ///< cents
constexpr ValueRange equalizerLevelRange{.minimum = -12.0F, .maximum = 12.0F}; ///< dB

/// The equalizer has one band per third of an octave, but only one control per octave.
constexpr std::uint32_t equalizerControls = 10;

/// The band of the 31-band equalizer that a control drives. Controls count from 0, at 31.5 Hz.
constexpr std::uint32_t equalizerBandOfControl(std::size_t control)
{
    return static_cast<std::uint32_t>(3 * control + 2);
}

} // namespace lyrabox
