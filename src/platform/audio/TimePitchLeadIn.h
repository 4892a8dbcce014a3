#pragma once

#include <cstdint>

namespace lyrabox {

class TimePitchHistory;

/// Frames from 0 on that makeLeadIn() reads for a lead-in of `frames`.
std::uint32_t leadInSourceFrames(std::uint32_t frames) noexcept;

/// Invents the `frames` frames before frame 0, which a stretcher that starts near there reads as
/// well: a later stretch of the same song, taken where it runs on into frame 0 as smoothly as
/// possible, and led over into it within 6 ms. Silence instead would make the first sound swell.
/// `frames` is at most 2,400. Callback thread.
void makeLeadIn(TimePitchHistory &history, std::uint32_t frames) noexcept;

} // namespace lyrabox
