#pragma once

#include "platform/analysis/SongSamples.h"

#include <cstdint>
#include <optional>

namespace lyrabox {

/// Searches the samples up to 512 frames before and behind `middle` for an attack.
///
/// The 40 ms before are the background. At the attack, the samples stop following from it: the
/// background's linear prediction fails. The frame at which its errors grow by the largest factor
/// is the result. So a note is placed as exactly over a loud chord as over silence.
///
/// None if the errors hardly grow, as in a steady sound or in noise, and none if the sound ends
/// there: an end cut off sharply is as sudden as an attack.
std::optional<std::uint64_t> attackFrame(const SongSamples &song, std::uint64_t middle);

} // namespace lyrabox
