// The sound of a song's end and of the next song.

#include "sound/Player.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

struct Setting {
    float rate;
    float cents;
};

void PrintTo(const Setting &setting, std::ostream *stream)
{
    *stream << setting.rate << ", " << setting.cents << " cents";
}

class SongEnd : public testing::TestWithParam<Setting> {
protected:
    static constexpr std::uint64_t total = 100'000;
    static constexpr std::uint64_t lastFrame = total - 2 * TimePitchUnit::sliceFrames;
    static constexpr std::uint64_t burstFrames = 1200;

    /// Silence except for a burst that ends right before the last frame that is played.
    static float burstAtTheEnd(std::uint32_t, std::uint64_t frame)
    {
        if (frame < lastFrame - burstFrames - 400 || frame >= lastFrame - 400)
            return 0.0F;
        const auto since = static_cast<double>(frame - (lastFrame - burstFrames - 400));
        return static_cast<float>(0.5 * std::sin(std::numbers::pi * since / burstFrames) *
                                  std::sin(2.0 * std::numbers::pi * since / 60.0));
    }

    static void apply()
    {
        engine::setPlaybackRate(GetParam().rate);
        engine::setPitchCents(GetParam().cents);
    }

    /// Pulls until the song has ended, and returns the sound of its last half second.
    static Stereo playToTheEnd(Player &player)
    {
        engine::setOutputRunning(true);
        engine::seekToFrame(total - 22'050);
        Stereo heard;
        for (int i = 0; i < 20'000 && !engine::trackHasEnded(); ++i)
            player.pull(heard, 128, 128);
        EXPECT_TRUE(engine::trackHasEnded());
        EXPECT_FALSE(engine::outputIsRunning());
        EXPECT_EQ(engine::currentFrame(), lastFrame);
        return heard;
    }

    static double energy(const std::vector<float> &samples)
    {
        double sum = 0.0;
        for (const float sample : samples)
            sum += static_cast<double>(sample) * static_cast<double>(sample);
        return sum;
    }

    /// Pulls until the ended song is silent, and returns the number of frames.
    static std::size_t playOut(Player &player, Stereo &heard)
    {
        std::size_t frames = 0;
        for (; frames < 200'000 && player.output().isPlayingOut(); frames += 128) {
            player.pull(heard, 128, 128);
            EXPECT_FALSE(engine::outputIsRunning());
            EXPECT_EQ(engine::currentFrame(), lastFrame);
        }
        EXPECT_FALSE(player.output().isPlayingOut());
        player.pull(heard, 512);
        EXPECT_EQ(player.pull(1024).left, std::vector<float>(1024, 0.0F));
        return frames;
    }
};

TEST_P(SongEnd, IsHeardToTheLastFrame)
{
    Player player(burstAtTheEnd, total);
    apply();
    Stereo heard = playToTheEnd(player);
    const std::size_t held = playOut(player, heard);
    const double whole =
        0.5 * 0.5 / 4.0 * static_cast<double>(burstFrames) / static_cast<double>(GetParam().rate);
    std::printf("[ measured ] rate %.2f, %+.0f cents: %zu frames played out, %.2f of the burst\n",
                static_cast<double>(GetParam().rate), static_cast<double>(GetParam().cents), held,
                energy(heard.left) / whole);
    EXPECT_GT(energy(heard.left), 0.6 * whole);
    EXPECT_LT(held, static_cast<std::size_t>(8000.0F / GetParam().rate));
}

TEST_P(SongEnd, IsCutOffByAPause)
{
    Player player(tone(331.0), total);
    apply();
    playToTheEnd(player);
    engine::setOutputRunning(false);
    EXPECT_FALSE(player.output().isPlayingOut());
    player.pull(OutputRenderer::fadeFrames);
    EXPECT_EQ(player.pull(2048).left, std::vector<float>(2048, 0.0F));
}

TEST_P(SongEnd, IsCutOffByASeekThatKeepsItsPosition)
{
    Player player(tone(331.0), total);
    apply();
    playToTheEnd(player);
    engine::seekToFrame(5000);
    player.pull(OutputRenderer::fadeFrames);
    EXPECT_EQ(player.pull(20'000).left, std::vector<float>(20'000, 0.0F));
    EXPECT_EQ(engine::currentFrame(), 5000U);
    EXPECT_FALSE(engine::outputIsRunning());
    engine::setOutputRunning(true);
    player.pull(4096);
    EXPECT_GT(engine::currentFrame(), 5000U);
}

TEST_P(SongEnd, ARestartThereEndsAgainAtOnce)
{
    Player player(tone(331.0), total);
    apply();
    Stereo heard = playToTheEnd(player);
    playOut(player, heard);
    engine::setTrackHasEnded(false);
    engine::setOutputRunning(true);
    player.pull(8192); // at the lowest speed the stretcher needs no input for this long
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_FALSE(engine::outputIsRunning());
    EXPECT_EQ(engine::currentFrame(), lastFrame);
}

/// Noise at a level that nothing else has.
float nextSong(std::uint32_t channel, std::uint64_t frame)
{
    return noiseAt(static_cast<std::int64_t>(frame), channel, 0.25F);
}

/// Loads the next song as the queue does, and starts it at rate 1.
void loadNextSong()
{
    engine::setOutputRunning(false);
    auto song = std::make_shared<FakeSong>();
    song->frames = 200'000;
    song->sample = nextSong;
    engine::setSongReaderFactory(fakeSongReaderFactory(song));
    ASSERT_EQ(engine::loadAudioFile(QUrl::fromLocalFile(QStringLiteral("/songs/b.wav"))), 0);
    engine::setTrackHasEnded(false);
    engine::setPlaybackRate(1.0F);
    engine::setPitchCents(0.0F);
    engine::setOutputRunning(true);
}

/// The index in `heard` from which it equals the next song from `frame` on. Its size if there is
/// none.
std::size_t placeOf(std::uint64_t frame, const std::vector<float> &heard)
{
    for (std::size_t at = 0; at + 64 <= heard.size(); ++at) {
        std::size_t i = 0;
        while (i < 64 && heard[at + i] == nextSong(0, frame + i))
            ++i;
        if (i == 64)
            return at;
    }
    return heard.size();
}

TEST_P(SongEnd, IsHeardBeforeTheNextSong)
{
    Player player(burstAtTheEnd, total);
    apply();
    Stereo heard = playToTheEnd(player);
    player.clearSlices();
    engine::setHeldSoundIsKept(true);
    loadNextSong();
    engine::setHeldSoundIsKept(false);
    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_EQ(engine::currentFrame(), 0U);
    player.pull(heard, static_cast<std::size_t>(10'000.0F / GetParam().rate) + 8000);

    // The next song is heard from its first frame on, and only once.
    const std::size_t begin = placeOf(OutputRenderer::fadeFrames, heard.left);
    ASSERT_LT(begin, heard.size());
    ASSERT_FALSE(player.slices().empty());
    for (std::size_t i = 0; i < player.slices().size(); ++i)
        ASSERT_EQ(player.slices()[i], i * TimePitchUnit::sliceFrames);
    for (std::size_t i = begin; i < heard.size(); ++i)
        ASSERT_EQ(heard.left[i], nextSong(0, OutputRenderer::fadeFrames + i - begin)) << i;
    // All of the ended song comes before it.
    const std::vector<float> before(heard.left.begin(), heard.left.begin() +
                                                            static_cast<std::ptrdiff_t>(begin) -
                                                            OutputRenderer::fadeFrames);
    const double whole =
        0.5 * 0.5 / 4.0 * static_cast<double>(burstFrames) / static_cast<double>(GetParam().rate);
    EXPECT_GT(energy(before), 0.6 * whole);
}

TEST_P(SongEnd, IsCutOffByAChosenSong)
{
    Player player(burstAtTheEnd, total);
    apply();
    playToTheEnd(player);
    loadNextSong();
    const Stereo heard = player.pull(4096);
    EXPECT_LT(placeOf(OutputRenderer::fadeFrames, heard.left), 1024U);
}

TEST_P(SongEnd, ASeekInTheNextSongDoesNotWaitForIt)
{
    Player player(burstAtTheEnd, total);
    apply();
    playToTheEnd(player);
    engine::setHeldSoundIsKept(true);
    loadNextSong();
    engine::setHeldSoundIsKept(false);
    engine::seekToFrame(100'000);
    const Stereo heard = player.pull(4096);
    EXPECT_LT(placeOf(100'000 + OutputRenderer::fadeFrames, heard.left), 1024U);
}

TEST_P(SongEnd, IsHeardWhenNoSongFollows)
{
    Player player(burstAtTheEnd, total);
    apply();
    Stereo heard = playToTheEnd(player);
    const double before = energy(heard.left);
    engine::setHeldSoundIsKept(true);
    engine::setOutputRunning(false);
    engine::emptyAudioBuffers();
    engine::setHeldSoundIsKept(false);
    const bool held = player.output().isPlayingOut();
    Stereo after;
    for (int i = 0; i < 2000 && player.output().isPlayingOut(); ++i)
        player.pull(after, 128, 128);
    player.pull(after, 512);
    EXPECT_EQ(held, GetParam().rate != 1.0F || GetParam().cents != 0.0F);
    const double whole =
        0.5 * 0.5 / 4.0 * static_cast<double>(burstFrames) / static_cast<double>(GetParam().rate);
    EXPECT_GT(before + energy(after.left), 0.6 * whole);
    EXPECT_EQ(player.pull(1024).left, std::vector<float>(1024, 0.0F));
}

INSTANTIATE_TEST_SUITE_P(Settings, SongEnd,
                         testing::Values(Setting{1.0F, 0.0F}, Setting{0.25F, 0.0F},
                                         Setting{0.5F, 0.0F}, Setting{0.75F, 0.0F},
                                         Setting{1.25F, 0.0F}, Setting{2.0F, 0.0F},
                                         Setting{1.0F, 300.0F}, Setting{0.1F, -1200.0F}));

} // namespace
