#pragma once

#include <cstddef>
#include <span>
#include <stop_token>
#include <vector>

namespace lyrabox {

/// Beats that follow on one another, as steps of a beat curve.
struct BeatPath {
    /// A beat, and how sure it is.
    struct Beat {
        std::size_t step = 0;
        float margin = 0.0F; ///< by how much the path is better than the best one that has no beat
                             ///< here but one far from it; the larger, the surer
        float strain = 0.0F; ///< what the difference from the local tempo costs
    };
    std::vector<Beat> beats;
};

/// Where the first beat may be: from the step `from` up to, but not including, `to`.
struct BeatStart {
    std::size_t from = 0;
    std::size_t to = 0;
};

/// The beats from the start on to the end of the curve that lie highest on it and are one period
/// apart, as nearly as can be: by dynamic programming, as Ellis described it in 2007. `periods` are
/// those of tempoPath(). Between two beats there is never less than five sixths or more than six
/// fifths of a period, so that none is left out and none put in.
///
/// Empty if a stop is requested, or without a start.
BeatPath findBeatPath(std::span<const float> curve, std::span<const float> periods, BeatStart start,
                      const std::stop_token &stop);

} // namespace lyrabox
