#pragma once

#include "platform/audio/OutputRenderer.h"
#include "support/SoundSource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <numbers>
#include <vector>

namespace lyrabox::test {

inline constexpr std::uint32_t fade = OutputRenderer::fadeFrames;

/// A sine in the left channel and its negative in the right one. Counts the pulled frames.
class Source : public SoundSource {
public:
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        largestPull = std::max(largestPull, frames);
        for (std::uint32_t i = 0; i < frames; ++i) {
            const float sample = at(position + i);
            static_cast<float *>(ioData.mBuffers[0].mData)[i] = sample;
            static_cast<float *>(ioData.mBuffers[1].mData)[i] = -sample;
        }
        position += frames;
        if (duringPull)
            duringPull();
    }
    bool isPlayingOut() const noexcept override { return position < heldUpTo; }
    float at(std::uint64_t frame) const
    {
        return static_cast<float>(amplitude * std::sin(2.0 * std::numbers::pi * frequency /
                                                       44100.0 * static_cast<double>(frame)));
    }

    double frequency = 441.0;
    double amplitude = 0.5;
    std::uint64_t position = 0;
    std::uint32_t largestPull = 0;
    std::uint64_t heldUpTo = 0; ///< frames before this one are held after the source's end
    std::function<void()> duringPull;
};

class OutputRendererTest : public testing::Test {
protected:
    OutputRendererTest() { renderer.connect(&source); }

    /// The left channel of the next `frames` frames. The right one must be its negative.
    std::vector<float> pull(std::uint32_t frames)
    {
        std::vector<float> interleaved(std::size_t{frames} * 2, 99.0F);
        renderer.render(interleaved.data(), frames);
        std::vector<float> left;
        for (std::size_t i = 0; i < interleaved.size(); i += 2) {
            EXPECT_EQ(interleaved[i + 1], -interleaved[i]);
            left.push_back(interleaved[i]);
        }
        return left;
    }

    static float peak(const std::vector<float> &samples)
    {
        float result = 0.0F;
        for (const float sample : samples)
            result = std::max(result, std::abs(sample));
        return result;
    }

    /// How loud the loudest click in `samples` is, in dB of full scale: the peak of their fourth
    /// difference, over
    /// 16. That takes a 441 Hz tone down by 120 dB and a jump by 15 dB.
    static double clickLevel(std::vector<float> samples)
    {
        for (int pass = 0; pass < 2; ++pass) {
            for (std::size_t i = 0; i + 2 < samples.size(); ++i)
                samples[i] = (samples[i] - 2.0F * samples[i + 1] + samples[i + 2]) / 4.0F;
            samples.resize(samples.size() - 2);
        }
        return 20.0 * std::log10(std::max(1e-9F, peak(samples)));
    }

    Source source;
    OutputRenderer renderer;
};

} // namespace lyrabox::test
