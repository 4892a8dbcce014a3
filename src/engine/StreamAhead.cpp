#include "engine/StreamAhead.h"

#include "engine/SongFrames.h"

#include <algorithm>

namespace lyrabox::engine {

void StreamAhead::readAhead(float *left, float *right, std::uint32_t frames) noexcept
{
    const std::uint64_t loopStart = state().loopStartFrame.load(std::memory_order_relaxed);
    LeadInFrames leadIn = m_leadIn.left();
    std::uint64_t position = m_place.position;
    // Slice by slice as the render routine does, because a loop jumps only between slices.
    for (std::uint32_t done = 0; done < frames;) {
        if (m_place.isLooping && position >= m_place.loopEnd && !leadIn.isActive()) {
            const bool plays = loopStart < m_place.loopEnd;
            const std::uint64_t goesTo = plays ? placeAfterJump(loopStart) : loopStart;
            leadIn = plays ? m_leadIn.nextAtWrap(position, goesTo) : LeadInFrames{};
            position = goesTo;
        }
        const std::uint32_t slice = std::max(m_place.slice, 1U);
        const std::uint32_t silent = std::min(leadIn.left(), slice);
        const std::uint32_t written = std::min(silent, frames - done);
        copyLeadIn(left + done, written, 0, leadIn);
        copyLeadIn(right + done, written, 1, leadIn);
        done += written;
        leadIn.done += silent;
        const std::uint32_t played = slice - silent;
        const std::uint32_t copied = std::min(played, frames - done);
        copySongFrames(left + done, copied, 0, position);
        copySongFrames(right + done, copied, 1, position);
        done += copied;
        position += played;
    }
}

void StreamAhead::readBefore(float *left, float *right, std::uint32_t frames) noexcept
{
    // Nothing sounds before a lead-in at a start.
    if (m_place.silent > 0) {
        std::fill_n(left, frames, 0.0F);
        std::fill_n(right, frames, 0.0F);
        return;
    }
    copySongFrames(left, frames, 0, m_place.start - frames);
    copySongFrames(right, frames, 1, m_place.start - frames);
}

} // namespace lyrabox::engine
