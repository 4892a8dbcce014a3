#pragma once

#include "platform/audio/AudioUnit.h"
#include "platform/audio/GraphicEqualizerCascade.h"
#include "platform/audio/GraphicEqualizerDesign.h"
#include "platform/audio/TripleBuffer.h"

#include <atomic>

namespace lyrabox {

/// The 31-band graphic equalizer.
///
/// Parameters 0 to 30 are levels in dB. parameter() returns them as they were set, but the filter
/// limits them to ±24 dB. Ten of the bands have sliders (2, 5, ..., 29) and describe one smooth
/// curve. Each of the others adds its level at its own frequency. Parameter 31 is stored and has no
/// effect. Changes take effect as ramps of 20 ms. With every level at 0 dB the output equals the
/// input bit for bit.
///
/// If render() has no callback, or the callback returns an error, it filters silence, and the
/// filter's ringing dies away. Samples that are not finite count as silence, too.
class GraphicEqualizer : public EqualizerUnit {
public:
    GraphicEqualizer();

    Status initialize() override;
    float parameter(std::uint32_t id) const override;
    Status setParameter(std::uint32_t id, float value) override;

    /// Clears the filter's memory. The filter then behaves as if the mirror image of the next input
    /// had come before it, so that a signal that starts at full level does not make it ring. A ramp
    /// jumps to its target.
    void reset() override;
    AudioStreamBasicDescription streamFormat() const override;
    Status setRenderCallback(RenderCallback callback, void *context) override;

    /// Callback thread. Filters one channel if there is only one buffer.
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override;

private:
    void leadIn(std::uint32_t frames, const AudioBufferList &ioData) noexcept;

    // Control side.
    equalizer::Levels m_levels{};
    float m_fixedParameter = 0.0F;

    // Set before the chain renders.
    RenderCallback m_renderCallback = nullptr;
    void *m_renderContext = nullptr;

    // From the control side to the callback thread.
    TripleBuffer<equalizer::Coefficients> m_published;
    std::atomic<bool> m_resetRequested{
        true}; // The first pull starts at the levels that are set, without a ramp.

    // Callback thread.
    GraphicEqualizerCascade m_cascade;
};

} // namespace lyrabox
