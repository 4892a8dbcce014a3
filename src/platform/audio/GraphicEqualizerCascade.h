#pragma once

#include "platform/audio/GraphicEqualizerDesign.h"
#include "platform/audio/StereoLanes.h"

#include <array>
#include <cstdint>

namespace lyrabox {

/// The running filter of the graphic equalizer: a gain and 31 sections in cascade, for two channels
/// in double precision. All sections always run. One thread at a time, usually the callback thread.
/// Allocates nothing. The output is bit for bit the same however the signal is divided into calls.
class GraphicEqualizerCascade {
public:
    /// The length of a ramp from one set of coefficients to the next, in frames: 20 ms. The
    /// coefficients of a section move in a straight line to their targets. Stable sections form a
    /// convex region (a triangle in a1 and a2), so every point of the line is stable, too. Their
    /// speed has no steps either, because a kink in a gain curve is heard as a faint click far
    /// above the tone.
    static constexpr std::uint32_t rampFrames = 882;

    /// Starts a ramp from the current coefficients to `target`. Another ramp may still be running.
    void rampTo(const equalizer::Coefficients &target) noexcept;

    /// Moves the coefficients to their targets at once and clears the filter's memory of the
    /// signal.
    void clear() noexcept;

    /// Sets the state that the filter would have if `left` and `right` had always been its input.
    /// Without this, a signal that starts at full level after clear() makes the sections ring.
    void settleOn(float left, float right) noexcept;

    /// Filters in place. `left` and `right` hold `frames` samples each. An input sample that is not
    /// finite counts as 0.0. An output sample beyond the range of float is clamped to it.
    void process(float *left, float *right, std::uint32_t frames) noexcept;

private:
    // A section's coefficients, once per lane, so that they are multiplied as they are loaded.
    struct Section {
        StereoLanes c0, c1, c2, a1, a2;
    };
    struct State {
        StereoLanes first, second;
    };
    using Sections = std::array<Section, equalizer::sectionCount>;

    template <std::uint32_t count, bool isRamping>
    void filter(float *left, float *right) noexcept;
    template <bool isRamping>
    void filterRun(float *left, float *right, std::uint32_t frames) noexcept;

    // A movement by `length` within rampFrames, as a cubic of time. It begins at `speed`, in units
    // of length per ramp, and ends at rest. Forward differences make it cost two additions per
    // frame.
    struct Movement {
        Movement() = default;
        Movement(double length, double speed);

        /// The distance of the next frame.
        double advance();

        double distance = 0.0; // in the next frame
        double change = 0.0;   // of the distance from frame to frame
        double changeOfChange = 0.0;
    };

    Sections m_current{};
    Sections m_target{};
    Sections m_difference{}; // the target minus the start of the ramp
    std::array<State, equalizer::sectionCount> m_states{};
    Movement m_progress; // the share of m_difference that was added
    double m_gain = 1.0;
    double m_gainTarget = 1.0;
    Movement m_gainMovement;
    std::uint32_t m_rampLeft = 0;
};

} // namespace lyrabox
