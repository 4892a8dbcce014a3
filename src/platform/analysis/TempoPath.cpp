#include "platform/analysis/TempoPath.h"

#include "platform/analysis/FourierTransform.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

namespace lyrabox {

namespace {

constexpr double ratio = 1.005;       // from one period to the next
constexpr double farthest = 1.7;      // from the hint
constexpr double apart = 0.5;         // seconds between two windows
constexpr double windowSeconds = 8.0; // at least
constexpr double windowPeriods = 9.0; // likewise
constexpr int multiples = 4;          // of the period, at which the curve repeats
constexpr int widestStep = 6;         // periods from one window to the next
constexpr float stepCost = 0.05F;     // for each of them
constexpr double hintWidth = 0.015;   // of the period, where the hint holds
constexpr double songWidth = 0.25;    // of the period elsewhere, by its logarithm
constexpr double songWeight = 0.05;
constexpr double slowest = 50.0;
constexpr double fastest = 210.0;
constexpr double usualTempo = 110.0;
constexpr double tempoWidth = 0.5; // of the logarithm
constexpr double priorWeight = 0.3;

std::vector<double> candidates(double shortest, double longest)
{
    std::vector<double> periods;
    for (double period = shortest; period <= longest * ratio; period *= ratio)
        periods.push_back(period);
    return periods;
}

/// Measures how well a part of a curve repeats after a lag.
class Autocorrelation {
public:
    explicit Autocorrelation(std::size_t window)
        : m_hann(window),
          m_transform(std::bit_ceil(2 * window)),
          m_real(m_transform.length()),
          m_imaginary(m_transform.length()),
          m_ofWindow(window, 1.0F)
    {
        for (std::size_t i = 0; i < window; ++i) {
            const double phase = 2.0 * std::numbers::pi * (static_cast<double>(i) + 0.5) /
                                 static_cast<double>(window);
            m_hann[i] = static_cast<float>(0.5 - 0.5 * std::cos(phase));
        }
        const std::vector<float> ones(window, 1.0F);
        measure(ones, static_cast<std::ptrdiff_t>(window / 2));
        for (std::size_t lag = 0; lag < window; ++lag)
            m_ofWindow[lag] = std::max(0.02F, m_real[lag] / m_real[0]);
        m_scale = 1.0F;
    }

    /// Measures the window about the step `middle`. Outside the curve is 0.
    void measure(std::span<const float> curve, std::ptrdiff_t middle)
    {
        const auto window = static_cast<std::ptrdiff_t>(m_hann.size());
        std::fill(m_real.begin(), m_real.end(), 0.0F);
        std::fill(m_imaginary.begin(), m_imaginary.end(), 0.0F);
        for (std::ptrdiff_t i = 0; i < window; ++i) {
            const std::ptrdiff_t step = middle - window / 2 + i;
            if (step >= 0 && step < static_cast<std::ptrdiff_t>(curve.size()))
                m_real[static_cast<std::size_t>(i)] =
                    curve[static_cast<std::size_t>(step)] * m_hann[static_cast<std::size_t>(i)];
        }
        m_transform.transform(m_real, m_imaginary);
        for (std::size_t i = 0; i < m_real.size(); ++i)
            m_real[i] = m_real[i] * m_real[i] + m_imaginary[i] * m_imaginary[i];
        std::fill(m_imaginary.begin(), m_imaginary.end(), 0.0F);
        m_transform.transform(m_real, m_imaginary); // of an even sequence, so it is the inverse
        m_scale = m_real[0] > 0.0F ? 1.0F / m_real[0] : 0.0F;
    }

