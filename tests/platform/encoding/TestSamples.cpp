#include "platform/encoding/Samples.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lyrabox::encoding {

TEST(Dithering, LeavesMeanAndPowerOfTheErrorIndependentOfTheSample)
{
    constexpr int count = 200'000;
    for (const double place : {0.1, 0.25, 0.5, 0.8}) { // between two 16-bit values
        Dither dither;
        const double wanted = 100.0 + place;
        double mean = 0.0;
        double power = 0.0;
        for (int i = 0; i < count; ++i) {
            const double error = toInt16(static_cast<float>(wanted / 32768.0), dither) - wanted;
            mean += error / count;
            power += error * error / count;
        }
        EXPECT_NEAR(mean, 0.0, 0.01) << place;
        EXPECT_NEAR(power, 0.25, 0.01) << place; // 1/12 of the rounding, 1/6 of the noise
    }
}

TEST(Dithering, LeavesSilenceAnd16BitSamplesAlone)
{
    Dither dither;
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(toInt16(0.0F, dither), 0);
    for (int value = -32768; value <= 32767; ++value)
        ASSERT_EQ(toInt16(static_cast<float>(value) / 32768.0F, dither), value);
}

TEST(IntegerSamples, AreClippedAtFullScale)
{
    Dither dither;
    EXPECT_EQ(toInt16(1.5F, dither), 32767);
    EXPECT_EQ(toInt16(-1.5F, dither), -32768);
    EXPECT_EQ(toInt16(1.0F, dither), 32767);
    EXPECT_EQ(toInt24(1.0F), 8388607 * 256);
    EXPECT_EQ(toInt24(-3.0F), -8388608 * 256);
    EXPECT_EQ(toInt24(1e30F), 8388607 * 256);
}

TEST(IntegerSamples, Of24BitsAreTheNearestOnes)
{
    EXPECT_EQ(toInt24(0.0F), 0);
    EXPECT_EQ(toInt24(1.4F / 8388608.0F), 256);
    EXPECT_EQ(toInt24(-1.6F / 8388608.0F), -2 * 256);
}

} // namespace lyrabox::encoding
