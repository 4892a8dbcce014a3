#include "engine/LeadInReader.h"

#include "platform/audio/FadeShape.h"

#include <algorithm>

namespace lyrabox::engine {

namespace {

LeadInFrames framesOf(const LeadIn &leadIn, std::uint64_t from, std::uint64_t place, bool fadesOut)
{
    return {.frames = leadIn.frames,
            .done = 0,
            .fade = std::min(LeadInReader::fadeFrames, leadIn.frames / 2),
            .fadesOut = fadesOut,
            .from = from,
            .place = place};
}

} // namespace

float LeadInFrames::rise(std::uint32_t step, std::uint32_t steps) noexcept
{
    return static_cast<float>(fadeShape((step + 0.5) / steps));
}

const LeadIn &LeadInReader::atWrap() noexcept
{
    if (const LeadIn *newest = m_atWrap.takeNewest())
        m_atWrapNow = *newest;
    return m_atWrapNow;
}

std::uint32_t LeadInReader::beginRequested(std::uint64_t place) noexcept
{
    const LeadIn *const requested = m_requested.takeNewest();
    if (requested == nullptr)
        return 0;
    m_current = *requested;
    m_left = framesOf(m_current, place, place, false);
    return m_current.frames;
}

std::uint32_t LeadInReader::beginAtWrap(std::uint64_t from, std::uint64_t place) noexcept
{
    if (atWrap().frames > 0) {
        m_current = m_atWrapNow;
        m_left = framesOf(m_current, from, place, true);
    }
    return m_atWrapNow.frames;
}

LeadInFrames LeadInReader::nextAtWrap(std::uint64_t from, std::uint64_t place) noexcept
{
    return framesOf(atWrap(), from, place, true);
}

} // namespace lyrabox::engine
