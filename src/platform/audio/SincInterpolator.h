#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace lyrabox {

/// Reads a stereo signal between its frames, through a windowed sinc (J. O. Smith, "Digital Audio
/// Resampling"). Callback thread, except allocate().
class SincInterpolator {
public:
    enum class Window {
        Hann,
        Kaiser, ///< beta 8: 80 dB next to the pass band, which ends 1.7 kHz below the cutoff
    };

    /// Builds the table: `crossings` zero crossings of the sinc to each side, and `steps` entries
    /// from one crossing to the next. `steps` is a power of two.
    void allocate(int crossings, int steps, Window window);

    /// Frames that are read to each side of a position. `cutoff` is a share of half the sample
    /// rate.
    double reach(double cutoff) const noexcept { return m_crossings / cutoff; }

    /// Writes the value of both channels at `place` into `left` and `right`. `ring` holds frame i
    /// in slot i modulo Frames, which is a power of two.
    template <std::size_t Frames>
    void interpolate(const std::array<std::array<float, Frames>, 2> &ring, double place,
                     double cutoff, float &left, float &right) const noexcept
    {
        static_assert((Frames & (Frames - 1U)) == 0);
        const auto first = static_cast<std::int64_t>(std::ceil(place - reach(cutoff)));
        const auto last = static_cast<std::int64_t>(std::floor(place + reach(cutoff)));
        const double stride = cutoff * m_steps;
        float sumLeft = 0.0F;
        float sumRight = 0.0F;
        for (std::int64_t i = first; i <= last; ++i) {
            const auto at = static_cast<float>(std::abs(static_cast<double>(i) - place) * stride);
            const auto entry = static_cast<std::size_t>(at);
            const float rest = at - static_cast<float>(entry);
            const float weight = m_kernel[entry] + rest * (m_kernel[entry + 1] - m_kernel[entry]);
            const auto slot = static_cast<std::size_t>(i) & (Frames - 1U);
            sumLeft += weight * ring[0][slot];
            sumRight += weight * ring[1][slot];
        }
        left = sumLeft * static_cast<float>(cutoff);
        right = sumRight * static_cast<float>(cutoff);
    }

private:
    std::vector<float> m_kernel; ///< one side of it
    double m_crossings = 0.0;
    double m_steps = 0.0;
};

} // namespace lyrabox
