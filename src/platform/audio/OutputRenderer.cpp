#include "platform/audio/OutputRenderer.h"

#include "platform/audio/DenormalGuard.h"
#include "platform/audio/FadeShape.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <thread>

namespace lyrabox {
namespace {

thread_local const OutputRenderer *renderingHere = nullptr;

// One-pole smoothing of the volume with a time constant of 5 ms at 44,100 Hz: 1 - exp(-1 / 220.5).
constexpr float gainStep = 0.0045249F;
// Once the gain is within this distance (-100 dB) of its target, it jumps to it, so that full
// volume passes the samples unchanged. Closer than 7e-6 the steps would round to nothing.
constexpr float gainTolerance = 1e-5F;

} // namespace

OutputRenderer::OutputRenderer()
{
    for (std::uint32_t i = 0; i < fadeFrames; ++i)
        m_fade[i] = static_cast<float>(fadeShape((i + 1.0) / (fadeFrames + 1.0)));
}

void OutputRenderer::start() noexcept
{
    if (!isRunning())
        m_silentFrames.store(0);
    m_state.store(State::running);
}

void OutputRenderer::stop() noexcept
{
    if (!isRenderingHere()) {
        m_state.store(State::stopped);
        return;
    }
    // A stop on the control side may have come first.
    State running = State::running;
    m_state.compare_exchange_strong(running, State::playingOut);
}

void OutputRenderer::requestReset() noexcept
{
    // The order matters: a callback that takes the request must also see that playing out is over.
    endPlayOut();
    m_resetRequested.store(true);
}

/// Stops the output if it is playing out, and returns whether it was.
bool OutputRenderer::endPlayOut() noexcept
{
    State playingOut = State::playingOut;
    return m_state.compare_exchange_strong(playingOut, State::stopped);
}

bool OutputRenderer::isRenderingHere() const noexcept
{
    return renderingHere == this;
}

void OutputRenderer::waitUntilIdle() const noexcept
{
    // Polls, because the callback thread takes no lock and sends no signal.
    while (m_rendering.load())
        std::this_thread::sleep_for(std::chrono::microseconds(100));
}

std::uint32_t OutputRenderer::heldFrames(std::uint32_t deviceFrames) const noexcept
{
    const std::uint32_t delivered = m_heldDelivered.load(std::memory_order_relaxed);
    return m_heldAhead.load(std::memory_order_relaxed) + std::min(delivered, deviceFrames);
}

void OutputRenderer::clear() noexcept
{
    m_heldAhead.store(0, std::memory_order_relaxed);
    m_heldDelivered.store(0, std::memory_order_relaxed);
    m_aheadFrames = 0;
    m_tailFrames = 0;
    m_tailPosition = 0;
    m_fadeInPosition = 0;
}

void OutputRenderer::render(float *interleaved, std::uint32_t frames) noexcept
{
    const DenormalGuard denormals;
    renderingHere = this;
    // Sequentially consistent, as is m_state: either this callback sees the stop, or
    // waitUntilIdle() sees it.
    m_rendering.store(true);
    while (frames > 0) {
        const std::uint32_t count = std::min(frames, chunkFrames);
        renderChunk(interleaved, count);
        interleaved += static_cast<std::size_t>(count) * channels;
        frames -= count;
    }
    m_rendering.store(false);
    renderingHere = nullptr;
}

void OutputRenderer::renderChunk(float *interleaved, std::uint32_t frames) noexcept
{
    const float target = std::clamp(m_volume.load(std::memory_order_relaxed), 0.0F, 1.0F);
    const auto isSilent = [this] { return m_aheadFrames == 0 && m_tailPosition >= m_tailFrames; };
    // Playback begins at the volume that is set. Only changes during playback are smoothed.
    if (isSilent())
        m_gain = target;

    const State state = m_state.load(); // acquires everything that was set before start()
    if (m_leadFrames > 0)
        m_leadFrames -= std::min(m_leadFrames, frames);
    else if (state != State::stopped)
        pullAhead(frames);
    else
        retire();
    m_heldAhead.store(m_aheadFrames, std::memory_order_relaxed);

    if (isSilent()) {
        std::fill_n(interleaved, static_cast<std::size_t>(frames) * channels, 0.0F);
        m_silentFrames.fetch_add(frames);
        return;
    }
    m_silentFrames.store(0);

    for (std::uint32_t i = 0; i < frames; ++i) {
        m_gain += (target - m_gain) * gainStep;
        if (std::abs(target - m_gain) < gainTolerance)
            m_gain = target;
        for (std::uint32_t channel = 0; channel < channels; ++channel) {
            float sample = tailSample(channel, i);
            if (i < m_aheadFrames)
                sample += m_ahead[channel][i] * fadeIn(m_fadeInPosition + i);
            interleaved[i * channels + channel] = sample * m_gain;
        }
    }

    m_tailPosition = std::min(m_tailPosition + frames, m_tailFrames);
    const std::uint32_t used = std::min(frames, m_aheadFrames);
    if (used > 0) {
        m_fadeInPosition = std::min(m_fadeInPosition + used, fadeFrames);
        m_aheadFrames -= used;
        for (auto &ahead : m_ahead)
            std::memmove(ahead.data(), ahead.data() + used, m_aheadFrames * sizeof(float));
        m_heldAhead.store(m_aheadFrames, std::memory_order_relaxed);
        const std::uint32_t delivered = m_heldDelivered.load(std::memory_order_relaxed);
        m_heldDelivered.store(delivered + std::min(used, ~delivered), std::memory_order_relaxed);
    }
}

/// Pulls until at least `frames` + fadeFrames frames are ahead. If the source has stopped the
/// output and holds nothing more, no frames are ahead afterwards.
void OutputRenderer::pullAhead(std::uint32_t frames) noexcept
{
    // A reset ends the playing out.
    const auto isStopped = [this] { return endPlayOut() || m_state.load() == State::stopped; };
    if (takeReset() && isStopped())
        return;
    while (m_aheadFrames < frames + fadeFrames) {
        if (m_heldEnds) { // the frames ahead are the fade-out of the ended song
            m_heldEnds = false;
            retire();
            if (endPlayOut())
                return;
        }
        pullChunk();
        const State state = m_state.load();
        const bool sourceHolds = m_source->isPlayingOut();
        const bool holdsNothing = !sourceHolds && !m_sourceHolds;
        if (state == State::stopped || (state == State::playingOut && holdsNothing)) {
            retire();
            endPlayOut();
            return;
        }
        // If a reset arrived during the pull, the chunk may mix frames from before and after it.
        if (takeReset()) {
            if (isStopped())
                return;
            continue;
        }
        m_aheadFrames += chunkFrames;
        m_heldEnds = m_sourceHolds && !sourceHolds;
        m_sourceHolds = sourceHolds;
    }
}

bool OutputRenderer::takeReset() noexcept
{
    if (!m_resetRequested.exchange(false))
        return false;
    retire();
    m_sourceHolds = false;
    m_heldEnds = false;
    return true;
}

void OutputRenderer::pullChunk() noexcept
{
    AudioBufferList list;
    list.mNumberBuffers = channels;
    for (std::uint32_t channel = 0; channel < channels; ++channel) {
        float *const data = m_ahead[channel].data() + m_aheadFrames;
        std::fill_n(data, chunkFrames, 0.0F);
        list.mBuffers[channel] = {.mNumberChannels = 1,
                                  .mDataByteSize =
                                      chunkFrames * static_cast<std::uint32_t>(sizeof(float)),
                                  .mData = data};
    }
    m_source->render(chunkFrames, list);
}

/// Moves the frames ahead into the tail, which fades out.
void OutputRenderer::retire() noexcept
{
    m_heldDelivered.store(0, std::memory_order_relaxed);
    if (m_aheadFrames == 0)
        return;
    const std::uint32_t ahead = std::min(m_aheadFrames, fadeFrames);
    const std::uint32_t frames = std::max(ahead, m_tailFrames - m_tailPosition);
    for (std::uint32_t channel = 0; channel < channels; ++channel) {
        // This works in place, because tailSample() reads at or behind the frame that is written.
        for (std::uint32_t i = 0; i < frames; ++i) {
            float sample = tailSample(channel, i);
            if (i < ahead)
                sample += m_ahead[channel][i] * fadeIn(m_fadeInPosition + i);
            m_tail[channel][i] = sample;
        }
    }
    m_tailFrames = frames;
    m_tailPosition = 0;
    m_aheadFrames = 0;
    m_fadeInPosition = 0;
}

float OutputRenderer::fadeIn(std::uint32_t position) const noexcept
{
    return position < fadeFrames ? m_fade[position] : 1.0F;
}

/// The sample of the tail `offset` frames from now. A tail shorter than fadeFrames fades
/// accordingly faster.
float OutputRenderer::tailSample(std::uint32_t channel, std::uint32_t offset) const noexcept
{
    const std::uint32_t position = m_tailPosition + offset;
    if (position >= m_tailFrames)
        return 0.0F;
    return m_tail[channel][position] * (1.0F - m_fade[position * fadeFrames / m_tailFrames]);
}

} // namespace lyrabox
