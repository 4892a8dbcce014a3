#pragma once

namespace lyrabox {

/// The gain of a fade-in at `t`, which runs from 0 to 1 during the fade. The matching fade-out has
/// the gain 1 - fadeShape(t). The slope and curvature of the polynomial are 0 at both ends, so it
/// spreads a sound's spectrum less than a raised cosine does.
constexpr double fadeShape(double t)
{
    return t * t * t * (10.0 + t * (6.0 * t - 15.0));
}

} // namespace lyrabox
