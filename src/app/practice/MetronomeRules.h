#pragma once

#include "engine/LoopRange.h"
#include "platform/audio/ClickTable.h"
#include "practice/BeatGrid.h"
#include "practice/CountIn.h"

#include <cstdint>
#include <memory>

/// What the beats of a song mean for the metronome. Pure functions. Frames are those of the song.
namespace lyrabox {

/// "This loop has 4 bars of 4": the beats of a loop whose song has no grid.
struct LoopBars {
    static constexpr int maximumBars = 64;

    int bars = 4;        ///< 1 to maximumBars
    int beatsPerBar = 4; ///< BeatGrid::shortestBar to BeatGrid::longestBar

    bool operator==(const LoopBars &) const = default;
};

namespace metronome {

/// A place that is so near to a beat is on it: people set loops a little early or late.
constexpr double beatSlack = 0.05; // seconds

/// The beats of a loop that has so many bars. Without beats if they would be too fast for a grid.
BeatGrid gridOfLoop(LoopRange loop, const LoopBars &bars);

/// The clicks of a song. Beats that are not known have none. Null if the grid has no beats.
std::shared_ptr<const ClickTable> clicksOn(const BeatGrid &grid, std::uint64_t songFrames,
                                           const ClickPattern &pattern);

/// The count-in before `frame`, in time with the beats of the grid. Before a pick-up the clicks run
/// on to it. Where the beats are not known, `frame` counts as the first beat of a bar in the
/// nearest known tempo. None if the grid has no beats.
LeadIn countInBefore(const BeatGrid &grid, std::uint64_t frame, const CountInLength &length);

/// Silence of so many beats before `frame`. Without a grid a beat lasts half a second of the song.
LeadIn restBefore(const BeatGrid &grid, std::uint64_t frame, int beats);

} // namespace metronome
} // namespace lyrabox
