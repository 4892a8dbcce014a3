#pragma once

#include "platform/audio/GraphicEqualizerDesign.h"
#include "platform/audio/StereoLanes.h"

#include <array>
#include <cstdint>

namespace lyrabox {

/// The running filter of the graphic equalizer: a gain and 31 sections in cascade, both channels
/// side by side in double precision, always all sections. Callback thread (or any one thread);
/// allocates nothing. How a signal is cut into calls makes no difference to the result, to the last
/// bit.
class GraphicEqualizerCascade {
public:
    /// Frames in which a change of coefficients is carried out: 20 ms. Each section moves in a
    /// straight line from where it is to its target. The stable sections form a convex region (a
    /// triangle in a1 and a2), so every set on the way between two stable ones is stable too. The
    /// speed has no steps either: a kink in the course of a level is heard as a faint tick far
    /// above the tone that is being changed.
    static constexpr std::uint32_t rampFrames = 882;

    /// Starts a ramp to `target` from wherever the coefficients are, in the middle of another ramp
    /// too.
    void rampTo(const equalizer::Coefficients &target) noexcept;

    /// Ends a ramp at its target and forgets the signal.
    void clear() noexcept;

    /// Goes on as if `left` and `right` had been the input for ever. A signal that sets in at full
    /// height after clear() makes the sections ring, far louder beyond the signal's own frequencies
    /// than anything in it.
    void settleOn(float left, float right) noexcept;

    /// Filters in place. `left` and `right` hold `frames` samples each. A sample that is not finite
    /// counts as 0.0; one that comes out beyond the range of float is held at its end.
    void process(float *left, float *right, std::uint32_t frames) noexcept;

private:
    // A section's coefficients, once per lane: what is loaded is what is multiplied by.
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

    // A way of `length`, covered in rampFrames as a cubic of time: it begins at `speed` (length per
    // ramp) and ends at rest. Computed by differences, so that a frame costs two additions.
    struct Course {
        Course() = default;
        Course(double length, double speed);

        /// What the next frame covers.
        double advance();

        double distance = 0.0; // in the next frame
        double change = 0.0;   // of the distance from frame to frame
        double changeOfChange = 0.0;
    };

    Sections current{};
    Sections target{};
    Sections way{}; // from where the ramp began to its target
    std::array<State, equalizer::sectionCount> states{};
    Course progress; // the share of `way`
    double gain = 1.0;
    double gainTarget = 1.0;
    Course gainCourse;
    std::uint32_t rampLeft = 0;
};

} // namespace lyrabox
