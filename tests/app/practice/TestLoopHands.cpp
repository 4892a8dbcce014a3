#include "app/practice/LoopHands.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::loopHands;

namespace {

constexpr double rate = 44100.0;

/// A song of a square wave: it crosses zero every 100 frames, and nowhere else.
class LoopHands : public testing::Test {
protected:
    LoopHands()
    {
        for (std::size_t frame = 0; frame < samples.size(); ++frame)
            samples[frame] = (frame / 100) % 2 == 0 ? 0.5F : -0.5F;
    }

    std::vector<float> samples = std::vector<float>(100'000);
    SongSamples song{samples, samples, rate};
};

TEST_F(LoopHands, TheEndsOfALoopAreTakenWithinFivePoints)
{
    EXPECT_EQ(gripAt({105.0, 50.0}, 100.0, 200.0, 20.0), Grip::Start);
    EXPECT_EQ(gripAt({95.0, 50.0}, 100.0, 200.0, 20.0), Grip::Start);
    EXPECT_EQ(gripAt({94.0, 50.0}, 100.0, 200.0, 20.0), Grip::Nothing);
    EXPECT_EQ(gripAt({204.0, 10.0}, 100.0, 200.0, 20.0), Grip::End);
}

TEST_F(LoopHands, OfTwoEndsTheNearerOneIsTaken)
{
    EXPECT_EQ(gripAt({101.0, 50.0}, 100.0, 103.0, 20.0), Grip::Start);
    EXPECT_EQ(gripAt({102.0, 50.0}, 100.0, 103.0, 20.0), Grip::End);
}

TEST_F(LoopHands, TheWholeLoopIsTakenAtItsBracketAlone)
{
    EXPECT_EQ(gripAt({150.0, 10.0}, 100.0, 200.0, 20.0), Grip::Whole);
    EXPECT_EQ(gripAt({150.0, 30.0}, 100.0, 200.0, 20.0), Grip::Nothing);
    EXPECT_EQ(gripAt({250.0, 10.0}, 100.0, 200.0, 20.0), Grip::Nothing);
}

TEST_F(LoopHands, ADragMakesALoopInBothDirections)
{
    EXPECT_EQ(dragged({.from = 1010.0}, 5020.0, 0, song), (LoopRange{1010, 5020}));
    EXPECT_EQ(dragged({.from = 5020.0}, 1010.0, 0, song), (LoopRange{1010, 5020}));
}

TEST_F(LoopHands, TheEndsOfANewLoopSnapToZeroCrossings)
{
    EXPECT_EQ(dragged({.from = 1010.0}, 5030.0, 40, song), (LoopRange{1000, 5000}));
}

TEST_F(LoopHands, AnAttackComesBeforeANearerZeroCrossing)
{
    // Silence, and a note at the frame 30,000.
    constexpr std::size_t note = 30'000;
    for (std::size_t frame = 0; frame < samples.size(); ++frame) {
        const double time = static_cast<double>(frame) / rate;
        samples[frame] =
            frame < note
                ? 0.0F
                : static_cast<float>(0.5 * std::sin(2.0 * 3.14159265358979 * 440.0 * time));
    }
    const auto loop = dragged({.from = 30'400.0}, 60'000.0, 1000, song);
    ASSERT_TRUE(loop.has_value());
    EXPECT_NEAR(static_cast<double>(loop->start), static_cast<double>(note), 0.003 * rate);
    const auto unsnapped = dragged({.from = 30'400.0}, 60'000.0, 0, song);
    EXPECT_EQ(unsnapped->start, 30'400U);
}

TEST_F(LoopHands, ALoopEndsWhereTheSongDoes)
{
    EXPECT_EQ(dragged({.from = -500.0}, 1e9, 0, song), (LoopRange{0, 100'000}));
}

TEST_F(LoopHands, ADragOfLessThanTenMillisecondsMakesNoLoop)
{
    EXPECT_FALSE(dragged({.from = 1000.0}, 1440.0, 0, song).has_value());
    EXPECT_TRUE(dragged({.from = 1000.0}, 1441.0, 0, song).has_value());
}

TEST_F(LoopHands, AnEndThatIsDraggedMovesAsFarAsThePointer)
{
    const Drag start{Grip::Start, 2003.0, {2000, 5000}};
    EXPECT_EQ(dragged(start, 1503.0, 0, song), (LoopRange{1500, 5000}));
    EXPECT_EQ(dragged(start, 1523.0, 30, song), (LoopRange{1500, 5000}));
    const Drag end{Grip::End, 5003.0, {2000, 5000}};
    EXPECT_EQ(dragged(end, 7003.0, 0, song), (LoopRange{2000, 7000}));
}

TEST_F(LoopHands, AnEndDoesNotPassTheOther)
{
    EXPECT_EQ(dragged({Grip::Start, 2000.0, {2000, 5000}}, 9000.0, 0, song),
              (LoopRange{5000 - 441, 5000}));
    EXPECT_EQ(dragged({Grip::End, 5000.0, {2000, 5000}}, 100.0, 0, song),
              (LoopRange{2000, 2000 + 441}));
}

TEST_F(LoopHands, AWholeLoopKeepsItsLengthAndItsStartSnaps)
{
    const Drag whole{Grip::Whole, 3000.0, {2000, 5050}};
    EXPECT_EQ(dragged(whole, 4010.0, 40, song), (LoopRange{3000, 6050}));
    EXPECT_EQ(dragged(whole, -9000.0, 0, song), (LoopRange{0, 3050}));
    EXPECT_EQ(dragged(whole, 1e9, 0, song), (LoopRange{100'000 - 3050, 100'000}));
}

TEST_F(LoopHands, AChangedEndIsHeardAtOnce)
{
    const LoopRange loop{44100, 441'000};
    EXPECT_EQ(playedFrom(Grip::Nothing, loop, rate), 44100U);
    EXPECT_EQ(playedFrom(Grip::Start, loop, rate), 44100U);
    EXPECT_EQ(playedFrom(Grip::Whole, loop, rate), 44100U);
    EXPECT_EQ(playedFrom(Grip::End, loop, rate), 441'000U - 66150U);
    EXPECT_EQ(playedFrom(Grip::End, {44100, 50'000}, rate), 44100U);
}

} // namespace
