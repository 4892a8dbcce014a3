#pragma once

#include "platform/audio/TimePitchLibrary.h"
#include "platform/audio/TimePitchRatio.h"
#include "platform/audio/TimePitchResampler.h"
#include "platform/foundation/Status.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace RubberBand {
class RubberBandStretcher;
}

namespace lyrabox {

/// Stretches the time and shifts the pitch of a stereo signal at 44,100 Hz. Rubber Band's R3 engine
/// stretches by speed and pitch together. Then a TimePitchResampler shifts the pitch, which
/// restores the length that the speed asks for. The engine works on mid and side, because it treats
/// the phases of its two channels separately, and phase drift of the side signal is less audible
/// than a drifting stereo balance.
///
/// initialize(), warmUp() and refresh() belong to the control side. The others belong to the
/// callback thread; they don't allocate or lock.
///
/// The engine works in hops. A hop reads a window of windowFrames() source frames and delivers a
/// batch of output. The next hop's window starts framesRequired() frames later.
///
/// Some versions of the library allocate when an engine is reset. Then there are two engines:
/// restart() switches to the spare one, and refresh() resets the other.
class TimePitchStretcher {
public:
    TimePitchStretcher();
    ~TimePitchStretcher();
    TimePitchStretcher(const TimePitchStretcher &) = delete;
    TimePitchStretcher &operator=(const TimePitchStretcher &) = delete;

    /// Allocates. Returns unspecified if the library does not have the R3 engine.
    Status initialize();

    /// Runs the engine through its whole range, because it makes some of its tables at first use.
    /// Takes a tenth of a second. Call it once, right after initialize().
    void warmUp();

    /// Resets the spare engine if it needs that. One thread at a time. Call it before and after
    /// anything that may make the callback thread call restart().
    void refresh();

    /// Any thread. Whether restart() may be called. False only between a restart() and the next
    /// refresh().
    bool canRestart() const noexcept;

    /// `speed` is 0.1 to 2.0. Takes effect with the next hop.
    void setRatios(double speed, PitchRatio pitch) noexcept;

    /// Only if canRestart(). Drops the signal. The next frame that is fed has the number
    /// `firstFrame`. The caller then feeds leadInFrames() frames of lead-in and discards
    /// leadInOutput() frames of output. The next output belongs to the frame after the lead-in.
    void restart(std::int64_t firstFrame) noexcept;

    std::uint32_t windowFrames() const noexcept { return m_window; }

    /// Half a window, plus the delay that puts attacks in time at the present ratios.
    std::uint32_t leadInFrames() const noexcept;

    /// The number of output frames that the lead-in yields at the present ratios.
    std::uint32_t leadInOutput() const noexcept;

    /// Frames to feed until there is more output. 0 while there is output to take.
    std::uint32_t framesRequired() const noexcept;

    /// The number of the next frame to feed.
    std::int64_t nextFrame() const noexcept { return m_fed; }

    static constexpr std::uint32_t maximumFeed = 1024;

    /// At most maximumFeed frames.
    void feed(const float *left, const float *right, std::uint32_t frames) noexcept;

    /// Moves up to `frames` frames of output into `left` and `right`, and returns how many.
    std::uint32_t take(float *left, float *right, std::uint32_t frames) noexcept;

    /// The source frame whose attack belongs to the next output frame. It is exact, and a whole
    /// number, after the ratios have been 1 for windowFrames() frames of output.
    double position() const noexcept;

    /// The number of hops so far. Each costs about 0.6 ms on a 2.6 GHz core.
    std::uint64_t hops() const noexcept { return m_hops; }

private:
    using Engine = RubberBand::RubberBandStretcher;

    /// The centre of a hop's window in the source, and the place of its sound in the stretched
    /// signal. Between two hops the place moves evenly, so that a change of the ratios is followed
    /// as it is heard.
    struct Hop {
        double stretched = 0.0;
        double source = 0.0;
    };
    /// More than the window and its delay hold.
    static constexpr std::uint64_t keptHops = 64;

    double attackLead() const noexcept;
    void noteHop(std::int64_t fed, std::int64_t stretched) noexcept;
    void meetExtremes();
    std::uint32_t measureDelay();
    void run(std::uint32_t hops) noexcept;
    void applyRatio() noexcept;
    void collect() noexcept;

    TimePitchLibrary m_library{};
    std::unique_ptr<Engine> m_engine;
    std::unique_ptr<Engine> m_spare; ///< belongs to the control side while it is not fresh
    std::atomic<bool> m_spareIsFresh{true};
    TimePitchResampler m_resampler;
    std::vector<float> m_first; ///< the engine's two channels, on the way in and out
    std::vector<float> m_second;
    std::uint32_t m_window = 0;
    std::uint32_t m_delay = 0; ///< the engine's delay beyond half a window, in stretched frames
    double m_speed = 1.0;
    PitchRatio m_pitch;
    std::int64_t m_fed = 0;
    std::array<Hop, keptHops> m_kept{}; ///< hop n in slot n modulo keptHops
    std::uint64_t m_noted = 0;          ///< since the last restart
    std::uint64_t m_hops = 0;
};

} // namespace lyrabox
