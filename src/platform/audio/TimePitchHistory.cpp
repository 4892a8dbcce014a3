#include "platform/audio/TimePitchHistory.h"

#include <algorithm>

namespace lyrabox {

void TimePitchHistory::allocate()
{
    m_left.assign(capacity, 0.0F);
    m_right.assign(capacity, 0.0F);
    m_end = 0;
}

void TimePitchHistory::clear() noexcept
{
    std::fill(m_left.begin(), m_left.end(), 0.0F);
    std::fill(m_right.begin(), m_right.end(), 0.0F);
    m_end = 0;
}

TimePitchHistory::Channels TimePitchHistory::writable() noexcept
{
    return {m_left.data() + index(m_end), m_right.data() + index(m_end)};
}

} // namespace lyrabox
