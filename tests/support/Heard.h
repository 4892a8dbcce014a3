#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

/// Functions that analyse recorded sound.
namespace lyrabox::test {

/// The frequency of a recorded sine in hertz: the median over segments of `periods` periods between
/// rising zero crossings. So a gap in the recording, as on a busy machine, does not matter. 0 if
/// the recording is shorter than a segment.
inline double frequencyOf(const std::vector<float> &samples, double rate = 44100.0,
                          std::size_t periods = 25)
{
    std::vector<double> crossings;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        if (samples[i - 1] < 0.0F && samples[i] >= 0.0F) {
            const double below = -samples[i - 1];
            crossings.push_back(static_cast<double>(i - 1) + below / (below + samples[i]));
        }
    }
    std::vector<double> frequencies;
    for (std::size_t i = periods; i < crossings.size(); i += periods)
        frequencies.push_back(static_cast<double>(periods) * rate /
                              (crossings[i] - crossings[i - periods]));
    if (frequencies.empty())
        return 0.0;
    const auto middle = frequencies.begin() + static_cast<std::ptrdiff_t>(frequencies.size() / 2);
    std::nth_element(frequencies.begin(), middle, frequencies.end());
    return *middle;
}

/// The positions at which a sine of that frequency is interrupted. In a sine, every sample follows
/// from the two before it. Interruptions within 50 ms count as one.
inline std::vector<std::size_t> tearsIn(const std::vector<float> &samples, double frequency,
                                        double rate = 44100.0)
{
    const double twoCosines = 2.0 * std::cos(2.0 * std::numbers::pi * frequency / rate);
    const auto joined = static_cast<std::size_t>(0.05 * rate);
    std::vector<std::size_t> found;
    for (std::size_t i = 2; i < samples.size(); ++i) {
        const double expected = twoCosines * samples[i - 1] - samples[i - 2];
        if (std::abs(samples[i] - expected) > 0.001 && (found.empty() || i - found.back() > joined))
            found.push_back(i);
    }
    return found;
}

inline float peakOf(const std::vector<float> &samples)
{
    float peak = 0.0F;
    for (const float sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

/// The root mean square; 0 for no samples.
inline double levelOf(const std::vector<float> &samples)
{
    double sum = 0.0;
    for (const float sample : samples)
        sum += static_cast<double>(sample) * static_cast<double>(sample);
    return samples.empty() ? 0.0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

} // namespace lyrabox::test
