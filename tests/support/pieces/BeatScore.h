#pragma once

#include "support/pieces/BeatPieces.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lyrabox::test {

/// How well beats match those of a piece.
struct BeatScore {
    double fMeasure = 0.0;      ///< the harmonic mean of precision and recall, within 70 ms
    std::vector<double> errors; ///< of the beats that match, in milliseconds, unsigned, ascending
    int bars = 0;
    int wrongBars = 0; ///< of them, those that begin where no bar of the piece does

    /// The error that so large a share of the beats does not exceed. 0 without beats.
    double error(double share) const;
    /// The share of the beats whose error is at most that.
    double shareWithin(double milliseconds) const;
};

/// Compares beats with those of a piece. `one` is the index of a beat that begins a bar.
BeatScore scoreOf(const BeatPiece &piece, std::span<const std::uint64_t> beats, std::size_t one);

} // namespace lyrabox::test
