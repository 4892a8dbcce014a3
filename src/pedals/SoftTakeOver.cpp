#include "pedals/SoftTakeOver.h"

#include <cmath>
#include <utility>

namespace lyrabox {

namespace {

constexpr double oneStep = 1.0 / 127.0;
constexpr double near = 2.5 * oneStep;
constexpr double unchanged = 0.5 * oneStep;

} // namespace

std::optional<double> SoftTakeOver::move(double position, double current)
{
    const std::optional<double> last = std::exchange(m_last, position);
    const bool isAttached = m_set && std::abs(*m_set - current) <= unchanged;
    const bool isNear = std::abs(position - current) <= near;
    const bool hasPassed = last && (*last - current) * (position - current) <= 0.0;
    if (!isAttached && !isNear && !hasPassed) {
        m_set.reset();
        return std::nullopt;
    }
    m_set = position;
    return position;
}

} // namespace lyrabox
