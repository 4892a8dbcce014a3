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

/// The default output device, through cubeb: 44,100 Hz, stereo, 32-bit float, which the sound
/// server converts where the device differs.
///
/// Control side unless a member says otherwise. Start, stop and reset are faded over
/// OutputRenderer::fadeFrames. The volume (parameter::outputVolume) is applied to the samples and
/// not as the sound server's stream volume: it moves without steps, and the server's own mixer,
/// which remembers stream volumes, is left to the user.
class CubebOutput : public OutputUnit {
public:
    /// What the device holds between a pull and the ear, unless it insists on more: 35 ms. Sound
    /// servers ask for a quarter of it at a time, or twice that, so what is still held when they
    /// ask lasts at least as long again as what they ask for. More would make the position shown
    /// run too far ahead of what is heard: at double speed a frame held here is two frames of song.
    static constexpr std::uint32_t preferredLatencyFrames = 1536;

    /// The environment variable that asks for more, in whole milliseconds: for a machine that is
    /// kept from its work for longer than that, and for the sound of a program under a sanitizer.
    /// Read when the device is opened.
    static constexpr const char *latencyVariable = "LYRABOX_OUTPUT_LATENCY";
    static constexpr std::uint32_t longestLatencyMilliseconds = 2000;

    CubebOutput() = default;
    ~CubebOutput() override;

    void setLossListener(std::function<void()> listener) override;
    /// soundServerHangs also while a device that was started has asked for no frames for
    /// serverPatience, as far as earlier calls here have seen.
    Status deviceStatus() const noexcept override;

    /// Opens the device, halted. noAudioDevice when there is no sound server or no device. noError
    /// also when the server hangs, see deviceStatus().
    Status initialize() override;

    float parameter(std::uint32_t id) const override;
    Status setParameter(std::uint32_t id, float value) override;
    void reset() override;
    Status connect(RenderingUnit *source) override;

    /// noConnection without a source. With the device missing, lost or out of reach it returns
    /// deviceStatus() and still counts as running, so that a chain rebuilt on the next device knows
    /// to go on.
    Status start() override;

    /// Pulls nothing from the source any more, lets the device play what it has (up to a tenth of a
    /// second or two) and halts it.
    Status stop() noexcept override;

    /// Any thread: started and not stopped since. Stays true when the device is lost.
    bool isRunning() const noexcept override;
    bool isPlayingOut() const noexcept override;
    std::uint32_t heldFrames() const noexcept override;

private:
    bool isReachable() const noexcept;
    Status giveUp() noexcept;
    void waitForSilence() const noexcept;
    void close() noexcept;

    std::function<void()> m_lossListener;
    RenderingUnit *m_source = nullptr;
    float m_volume = 1.0F;
    bool m_deviceStarted = false;
    // What deviceStatus() saw, and when it was new.
    mutable std::uint64_t m_seenCallbacks = 0;
    mutable std::chrono::steady_clock::time_point m_seenAt;
    /// What isRunning() is without a session, or with one that was cut off.
    std::atomic<bool> m_runsWithoutDevice{false};
    std::shared_ptr<CubebSession> m_session; ///< null: no device
};

} // namespace lyrabox
