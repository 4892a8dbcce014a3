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
    /// Frames in which a change of coefficients is carried out: 20 ms. The coefficients move in
    /// straight lines from where they are. The stable sections form a convex region (a triangle in
    /// a1 and a2), so every set on the way between two stable ones is stable too.
    static constexpr std::uint32_t rampFrames = 882;

    /// Starts a ramp to `target` from wherever the coefficients are, in the middle of another ramp
    /// too.
    void rampTo(const equalizer::Coefficients &target) noexcept;

    /// Ends a ramp at its target and forgets the signal.
    void clear() noexcept;

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

    Sections current{};
    Sections step{}; // per frame, while rampLeft is not 0
    Sections target{};
    std::array<State, equalizer::sectionCount> states{};
    StereoLanes gain = bothLanes(1.0);
    StereoLanes gainStep = bothLanes(0.0);
    StereoLanes gainTarget = bothLanes(1.0);
    std::uint32_t rampLeft = 0;
};

} // namespace lyrabox
