#pragma once

#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace lyrabox {

/// What is known of the tempo before it is measured.
struct TempoHint {
    double period = 0.0; ///< steps from beat to beat
    double from = 0.0;   ///< the steps between which that is so; both 0: roughly everywhere
    double to = 0.0;
};

/// The period of the beat at every step of a beat curve, in steps: the path of the local tempo that
/// repeats the curve best and changes little. With a hint, the period is the hint's where it holds,
/// and elsewhere less than 1.7 times as long or as short. Without one, it belongs to a tempo
/// between 50 and 210 beats a minute, those near 110 first.
///
/// Empty if the curve is, or if a stop is requested.
std::vector<float> tempoPath(std::span<const float> curve, double stepsPerSecond,
                             const std::optional<TempoHint> &hint, const std::stop_token &stop);

} // namespace lyrabox
