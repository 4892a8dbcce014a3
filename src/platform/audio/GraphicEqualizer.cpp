#include "platform/audio/GraphicEqualizer.h"

#include "platform/audio/DenormalGuard.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {
namespace {

constexpr std::uint32_t chunkFrames = 256;

void silence(AudioBufferList &list, std::uint32_t frames) noexcept
{
    for (std::uint32_t i = 0; i < std::min(list.mNumberBuffers, maximumChannels); ++i)
        std::fill_n(static_cast<float *>(list.mBuffers[i].mData), frames, 0.0F);
}

} // namespace

GraphicEqualizer::GraphicEqualizer() = default;

Status GraphicEqualizer::initialize()
{
    m_published.publish(equalizer::solve(m_levels));
    m_resetRequested.store(true, std::memory_order_release);
    return status::noError;
}

float GraphicEqualizer::parameter(std::uint32_t id) const
{
    if (id == parameter::equalizerFixed)
        return m_fixedParameter;
    return id < parameter::equalizerBands ? m_levels[id] : 0.0F;
}

Status GraphicEqualizer::setParameter(std::uint32_t id, float value)
{
    if (id > parameter::equalizerFixed || !std::isfinite(value))
        return status::invalidParameter;
    if (id == parameter::equalizerFixed) {
        m_fixedParameter = value;
    } else if (m_levels[id] != value) {
        m_levels[id] = value;
        m_published.publish(equalizer::solve(m_levels));
    }
    return status::noError;
}

void GraphicEqualizer::reset()
{
    m_resetRequested.store(true, std::memory_order_release);
}

AudioStreamBasicDescription GraphicEqualizer::streamFormat() const
{
    return canonicalStreamFormat();
}

Status GraphicEqualizer::setRenderCallback(RenderCallback callback, void *context)
{
    m_renderCallback = callback;
    m_renderContext = context;
    return status::noError;
}

void GraphicEqualizer::render(std::uint32_t frames, AudioBufferList &ioData) noexcept
{
    const DenormalGuard guard;
    // The request is read before the levels, so a reset includes all levels that were set before it
    // was requested.
    const bool resets = m_resetRequested.exchange(false, std::memory_order_acquire);
    if (const equalizer::Coefficients *target = m_published.takeNewest())
        m_cascade.rampTo(*target);
    if (resets)
        m_cascade.clear();

    silence(ioData, frames);
    if (m_renderCallback != nullptr &&
        m_renderCallback(m_renderContext, frames, ioData) != status::noError)
        silence(ioData, frames);
    if (resets && frames > 0)
        leadIn(frames, ioData);

    if (ioData.mNumberBuffers >= 2) {
        m_cascade.process(static_cast<float *>(ioData.mBuffers[0].mData),
                          static_cast<float *>(ioData.mBuffers[1].mData), frames);
    } else if (ioData.mNumberBuffers == 1) {
        std::array<float, chunkFrames> other;
        auto *samples = static_cast<float *>(ioData.mBuffers[0].mData);
        for (std::uint32_t done = 0; done < frames; done += chunkFrames) {
            const std::uint32_t count = std::min(frames - done, chunkFrames);
            other.fill(0.0F);
            m_cascade.process(samples + done, other.data(), count);
        }
    }
}

/// Warms the filter up with made-up frames before the first one: the signal's beginning, mirrored
/// at its first sample, so that level and slope are continuous there.
void GraphicEqualizer::leadIn(std::uint32_t frames, const AudioBufferList &ioData) noexcept
{
    constexpr std::uint32_t longest = 128; // 3 ms: ringing above 1 kHz has died away by then
    std::array<std::array<float, longest>, 2> before{};
    const std::uint32_t length = std::min(frames - 1, longest);
    std::array<float, 2> oldest{};
    for (std::uint32_t channel = 0; channel < std::min(ioData.mNumberBuffers, 2U); ++channel) {
        const auto *signal = static_cast<const float *>(ioData.mBuffers[channel].mData);
        for (std::uint32_t i = 0; i < length; ++i)
            before[channel][i] = 2.0F * signal[0] - signal[length - i];
        oldest[channel] = length > 0 ? before[channel][0] : signal[0];
    }
    m_cascade.settleOn(oldest[0], oldest[1]);
    m_cascade.process(before[0].data(), before[1].data(), length);
}

} // namespace lyrabox
