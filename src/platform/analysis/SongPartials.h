#pragma once

#include "platform/analysis/SongSamples.h"

#include <cstddef>
#include <cstdint>
#include <stop_token>
#include <vector>

namespace lyrabox {

/// A partial of a note that held still from one window to the next.
struct SteadyPartial {
    std::uint32_t window = 0; ///< the number of the later window
    float hertz = 0.0F;
    float level = 0.0F;      ///< amplitude, both channels together; a full tone in both has 1.4
    bool isHarmonic = false; ///< probably the third or a higher odd partial of a lower note

    bool operator==(const SteadyPartial &) const = default;
};

/// The steady partials of a song from 80 to 1,800 Hz, window by window. songTuning() and songKey()
/// tell tuning and key from them.
struct SongPartials {
    std::vector<SteadyPartial> partials; ///< in the order of their windows
    double windowsPerSecond = 0.0;
};

/// Finds the partials in windows of 8,192 frames, every 4,096.
///
/// Any thread. For four minutes it takes about 0.3 s. Returns within 10 ms after a stop is
/// requested; the result is then empty. Throws std::bad_alloc without memory.
SongPartials songPartials(const SongSamples &song, const std::stop_token &stop = {});

/// How far a frequency lies above the nearest note of equal temperament at A = 440 Hz, in cents:
/// from -50 up to, but not including, 50.
double centsFromNote(double hertz);

} // namespace lyrabox
