#include "pedals/SoftTakeOver.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double oneStep = 1.0 / 127.0;
constexpr double near = 2.5 * oneStep;
constexpr double unchanged = 0.5 * oneStep;

} // namespace

void SoftTakeOver::passBy(double position)
{
    m_lowest = std::min(m_lowest, position);
    m_highest = std::max(m_highest, position);
}

std::optional<double> SoftTakeOver::move(double position, double current)
{
    passBy(position);
    const bool isAttached = m_set && std::abs(*m_set - current) <= unchanged;
    const bool hasReached = m_lowest - near <= current && current <= m_highest + near;
    m_lowest = position;
    m_highest = position;
    if (!isAttached && !hasReached) {
        m_set.reset();
        return std::nullopt;
    }
    m_set = position;
    return position;
}

} // namespace lyrabox
