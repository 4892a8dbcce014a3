// The metronome through the whole chain, against the attacks of a song with a true grid.

#include "engine/ClicksAndLeadIns.h"
#include "sound/ClickSignals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

constexpr double msPerFrame = 1000.0 / 44100.0;
constexpr double edge = 2000.0; ///< clicks nearer to the ends are not measured

struct Speed {
    float rate;
    float cents;
    double mean;  ///< goal in ms
    double worst; ///< goal in ms
};

void PrintTo(const Speed &speed, std::ostream *stream)
{
    *stream << speed.rate * 100.0F << " %, " << speed.cents << " cents";
}

class ClickTiming : public testing::TestWithParam<Speed> {};

TEST_P(ClickTiming, MeetsTheSongsAttacks)
{
    const Speed speed = GetParam();
    const Stereo heard = heardWithClicks([speed](Player &player, Stereo &all) {
        engine::setPlaybackRate(speed.rate);
        engine::setPitchCents(speed.cents);
        engine::seekToFrame(0);
        engine::setOutputRunning(true);
        player.pull(all, std::size_t{15} * 44100);
    });
    double sum = 0.0;
    double worst = 0.0;
    int count = 0;
    for (const double click : clicksIn(heard.right)) {
        if (click < edge || click + edge > static_cast<double>(heard.size()))
            continue;
        const double late = std::abs(lateness(heard, click, speed.rate)) * msPerFrame;
        sum += late;
        worst = std::max(worst, late);
        ++count;
    }
    std::printf("[ measured ] click at %3.0f %%, %4.0f cents: mean %.2f ms, worst %.2f ms\n",
                static_cast<double>(speed.rate) * 100.0, static_cast<double>(speed.cents),
                sum / count, worst);
    EXPECT_GE(count, static_cast<int>(54.0F * speed.rate));
    EXPECT_LE(sum / count, speed.mean);
    EXPECT_LE(worst, speed.worst);
}

INSTANTIATE_TEST_SUITE_P(Speeds, ClickTiming,
                         testing::Values(Speed{0.5F, 0.0F, 1.5, 3.0}, Speed{0.6F, 0.0F, 1.5, 3.0},
                                         Speed{0.75F, 0.0F, 1.5, 3.0}, Speed{0.9F, 0.0F, 1.5, 3.0},
                                         Speed{1.0F, 0.0F, 0.1, 0.1}, Speed{1.1F, 0.0F, 1.5, 3.0},
                                         Speed{1.5F, 0.0F, 1.5, 3.0}, Speed{2.0F, 0.0F, 1.5, 3.0},
                                         Speed{0.75F, 300.0F, 1.5, 3.0},
                                         Speed{1.0F, -500.0F, 1.5, 3.0},
                                         Speed{1.5F, 200.0F, 1.5, 3.0},
                                         Speed{0.5F, -200.0F, 1.5, 3.0},
                                         Speed{0.25F, 0.0F, 15.0, 15.0}));

TEST(ClickAtAChangeOfSpeed, IsWithinEightMillisecondsOfTheAttack)
{
    constexpr std::array<float, 10> rates{1.0F, 0.5F, 0.75F, 1.0F, 1.25F,
                                          0.6F, 2.0F, 1.0F,  0.9F, 0.5F};
    constexpr std::size_t block = 30011; // so that the changes meet every place between two beats
    const Stereo heard = heardWithClicks([&](Player &player, Stereo &all) {
        engine::setOutputRunning(true);
        for (const float rate : rates) {
            engine::setPlaybackRate(rate);
            player.pull(all, block);
        }
    });
    double worst = 0.0;
    int soon = 0;
    for (const double click : clicksIn(heard.right)) {
        if (click < edge || click + edge > static_cast<double>(heard.size()))
            continue;
        const auto index = static_cast<std::size_t>(click) / block;
        worst = std::max(worst, std::abs(lateness(heard, click, rates[index])) * msPerFrame);
        soon += std::fmod(click, static_cast<double>(block)) < 0.2 * 44100.0 ? 1 : 0;
    }
    std::printf("[ measured ] click at changes of speed: worst %.2f ms, %d within 0.2 s\n", worst,
                soon);
    EXPECT_GE(soon, 5);
    EXPECT_LE(worst, 8.0);
}

TEST(ClickOff, LeavesEverySampleAsWithoutAMetronome)
{
    std::vector<Stereo> heard;
    for (const auto metronome : {Player::Metronome::Missing, Player::Metronome::Part}) {
        Player player(
            [](std::uint32_t channel, std::uint64_t frame) {
                return noiseAt(static_cast<std::int64_t>(frame), channel, 0.5F);
            },
            200'000, metronome);
        heard.emplace_back();
        engine::setLoopStartFrame(40'001);
        engine::setLoopEndFrame(52'000);
        engine::setIsLooping(true);
        engine::setOutputRunning(true);
        for (const float rate : {1.0F, 0.7F, 1.0F, 1.6F}) {
            engine::setPlaybackRate(rate);
            engine::setClickSound({.loudness = 1.0F}); // which is not heard
            player.pull(heard.back(), 60'000, 441);
            engine::seekToFrame(39'000);
            engine::setOutputRunning(false);
            player.pull(heard.back(), 1000);
            engine::setOutputRunning(true);
        }
        engine::setIsLooping(false); // to the end of the song
        player.pull(heard.back(), 150'000);
        EXPECT_TRUE(engine::trackHasEnded());
    }
    EXPECT_EQ(heard[0].left, heard[1].left);
    EXPECT_EQ(heard[0].right, heard[1].right);
}

TEST(ClickSwitchedOff, LeavesTheSoundUnchangedAfterItsLastClick)
{
    const Stereo heard = heardWithClicks([](Player &player, Stereo &all) {
        engine::setPlaybackRate(0.8F);
        engine::setOutputRunning(true);
        player.pull(all, 60'000);
        engine::setClicks(nullptr);
        player.pull(all, 60'000);
    });
    const std::vector<double> found = clicksIn(heard.right);
    ASSERT_GE(found.size(), 3U);
    EXPECT_LT(found.back(), 60'000.0);
}

} // namespace
