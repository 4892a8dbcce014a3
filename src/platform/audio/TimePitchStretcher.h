#pragma once

#include "platform/audio/TimePitchLibrary.h"
#include "platform/audio/TimePitchRatio.h"
#include "platform/audio/TimePitchResampler.h"
#include "platform/foundation/Status.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace RubberBand {
class RubberBandStretcher;
}

namespace lyrabox {

/// Stretches time and shifts pitch of a two-channel signal at 44,100 Hz. Rubber Band's R3 engine
/// stretches by speed and pitch together, then a TimePitchResampler takes the pitch back out of the
/// length. The engine works on mid and side: it treats the phases of its channels apart, and the
/// ear forgives a wandering side much sooner than a wandering balance. Callback thread, except
/// initialize(), warmUp() and refresh(): no allocation, no lock.
///
/// The engine works in hops. One hop reads a window of windowFrames() source frames, of which the
/// next hop skips as many as framesRequired() then says, and delivers a batch of output.
///
/// Where the library allocates when an engine starts anew there are two engines: restart() goes
/// over to the spare one, and refresh() makes the other one ready for the next time.
class TimePitchStretcher {
public:
    TimePitchStretcher();
    ~TimePitchStretcher();
    TimePitchStretcher(const TimePitchStretcher &) = delete;
    TimePitchStretcher &operator=(const TimePitchStretcher &) = delete;

    /// Allocates. Returns unspecified when the library has not the engine wanted.
    Status initialize();

    /// Runs the engine once over its range, since some of its tables are made when they are first
    /// used. A tenth of a second; once, after initialize() and before anything else.
    void warmUp();

    /// Makes the spare engine ready where it was used. Control side, one thread at a time, before
    /// and after whatever may make the callback thread call restart().
    void refresh();

    /// Whether restart() may be called. False only between a restart() and the next refresh().
    bool canRestart() const noexcept;

    /// `speed` 0.1 to 2.0. From the next hop on.
    void setRatios(double speed, PitchRatio pitch) noexcept;

    /// If canRestart(). Forgets the signal; the next frame fed counts as number `firstFrame`. Feed
    /// leadInFrames() of lead-in and discard leadInOutput() frames, and what comes next belongs to
    /// the frame after the lead-in.
    void restart(std::int64_t firstFrame) noexcept;

    std::uint32_t windowFrames() const noexcept { return m_window; }

    /// At the ratios set: half a window, and what an attack must be held back to come in time.
    std::uint32_t leadInFrames() const noexcept;

    /// Output frames that the lead-in makes at the ratios set.
    std::uint32_t leadInOutput() const noexcept;

    /// Frames to feed until more output comes; 0 while there is output to take.
    std::uint32_t framesRequired() const noexcept;

    /// The number of the next frame to be fed.
    std::int64_t nextFrame() const noexcept { return m_fed; }

    static constexpr std::uint32_t maximumFeed = 1024;

    /// At most maximumFeed frames.
    void feed(const float *left, const float *right, std::uint32_t frames) noexcept;

    /// Moves up to `frames` frames of output into `left` and `right`; returns how many.
    std::uint32_t take(float *left, float *right, std::uint32_t frames) noexcept;

    /// The source frame whose attack belongs to the next output frame. Exact, and a whole number,
    /// once the ratios have been 1 for windowFrames() of output; within a hop of the truth right
    /// after a change of the ratios.
    double position() const noexcept;

    /// Hops since the engine was made; all of its cost, about 0.6 ms each on a core of 2.6 GHz.
    std::uint64_t hops() const noexcept { return m_hops; }

private:
    using Engine = RubberBand::RubberBandStretcher;

    double attackLead() const noexcept;
    void meetExtremes();
    std::uint32_t measureDelay();
    void run(std::uint32_t hops) noexcept;
    void applyRatio() noexcept;
    void collect() noexcept;

    TimePitchLibrary m_library{};
    std::unique_ptr<Engine> m_engine;
    std::unique_ptr<Engine> m_spare; ///< the control side's while it is not fresh
    std::atomic<bool> m_spareIsFresh{true};
    TimePitchResampler m_resampler;
    std::vector<float> m_first; ///< what the engine is fed with, and what it gives
    std::vector<float> m_second;
    std::uint32_t m_window = 0;
    std::uint32_t m_delay = 0; ///< of the engine, in stretched frames, beyond half a window
    double m_speed = 1.0;
    PitchRatio m_pitch;
    std::int64_t m_fed = 0;
    std::int64_t m_fedAtHop = 0; ///< m_fed when the last hop was made
    std::int64_t m_hopStart = 0; ///< the first stretched frame that it gave
    std::uint64_t m_hops = 0;
};

} // namespace lyrabox
