#pragma once

#include "platform/audio/Clicks.h"
#include "platform/audio/TripleBuffer.h"

#include <algorithm>
#include <cstdint>

namespace lyrabox::engine {

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

    void cancel() noexcept { m_done = m_current.frames; }

    bool isActive() const noexcept { return m_done < m_current.frames; }
    std::uint32_t framesLeft() const noexcept { return m_current.frames - m_done; }
    /// The frames that were read.
    std::uint32_t done() const noexcept { return m_done; }
    const LeadIn &current() const noexcept { return m_current; }

    /// Writes the next `frames` frames of one channel, at most framesLeft(). `songFrame` gives the
    /// channel's sample at a frame of the song, and silence outside of it.
    template <typename SongFrame>
    void read(float *samples, std::uint32_t frames, SongFrame songFrame) const noexcept;

    /// The next frames are read.
    void advance(std::uint32_t frames) noexcept { m_done += frames; }

private:
    void begin(const LeadIn &leadIn, std::uint64_t from, std::uint64_t place, bool fadesOut);

    static float rise(std::uint32_t step, std::uint32_t steps) noexcept;

    TripleBuffer<LeadIn> m_atWrap;
    TripleBuffer<LeadIn> m_requested;
    LeadIn m_atWrapNow;
    LeadIn m_current;
    std::uint32_t m_done = 0;
    std::uint32_t m_fade = 0;  ///< the length of each fade
    bool m_fadesOut = false;   ///< there is sound before it
    std::uint64_t m_from = 0;  ///< the frame that would have been read next
    std::uint64_t m_place = 0; ///< the frame after the lead-in
};

template <typename SongFrame>
void LeadInReader::read(float *samples, std::uint32_t frames, SongFrame songFrame) const noexcept
{
    for (std::uint32_t i = 0; i < frames; ++i) {
        const std::uint32_t at = m_done + i;
        const std::uint32_t left = m_current.frames - at;
        float sample = 0.0F;
        if (m_fadesOut && at < m_fade)
            sample = songFrame(m_from + at) * (1.0F - rise(at, m_fade));
        if (left <= m_fade)
            sample = songFrame(m_place - left) * rise(m_fade - left, m_fade);
        samples[i] = sample;
    }
}

} // namespace lyrabox::engine
