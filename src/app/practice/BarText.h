#pragma once

#include "engine/LoopRange.h"
#include "practice/BeatGrid.h"

#include <QString>

#include <cstdint>

namespace lyrabox {

/// Places and lengths in bars and beats, as the pane writes them. Any thread.
namespace barText {

/// The beat next to a frame: "7.1". Empty if the beats are not shown there, see beatMarks.
QString place(const BeatGrid &grid, std::uint64_t frame);

/// Both ends of a loop: "7.1–9.1". Empty if the beats are not shown at one of them.
QString places(const BeatGrid &grid, LoopRange loop);

/// The length of a loop: "2 bars", "5 beats", or "4.6 beats" if it is no whole number of them.
/// Empty as above.
QString length(const BeatGrid &grid, LoopRange loop);

/// A tempo in beats a minute with at most one decimal: "92.3".
QString tempo(double tempo);

} // namespace barText
} // namespace lyrabox
