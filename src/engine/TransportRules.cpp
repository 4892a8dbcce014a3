#include "engine/TransportRules.h"

#include "platform/ui/StepTags.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lyrabox::transport {

namespace {

/// Removes the rounding error of a float from a value in hundredths.
float withoutRoundingError(double value)
{
    constexpr double tolerance = 0.01; // hundredths
    const double hundredths = std::round(value * 100.0);
    return static_cast<float>(std::abs(value * 100.0 - hundredths) < tolerance ? hundredths / 100.0
                                                                               : value);
}

} // namespace

float stepped(int tag, float current, float step, float normal)
{
    switch (tag) {
    case StepDown:
        return withoutRoundingError(static_cast<double>(current) - static_cast<double>(step));
    case StepReset:
        return normal;
    case StepUp:
        return withoutRoundingError(static_cast<double>(current) + static_cast<double>(step));
    default:
        return current;
    }
}

bool isAcceptedEntry(float value)
{
    return value != 0.0F && !std::isnan(value);
}

std::int16_t wholeCents(float cents)
{
    using Limits = std::numeric_limits<std::int16_t>;
    if (std::isnan(cents))
        return 0;
    return static_cast<std::int16_t>(
        std::clamp(cents, static_cast<float>(Limits::min()), static_cast<float>(Limits::max())));
}

QString artistLine(const QString &artist, const QString &album)
{
    return artist.isEmpty() || album.isEmpty() ? artist + album
                                               : QStringLiteral(u"%1 ● %2").arg(artist, album);
}

} // namespace lyrabox::transport
