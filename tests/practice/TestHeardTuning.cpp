#include "practice/HeardTuning.h"

#include <gtest/gtest.h>

using namespace lyrabox;

namespace {

SongTuning steady(double cents)
{
    return {.cents = cents, .lowest = cents, .highest = cents};
}

TEST(HeardTuning, IsThatOfTheSongAtItsOwnPitch)
{
    const HeardTuning heard = heardTuning(steady(-23.4), 0.0, 440.0);
    EXPECT_NEAR(heard.cents, -23.4, 1e-9);
    EXPECT_EQ(heard.semitones, 0);
    EXPECT_FALSE(heard.drifts());
    EXPECT_NEAR(heard.hertz(heard.cents), 434.09, 0.01);
}

TEST(HeardTuning, MovesWithThePitchToTheNextSemitone)
{
    EXPECT_NEAR(heardTuning(steady(-23.0), 23.0, 440.0).cents, 0.0, 1e-9);
    const HeardTuning lower = heardTuning(steady(-23.0), -40.0, 440.0);
    EXPECT_NEAR(lower.cents, 37.0, 1e-9);
    EXPECT_EQ(lower.semitones, -1);
    const HeardTuning higher = heardTuning(steady(10.0), 340.0, 440.0);
    EXPECT_NEAR(higher.cents, -50.0, 1e-9) << "half way counts as the note above";
    EXPECT_EQ(higher.semitones, 4);
}

TEST(HeardTuning, IsMeasuredAgainstTheMusiciansA)
{
    const HeardTuning heard = heardTuning(steady(-23.4), 0.0, 442.0);
    EXPECT_NEAR(heard.cents, -31.25, 0.01);
    EXPECT_NEAR(heard.hertz(heard.cents), 434.09, 0.01) << "the song's A stays";
    EXPECT_EQ(heardTuning(steady(0.0), 0.0, 415.3).semitones, 1) << "a semitone above a low A";
}

TEST(HeardTuning, KeepsTheRangeOfASongThatDrifts)
{
    const HeardTuning heard =
        heardTuning({.cents = -20.0, .lowest = -31.0, .highest = -12.0}, -100.0, 440.0);
    EXPECT_TRUE(heard.drifts());
    EXPECT_NEAR(heard.cents, -20.0, 1e-9);
    EXPECT_NEAR(heard.lowest, -31.0, 1e-9);
    EXPECT_NEAR(heard.highest, -12.0, 1e-9);
    EXPECT_EQ(heard.semitones, -1);
}

TEST(HeardTuning, IsPutRightByTheNearestPitchInWholeCents)
{
    const auto wanted = [](double cents, double pitch) {
        return pitchInTune(heardTuning(steady(cents), pitch, 440.0), pitch);
    };
    EXPECT_EQ(wanted(-23.4, 0.0), 23);
    EXPECT_EQ(wanted(-23.4, 23.0), 23) << "in tune already";
    EXPECT_EQ(wanted(-23.4, 300.0), 323) << "the song stays transposed";
    EXPECT_EQ(wanted(40.0, -200.0), -240);
    EXPECT_EQ(wanted(-20.0, 2390.0), std::nullopt) << "beyond the pitch range";
    EXPECT_EQ(wanted(20.0, -2390.0), std::nullopt);
}

} // namespace
