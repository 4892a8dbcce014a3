#include "platform/analysis/SongKey.h"

#include "MadeSong.h"
#include "platform/analysis/SongTuning.h"
#include "support/pieces/TonalPieces.h"

#include <gtest/gtest.h>

namespace lyrabox::test {
namespace {

constexpr KeyOfSong cMajor{.tonic = 0, .isMinor = false};
constexpr KeyOfSong aMinor{.tonic = 9, .isMinor = true};

/// Chords one after the other, a second each, by the semitones of their notes above C.
MadeSong chordsOf(const std::vector<std::vector<int>> &chords, double cents)
{
    MadeSong song(chords.size() * 44100);
    for (std::size_t i = 0; i < chords.size(); ++i) {
        for (const int note : chords[i])
            song.addPluck(i * 44100, 261.6256 * std::exp2(note / 12.0 + cents / 1200.0), 0.1, 0.5);
    }
    return song;
}

std::vector<std::vector<int>> repeated(const std::vector<std::vector<int>> &chords, int times)
{
    std::vector<std::vector<int>> result;
    for (int i = 0; i < times; ++i)
        result.insert(result.end(), chords.begin(), chords.end());
    return result;
}

TEST(SongKey, OfACadenceIsItsKeyInEveryTranspositionAndTuning)
{
    for (int tonic = 0; tonic < 12; ++tonic) {
        const double cents = 8.0 * tonic - 44.0;
        std::vector<std::vector<int>> chords =
            repeated({{0, 4, 7, -12}, {5, 9, 12, -7}, {7, 11, 14, -5}, {0, 4, 7, -12}}, 4);
        for (std::vector<int> &chord : chords) {
            for (int &note : chord)
                note += tonic;
        }
        const MadeSong song = chordsOf(chords, cents);
        const SongPartials partials = songPartials(song.samples());
        const auto tuning = songTuning(partials);
        ASSERT_TRUE(tuning) << tonic;
        EXPECT_NEAR(tuning->cents, cents, 1.0);
        const auto guess = songKey(partials, tuning->cents);
        ASSERT_TRUE(guess);
        EXPECT_EQ(guess->first, transposed(cMajor, tonic)) << tonic;
        EXPECT_NE(guess->second, guess->first);
    }
}

TEST(SongKey, OfAMinorCadenceIsMinor)
{
    const MadeSong song = chordsOf(
        repeated({{-3, 0, 4, -15}, {2, 5, 9, -10}, {4, 8, 11, -8}, {-3, 0, 4, -15}}, 4), 0.0);
    const auto guess = songKey(songPartials(song.samples()), 0.0);
    ASSERT_TRUE(guess);
    EXPECT_EQ(guess->first, aMinor);
}

TEST(SongKey, OfMadeSongsIsRightInThreeOfFourAndNearlyAlwaysExactOrRelative)
{
    int exact = 0;
    int related = 0;
    unsigned number = 0;
    for (const TonalRecipe &recipe : tonalRecipes(16, 7)) {
        const TonalPiece piece = makeTonalPiece(recipe, 7000 + ++number);
        const SongPartials partials = songPartials({piece.left, piece.right, songRate});
        const auto tuning = songTuning(partials);
        ASSERT_TRUE(tuning);
        const double semitones = std::round((recipe.cents - tuning->cents) / 100.0);
        const KeyOfSong key =
            transposed({recipe.tonic, recipe.isMinor}, static_cast<int>(semitones));
        const KeyOfSong relative = transposed({key.tonic, !key.isMinor}, key.isMinor ? 3 : -3);
        const auto guess = songKey(partials, tuning->cents);
        ASSERT_TRUE(guess);
        exact += guess->first == key ? 1 : 0;
        related += guess->first == key || guess->first == relative ? 1 : 0;
    }
    EXPECT_GE(exact, 12);
    EXPECT_GE(related, 15);
}

TEST(SongKey, IsNoneWithoutNotes)
{
    MadeSong song(10 * 44100);
    song.addNoise(0.2);
    EXPECT_FALSE(songKey(songPartials(song.samples()), 0.0));
    EXPECT_FALSE(songKey({}, 0.0));
}

TEST(SongKey, IsTransposedAroundTheOctave)
{
    EXPECT_EQ(transposed(cMajor, -1).tonic, 11);
    EXPECT_EQ(transposed(aMinor, 15), (KeyOfSong{.tonic = 0, .isMinor = true}));
    EXPECT_EQ(transposed(aMinor, -240), aMinor);
}

} // namespace
} // namespace lyrabox::test
