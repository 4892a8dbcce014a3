#include "platform/audio/SoundRanges.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace lyrabox {
namespace {

TEST(SoundRanges, ClampedGivesTheNearestValueOfTheRange)
{
    EXPECT_EQ(speedRange.clamped(9.0F), 10.0F);
    EXPECT_EQ(speedRange.clamped(201.0F), 200.0F);
    EXPECT_EQ(speedRange.clamped(62.5F), 62.5F);
    EXPECT_EQ(speedRange.clamped(std::numeric_limits<float>::infinity()), 200.0F);
    EXPECT_TRUE(std::isnan(speedRange.clamped(std::numeric_limits<float>::quiet_NaN())));
}

TEST(SoundRanges, TheEqualizersControlsDriveEveryThirdBandFromTheThirdOn)
{
    EXPECT_EQ(equalizerBandOfControl(0), 2U);
    EXPECT_EQ(equalizerBandOfControl(1), 5U);
    EXPECT_EQ(equalizerBandOfControl(equalizerControls - 1), 29U);
}

} // namespace
} // namespace lyrabox
