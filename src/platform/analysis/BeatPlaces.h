#pragma once

#include "platform/analysis/SongSamples.h"

#include <cstddef>
#include <span>
#include <stop_token>
#include <vector>

namespace lyrabox {

/// The exact places of beats, in frames, in their order. `beats` are steps of OnsetStrength::hop
/// frames; `onsets` are all those of the song.
///
/// A beat lies where a line through the attacks of its neighbours and its own puts it, so that
/// one note that is early or late does not pull it along, and a beat without a note has its place
/// too. Empty if a stop is requested.
std::vector<double> placeBeats(const SongSamples &song, std::span<const float> onsets,
                               std::span<const std::size_t> beats, const std::stop_token &stop);

} // namespace lyrabox
