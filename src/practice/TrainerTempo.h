#pragma once

#include "practice/BeatGrid.h"
#include "practice/SpeedTrainer.h"

#include <cstdint>
#include <optional>

/// What the trainer has to know of the song's beats, and of what comes next. Pure functions.
namespace lyrabox {

/// The mean tempo between two frames of the song at 100 %, in beats per minute. 0 if there is no
/// grid, or if the range is empty.
double tempoBetween(const BeatGrid &grid, std::uint64_t from, std::uint64_t to);

/// How many frames before `start` a run-up of so many beats begins; at most `start`. Without a grid
/// a beat counts as half a second.
std::uint64_t runUpFrames(const BeatGrid &grid, std::uint64_t start, int beats);

/// The speed in percent that follows if all passes from now on are right. None if no other speed
/// follows, or if the run is over.
std::optional<double> nextSpeed(SpeedTrainer trainer);

} // namespace lyrabox
