#pragma once

#include "platform/audio/GraphicEqualizer.h"

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

namespace lyrabox::test {

/// A graphic equalizer without an output. A function of frame and channel is its input.
class PulledEqualizer {
public:
    using Source = std::function<float(std::size_t frame, std::size_t channel)>;
    using Signal = std::array<std::vector<float>, 2>;

    explicit PulledEqualizer(Source aSource) : source(std::move(aSource))
    {
        unit.initialize();
        unit.setRenderCallback(&PulledEqualizer::fill, this);
    }

    /// Pulls `frames` frames, at most `framesPerPull` at a time.
    Signal pull(std::size_t frames, std::uint32_t framesPerPull = 128)
    {
        Signal heard = {std::vector<float>(frames), std::vector<float>(frames)};
        for (std::size_t done = 0; done < frames;) {
            const auto count =
                static_cast<std::uint32_t>(std::min<std::size_t>(frames - done, framesPerPull));
            AudioBufferList list;
            list.mNumberBuffers = 2;
            for (std::size_t channel = 0; channel < 2; ++channel)
                list.mBuffers[channel] = {1, count * 4, heard[channel].data() + done};
            unit.render(count, list);
            done += count;
        }
        return heard;
    }

    void setSlider(std::size_t i, float level)
    {
        unit.setParameter(equalizerBandOfControl(i), level);
    }

    void setSliders(float level)
    {
        for (std::size_t i = 0; i < equalizer::sliderCount; ++i)
            setSlider(i, level);
    }

    GraphicEqualizer unit;
    Source source;
    std::size_t position = 0;
    Status callbackStatus = 0;

private:
    static Status fill(void *context, std::uint32_t frames, AudioBufferList &ioData) noexcept
    {
        auto *self = static_cast<PulledEqualizer *>(context);
        for (std::size_t channel = 0; channel < ioData.mNumberBuffers; ++channel) {
            auto *samples = static_cast<float *>(ioData.mBuffers[channel].mData);
            for (std::uint32_t i = 0; i < frames; ++i)
                samples[i] = self->source(self->position + i, channel);
        }
        self->position += frames;
        return self->callbackStatus;
    }
};

} // namespace lyrabox::test
