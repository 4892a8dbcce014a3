#pragma once

#include "platform/audio/AudioUnit.h"
#include "platform/audio/QuickStretcher.h"
#include "platform/audio/SoundRanges.h"
#include "platform/audio/TimePitchHistory.h"
#include "platform/audio/TimePitchStretcher.h"

#include <atomic>
#include <cstdint>
#include <future>
#include <vector>

namespace lyrabox {

/// The time/pitch stage. It changes the speed of its source without the pitch, and the pitch
/// without the speed. Two channels at 44,100 Hz.
///
/// Parameters: parameter::rate, where 1.0 is normal speed, and parameter::pitch in cents. Any
/// finite value is accepted and reads back as it was set. The sound is limited to speedRange and
/// pitchRange.
///
/// At rate 1 and pitch 0 the source passes through bit for bit and without delay. Otherwise it goes
/// through a stretcher, which reads ahead of its output. When the stage switches between the two,
/// both play the same place in the song at the same time, and one fades into the other:
/// - Leaving: the stretcher starts at rate 1, slightly ahead, and reads ahead while the source
///   still passes through. Then it fades in. Only after that does it take the new rate and pitch.
/// - Returning: the stretcher runs at rate 1 until its output reproduces the source's waveform.
///   Then the source fades in at the stretcher's position. The frames that were read ahead are
///   played before more are pulled.
/// When the source has ended, the frames that were read ahead are played out with the parameters of
/// that moment. The source is not pulled again until its last frame has been delivered.
///
/// After a reset at another rate or pitch the stretcher also has to read ahead. A QuickStretcher
/// plays until it is ready, so that the work is spread over several callbacks.
class TimePitch final : public TimePitchUnit {
public:
    static constexpr float minimumRate = speedRange.minimum / 100.0F;
    static constexpr float maximumRate = speedRange.maximum / 100.0F;

    static constexpr std::uint32_t crossfadeFrames = 1024;
    /// How long the stretcher runs at rate 1 before the source takes over.
    static constexpr std::uint32_t settleFrames = 26460;
    static constexpr std::uint32_t fadeInFrames = 220; ///< at the start of the quick stretcher

    /// Frames from a change or a reset until the stretcher is heard. Reading ahead is spread over
    /// them.
    static constexpr std::uint32_t startFrames = 2304;
    /// No reading ahead is done during the first restFrames of startFrames, because an output that
    /// fades pulls them in the same callback as the frames before the change.
    static constexpr std::uint32_t restFrames = 256;
    /// The crossfade from the quick stretcher to the stretcher.
    static constexpr std::uint32_t handoverFrames = 512;

    /// When the stretcher warms up, which takes a tenth of a second. AtOnce: inside initialize().
    /// InBackground: on a thread that prepare() starts. Until it is done, render() delivers
    /// silence.
    enum class WarmUp { AtOnce, InBackground };

    explicit TimePitch(WarmUp warmUp = WarmUp::AtOnce) : m_warmUp(warmUp) {}

    Status initialize() override;
    void prepare() override;
    void awaitReady() override;
    float parameter(std::uint32_t id) const override;
    Status setParameter(std::uint32_t id, float value) override;
    void reset() override;
    void sourceHasEnded() noexcept override { m_sourceEndSeen = true; }
    void resetAfterPlayOut() override;
    bool isPlayingOut() const noexcept override { return m_isPlayingOut; }
    Status connect(RenderingUnit *source) override;

    /// Delivers silence before initialize() and without a source.
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override;

    /// 0 at rate 1 and pitch 0, and while a reset is pending. Otherwise up to about 6,700 frames at
    /// normal pitch.
    double latencyFrames() const noexcept override;
    Account account() const noexcept override
    {
        return {.held = m_latency.load(std::memory_order_relaxed), .resets = m_resets};
    }

    /// Callback thread. The number of the stretcher's hops so far. They are nearly the whole cost
    /// of rendering.
    std::uint64_t hops() const noexcept { return m_stretcher.hops(); }

private:
    static constexpr std::uint32_t blockFrames = 1024; ///< rendered at a time
    static_assert(blockFrames <= TimePitchStretcher::maximumFeed);

    enum class Reset : std::uint8_t { none, afterPlayOut, atOnce };
    enum class State { passing, leaving, bridging, stretching, returning };

    struct Output {
        float *left;
        float *right;
    };

    void takeReset() noexcept;
    void takeParameters() noexcept;
    void pull(std::int64_t end) noexcept;
    double position() const noexcept;
    std::uint32_t renderSome(Output output, std::uint32_t frames) noexcept;
    void pass(Output output, std::uint32_t frames) noexcept;
    void stretch(Output output, std::uint32_t frames) noexcept;
    void crossfade(Output output, std::uint32_t frames) noexcept;
    std::uint32_t leave(Output output, std::uint32_t frames) noexcept;
    std::uint32_t bridge(Output output, std::uint32_t frames) noexcept;
    void readAhead(std::uint32_t progress) noexcept;
    void fadeIn(Output output, std::uint32_t frames) noexcept;
    void startStretcher(std::int64_t frame, double speed, PitchRatio pitch) noexcept;
    void setRatios(double speed, PitchRatio pitch) noexcept;

    std::atomic<float> m_rate{1.0F};
    std::atomic<float> m_pitch{0.0F};
    std::atomic<Reset> m_resetRequested{Reset::none};
    std::atomic<double> m_latency{0.0};

    // The control side sets these before the chain renders. Then they belong to the callback
    // thread.
    RenderingUnit *m_source = nullptr;
    std::atomic<bool> m_ready{false};
    TimePitchHistory m_history;
    TimePitchStretcher m_stretcher;
    QuickStretcher m_quickStretcher;
    std::vector<float> m_scratch;

    State m_state = State::passing;
    float m_wantedRate = 1.0F;
    float m_wantedPitch = 0.0F;
    double m_speed = 1.0;    ///< the stretcher's present speed
    PitchRatio m_pitchRatio; ///< the stretcher's present pitch
    PitchRatio m_wantedPitchRatio;
    bool m_wantsUnchanged = true;
    std::int64_t m_passed = 0;     ///< the next source frame to pass on
    std::uint32_t m_progress = 0;  ///< frames since the state began, or since the rate became 1
    std::uint32_t m_discarded = 0; ///< frames of the stretcher's lead-in
    std::uint32_t m_fadeInLeft = 0;
    std::uint64_t m_resets = 0; ///< that were carried out

    bool m_sourceEndSeen = false; ///< the source sets it while it is pulled
    bool m_isPlayingOut = false;
    std::int64_t m_songEnd = 0;    ///< while playing out: the first frame after the song
    std::int64_t m_leadOutEnd = 0; ///< while playing out: the first frame after the lead-out

    void warmUp();

    WarmUp m_warmUp;
    bool m_isCold = false;         ///< initialize() has deferred the warm-up
    std::future<void> m_warmingUp; ///< the last member, so that the others outlive the thread
};

} // namespace lyrabox
