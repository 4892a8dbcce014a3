#pragma once

#include "platform/audio/AudioUnit.h"

#include <array>
#include <atomic>
#include <cstdint>

namespace lyrabox {

/// The work of a device callback without the device: it pulls the source, fades, applies the volume
/// and interleaves.
///
/// The source is pulled fadeFrames ahead of delivery. So a stop needs no further frames from the
/// source, because the frames ahead fade out; and a reset can crossfade from the old sound to the
/// new. The source's position is at most fadeFrames + chunkFrames ahead of the delivered frames.
///
/// A source that stops the output has ended. The frames that it still holds (isPlayingOut()) are
/// rendered nevertheless. The last of them fade out, or into the next song if the output is started
/// again before that.
///
/// render() belongs to the callback thread. Everything else belongs to the control side, unless it
/// says "Any thread".
class OutputRenderer {
public:
    static constexpr std::uint32_t chunkFrames = 128; ///< frames of one pull
    static constexpr std::uint32_t fadeFrames = 256;  ///< length of every fade: 5.8 ms at 44,100 Hz
    static constexpr std::uint32_t channels = 2;

    OutputRenderer();
    OutputRenderer(const OutputRenderer &) = delete;
    OutputRenderer &operator=(const OutputRenderer &) = delete;

    /// The source is not owned. Call it before the first start().
    void connect(RenderingUnit *source) noexcept { m_source = source; }
    bool isConnected() const noexcept { return m_source != nullptr; }

    /// The source fades in with the next render().
    void start() noexcept;

    /// Any thread. The sound fades out, and the source is not pulled again. A render() on another
    /// thread may still be pulling, see waitUntilIdle(). If the source calls this inside render(),
    /// the frames that it holds are played out first. If it holds none, the current chunk is
    /// dropped, because it may be incomplete.
    void stop() noexcept;

    /// Any thread. True between start() and stop().
    bool isRunning() const noexcept { return m_state.load() == State::running; }

    /// Any thread. True after the source's stop(), until the frames that it held are rendered or
    /// start(), stop() or requestReset() is called.
    bool isPlayingOut() const noexcept { return m_state.load() == State::playingOut; }

    /// Call it when the source jumps: its next frames do not continue the last ones.
    void requestReset() noexcept;

    /// A linear factor. It is applied without steps, and clamped to 0.0 to 1.0.
    void setVolume(float volume) noexcept { m_volume.store(volume, std::memory_order_relaxed); }
    float volume() const noexcept { return m_volume.load(std::memory_order_relaxed); }

    /// Any thread. Whether the calling thread is inside render() of this object.
    bool isRenderingHere() const noexcept;

    /// Waits until no render() runs. After stop() no later one pulls the source.
    void waitUntilIdle() const noexcept;

    /// Any thread. Frames of silence since the last sound. 0 while there is sound.
    std::uint64_t silentFrames() const noexcept { return m_silentFrames.load(); }

    /// Any thread. Frames of the source that were pulled but not heard yet, if the device holds up
    /// to `deviceFrames`. Frames that fade out after a stop or a reset do not count.
    std::uint32_t heldFrames(std::uint32_t deviceFrames) const noexcept;

    /// Drops the frames that are ahead or fading. Only while no render() can run.
    void clear() noexcept;

    /// The next `frames` frames are silence, whether the output runs or not. Only while no render()
    /// can run.
    void leadWithSilence(std::uint32_t frames) noexcept { m_leadFrames = frames; }

    /// Callback thread. Writes `frames` frames of interleaved stereo.
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
    Planar<aheadCapacity> m_ahead{};        ///< pulled, not yet delivered
    std::uint32_t m_aheadFrames = 0;
    std::uint32_t m_fadeInPosition = 0;
    bool m_sourceHolds = false;  ///< the source was playing out at the last pull
    bool m_heldEnds = false;     ///< the last frame ahead is the last one that the source held
    Planar<fadeFrames> m_tail{}; ///< the old sound, which fades out
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
