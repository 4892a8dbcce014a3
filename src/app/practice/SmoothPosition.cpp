#include "app/practice/SmoothPosition.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {
constexpr double correction = 0.1; // of the distance, each time
} // namespace

void SmoothPosition::jumpTo(double frame, double now)
{
    m_position = frame;
    m_time = now;
}

double SmoothPosition::measured(double frame, double now, double framesPerMillisecond, double jump)
{
    const double expected = m_position + (now - m_time) * framesPerMillisecond;
    if (std::abs(frame - expected) > jump) {
        jumpTo(frame, now);
        return m_position;
    }
    m_position = std::max(m_position, expected + (frame - expected) * correction);
    m_time = now;
    return m_position;
}

} // namespace lyrabox
