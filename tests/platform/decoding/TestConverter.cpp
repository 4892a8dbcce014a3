#include "platform/decoding/Converter.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace lyrabox;
using namespace lyrabox::decoding;

TEST(Converter, GivesMonoToBothSidesAtFullLevel)
{
    EXPECT_EQ(alternatingMatrix(1, 2), (std::vector<double>{1.0, 1.0}));
}

TEST(Converter, MixesMonoAsTheMeanOfAllChannels)
{
    EXPECT_EQ(alternatingMatrix(1, 1), (std::vector<double>{1.0}));
    EXPECT_EQ(alternatingMatrix(2, 1), (std::vector<double>{0.5, 0.5}));
    EXPECT_EQ(alternatingMatrix(4, 1), (std::vector<double>{0.25, 0.25, 0.25, 0.25}));
}

TEST(Converter, AlternatesUnknownChannelsBetweenLeftAndRight)
{
    EXPECT_EQ(alternatingMatrix(4, 2),
              (std::vector<double>{0.5, 0.0, 0.5, 0.0, 0.0, 0.5, 0.0, 0.5}));
    for (int channels = 1; channels <= 64; ++channels) {
        const auto gains = alternatingMatrix(channels, 2);
        const auto half = gains.begin() + channels;
        EXPECT_NEAR(std::accumulate(gains.begin(), half, 0.0), 1.0, 1e-12) << channels;
        EXPECT_NEAR(std::accumulate(half, gains.end(), 0.0), 1.0, 1e-12) << channels;
    }
}
