#pragma once

#include <string>
#include <vector>

/// Music with a known tuning and a known key: chords, bass, a melody and drums, all synthesized.
namespace lyrabox::test {

/// How a piece is made. Everything that is not named here is drawn from the seed: the chords, the
/// rhythm, the instruments and the melody.
struct TonalRecipe {
    std::string name{};
    int tonic = 0; ///< semitones above C
    bool isMinor = false;
    double cents = 0.0;  ///< the tuning, above A = 440 Hz
    double drift = 0.0;  ///< cents that are added from the beginning to the end
    double spread = 0.0; ///< the melody is tuned so many cents higher than the chords
    double seconds = 40.0;
    double tempo = 100.0; ///< beats a minute
    bool hasDrums = true;
    double vibrato = 0.0; ///< cents, of the melody
};

/// A piece, at 44,100 Hz.
struct TonalPiece {
    TonalRecipe recipe;
    std::vector<float> left;
    std::vector<float> right;
};

/// Makes a piece. The same recipe and seed give the same piece.
TonalPiece makeTonalPiece(const TonalRecipe &recipe, unsigned seed);

/// Drums alone.
TonalPiece makeDrums(double seconds, unsigned seed);

/// So many recipes: each tonic in turn, three in five of them major, tunings from -50 to 50 cents.
std::vector<TonalRecipe> tonalRecipes(std::size_t count, unsigned seed);

} // namespace lyrabox::test
