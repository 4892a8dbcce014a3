#pragma once

#include "platform/analysis/SongPartials.h"

#include <optional>

namespace lyrabox {

/// How far a song is tuned above A = 440 Hz, in cents: from -50 to 50. A song that is tuned half a
/// tone lower cannot be told from one that is played half a tone lower.
struct SongTuning {
    double cents = 0.0;
    /// The lowest and the highest tuning on the way, if it drifts; otherwise both are `cents`.
    /// They may lie beyond -50 and 50.
    double lowest = 0.0;
    double highest = 0.0;

    bool operator==(const SongTuning &) const = default;

    bool drifts() const { return lowest < highest; }
    /// The frequency of the A.
    double hertz() const;
};

/// The tuning of a song, or none if it is not clear: without notes, with fewer than three pitch
/// classes, or with notes anywhere. Any thread. It takes a few milliseconds for four minutes.
std::optional<SongTuning> songTuning(const SongPartials &song);

} // namespace lyrabox
