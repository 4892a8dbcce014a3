#include "engine/LeadInReader.h"

#include "platform/audio/FadeShape.h"

namespace lyrabox::engine {

float LeadInReader::rise(std::uint32_t step, std::uint32_t steps) noexcept
{
    return static_cast<float>(fadeShape((step + 0.5) / steps));
}

std::uint32_t LeadInReader::beginRequested(std::uint64_t place) noexcept
{
    const LeadIn *const requested = m_requested.takeNewest();
    if (requested == nullptr)
        return 0;
    begin(*requested, place, place, false);
    return m_current.frames;
}

std::uint32_t LeadInReader::beginAtWrap(std::uint64_t from, std::uint64_t place) noexcept
{
    if (const LeadIn *newest = m_atWrap.takeNewest())
        m_atWrapNow = *newest;
    if (m_atWrapNow.frames > 0)
        begin(m_atWrapNow, from, place, true);
    return m_atWrapNow.frames;
}

void LeadInReader::begin(const LeadIn &leadIn, std::uint64_t from, std::uint64_t place,
                         bool fadesOut)
{
    m_current = leadIn;
    m_done = 0;
    m_fade = std::min(fadeFrames, leadIn.frames / 2);
    m_fadesOut = fadesOut;
    m_from = from;
    m_place = place;
}

} // namespace lyrabox::engine
