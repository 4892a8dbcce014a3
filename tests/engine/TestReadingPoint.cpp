#include "engine/ReadingPoint.h"

#include <gtest/gtest.h>

namespace lyrabox::engine {
namespace {

TEST(ReadingPoint, WithoutAJumpThePositionIsTheDifference)
{
    const ReadingPoint point{.frame = 5000};
    EXPECT_EQ(point.positionBefore(0), 5000U);
    EXPECT_EQ(point.positionBefore(1200), 3800U);
    EXPECT_EQ(point.positionBefore(6000), 0U);
}

TEST(ReadingPoint, BeforeAJumpThePositionIsAtTheLoopsEnd)
{
    ReadingPoint point;
    point.jump(9000, 1000);
    point.frame = 1300;
    point.framesSinceJump = 300;
    EXPECT_EQ(point.positionBefore(300), 1000U);
    EXPECT_EQ(point.positionBefore(301), 8999U);
    EXPECT_EQ(point.positionBefore(700), 8600U);
}

TEST(ReadingPoint, AShortLoopIsTracedThroughItsRounds)
{
    ReadingPoint point;
    for (int i = 0; i < 3; ++i)
        point.jump(1256, 1000);
    point.frame = 1128;
    point.framesSinceJump = 128;
    EXPECT_EQ(point.positionBefore(128 + 256), 1000U);
    EXPECT_EQ(point.positionBefore(128 + 257), 1255U);
    EXPECT_EQ(point.positionBefore(128 + 512), 1000U);
    // The first round came from before the loop.
    EXPECT_EQ(point.positionBefore(128 + 512 + 256 + 100), 900U);
}

TEST(ReadingPoint, AForwardJumpAndAnEmptyRoundAreTracedBackToTheirStart)
{
    ReadingPoint point;
    point.jump(500, 4000);
    point.frame = 4128;
    point.framesSinceJump = 128;
    EXPECT_EQ(point.positionBefore(228), 400U);
    point.jump(4000, 4000);
    point.jump(4000, 4000);
    EXPECT_EQ(point.positionBefore(10), 3990U);
}

TEST(ReadingPoint, StandsStillInTheSilenceAfterAJump)
{
    ReadingPoint point;
    for (int i = 0; i < 3; ++i)
        point.jump(1256, 1000, 500);
    point.advance(1000, 200, 0); // in the silence
    EXPECT_EQ(point.positionBefore(200), 1000U);
    EXPECT_EQ(point.positionBefore(201), 1255U);
    point.advance(1128, 300, 128);
    EXPECT_EQ(point.positionBefore(100), 1028U);
    EXPECT_EQ(point.positionBefore(128 + 500), 1000U);
    EXPECT_EQ(point.positionBefore(128 + 500 + 1), 1255U);
    EXPECT_EQ(point.positionBefore(128 + 500 + 256), 1000U);
    EXPECT_EQ(point.positionBefore(128 + 500 + 256 + 500), 1000U);
    EXPECT_EQ(point.positionBefore(128 + 500 + 256 + 501), 1255U);
    EXPECT_EQ(point.positionBefore(128 + 3 * 500 + 2 * 256 + 10), 1246U);
}

TEST(ReadingPoint, CountsTheJumpsWithinADistance)
{
    ReadingPoint point;
    EXPECT_EQ(point.jumpsWithin(1'000'000), 0U);
    for (int i = 0; i < 3; ++i)
        point.jump(1256, 1000, 500);
    point.advance(1128, 500, 128);
    EXPECT_EQ(point.jumpsWithin(628), 0U);
    EXPECT_EQ(point.jumpsWithin(629), 1U);
    EXPECT_EQ(point.jumpsWithin(628 + 756), 1U);
    EXPECT_EQ(point.jumpsWithin(628 + 757), 2U);
    EXPECT_EQ(point.jumpsWithin(1'000'000), 3U);
}

TEST(ReadingPoint, KeepsThePassesAtASeek)
{
    ReadingPoint point{.frame = 5, .jumps = 4, .passes = 7};
    point.passedLoop = {.start = 1, .end = 2};
    point.seek(500, 3);
    EXPECT_EQ(point.frame, 500U);
    EXPECT_EQ(point.seekCount, 3U);
    EXPECT_EQ(point.jumps, 0U);
    EXPECT_EQ(point.passes, 7U);
    EXPECT_EQ(point.passedLoop.end, 2U);
}

} // namespace
} // namespace lyrabox::engine
