#include "platform/audio/TimePitchResampler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace lyrabox {
namespace {

constexpr double tau = 2.0 * std::numbers::pi;

float tone(double hertz, double frame)
{
    return static_cast<float>(0.5 * std::sin(tau * hertz / 44100.0 * frame));
}

class TimePitchResamplerTest : public testing::Test {
protected:
    TimePitchResamplerTest() { resampler.allocate(); }

    /// Feeds the tone whenever there is no output, and records the position of each frame.
    void play(std::size_t frames)
    {
        for (std::size_t i = 0; i < frames; ++i) {
            while (!resampler.isAvailable()) {
                std::vector<float> left(200);
                std::vector<float> right(200);
                for (std::size_t j = 0; j < left.size(); ++j) {
                    const double frame =
                        static_cast<double>(resampler.written()) + static_cast<double>(j);
                    left[j] = tone(hertz, frame);
                    right[j] = -0.5F * left[j];
                }
                resampler.write(left.data(), right.data(), 200);
            }
            const double place = resampler.position();
            float left = 0.0F;
            float right = 0.0F;
            ASSERT_EQ(resampler.read(&left, &right, 1), 1U);
            places.push_back(place);
            heard.push_back(left);
            other.push_back(right);
        }
    }

    /// The largest difference, from `first` on, between the output and the tone at its position.
    double worst(std::size_t first) const
    {
        double most = 0.0;
        for (std::size_t i = first; i < heard.size(); ++i)
            most = std::max(most, std::abs(static_cast<double>(heard[i] - tone(hertz, places[i]))));
        return most;
    }

    TimePitchResampler resampler;
    double hertz = 1000.0;
    std::vector<double> places;
    std::vector<float> heard;
    std::vector<float> other;
};

TEST_F(TimePitchResamplerTest, PassesItsInputBitForBitAtAPitchOfOne)
{
    play(5000);
    for (std::size_t i = 0; i < heard.size(); ++i) {
        ASSERT_EQ(heard[i], tone(hertz, static_cast<double>(i)));
        ASSERT_EQ(other[i], -0.5F * heard[i]);
    }
}

TEST_F(TimePitchResamplerTest, GivesTheToneAtItsReportedPositionAtAnyPitch)
{
    for (const double pitch : {0.25, 0.5, 0.917, 1.0595, 2.0, 4.0}) {
        for (const double tested : {200.0, 1000.0, 4000.0}) {
            resampler.setPitch(pitch);
            resampler.reset();
            places.clear();
            heard.clear();
            hertz = tested;
            play(3000);
            EXPECT_NEAR(places[2000], 2000.0 * pitch, 1e-6);
            EXPECT_LT(worst(600), 0.5 * 2e-4) << pitch << ' ' << tested; // -74 dB
        }
    }
}

TEST_F(TimePitchResamplerTest, RemovesFrequenciesThatWouldAlias)
{
    hertz = 15000.0; // an octave up it is 30 kHz and would alias to 14.1 kHz
    resampler.setPitch(2.0);
    resampler.reset();
    play(3000);
    for (std::size_t i = 200; i < heard.size(); ++i)
        ASSERT_LT(std::abs(heard[i]), 0.5F * 2e-4F);
}

TEST_F(TimePitchResamplerTest, ReachesAWholeFrameSoonAfterReturningToAPitchOfOne)
{
    play(100);
    resampler.setPitch(1.3371);
    play(1777);
    resampler.setPitch(1.0);
    play(TimePitchResampler::slideFrames + TimePitchResampler::glideFrames);
    play(1000);
    const std::size_t settled = heard.size() - 1000;
    EXPECT_EQ(places[settled], std::floor(places[settled]));
    for (std::size_t i = settled; i < heard.size(); ++i)
        ASSERT_EQ(heard[i], tone(hertz, places[i]));
}

TEST_F(TimePitchResamplerTest, SlidesFromOnePitchToAnother)
{
    play(1000);
    resampler.setPitch(1.5);
    play(2000);
    resampler.setPitch(0.6);
    play(2000);
    for (std::size_t i = 2; i < places.size(); ++i) {
        const double change = places[i] - 2.0 * places[i - 1] + places[i - 2];
        ASSERT_LT(std::abs(change), 1.0 / TimePitchResampler::slideFrames) << i;
    }
    EXPECT_LT(worst(600), 0.5 * 2e-4);
    EXPECT_NEAR(places.back() - places[places.size() - 2], 0.6, 1e-9);
}

TEST_F(TimePitchResamplerTest, DropsTheSignalOnReset)
{
    resampler.setPitch(1.2);
    play(3000);
    resampler.reset();
    EXPECT_EQ(resampler.position(), 0.0);
    EXPECT_EQ(resampler.written(), 0);
    EXPECT_FALSE(resampler.isAvailable());
    const std::vector<float> silence(200, 0.0F);
    resampler.write(silence.data(), silence.data(), 200);
    std::vector<float> left(100, 1.0F);
    std::vector<float> right(100, 1.0F);
    const std::uint32_t count = resampler.read(left.data(), right.data(), 100);
    EXPECT_GT(count, 50U);
    for (std::uint32_t i = 0; i < count; ++i)
        EXPECT_EQ(left[i], 0.0F);
}

} // namespace
} // namespace lyrabox
