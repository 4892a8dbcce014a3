#pragma once

#include "support/Heard.h"
#include "support/SoundSource.h"

#include <atomic>
#include <cmath>
#include <cstdint>
#include <numbers>

/// The sources that the device tests play.
namespace lyrabox::test {

/// A source that plays one sine in both channels, from phase 0.
class SineSource : public SoundSource {
public:
    explicit SineSource(double frequency, double amplitude = 0.5)
        : m_step(2.0 * std::numbers::pi * frequency / 44100.0), m_amplitude(amplitude)
    {}
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        const std::uint64_t first = rendered;
        for (std::uint32_t i = 0; i < frames; ++i) {
            const auto sample =
                static_cast<float>(m_amplitude * std::sin(m_step * static_cast<double>(first + i)));
            for (std::uint32_t channel = 0; channel < ioData.mNumberBuffers; ++channel)
                static_cast<float *>(ioData.mBuffers[channel].mData)[i] = sample;
        }
        rendered = first + frames;
    }

    std::atomic<std::uint64_t> rendered{0}; ///< in frames; written by the callback thread

private:
    double m_step;
    double m_amplitude;
};

} // namespace lyrabox::test
