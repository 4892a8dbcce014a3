#pragma once

#include <cstdint>

/// Float samples as integers. Full scale is 1.0; what exceeds it is clipped.
namespace lyrabox::encoding {

/// Noise for rounding to 16 bits. Without it the rounding error of quiet passages follows the
/// music, and is heard as a grainy distortion. The sum of two random numbers, each within half a
/// step, makes mean and power of the error independent of the music. The noise has a peak of one
/// step.
///
/// It is the same each time, so that the same export gives the same file.
class Dither {
public:
    /// In steps, between -1 and 1, with a triangular distribution.
    double next() noexcept { return uniform() + uniform(); }

private:
    double uniform() noexcept
    {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(m_state >> 32) / 4294967296.0 - 0.5;
    }

    std::uint64_t m_state = 0x9E3779B97F4A7C15U;
};

/// The nearest 16-bit value after dithering. A sample that is a 16-bit value already stays as it
/// is: it has no rounding error. So silence stays silent, and a 16-bit song passes unchanged.
std::int16_t toInt16(float sample, Dither &dither) noexcept;

/// The nearest 24-bit value, in the upper 24 bits. Its rounding error lies below the noise of every
/// converter, so it is not dithered.
std::int32_t toInt24(float sample) noexcept;

} // namespace lyrabox::encoding
