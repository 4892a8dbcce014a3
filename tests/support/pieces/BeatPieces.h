#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Music with known beats: pieces for drums, bass, chords and melody, all synthesized.
namespace lyrabox::test {

/// How a piece is made. Everything that is not named here is drawn from the seed: the patterns of
/// the instruments, the chords, and who plays early, late, loud or soft by how much.
struct PieceRecipe {
    std::string name;
    double tempo = 120.0; ///< beats a minute, at the start
    int beatsPerBar = 4;
    int slots = 2;             ///< the parts of a beat on which notes may begin
    double seconds = 40.0;     ///< about; the piece ends with a bar
    double swing = 0.0;        ///< by which share of a beat its second half comes late
    double drift = 0.0;        ///< by which share the tempo wanders about
    double acceleration = 1.0; ///< the tempo at the end, as a multiple of that at the start
    double jump = 1.0;         ///< by which the tempo is multiplied in the middle, at once
    double free = 0.0;         ///< seconds in the middle in which notes come without any beat
    int breakBars = 0;         ///< bars in the middle in which only a chord sounds
    bool hasDrums = true;
    std::vector<int> groups{}; ///< beats that belong together, such as 2, 2, 3; none: all alike
    double looseness = 0.005;  ///< seconds, the standard deviation of a note's place
};

/// A piece, at 44,100 Hz.
struct BeatPiece {
    std::string name;
    int beatsPerBar = 4;
    std::vector<float> left;
    std::vector<float> right;
    std::vector<double> beats; ///< in frames; the first is the first beat of a bar
    /// Whether a stretch without beat begins after the beat of that index. Such a gap holds no
    /// beats, and afterwards a new bar begins.
    std::vector<bool> isBeforeGap;

    /// The beat's number in its bar, 0 being the first.
    int beatInBar(std::size_t index) const;
};

/// Makes a piece. The same recipe and seed give the same piece.
BeatPiece makePiece(const PieceRecipe &recipe, unsigned seed);

/// Thirty recipes that are as different as music for practice is: 60 to 185 beats a minute, swing,
/// drift, accelerando, five metres, without drums; four of them are four minutes long. `seed`
/// draws their tempi.
std::vector<PieceRecipe> thirtyRecipes(unsigned seed);

/// Eight taps on the beats from `first` on, each early or late by up to 40 ms.
std::vector<std::uint64_t> eightTaps(const BeatPiece &piece, std::size_t first, unsigned seed);

} // namespace lyrabox::test
