#pragma once

#include "platform/audio/AudioUnit.h"

#include <array>
#include <atomic>
#include <cstdint>

namespace lyrabox {

/// What an output does inside its device callback, without the device: pulls the source, fades,
/// applies the volume, interleaves.
///
/// The source is pulled fadeFrames ahead of what is delivered. So a stop needs no further frame
/// from the source (the frames ahead fade out), and a reset crossfades from the sound before to the
/// sound after; the source's position is never more than fadeFrames + chunkFrames ahead of the
/// frames delivered.
///
/// A source that stops the output has come to its end. What it still holds (isPlayingOut()) is
/// rendered all the same, and its last frames fade out; or into what follows, when the output is
/// started meanwhile.
///
/// Threads: render() on the callback thread; everything else on the control side, except where it
/// says "any".
class OutputRenderer {
public:
    static constexpr std::uint32_t chunkFrames = 128; ///< asked of the source at a time
    static constexpr std::uint32_t fadeFrames = 256;  ///< length of every fade: 5.8 ms at 44,100 Hz
    static constexpr std::uint32_t channels = 2;

    OutputRenderer();
    OutputRenderer(const OutputRenderer &) = delete;
    OutputRenderer &operator=(const OutputRenderer &) = delete;

    /// Not owned; set before the first start().
    void connect(RenderingUnit *source) noexcept { m_source = source; }
    bool isConnected() const noexcept { return m_source != nullptr; }

    /// From the next render() on the source sounds, faded in.
    void start() noexcept;

    /// Any thread. From here on the source is not pulled again; what sounds fades out. A render()
    /// under way on another thread may still be pulling: see waitUntilIdle(). Called by the source
    /// itself (that is, inside render()), what the source holds is played out first; when it holds
    /// nothing, the chunk that it was asked for is dropped, because it need not be whole.
    void stop() noexcept;

    /// Any thread. Between start() and stop().
    bool isRunning() const noexcept { return m_state.load() == State::running; }

    /// Any thread. From the source's stop() until what it held has been rendered, or start(),
    /// stop() or requestReset().
    bool isPlayingOut() const noexcept { return m_state.load() == State::playingOut; }

    /// The source is about to deliver something unconnected to what it delivered before.
    void requestReset() noexcept;

    /// Linear, applied clamped to 0.0 … 1.0 and without steps.
    void setVolume(float volume) noexcept { m_volume.store(volume, std::memory_order_relaxed); }
    float volume() const noexcept { return m_volume.load(std::memory_order_relaxed); }

    /// Any thread: whether the caller stands inside render() of this object.
    bool isRenderingHere() const noexcept;

    /// Returns when no render() is under way; after stop() none that follows pulls the source.
    void waitUntilIdle() const noexcept;

    /// Frames of silence delivered since the last sound; 0 while something sounds.
    std::uint64_t silentFrames() const noexcept { return m_silentFrames.load(); }

    /// Any thread. Frames of the source that were pulled but not heard yet, behind a device that
    /// holds up to `deviceFrames`. What fades out after a stop or a reset does not count.
    std::uint32_t heldFrames(std::uint32_t deviceFrames) const noexcept;

    /// Forgets what is still ahead or fading. Only while no render() can run.
    void clear() noexcept;

    /// Makes the next `frames` frames silence, whether running or not. Only while no render() can
    /// run.
    void leadWithSilence(std::uint32_t frames) noexcept { m_leadFrames = frames; }

    /// Callback thread. Fills `frames` frames of interleaved stereo.
    void render(float *interleaved, std::uint32_t frames) noexcept;

private:
    static constexpr std::uint32_t aheadCapacity = fadeFrames + 2 * chunkFrames;
    template <std::size_t Frames>
    using Planar = std::array<std::array<float, Frames>, channels>;

    enum class State : std::uint8_t { stopped, running, playingOut };

    void renderChunk(float *interleaved, std::uint32_t frames) noexcept;
    void pullAhead(std::uint32_t frames) noexcept;
    void pullChunk() noexcept;
    void retire() noexcept;
    bool endPlayOut() noexcept;
    bool takeReset() noexcept;
    float fadeIn(std::uint32_t position) const noexcept;
    float tailSample(std::uint32_t channel, std::uint32_t offset) const noexcept;

    RenderingUnit *m_source = nullptr;
    std::atomic<State> m_state{State::stopped};
    std::atomic<bool> m_rendering{false};
    std::atomic<bool> m_resetRequested{false};
    std::atomic<float> m_volume{1.0F};
    std::atomic<std::uint64_t> m_silentFrames{0};
    // For heldFrames(): written by the callback thread.
    std::atomic<std::uint32_t> m_heldAhead{0};     ///< m_aheadFrames after the last chunk
    std::atomic<std::uint32_t> m_heldDelivered{0}; ///< since the source began; stops at the maximum

    // The rest belongs to the callback thread.
    std::array<float, fadeFrames> m_fade{}; ///< rises from 0 to 1
    Planar<aheadCapacity> m_ahead{};        ///< pulled and not yet delivered
    std::uint32_t m_aheadFrames = 0;
    std::uint32_t m_fadeInPosition = 0;
    bool m_sourceHolds = false;  ///< the source played out when it was pulled last
    bool m_heldEnds = false;     ///< the frames ahead end with the last that the source held
    Planar<fadeFrames> m_tail{}; ///< what sounded before, fading out
    std::uint32_t m_tailFrames = 0;
    std::uint32_t m_tailPosition = 0;
    float m_gain = 1.0F;
    std::uint32_t m_leadFrames = 0;
};

static_assert(std::atomic<bool>::is_always_lock_free);
static_assert(std::atomic<std::uint8_t>::is_always_lock_free);
static_assert(std::atomic<float>::is_always_lock_free);
static_assert(std::atomic<std::uint64_t>::is_always_lock_free);

} // namespace lyrabox
