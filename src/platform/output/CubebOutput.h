#pragma once

#include "platform/audio/AudioUnit.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace lyrabox {

class CubebSession;
class OutputRenderer;

/// The default output device, through cubeb: 44,100 Hz, stereo, 32-bit float. If the device has
/// another format, the sound server converts.
///
/// All members belong to the control side (see AudioUnit.h) unless they say otherwise. Starts,
/// stops and resets are faded over OutputRenderer::fadeFrames. The volume (parameter::outputVolume)
/// is applied to the samples and not as the stream volume of the sound server. So it changes
/// without steps, and the stream volumes, which the server stores, remain the user's.
class CubebOutput : public OutputUnit {
public:
    /// The latency in frames (35 ms): the time from a pull until the frames are heard, unless the
    /// device needs more. Sound servers pull a quarter or half of it at a time, so the frames still
    /// held at a pull last at least as long as the pull. With more latency the shown position would
    /// be too far ahead of the sound: at double speed one frame here is two frames of song.
    static constexpr std::uint32_t preferredLatencyFrames = 1536;

    /// The environment variable that sets a longer latency, in whole milliseconds. It helps on
    /// machines whose scheduling stalls for longer, and under a sanitizer. It is read when the
    /// device is opened.
    static constexpr const char *latencyVariable = "LYRABOX_OUTPUT_LATENCY";
    static constexpr std::uint32_t longestLatencyMilliseconds = 2000;

    CubebOutput() = default;
    ~CubebOutput() override;

    void setLossListener(std::function<void()> listener) override;
    /// Also soundServerHangs if a started device has pulled no frames for serverPatience. Only this
    /// function measures that time, so it should be called regularly.
    Status deviceStatus() const noexcept override;

    /// Opens the device without starting it. noAudioDevice if there is no sound server or no
    /// device. noError even if the server hangs; see deviceStatus().
    Status initialize() override;

    float parameter(std::uint32_t id) const override;
    Status setParameter(std::uint32_t id, float value) override;
    void reset() override;
    Status connect(RenderingUnit *source) override;

    void expectStart() noexcept override;

    /// noConnection without a source. If the device is missing, lost or unreachable, returns
    /// deviceStatus(), but isRunning() becomes true: a chain that is rebuilt on the next device
    /// then knows that it should play.
    Status start() override;

    /// The sound fades out. The source is not pulled again. The device plays silence for half a
    /// second, so that a start in that time is heard at once, and is halted then. Waits until the
    /// device takes the next frames: up to half its latency, or 100 to 200 ms if it does not.
    Status stop() noexcept override;

    /// Whether it was started and not stopped since; stays true if the device is lost. Any thread.
    bool isRunning() const noexcept override;
    bool isPlayingOut() const noexcept override;
    std::uint32_t heldFrames() const noexcept override;

private:
    bool isReachable() const noexcept;
    Status giveUp() noexcept;
    bool waitForPull() const noexcept;
    void waitForSilence() const noexcept;
    void close() noexcept;

    std::function<void()> m_lossListener;
    RenderingUnit *m_source = nullptr;
    float m_volume = 1.0F;
    bool m_deviceStarted = false;
    bool m_deviceMayRun = false; ///< after a stop, until the device is halted
    // The last callback count that deviceStatus() saw, and when it first saw it.
    mutable std::uint64_t m_seenCallbacks = 0;
    mutable std::chrono::steady_clock::time_point m_seenAt;
    /// The value of isRunning() without a session, or with one that was cut off.
    std::atomic<bool> m_runsWithoutDevice{false};
    std::shared_ptr<CubebSession> m_session; ///< null without a device
};

} // namespace lyrabox
