#include "platform/audio/TimePitchRatio.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace lyrabox {
namespace {

TEST(TimePitchRatio, IsOneForNoShift)
{
    EXPECT_EQ(pitchRatioForCents(0.0), (PitchRatio{1, 1}));
}

TEST(TimePitchRatio, IsExactForOctaves)
{
    EXPECT_EQ(pitchRatioForCents(1200.0), (PitchRatio{2, 1}));
    EXPECT_EQ(pitchRatioForCents(-1200.0), (PitchRatio{1, 2}));
    EXPECT_EQ(pitchRatioForCents(2400.0), (PitchRatio{4, 1}));
    EXPECT_EQ(pitchRatioForCents(-2400.0), (PitchRatio{1, 4}));
}

TEST(TimePitchRatio, StaysCloseToEveryCentWithShortParts)
{
    double worst = 0.0;
    for (int cents = -2400; cents <= 2400; ++cents) {
        const PitchRatio ratio = pitchRatioForCents(cents);
        ASSERT_GE(ratio.numerator, 1U) << cents;
        ASSERT_GE(ratio.denominator, 1U) << cents;
        ASSERT_LE(std::max(ratio.numerator, ratio.denominator), maximumPitchRatioPart) << cents;
        worst = std::max(worst, std::abs(1200.0 * std::log2(ratio.value()) - cents));
    }
    EXPECT_LE(worst, 0.05);
}

TEST(TimePitchRatio, KeepsToTwoOctaves)
{
    EXPECT_EQ(pitchRatioForCents(5000.0), (PitchRatio{4, 1}));
    EXPECT_EQ(pitchRatioForCents(-5000.0), (PitchRatio{1, 4}));
}

} // namespace
} // namespace lyrabox
