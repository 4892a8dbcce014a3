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

/// Frames that makeLeadOut() writes.
constexpr std::uint32_t leadOutFrames = 2432;

/// Invents the frames from `end` on, which a stretcher reads ahead of the song's last frame: in the
/// same way an earlier stretch of the song, then fading away to silence. Where a song is cut off in
/// full sound, silence at once would be heard as a click, and before its time. Callback thread.
void makeLeadOut(TimePitchHistory &history, std::int64_t end) noexcept;

} // namespace lyrabox
