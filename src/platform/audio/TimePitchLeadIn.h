#pragma once

#include <cstdint>

namespace lyrabox {

class TimePitchHistory;

/// The number of frames, counted from the song's frame 0, that makeLeadIn() needs for a lead-in of
/// `frames` frames.
std::uint32_t leadInSourceFrames(std::uint32_t frames) noexcept;

/// Fills the `frames` frames before frame 0, which a stretcher that starts at frame 0 also reads.
/// They are copied from the later place in the song that joins frame 0 most smoothly, with a
/// crossfade of at most 6 ms. If they were silent, the first sound would swell. `frames` is at most
/// 2,400. Callback thread.
void makeLeadIn(TimePitchHistory &history, std::uint32_t frames) noexcept;

/// The number of frames that makeLeadOut() writes.
constexpr std::uint32_t leadOutFrames = 2432;

/// Fills the frames from `end` on, because a stretcher reads past the song's last frame. They are
/// copied from an earlier place in the song in the same way, and fade out. If they were silent, a
/// song that breaks off at full level would end too early and with a click. Callback thread.
void makeLeadOut(TimePitchHistory &history, std::int64_t end) noexcept;

} // namespace lyrabox
