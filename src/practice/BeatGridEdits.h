#pragma once

#include "practice/BeatGrid.h"

/// Changes of a grid. Each returns a new one, in which the first bar that begins is bar 1. A change
/// that is not possible, and every change of an empty grid, returns the grid as it was.
namespace lyrabox {

/// How many beats there are instead of as many as now.
enum class BeatScale {
    Half,
    Double,
    ThreeHalves, ///< from beats in three to beats in two
};

/// The grid with other beats. The first of a bar stays on the first of the first bar; beats behind
/// it that lie no more on a beat are left out. All bars get the length of the first one, in the new
/// beats. Not possible if there would be fewer than two beats or more than 100,000, or if they were
/// faster than BeatGrid::fastest.
BeatGrid scaledGrid(const BeatGrid &grid, BeatScale scale);

/// The grid whose bars all begin so many beats later, or earlier if it is negative. The beats stay
/// where they are.
BeatGrid shiftedGrid(const BeatGrid &grid, int beats);

/// The grid whose bars have another length from the bar on that contains a frame. Not possible
/// beyond the range of lengths.
BeatGrid gridWithBars(const BeatGrid &grid, std::uint64_t frame, int beatsPerBar);

/// The grid with the beat nearest to a frame moved to another one. The anchors on both sides of it
/// stay, and the beats between move along. Not possible if the beat would pass an anchor, or if
/// beats would become faster than BeatGrid::fastest.
BeatGrid gridWithBeatAt(const BeatGrid &grid, std::uint64_t frame, std::uint64_t target);

/// The grid without the beats around a frame: those up to the next places on both sides where the
/// beats are lost. As it was if they are lost at the frame, or not known there.
BeatGrid gridWithoutBeatsAround(const BeatGrid &grid, std::uint64_t frame);

/// The grid with another one in its place, from the first to the last anchor of the other. Where
/// the two do not continue each other, the beats between are lost, and a new bar begins behind. An
/// empty grid gives way to the other.
BeatGrid joinedGrid(const BeatGrid &grid, const BeatGrid &other);

} // namespace lyrabox
