// heardFrame() is the frame that sounds next, measured through the whole chain.

#include "sound/Player.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

/// Every frame differs from every other.
float noise(std::uint32_t channel, std::uint64_t frame)
{
    return noiseAt(static_cast<std::int64_t>(frame), channel, 0.5F);
}

/// One click a second in silence.
float clicks(std::uint32_t, std::uint64_t frame)
{
    return frame % 44100 < 8 ? 0.8F : 0.0F;
}

void expectNextToBeHeard(Player &player, std::uint64_t frame)
{
    const Stereo heard = player.pull(64, 64);
    for (std::size_t i = 0; i < heard.left.size(); ++i)
        ASSERT_EQ(heard.left[i], noise(0, frame + i)) << "frame " << frame << " + " << i;
}

TEST(HeardFrame, IsTheNextToSoundWhileASongPlays)
{
    Player player(noise, 441000);
    engine::seekToFrame(5000);
    EXPECT_EQ(engine::heardFrame(), 5000U);
    engine::setOutputRunning(true);
    player.pull(1000, 1000);
    for (const std::uint32_t callback : {64U, 100U, 128U, 441U, 1024U}) {
        player.pull(3 * std::size_t{callback}, callback);
        const std::uint64_t frame = engine::heardFrame();
        EXPECT_LT(frame, engine::currentFrame());
        expectNextToBeHeard(player, frame);
    }
}

TEST(HeardFrame, IsTracedBackAcrossALoopsJump)
{
    Player player(noise, 441000);
    engine::setLoopStartFrame(10000);
    engine::setLoopEndFrame(10000 + 640);
    engine::setIsLooping(true);
    engine::seekToFrame(9900);
    engine::setOutputRunning(true);
    player.pull(2000, 100);
    bool wasFollowed = false;
    for (int i = 0; i < 40; ++i) {
        const std::uint64_t frame = engine::heardFrame();
        wasFollowed = wasFollowed || frame > engine::currentFrame();
        const Stereo heard = player.pull(1, 1);
        ASSERT_EQ(heard.left[0], noise(0, frame)) << "frame " << frame;
        player.pull(37, 37);
    }
    EXPECT_TRUE(wasFollowed);
}

TEST(HeardFrame, IsTheTargetRightAfterASeekAndNeverBeforeIt)
{
    Player player(noise, 441000);
    player.output().deviceFrames = 1536;
    engine::setOutputRunning(true);
    player.pull(20000);
    engine::seekToFrame(300000);
    EXPECT_EQ(engine::heardFrame(), 300000U);
    std::uint64_t last = 300000;
    for (int i = 0; i < 60; ++i) {
        player.pull(128, 128);
        EXPECT_GE(engine::heardFrame(), last);
        last = engine::heardFrame();
    }
    // Once the device is full, the heard frame lags by the frames that it holds.
    EXPECT_EQ(last, 300000U + 60 * 128 - 1536);
}

TEST(HeardFrame, OfAPausedSongIsWhereItWillContinue)
{
    Player player(noise, 441000);
    player.output().deviceFrames = 1536;
    engine::setOutputRunning(true);
    player.pull(20000);
    engine::setOutputRunning(false);
    player.pull(4096);
    const std::uint64_t paused = engine::heardFrame();
    EXPECT_EQ(paused, engine::currentFrame());
    engine::setOutputRunning(true);
    player.pull(128, 128);
    EXPECT_EQ(engine::heardFrame(), paused);
}

TEST(HeardFrame, NeverLeavesTheSongAtItsEnd)
{
    Player player(noise, 44100);
    engine::setPlaybackRate(0.5F);
    engine::seekToFrame(30000);
    engine::setOutputRunning(true);
    std::uint64_t last = 30000;
    for (int i = 0; i < 500; ++i) {
        player.pull(128, 128);
        const std::uint64_t frame = engine::heardFrame();
        EXPECT_LE(frame, 44100U);
        EXPECT_GE(frame + 256, last); // by a hop at most
        last = frame;
    }
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_GE(last, 44100U - 2 * 128 - 256);
}

struct Stretch {
    float rate;
    float cents;
};

class HeardFrameStretched : public testing::TestWithParam<Stretch> {};

TEST_P(HeardFrameStretched, IsWithinTenMillisecondsOfTheClickThatSounds)
{
    Player player(clicks, 30 * 44100);
    engine::setPlaybackRate(GetParam().rate);
    engine::setPitchCents(GetParam().cents);
    engine::seekToFrame(20000);
    engine::setOutputRunning(true);
    int found = 0;
    float before = 0.0F;
    for (int i = 0; i < 9 * 44100 / 64; ++i) {
        const auto frame = static_cast<double>(engine::heardFrame());
        const Stereo heard = player.pull(64, 64);
        const float peak =
            std::abs(*std::max_element(heard.left.begin(), heard.left.end(),
                                       [](float a, float b) { return std::abs(a) < std::abs(b); }));
        if (peak > 0.25F && before <= 0.25F) {
            const double nearest = std::round(frame / 44100.0) * 44100.0;
            EXPECT_NEAR(frame, nearest, 441.0);
            ++found;
        }
        before = peak;
    }
    EXPECT_GE(found, static_cast<int>(8 * GetParam().rate));
}

INSTANTIATE_TEST_SUITE_P(Speeds, HeardFrameStretched,
                         testing::Values(Stretch{0.5F, 0.0F}, Stretch{0.8F, -300.0F},
                                         Stretch{1.0F, 700.0F}, Stretch{1.5F, 0.0F}),
                         [](const auto &test) {
                             return "At" + std::to_string(static_cast<int>(test.param.rate * 100)) +
                                    "Percent";
                         });

} // namespace
