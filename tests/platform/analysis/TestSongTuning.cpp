#include "platform/analysis/SongTuning.h"

#include "MadeSong.h"
#include "support/pieces/TonalPieces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace lyrabox::test {
namespace {

std::optional<SongTuning> tuningOf(const SongSamples &song)
{
    return songTuning(songPartials(song));
}

SongSamples samplesOf(const TonalPiece &piece)
{
    return {piece.left, piece.right, songRate};
}

/// The distance of two tunings: 50 cents up is 50 cents down.
double distance(double a, double b)
{
    return std::abs(a - b - 100.0 * std::round((a - b) / 100.0));
}

TEST(SongTuning, IsThatOfMadeMusicWithinOneCent)
{
    unsigned seed = 1;
    for (const double cents : {-50.0, -41.3, -12.0, 0.0, 7.5, 31.9, 49.0}) {
        const TonalPiece piece = makeTonalPiece({.tonic = static_cast<int>(5 * seed % 12),
                                                 .isMinor = seed % 2 == 0,
                                                 .cents = cents,
                                                 .seconds = 25.0,
                                                 .tempo = 80.0 + 9.0 * seed,
                                                 .hasDrums = seed % 3 != 0,
                                                 .vibrato = seed % 2 == 0 ? 25.0 : 0.0},
                                                seed);
        const auto tuning = tuningOf(samplesOf(piece));
        ASSERT_TRUE(tuning) << cents;
        EXPECT_LT(distance(tuning->cents, cents), 1.0) << cents << ' ' << tuning->cents;
        EXPECT_FALSE(tuning->drifts());
        ++seed;
    }
}

TEST(SongTuning, OfPlayersThatAreSixCentsApartLiesBetweenThem)
{
    for (const unsigned seed : {11U, 12U, 13U}) {
        const TonalPiece piece =
            makeTonalPiece({.tonic = 3, .cents = -23.0, .spread = 6.0, .seconds = 25.0}, seed);
        const auto tuning = tuningOf(samplesOf(piece));
        ASSERT_TRUE(tuning);
        EXPECT_LT(distance(tuning->cents, -20.0), 3.0) << tuning->cents;
    }
}

TEST(SongTuning, IsARangeIfItDrifts)
{
    for (const double drift : {24.0, -40.0}) {
        const TonalPiece piece =
            makeTonalPiece({.cents = 30.0, .drift = drift, .seconds = 90.0}, 21);
        const auto tuning = tuningOf(samplesOf(piece));
        ASSERT_TRUE(tuning);
        ASSERT_TRUE(tuning->drifts());
        EXPECT_NEAR(tuning->highest - tuning->lowest, std::abs(drift), 0.25 * std::abs(drift));
        EXPECT_LT(distance(tuning->cents, 30.0 + drift / 2.0), 3.0);
        EXPECT_GE(tuning->cents, tuning->lowest);
        EXPECT_LE(tuning->cents, tuning->highest);
    }
}

TEST(SongTuning, OfDrumsNoiseAndSilenceIsNotClear)
{
    for (const unsigned seed : {1U, 2U, 3U}) {
        const TonalPiece drums = makeDrums(30.0, seed);
        EXPECT_FALSE(tuningOf(samplesOf(drums)));
    }
    MadeSong song(20 * 44100);
    EXPECT_FALSE(tuningOf(song.samples()));
    song.addNoise(0.2);
    EXPECT_FALSE(tuningOf(song.samples()));
    EXPECT_FALSE(tuningOf({}));
    EXPECT_FALSE(tuningOf(MadeSong(1).samples()));
    EXPECT_FALSE(tuningOf(MadeSong(8192).samples()));
}

TEST(SongTuning, OfOneOrTwoNotesIsNotClear)
{
    MadeSong song(20 * 44100);
    song.addTone(0, 445.0, 0.3);
    EXPECT_FALSE(tuningOf(song.samples()));
    song.addTone(0, 445.0 * std::exp2(5.0 / 12.0), 0.3);
    EXPECT_FALSE(tuningOf(song.samples()));
    song.addTone(0, 445.0 * std::exp2(9.0 / 12.0), 0.3);
    const auto tuning = tuningOf(song.samples());
    ASSERT_TRUE(tuning) << "three are enough";
    EXPECT_NEAR(tuning->cents, 1200.0 * std::log2(445.0 / 440.0), 0.2);
    EXPECT_NEAR(tuning->hertz(), 445.0, 0.1);
}

TEST(SongTuning, OfNotesAnywhereIsNotClear)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> notes(0.0, 3.0);
    MadeSong song(60 * 44100);
    for (std::size_t begin = 0; begin < song.left.size(); begin += 22050)
        song.addPluck(begin, 110.0 * std::exp2(notes(random)), 0.2, 0.6);
    EXPECT_FALSE(tuningOf(song.samples()));
}

