#pragma once

#include "platform/audio/AudioUnit.h"
#include "platform/audio/GraphicEqualizerCascade.h"
#include "platform/audio/GraphicEqualizerDesign.h"
#include "platform/audio/TripleBuffer.h"

#include <atomic>

namespace lyrabox {

/// The 31-band graphic equalizer.
///
/// Parameters 0 to 30 are levels in dB; parameter() returns what was set, while what is heard stops
/// at +-24 dB. Of the 31, the ten sliders (2, 5, ..., 29) describe one smooth curve; each of the
/// others adds its level at its own frequency. Parameter 31 is kept and does nothing. A change is
/// heard as a ramp of 20 ms; everything at 0 dB is the input bit for bit.
///
/// render() without a callback, or when the callback reports a status, filters silence: what the
/// filter still holds dies away, nothing else is heard. Samples that are not finite count as
/// silence, too.
class GraphicEqualizer : public EqualizerUnit {
public:
    GraphicEqualizer();

    Status initialize() override;
    float parameter(std::uint32_t id) const override;
    Status setParameter(std::uint32_t id, float value) override;

    /// The filter's memory goes, and its next input is taken to go on from its own mirror image, so
    /// that a signal that sets in at full height does not make it ring. A ramp on its way ends at
    /// its target at once.
    void reset() override;
    AudioStreamBasicDescription streamFormat() const override;
    Status setRenderCallback(RenderCallback callback, void *context) override;

    /// Callback thread. With one buffer only, that channel is filtered.
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override;

private:
    void leadIn(std::uint32_t frames, const AudioBufferList &ioData) noexcept;

    // Control side.
    equalizer::Levels levels{};
    float fixedParameter = 0.0F;

    // Set before the chain renders.
    RenderCallback renderCallback = nullptr;
    void *renderContext = nullptr;

    // Between the two.
    TripleBuffer<equalizer::Coefficients> published;
    std::atomic<bool> resetRequested{
        true}; // so that the first pull starts at its levels, without a ramp

    // Callback thread.
    GraphicEqualizerCascade cascade;
};

} // namespace lyrabox
