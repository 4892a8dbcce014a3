#include "platform/analysis/LinearPrediction.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace lyrabox {

namespace {

constexpr double leastPower = 1.0e-12; // keeps silence from being divided by

/// The part of the power that is taken for noise, so that tones without any don't make the
/// equations singular.
constexpr double noiseShare = 1.0e-7;

using Correlation = std::array<double, LinearPrediction::order + 1>;

Correlation autocorrelation(std::span<const double> samples)
{
    constexpr std::size_t order = LinearPrediction::order;
    const std::size_t count = samples.size();
    std::vector<double> faded(count + order); // with silence behind the end
    for (std::size_t i = 0; i < count; ++i) {
        const double place = (static_cast<double>(i) + 0.5) / static_cast<double>(count);
        faded[i] = samples[i] * (0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * place));
    }
    Correlation correlation{};
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t lag = 0; lag <= order; ++lag)
            correlation[lag] += faded[i] * faded[i + lag];
    }
    correlation[0] += correlation[0] * noiseShare + leastPower;
    return correlation;
}

} // namespace

// The recursion of Levinson and Durbin: the best filter of each order follows from the last one.
LinearPrediction::LinearPrediction(std::span<const double> samples)
{
    const Correlation correlation = autocorrelation(samples);
    m_filter[0] = 1.0;
    double power = correlation[0]; // of the errors
    for (std::size_t i = 1; i <= order && power > 0.0; ++i) {
        double sum = 0.0;
        for (std::size_t j = 0; j < i; ++j)
            sum += m_filter[j] * correlation[i - j];
        const double reflection = -sum / power;
        const auto last = m_filter;
        for (std::size_t j = 1; j <= i; ++j)
            m_filter[j] = last[j] + reflection * last[i - j];
        power *= 1.0 - reflection * reflection;
    }
}

void LinearPrediction::errors(std::span<const double> samples, std::span<double> errors) const
{
    std::fill(errors.begin(), errors.end(), 0.0);
    for (std::size_t lag = 0; lag <= order; ++lag) {
        for (std::size_t i = 0; i < errors.size(); ++i)
            errors[i] += m_filter[lag] * samples[order + i - lag];
    }
}

} // namespace lyrabox
