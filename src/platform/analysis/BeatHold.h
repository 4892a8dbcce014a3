#pragma once

#include "platform/analysis/BeatPath.h"

#include <cstddef>
#include <span>
#include <vector>

namespace lyrabox {

/// How far a path of beats can be relied upon.
struct BeatHold {
    std::vector<float> holds; ///< of each beat, from 0 to 1: whether there are onsets at the beats
                              ///< around it
    std::size_t count = 0;    ///< the beats from the first on that can be relied upon
    bool isLost = false; ///< the song goes on behind them; if not, they end with the last one that
                         ///< sounds
};

/// Where onsets are rare or fit badly, the path goes on by itself. If the song then goes on in the
/// time in which it was before, nothing was lost: a musician counts through a break, too. Otherwise
/// the path is lost from there on, because beats may be missing in it or too many.
///
/// The first `sure` beats are never lost.
BeatHold holdOf(const BeatPath &path, std::span<const float> curve, std::size_t sure);

} // namespace lyrabox
