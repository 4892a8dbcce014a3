#pragma once

#include "platform/audio/AudioUnit.h"
#include "platform/audio/OutputRenderer.h"

#include <cstdint>

namespace lyrabox::test {

/// The program's output without its device. The thread that calls pull() is the audio callback
/// thread. It fades like CubebOutput. A stop on the control side does not wait, so the fade-out is
/// in the next pulls.
class HandPulledOutput final : public OutputUnit {
public:
    Status initialize() override { return status::noError; }
    float parameter(std::uint32_t id) const override
    {
        return id == parameter::outputVolume ? m_renderer.volume() : 0.0F;
    }
    Status setParameter(std::uint32_t id, float value) override
    {
        if (id != parameter::outputVolume)
            return status::invalidParameter;
        m_renderer.setVolume(value);
        return status::noError;
    }
    void reset() override { m_renderer.requestReset(); }
    Status connect(RenderingUnit *source) override
    {
        m_renderer.connect(source);
        return status::noError;
    }
    Status start() override
    {
        m_renderer.start();
        return status::noError;
    }
    Status stop() noexcept override
    {
        m_renderer.stop();
        return status::noError;
    }
    bool isRunning() const noexcept override { return m_renderer.isRunning(); }
    bool isPlayingOut() const noexcept override { return m_renderer.isPlayingOut(); }

    std::uint32_t heldFrames() const noexcept override
    {
        return m_renderer.heldFrames(deviceFrames);
    }
    /// How many frames the pretended device holds.
    std::uint32_t deviceFrames = 0;

    /// Takes the place of the device's callback. Writes `frames` frames of interleaved stereo.
    void pull(float *interleaved, std::uint32_t frames) noexcept
    {
        m_renderer.render(interleaved, frames);
    }

private:
    OutputRenderer m_renderer;
};

/// For tests without changes of the default device.
class DeafWatcher final : public DefaultOutputWatcher {
public:
    Status listen(std::function<void()>) override { return status::noError; }
};

} // namespace lyrabox::test
