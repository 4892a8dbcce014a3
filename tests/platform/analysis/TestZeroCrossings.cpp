#include "platform/analysis/ZeroCrossings.h"

#include "platform/analysis/MadeSong.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace lyrabox;
using test::MadeSong;

namespace {

constexpr std::size_t length = 1000;

/// A song whose channels are far from zero everywhere.
MadeSong farFromZero()
{
    MadeSong song(length);
    std::fill(song.left.begin(), song.left.end(), 0.5F);
    std::fill(song.right.begin(), song.right.end(), -0.5F);
    return song;
}

/// Changes the sign of a channel from `place` on.
void crossAt(std::vector<float> &channel, std::size_t place)
{
    std::transform(channel.begin() + static_cast<std::ptrdiff_t>(place), channel.end(),
                   channel.begin() + static_cast<std::ptrdiff_t>(place), std::negate<>());
}

} // namespace

TEST(ZeroCrossings, ThePlaceIsBetweenTwoSamplesOfDifferentSign)
{
    MadeSong song = farFromZero();
    crossAt(song.left, 503);
    crossAt(song.right, 503);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 500, 100), 503U);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 503, 100), 503U);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 520, 100), 503U);
}

TEST(ZeroCrossings, BothChannelsMustCross)
{
    MadeSong song = farFromZero();
    crossAt(song.left, 499);
    crossAt(song.left, 540);
    crossAt(song.right, 540);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 500, 100), 540U);
}

TEST(ZeroCrossings, TheNearestWinsAndOfTwoTheEarlierOne)
{
    MadeSong song = farFromZero();
    for (const std::size_t place : {450, 490, 510, 520}) {
        crossAt(song.left, place);
        crossAt(song.right, place);
    }
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 500, 100), 490U);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 501, 100), 510U);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 460, 100), 450U);
}

TEST(ZeroCrossings, ASampleOfZeroIsACrossingOnBothOfItsSides)
{
    MadeSong song = farFromZero();
    song.left[600] = song.right[600] = 0.0F;
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 590, 50), 600U);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 610, 50), 601U);
}

TEST(ZeroCrossings, InSilenceThePlaceStays)
{
    EXPECT_EQ(nearestZeroCrossing(MadeSong(length).samples(), 321, 100), 321U);
}

TEST(ZeroCrossings, WithoutACrossingInTheRangeTheQuietestPlaceIsTaken)
{
    MadeSong song = farFromZero();
    crossAt(song.left, 601);
    crossAt(song.right, 601); // just out of range
    for (std::size_t i = 540; i < 544; ++i)
        song.right[i] = -0.1F;
    song.left[542] = 0.1F;
    song.left[543] = 0.2F;
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 500, 100), 543U); // 0.1 + 0.1 + 0.2 + 0.1
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 500, 101), 601U);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 500, 42), 542U);
}

TEST(ZeroCrossings, WhereAllPlacesAreEqualThePlaceStays)
{
    EXPECT_EQ(nearestZeroCrossing(farFromZero().samples(), 500, 100), 500U);
    EXPECT_EQ(nearestZeroCrossing(farFromZero().samples(), 500, 0), 500U);
}

TEST(ZeroCrossings, TheEndsOfTheSongAreCrossings)
{
    const MadeSong song = farFromZero();
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 20, 100), 0U);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), length - 20, 100), length);
    EXPECT_EQ(nearestZeroCrossing(song.samples(), length + 5000, 100), length);
    EXPECT_EQ(nearestZeroCrossing(MadeSong(0).samples(), 7, 100), 0U);
}

TEST(ZeroCrossings, DamagedSamplesCountAsZero)
{
    MadeSong song = farFromZero();
    song.left[510] = NAN;
    song.right[510] = INFINITY;
    EXPECT_EQ(nearestZeroCrossing(song.samples(), 500, 100), 510U);
}

TEST(ZeroCrossings, TheResultIsTheSameAsByTryingEveryPlace)
{
    std::mt19937 random(5);
    for (int run = 0; run < 300; ++run) {
        MadeSong song(200);
        song.addNoise(0.2, static_cast<unsigned>(run));
        for (float &sample : song.right)
            sample += 0.25F; // it seldom crosses
        const auto sampleAt = [](const std::vector<float> &channel, std::int64_t i) {
            return i >= 0 && i < 200 ? channel[static_cast<std::size_t>(i)] : 0.0F;
        };
        const auto frame = static_cast<std::int64_t>(random() % 201);
        const auto range = static_cast<std::int64_t>(random() % 30);
        std::int64_t best = frame;
        auto rank = std::tuple(true, 1e9F, range + 1);
        for (std::int64_t place = std::max<std::int64_t>(0, frame - range);
             place <= std::min<std::int64_t>(200, frame + range); ++place) {
            bool crosses = true;
            float sum = 0.0F;
            for (const auto *channel : {&song.left, &song.right}) {
                const float before = sampleAt(*channel, place - 1);
                const float behind = sampleAt(*channel, place);
                crosses = crosses && before * behind <= 0.0F;
                sum += std::abs(before) + std::abs(behind);
            }
            const auto placeRank =
                std::tuple(!crosses, crosses ? 0.0F : sum, std::abs(place - frame));
            if (placeRank < rank) {
                rank = placeRank;
                best = place;
            }
        }
        EXPECT_EQ(nearestZeroCrossing(song.samples(), static_cast<std::uint64_t>(frame),
                                      static_cast<std::uint64_t>(range)),
                  static_cast<std::uint64_t>(best));
    }
}
