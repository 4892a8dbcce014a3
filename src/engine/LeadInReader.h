#pragma once

#include "platform/audio/Clicks.h"
#include "platform/audio/TripleBuffer.h"

#include <cstdint>

namespace lyrabox::engine {

/// The frames of a lead-in that are left. A copy of it tells what a reader will read.
struct LeadInFrames {
    std::uint32_t frames = 0;
    std::uint32_t done = 0;
    std::uint32_t fade = 0;  ///< the length of each fade
    bool fadesOut = false;   ///< there is sound before it
    std::uint64_t from = 0;  ///< the frame that would have been read next
    std::uint64_t place = 0; ///< the frame after the lead-in

    bool isActive() const noexcept { return done < frames; }
    std::uint32_t left() const noexcept { return frames - done; }

    /// Writes the next `count` frames of one channel, at most left(). `songFrame` gives the
    /// channel's sample at a frame of the song, and silence outside of it.
    template <typename SongFrame>
    void read(float *samples, std::uint32_t count, SongFrame songFrame) const noexcept;

private:
    static float rise(std::uint32_t step, std::uint32_t steps) noexcept;
};

/// Reads a lead-in in place of the song: silence before the frame at which the song goes on. At its
/// ends it is faded over up to fadeFrames frames. First the sound before it fades out, then the
/// frames of the song before its place fade in, so that the first attack is complete.
///
/// Callback thread, except for the two members that name another.
class LeadInReader {
public:
    static constexpr std::uint32_t fadeFrames = 256;

    /// Control side. The lead-in at every jump of a loop.
    void setAtWrap(const LeadIn &leadIn) noexcept { m_atWrap.publish(leadIn); }

    /// Control side. One lead-in where the song is read next.
    void request(const LeadIn &leadIn) noexcept { m_requested.publish(leadIn); }

    /// Begins what was requested, before frame `place`. Returns its length, 0 without a request.
    std::uint32_t beginRequested(std::uint64_t place) noexcept;

    /// Begins the lead-in of a loop's jump from frame `from` to `place`. Returns its length, which
    /// may be 0.
    std::uint32_t beginAtWrap(std::uint64_t from, std::uint64_t place) noexcept;

    /// The lead-in of a loop's jump as beginAtWrap() would begin it now.
    LeadInFrames nextAtWrap(std::uint64_t from, std::uint64_t place) noexcept;

    void cancel() noexcept { m_left.done = m_left.frames; }

    bool isActive() const noexcept { return m_left.isActive(); }
    std::uint32_t framesLeft() const noexcept { return m_left.left(); }
    /// The frames that were read.
    std::uint32_t done() const noexcept { return m_left.done; }
    const LeadIn &current() const noexcept { return m_current; }
    /// The frames that are read next.
    const LeadInFrames &left() const noexcept { return m_left; }

    /// Writes the next `frames` frames of one channel, as LeadInFrames does.
    template <typename SongFrame>
    void read(float *samples, std::uint32_t frames, SongFrame songFrame) const noexcept
    {
        m_left.read(samples, frames, songFrame);
    }

    /// The next frames are read.
    void advance(std::uint32_t frames) noexcept { m_left.done += frames; }

private:
    const LeadIn &atWrap() noexcept;

    TripleBuffer<LeadIn> m_atWrap;
    TripleBuffer<LeadIn> m_requested;
    LeadIn m_atWrapNow;
    LeadIn m_current;
    LeadInFrames m_left;
};

template <typename SongFrame>
void LeadInFrames::read(float *samples, std::uint32_t count, SongFrame songFrame) const noexcept
{
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t at = done + i;
        const std::uint32_t toEnd = frames - at;
        float sample = 0.0F;
        if (fadesOut && at < fade)
            sample = songFrame(from + at) * (1.0F - rise(at, fade));
        if (toEnd <= fade)
            sample = songFrame(place - toEnd) * rise(fade - toEnd, fade);
        samples[i] = sample;
    }
}

} // namespace lyrabox::engine
