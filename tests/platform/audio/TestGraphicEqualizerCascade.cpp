#include "platform/audio/GraphicEqualizerCascade.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace lyrabox;

namespace {

constexpr std::uint32_t rampFrames = GraphicEqualizerCascade::rampFrames;

equalizer::Coefficients plainGain(double factor)
{
    equalizer::Coefficients coefficients = equalizer::solve({});
    coefficients.gain = factor;
    return coefficients;
}

// The left channel for a constant input.
std::vector<float> constant(GraphicEqualizerCascade &cascade, std::uint32_t frames,
                            float level = 1.0F)
{
    std::vector<float> left(frames, level);
    std::vector<float> right(frames, level);
    cascade.process(left.data(), right.data(), frames);
    return left;
}

TEST(GraphicEqualizerCascade, IsAWireBeforeTheFirstRamp)
{
    GraphicEqualizerCascade cascade;
    for (const float sample : constant(cascade, 100, 0.3F))
        EXPECT_EQ(sample, 0.3F);
}

TEST(GraphicEqualizerCascade, ARampTakesTwentyMillisecondsAndNeverTurnsBack)
{
    GraphicEqualizerCascade cascade;
    cascade.rampTo(plainGain(3.0));
    const std::vector<float> heard = constant(cascade, rampFrames + 1);
    EXPECT_NEAR(heard.front(), 1.0F, 1e-4);
    EXPECT_NEAR(heard[rampFrames / 2], 2.0F, 0.01);
    EXPECT_LT(heard[rampFrames - 10], 3.0F);
    EXPECT_EQ(heard[rampFrames], 3.0F);
    for (std::size_t i = 1; i < heard.size(); ++i)
        EXPECT_GE(heard[i], heard[i - 1]);
}

TEST(GraphicEqualizerCascade, ANewRampStartsAtTheOldRampsPositionAndSpeed)
{
    GraphicEqualizerCascade cascade;
    cascade.rampTo(plainGain(3.0));
    const std::vector<float> before = constant(cascade, rampFrames / 2);
    cascade.rampTo(plainGain(0.5));
    const std::vector<float> after = constant(cascade, rampFrames + 1);
    const float speedBefore = before.back() - before[before.size() - 2];
    EXPECT_NEAR(after[0] - before.back(), speedBefore, speedBefore * 0.05F);
    EXPECT_EQ(after[rampFrames], 0.5F);
}

TEST(GraphicEqualizerCascade, ClearMovesARampToItsTarget)
{
    GraphicEqualizerCascade cascade;
    cascade.rampTo(plainGain(3.0));
    constant(cascade, 10);
    cascade.clear();
    EXPECT_EQ(constant(cascade, 1).front(), 3.0F);
}

TEST(GraphicEqualizerCascade, ClearDropsTheSignal)
{
    equalizer::Levels levels{};
    levels[5] = 12.0F;
    GraphicEqualizerCascade cascade;
    cascade.rampTo(equalizer::solve(levels));
    constant(cascade, 2000);
    EXPECT_NE(constant(cascade, 1, 0.0F).front(), 0.0F);
    cascade.clear();
    for (const float sample : constant(cascade, 100, 0.0F))
        EXPECT_EQ(sample, 0.0F);
}

TEST(GraphicEqualizerCascade, SamplesThatAreNotFiniteCountAsSilence)
{
    equalizer::Levels levels{};
    levels[5] = 12.0F;
    GraphicEqualizerCascade cascade;
    cascade.rampTo(equalizer::solve(levels));
    const float infinity = std::numeric_limits<float>::infinity();
    std::vector<float> left = {0.5F, std::nanf(""), infinity, -infinity, 0.5F};
    std::vector<float> right = left;
    left.resize(3000);
    right.resize(3000);
    cascade.process(left.data(), right.data(), 3000);
    for (const float sample : left)
        EXPECT_TRUE(std::isfinite(sample));
}

TEST(GraphicEqualizerCascade, ClampsSamplesBeyondTheRangeOfAFloat)
{
    GraphicEqualizerCascade cascade;
    cascade.rampTo(plainGain(4.0));
    cascade.clear();
    constexpr float largest = std::numeric_limits<float>::max();
    EXPECT_EQ(constant(cascade, 1, largest).front(), largest);
    EXPECT_EQ(constant(cascade, 1, -largest).front(), -largest);
}

} // namespace
