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

/// The time/pitch stage: plays its source faster or slower, and higher or lower, each without the
/// other. Two channels at 44,100 Hz.
///
/// Parameters: parameter::rate, 1.0 is normal speed; parameter::pitch in cents. Any finite value is
/// taken and given back; what is heard is kept within 0.1 to 2.0 and ±2400 cents.
///
/// At rate 1 and pitch 0 the source passes untouched, without delay and bit for bit; otherwise it
/// goes through a stretcher, which needs to read ahead. Where the stage changes over between the
/// two, both give the same place of the song at the same time, and one is faded into the other:
///  - leaving, the stretcher starts at rate 1 a little ahead, reads ahead while the source goes on
///    passing, is faded in, and only then takes the ratios wanted;
///  - returning, the stretcher goes on at rate 1 until it follows the source wave for wave, then
///    the source is faded in from where the stretcher stands, and what has been read ahead is
///    played before more is pulled.
/// When the source has ended, what has been read ahead is played out at the parameters of that
/// moment; the source is not pulled again until its last frame has been delivered.
/// After a reset at other ratios the stretcher has to read ahead as well. Until it has, a
/// QuickStretcher plays. So no callback has to do all of it at once.
class TimePitch final : public TimePitchUnit {
public:
    static constexpr float minimumRate = speedRange.minimum / 100.0F;
    static constexpr float maximumRate = speedRange.maximum / 100.0F;

    static constexpr std::uint32_t crossfadeFrames = 1024;
    static constexpr std::uint32_t settleFrames = 26460; ///< at rate 1 before the source takes over
    static constexpr std::uint32_t fadeInFrames = 220;   ///< of the cover's first sound

    /// So long after a change or a reset the stretcher is heard; its reading ahead is spread over
    /// this time.
    static constexpr std::uint32_t startFrames = 2304;
    /// But for the first frames, which an output that fades pulls in one callback with those that
    /// it delivers.
    static constexpr std::uint32_t restFrames = 256;
    /// Over which the cover goes over into the stretcher.
    static constexpr std::uint32_t uncoverFrames = 512;

    /// InBackground: initialize() puts off the stretcher's warming-up, a tenth of a second, and
    /// prepare() leaves it to a thread; until it is done render() gives silence.
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

    /// Silence before initialize() or without a source.
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override;

    /// Source frames pulled but not yet delivered: what is heard next is the source's position
    /// minus this. 0 at rate 1 and pitch 0; up to about 6,700 at normal pitch. 0 while a reset is
    /// pending. Any thread.
    double latencyFrames() const noexcept override;

    /// The stretcher's hops so far, which are nearly all that rendering costs. Callback thread.
    std::uint64_t hops() const noexcept { return m_stretcher.hops(); }

private:
    static constexpr std::uint32_t blockFrames = 1024; ///< rendered at a time
    static_assert(blockFrames <= TimePitchStretcher::maximumFeed);

    enum class Reset : std::uint8_t { none, afterPlayOut, atOnce };
    enum class State { passing, leaving, covering, stretching, returning };

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
    std::uint32_t cover(Output output, std::uint32_t frames) noexcept;
    void readAhead(std::uint32_t progress) noexcept;
    void fadeIn(Output output, std::uint32_t frames) noexcept;
    void startStretcher(std::int64_t frame, double speed, PitchRatio pitch) noexcept;
    void setRatios(double speed, PitchRatio pitch) noexcept;

    std::atomic<float> m_rate{1.0F};
    std::atomic<float> m_pitch{0.0F};
    std::atomic<Reset> m_resetRequested{Reset::none};
    std::atomic<double> m_latency{0.0};

    // Set up on the control side before the chain renders, then the callback thread's.
    RenderingUnit *m_source = nullptr;
    std::atomic<bool> m_ready{false};
    TimePitchHistory m_history;
    TimePitchStretcher m_stretcher;
    QuickStretcher m_cover;
    std::vector<float> m_scratch;

    State m_state = State::passing;
    float m_wantedRate = 1.0F;
    float m_wantedPitch = 0.0F;
    double m_speed = 1.0;    ///< what the stretcher is set to
    PitchRatio m_pitchRatio; ///< what the stretcher is set to
    PitchRatio m_wantedPitchRatio;
    bool m_wantsUnchanged = true;
    std::int64_t m_passed = 0;     ///< the next source frame to pass on
    std::uint32_t m_progress = 0;  ///< frames since the change began, or settled at rate 1
    std::uint32_t m_discarded = 0; ///< of the stretcher's lead-in
    std::uint32_t m_fadeInLeft = 0;

    bool m_sourceEndSeen = false; ///< set by the source while it is pulled
    bool m_isPlayingOut = false;
    std::int64_t m_songEnd = 0;    ///< while playing out: the frame behind the song's last
    std::int64_t m_leadOutEnd = 0; ///< and where what was invented behind it ends

    void warmUp();

    WarmUp m_warmUp;
    bool m_isCold = false;         ///< initialize() has put the warming-up off
    std::future<void> m_warmingUp; ///< waited for before anything that it uses goes
};

} // namespace lyrabox
