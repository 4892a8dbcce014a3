#include "platform/audio/SincInterpolator.h"

#include <algorithm>
#include <numbers>

namespace lyrabox {

namespace {

constexpr double kaiserBeta = 8.0;

double besselI0(double x)
{
    double sum = 1.0;
    double term = 1.0;
    for (int n = 1; n < 40; ++n) {
        term *= x / (2.0 * n) * x / (2.0 * n);
        sum += term;
    }
    return sum;
}

double hann(double x, double crossings)
{
    return 0.5 + 0.5 * std::cos(std::numbers::pi * x / crossings);
}

double kaiser(double x, double crossings)
{
    const double edge = std::max(1.0 - x * x / (crossings * crossings), 0.0);
    return besselI0(kaiserBeta * std::sqrt(edge)) / besselI0(kaiserBeta);
}

} // namespace

void SincInterpolator::allocate(int crossings, int steps, Window window)
{
    m_crossings = crossings;
    m_steps = steps;
    // Interpolation reads one entry after the last.
    m_kernel.resize(static_cast<std::size_t>(crossings * steps) + 2);
    for (std::size_t i = 0; i < m_kernel.size(); ++i) {
        const double x = static_cast<double>(i) / steps;
        const double phase = std::numbers::pi * x;
        const double sinc = i == 0 ? 1.0 : std::sin(phase) / phase;
        const double shape = window == Window::Hann ? hann(x, crossings) : kaiser(x, crossings);
        m_kernel[i] = static_cast<float>(x < crossings ? sinc * shape : 0.0);
    }
}

} // namespace lyrabox
