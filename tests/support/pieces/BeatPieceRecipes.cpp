#include "support/pieces/BeatPieces.h"

#include <algorithm>
#include <random>

namespace lyrabox::test {

namespace {

std::vector<PieceRecipe> plainRecipes()
{
    return {
        {.name = "steady 4/4", .tempo = 120},
        {.name = "slow 4/4", .tempo = 64, .slots = 4, .seconds = 60},
        {.name = "fast 4/4", .tempo = 176},
        {.name = "sixteenths", .tempo = 98, .slots = 4},
        {.name = "rock", .tempo = 138},
        {.name = "shuffle", .tempo = 122, .swing = 0.1667},
        {.name = "slow shuffle", .tempo = 84, .swing = 0.1667},
        {.name = "fast swing", .tempo = 172, .swing = 0.14},
        {.name = "light swing", .tempo = 106, .swing = 0.08},
        {.name = "wandering", .tempo = 112, .drift = 0.03, .looseness = 0.008},
        {.name = "wandering much", .tempo = 92, .slots = 4, .drift = 0.05, .looseness = 0.008},
        {.name = "loose", .tempo = 130, .drift = 0.01, .looseness = 0.012},
        {.name = "accelerando", .tempo = 90, .seconds = 60, .acceleration = 1.45},
        {.name = "ritardando", .tempo = 150, .seconds = 60, .acceleration = 0.7},
        {.name = "waltz", .tempo = 138, .beatsPerBar = 3},
        {.name = "fast waltz", .tempo = 178, .beatsPerBar = 3},
        {.name = "5/4", .tempo = 144, .beatsPerBar = 5, .groups = {3, 2}},
        {.name = "6/8 in two", .tempo = 72, .beatsPerBar = 2, .slots = 3},
        {.name = "6/8 in six", .tempo = 168, .beatsPerBar = 6, .slots = 1, .groups = {3, 3}},
        {.name = "7/8", .tempo = 184, .beatsPerBar = 7, .slots = 1, .groups = {2, 2, 3}},
    };
}

std::vector<PieceRecipe> hardRecipes()
{
    return {
        {.name = "no drums", .tempo = 108, .hasDrums = false},
        {.name = "no drums, slow", .tempo = 66, .slots = 4, .hasDrums = false},
        {.name = "no drums, waltz", .tempo = 126, .beatsPerBar = 3, .hasDrums = false},
        {.name = "no drums, swing", .tempo = 118, .swing = 0.15, .hasDrums = false},
        {.name = "a break of four bars", .tempo = 116, .seconds = 60, .breakBars = 4},
        {.name = "a part without beat", .tempo = 110, .seconds = 60, .free = 7.0},
        {.name = "four minutes", .tempo = 124, .seconds = 240},
        {.name = "four minutes, wandering",
         .tempo = 96,
         .slots = 4,
         .seconds = 240,
         .drift = 0.03,
         .looseness = 0.008},
        {.name = "four minutes of shuffle",
         .tempo = 132,
         .seconds = 240,
         .swing = 0.1667,
         .drift = 0.01},
        {.name = "four minutes, no drums",
         .tempo = 102,
         .seconds = 240,
         .drift = 0.015,
         .hasDrums = false},
    };
}

} // namespace

std::vector<PieceRecipe> thirtyRecipes(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> change(0.94, 1.04);
    std::vector<PieceRecipe> recipes = plainRecipes();
    for (PieceRecipe &recipe : hardRecipes())
        recipes.push_back(recipe);
    for (PieceRecipe &recipe : recipes)
        recipe.tempo = std::clamp(recipe.tempo * change(random), 60.0, 185.0);
    return recipes;
}

} // namespace lyrabox::test
