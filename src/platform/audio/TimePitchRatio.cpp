#include "platform/audio/TimePitchRatio.h"

#include "platform/audio/SoundRanges.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

PitchRatio pitchRatioForCents(double cents) noexcept
{
    const double target =
        std::exp2(std::clamp<double>(cents, pitchRange.minimum, pitchRange.maximum) / 1200.0);
    // Continued fraction: every convergent is the best fraction of its size.
    PitchRatio previous{1, 0};
    PitchRatio current{static_cast<std::uint32_t>(target), 1};
    double rest = target - std::floor(target);
    while (rest > 1e-9) {
        const double digit = std::floor(1.0 / rest);
        rest = 1.0 / rest - digit;
        const std::uint32_t room =
            std::min((maximumPitchRatioPart - previous.numerator) / std::max(current.numerator, 1U),
                     (maximumPitchRatioPart - previous.denominator) / current.denominator);
        const std::uint32_t count =
            std::min(room, static_cast<std::uint32_t>(std::min(digit, 1e9)));
        const PitchRatio next{count * current.numerator + previous.numerator,
                              count * current.denominator + previous.denominator};
        // The last convergent is cut short, so it may be worse than the one before.
        if (count < digit)
            return std::abs(next.value() - target) < std::abs(current.value() - target) ? next
                                                                                        : current;
        previous = current;
        current = next;
    }
    return current;
}

} // namespace lyrabox
