#pragma once

#include "platform/analysis/SongSamples.h"

namespace lyrabox {

/// The place nearest to `frame` where a cut makes no click, at most `range` frames away.
///
/// A place is the frame before which the song is cut, from 0 up to the length of the song. A
/// channel crosses zero there if the samples before and behind the cut differ in sign, or if one of
/// them is zero. Outside the song is silence, so both ends of the song are crossings.
///
/// The result is the nearest place at which both channels cross zero. If there is none within the
/// range, it is the place with the smallest sum of the magnitudes of both channels, before and
/// behind the cut. Of equal places the nearest wins, and of two equally near the earlier one. A
/// `frame` beyond the end of the song counts as its end.
///
/// Any thread. The time grows with `range`.
std::uint64_t nearestZeroCrossing(const SongSamples &song, std::uint64_t frame,
                                  std::uint64_t range);

} // namespace lyrabox
