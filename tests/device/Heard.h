#pragma once

#include "platform/audio/AudioUnit.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

/// What the device tests play and how they judge what was recorded.
namespace lyrabox::test {

/// A source that plays one sine in both channels, from phase 0.
class SineSource : public RenderingUnit {
public:
    explicit SineSource(double frequency, double amplitude = 0.5)
        : m_step(2.0 * std::numbers::pi * frequency / 44100.0), m_amplitude(amplitude)
    {}
    Status initialize() override { return status::noError; }
    float parameter(std::uint32_t) const override { return 0.0F; }
    Status setParameter(std::uint32_t, float) override { return status::invalidParameter; }
    void reset() override {}
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        for (std::uint32_t i = 0; i < frames; ++i) {
            const auto sample = static_cast<float>(
                m_amplitude * std::sin(m_step * static_cast<double>(rendered + i)));
            for (std::uint32_t channel = 0; channel < ioData.mNumberBuffers; ++channel)
                static_cast<float *>(ioData.mBuffers[channel].mData)[i] = sample;
        }
        rendered += frames;
    }

    std::uint64_t rendered = 0; ///< callback thread; elsewhere only while stopped

private:
    double m_step;
    double m_amplitude;
};

/// The frequency of a recorded sine in hertz: the median over stretches of 25 periods between
/// rising zero crossings, so that a gap of a recording on a busy machine does not count. 0 when
/// there is not one such stretch.
inline double frequencyOf(const std::vector<float> &samples, double rate = 44100.0)
{
    constexpr std::size_t periods = 25;
    std::vector<double> crossings;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        if (samples[i - 1] < 0.0F && samples[i] >= 0.0F) {
            const double below = -samples[i - 1];
            crossings.push_back(static_cast<double>(i - 1) + below / (below + samples[i]));
        }
    }
    std::vector<double> frequencies;
    for (std::size_t i = periods; i < crossings.size(); i += periods)
        frequencies.push_back(periods * rate / (crossings[i] - crossings[i - periods]));
    if (frequencies.empty())
        return 0.0;
    const auto middle = frequencies.begin() + static_cast<std::ptrdiff_t>(frequencies.size() / 2);
    std::nth_element(frequencies.begin(), middle, frequencies.end());
    return *middle;
}

inline float peakOf(const std::vector<float> &samples)
{
    float peak = 0.0F;
    for (const float sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

} // namespace lyrabox::test
