#include "platform/encoding/Samples.h"

#include <algorithm>
#include <cmath>

namespace lyrabox::encoding {

std::int16_t toInt16(float sample, Dither &dither) noexcept
{
    double value = static_cast<double>(sample) * 32768.0;
    if (value != std::rint(value))
        value = std::rint(value + dither.next());
    return static_cast<std::int16_t>(std::clamp(value, -32768.0, 32767.0));
}

std::int32_t toInt24(float sample) noexcept
{
    const double value = std::rint(static_cast<double>(sample) * 8388608.0);
    return static_cast<std::int32_t>(std::clamp(value, -8388608.0, 8388607.0)) * 256;
}

} // namespace lyrabox::encoding