TEST(SongTuning, IsThatOfTheWholeRangeOfLevelsAndOfOneChannelAlone)
{
    TonalPiece piece = makeTonalPiece({.cents = 17.0, .seconds = 20.0}, 31);
    for (float &sample : piece.left)
        sample *= 0.003F; // -50 dB
    const std::vector<float> silence(piece.left.size());
    for (const SongSamples &song :
         {SongSamples{piece.left, silence, songRate}, SongSamples{silence, piece.left, songRate},
          SongSamples{piece.left, piece.left, songRate}}) {
        const auto tuning = tuningOf(song);
        ASSERT_TRUE(tuning);
        EXPECT_NEAR(tuning->cents, 17.0, 1.0);
    }
}

TEST(SongTuning, DoesNotSufferFromDamagedSamples)
{
    TonalPiece piece = makeTonalPiece({.cents = 17.0, .seconds = 20.0}, 32);
    for (std::size_t i = 1000; i < piece.left.size(); i += 100'000)
        piece.left[i] = std::numeric_limits<float>::quiet_NaN();
    piece.right[7] = std::numeric_limits<float>::infinity();
    const auto tuning = tuningOf(samplesOf(piece));
    ASSERT_TRUE(tuning);
    EXPECT_NEAR(tuning->cents, 17.0, 1.0);
}

TEST(SongPartials, AreTheSteadyTonesOfTheSong)
{
    MadeSong song(4 * 44100);
    song.addTone(0, 250.3, 0.2);
    song.addTone(44100, 997.1, 0.05);
    const SongPartials found = songPartials(song.samples());
    EXPECT_NEAR(found.windowsPerSecond, 44100.0 / 4096.0, 1.0e-9);
    int low = 0;
    int high = 0;
    for (const SteadyPartial &partial : found.partials) {
        if (partial.hertz < 500.0F) {
            EXPECT_NEAR(partial.hertz, 250.3, 0.05);
            EXPECT_NEAR(partial.level, 0.2 * std::sqrt(2.0), 0.06);
            ++low;
        } else {
            EXPECT_NEAR(partial.hertz, 997.1, 0.4);
            ++high;
        }
    }
    EXPECT_EQ(low, 41); // 42 windows
    EXPECT_NEAR(high, 31, 1);
}

TEST(SongPartials, ThatAreHarmonicsOfALowerNoteAreTold)
{
    MadeSong song(44100);
    song.addTone(0, 200.0, 0.2);
    song.addTone(0, 400.0, 0.1);
    song.addTone(0, 600.0, 0.1);
    song.addTone(0, 1000.0 * std::exp2(14.0 / 1200.0), 0.1); // the third of equal temperament
    for (const SteadyPartial &partial : songPartials(song.samples()).partials)
        EXPECT_EQ(partial.isHarmonic, std::abs(partial.hertz - 600.0F) < 2.0F) << partial.hertz;
}

TEST(SongPartials, AreComparedWithTheNearestNote)
{
    EXPECT_NEAR(centsFromNote(440.0), 0.0, 1.0e-9);
    EXPECT_NEAR(centsFromNote(440.0 * std::exp2(30.0 / 1200.0)), 30.0, 1.0e-6);
    EXPECT_NEAR(centsFromNote(220.0 * std::exp2(370.0 / 1200.0)), -30.0, 1.0e-6);
}

TEST(SongPartials, AreNoneIfTheWorkIsStopped)
{
    MadeSong song(4 * 44100);
    song.addTone(0, 440.0, 0.2);
    std::stop_source stop;
    EXPECT_FALSE(songPartials(song.samples(), stop.get_token()).partials.empty());
    stop.request_stop();
    EXPECT_TRUE(songPartials(song.samples(), stop.get_token()).partials.empty());
}

} // namespace
} // namespace lyrabox::test
