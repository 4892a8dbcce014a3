#pragma once

#include <cstdint>

namespace lyrabox {

class TimePitchHistory;

/// Frames of the song, from frame 0 on, that makeLeadIn() needs for a lead-in of `frames` frames.
std::uint32_t leadInSourceFrames(std::uint32_t frames) noexcept;

/// Invents the `frames` frames before frame 0, because a stretcher that starts there reads them,
/// too. They are copied from a later place of the same song that continues into frame 0 as smoothly
/// as possible, and blended into it within 6 ms. With silence instead, the first sound would swell.
/// `frames` is at most 2,400. Callback thread.
void makeLeadIn(TimePitchHistory &history, std::uint32_t frames) noexcept;

/// The number of frames that makeLeadOut() writes.
constexpr std::uint32_t leadOutFrames = 2432;

/// Invents the frames from `end` on, because a stretcher reads beyond the song's last frame. They
/// are copied from an earlier place of the song in the same way, and fade away to silence. If a
/// song breaks off at full level, immediate silence would be heard as a click, and too early.
/// Callback thread.
void makeLeadOut(TimePitchHistory &history, std::int64_t end) noexcept;

} // namespace lyrabox