    /// 1 if the curve repeats exactly after `lag` steps.
    float at(double lag) const
    {
        const auto index = static_cast<std::size_t>(lag);
        const auto share = static_cast<float>(lag - std::floor(lag));
        if (index + 1 >= m_ofWindow.size())
            return 0.0F;
        const float value = m_real[index] * (1.0F - share) + m_real[index + 1] * share;
        return value * m_scale / m_ofWindow[index];
    }

private:
    std::vector<float> m_hann;
    FourierTransform m_transform;
    std::vector<float> m_real;
    std::vector<float> m_imaginary;
    std::vector<float> m_ofWindow; ///< the same of the window itself
    float m_scale = 1.0F;
};

/// How well a period fits, without looking at the curve.
float prior(double period, double middle, double apartSteps, double stepsPerSecond,
            const std::optional<TempoHint> &hint)
{
    if (!hint) {
        const double tempo = 60.0 * stepsPerSecond / period;
        const double distance = std::log(tempo / usualTempo) / tempoWidth;
        return static_cast<float>(-priorWeight * distance * distance);
    }
    const double distance = std::log(period / hint->period);
    const double far = distance / songWidth;
    if (hint->to > hint->from && middle >= hint->from - apartSteps &&
        middle <= hint->to + apartSteps) {
        return static_cast<float>(-distance * distance / (hintWidth * hintWidth));
    }
    return static_cast<float>(-songWeight * far * far);
}

using Choices = std::vector<signed char>; ///< of each period, the step from the window before

/// Goes on by one window: `scores` become those of the best paths that end there.
Choices advance(std::vector<float> &scores, const std::vector<float> &fits)
{
    Choices choices(scores.size());
    const std::vector<float> before = scores;
    const auto size = static_cast<int>(scores.size());
    for (int i = 0; i < size; ++i) {
        float best = -std::numeric_limits<float>::infinity();
        for (int j = std::max(0, i - widestStep); j <= std::min(size - 1, i + widestStep); ++j) {
            const float score = before[static_cast<std::size_t>(j)] -
                                stepCost * static_cast<float>(std::abs(i - j));
            if (score > best) {
                best = score;
                choices[static_cast<std::size_t>(i)] = static_cast<signed char>(j - i);
            }
        }
        scores[static_cast<std::size_t>(i)] = best + fits[static_cast<std::size_t>(i)];
    }
    return choices;
}

/// Draws straight lines between the windows.
std::vector<float> drawn(const std::vector<double> &periods, double apartSteps, std::size_t steps)
{
    std::vector<float> result(steps);
    for (std::size_t step = 0; step < steps; ++step) {
        const double place = static_cast<double>(step) / apartSteps;
        const std::size_t index = std::min(static_cast<std::size_t>(place), periods.size() - 1);
        const std::size_t next = std::min(index + 1, periods.size() - 1);
        const double share = std::min(1.0, place - static_cast<double>(index));
        result[step] = static_cast<float>(periods[index] * (1.0 - share) + periods[next] * share);
    }
    return result;
}

} // namespace

std::vector<float> tempoPath(std::span<const float> curve, double stepsPerSecond,
                             const std::optional<TempoHint> &hint, const std::stop_token &stop)
{
    const double shortest = hint ? hint->period / farthest : 60.0 * stepsPerSecond / fastest;
    const double longest = hint ? hint->period * farthest : 60.0 * stepsPerSecond / slowest;
    const std::vector<double> periods = candidates(shortest, longest);
    const double usual = hint ? hint->period : 60.0 * stepsPerSecond / usualTempo;
    const double apartSteps = apart * stepsPerSecond;
    Autocorrelation repeats(
        static_cast<std::size_t>(std::max(windowSeconds * stepsPerSecond, windowPeriods * usual)));
    std::vector<Choices> choices;
    std::vector<float> scores(periods.size());
    std::vector<float> fits(periods.size());
    for (double middle = 0.0; middle < static_cast<double>(curve.size()); middle += apartSteps) {
        if (stop.stop_requested())
            return {};
        repeats.measure(curve, static_cast<std::ptrdiff_t>(middle));
        for (std::size_t i = 0; i < periods.size(); ++i) {
            float sum = 0.0F;
            for (int multiple = 1; multiple <= multiples; ++multiple)
                sum += repeats.at(periods[i] * multiple);
            fits[i] = sum / float{multiples} +
                      prior(periods[i], middle, apartSteps, stepsPerSecond, hint);
        }
        choices.push_back(advance(scores, fits));
    }
    if (choices.empty())
        return {};
    std::vector<double> path(choices.size());
    auto at = static_cast<std::ptrdiff_t>(std::max_element(scores.begin(), scores.end()) -
                                          scores.begin());
    for (std::size_t i = choices.size(); i-- > 0;) {
        path[i] = periods[static_cast<std::size_t>(at)];
        at += choices[i][static_cast<std::size_t>(at)];
    }
    return drawn(path, apartSteps, curve.size());
}

} // namespace lyrabox
