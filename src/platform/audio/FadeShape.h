#pragma once

namespace lyrabox {

/// The gain of what fades in at `t` of its fade, 0 to 1; what fades out has the rest of 1. A
/// polynomial without slope and curvature at either end: it keeps closer to nothing at first than
/// half a cosine does, and what it does to a sound stays close beside the sound's own frequencies.
constexpr double fadeShape(double t)
{
    return t * t * t * (10.0 + t * (6.0 * t - 15.0));
}

} // namespace lyrabox
