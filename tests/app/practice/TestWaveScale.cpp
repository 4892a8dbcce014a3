#include "app/practice/WaveScale.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace lyrabox;

namespace {

constexpr std::uint64_t minute = 60 * 44100;

TEST(WaveScale, FramesAndPlacesAreEachOthersOpposite)
{
    const WaveScale scale{1000.0, 20.0};
    EXPECT_DOUBLE_EQ(scale.frameAt(0.0), 1000.0);
    EXPECT_DOUBLE_EQ(scale.frameAt(5.0), 1100.0);
    EXPECT_DOUBLE_EQ(scale.xOf(1100.0), 5.0);
}

TEST(WaveScale, TheWholeSongReachesFromEdgeToEdge)
{
    const WaveScale whole = WaveArea(minute, 1000.0).wholeSong();
    EXPECT_DOUBLE_EQ(whole.xOf(0.0), 0.0);
    EXPECT_DOUBLE_EQ(whole.xOf(minute), 1000.0);
}

TEST(WaveScale, AWaveThatFollowsHasItsLineInOnePlace)
{
    const WaveArea area(minute, 1000.0);
    for (const double frame : {0.0, 44100.0, 1e6, static_cast<double>(minute)})
        EXPECT_NEAR(area.following({0.0, 500.0}, frame).xOf(frame), 380.0, 1e-6) << frame;
}

TEST(WaveScale, AWholeSongDoesNotMoveWhileItFollows)
{
    const WaveArea area(minute, 1000.0);
    EXPECT_EQ(area.following(area.wholeSong(), 1e6), area.wholeSong());
}

TEST(WaveScale, ZoomingKeepsTheFrameUnderThePointer)
{
    const WaveArea area(minute, 1000.0);
    const WaveScale before{1e6, 400.0};
    for (const double factor : {0.5, 0.8, 1.25, 2.0}) {
        const WaveScale after = area.zoomed(before, factor, 700.0);
        EXPECT_DOUBLE_EQ(after.framesPerPoint, 400.0 * factor);
        EXPECT_NEAR(after.frameAt(700.0), before.frameAt(700.0), 1e-6);
    }
}

TEST(WaveScale, ZoomingEndsAtTheWholeSongAndAtFourPointsAFrame)
{
    const WaveArea area(minute, 1000.0);
    EXPECT_EQ(area.zoomed({1e6, 400.0}, 1000.0, 700.0), area.wholeSong());
    EXPECT_DOUBLE_EQ(area.zoomed({1e6, 1.0}, 1e-6, 0.0).framesPerPoint, 0.25);
}

TEST(WaveScale, ScrollingStopsWhereAnEndOfTheSongIsUnderTheLine)
{
    const WaveArea area(minute, 1000.0);
    EXPECT_DOUBLE_EQ(area.scrolled({0.0, 100.0}, -1e6).xOf(0.0), 380.0);
    EXPECT_DOUBLE_EQ(area.scrolled({0.0, 100.0}, 1e9).xOf(minute), 380.0);
    EXPECT_DOUBLE_EQ(area.scrolled({0.0, 100.0}, 30.0).first, 3000.0);
}

TEST(WaveScale, ALoopIsShownWithRoomOnBothSides)
{
    const LoopRange loop{500'000, 600'000};
    const WaveScale scale = WaveArea(minute, 1000.0).loop(loop);
    EXPECT_NEAR(scale.xOf(500'000.0), 80.0, 1e-6);
    EXPECT_NEAR(scale.xOf(600'000.0), 920.0, 1e-6);
}

TEST(WaveScale, ASongThatIsShorterThanTheViewIsShownWhole)
{
    const WaveArea area(44100, 1000.0);
    EXPECT_EQ(area.seconds(16.0, 44100.0, 0.0), area.wholeSong());
}

TEST(WaveScale, AnEmptySongAndAnEmptyViewHaveAScale)
{
    for (const WaveArea &area : {WaveArea(0, 1000.0), WaveArea(minute, 0.0), WaveArea(0, 0.0)}) {
        for (const WaveScale &scale : {area.wholeSong(), area.seconds(16.0, 44100.0, 0.0),
                                       area.loop({0, 0}), area.scrolled(area.wholeSong(), 10.0)}) {
            EXPECT_GT(scale.framesPerPoint, 0.0);
            EXPECT_TRUE(std::isfinite(scale.first));
        }
    }
}

} // namespace
