#pragma once

#include "platform/analysis/SongSamples.h"

#include <cmath>

namespace lyrabox {

/// Four floats that each operation processes at once.
using FourLanes = float __attribute__((vector_size(4 * sizeof(float))));

/// A sample as this folder reads it: damage becomes silence, see SongSamples.
inline float undamaged(float sample)
{
    return std::abs(sample) <= 1.0e6F ? sample : 0.0F;
}

/// The extremes and the energy of some frames, both channels together.
struct SampleShape {
    float minimum = 0.0F;
    float maximum = 0.0F;
    double squares = 0.0;   ///< the sum of all squares of both channels
    bool isDamaged = false; ///< some samples counted as silence
};

/// Measures all frames of `samples`. All members are 0 if there are none.
SampleShape measureShape(const SongSamples &samples);

} // namespace lyrabox
