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

} // namespace
} // namespace lyrabox::engine
