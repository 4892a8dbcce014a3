#include "sound/Player.h"
#include "support/FakeAudioUnits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

constexpr std::uint64_t slice = TimePitchUnit::sliceFrames;

/// Frames from one jump to the next. They are whole slices, and the last may pass the loop's end.
constexpr std::uint64_t framesPerRound(std::uint64_t start, std::uint64_t end)
{
    return (end - start + slice - 1) / slice * slice;
}

/// A tone with noise, so that every frame differs from every other.
float material(std::uint32_t channel, std::uint64_t frame)
{
    static const Player::Song hum = tone(220.0, 0.3);
    return hum(channel, frame) + noiseAt(static_cast<std::int64_t>(frame), channel, 0.3F);
}

TEST(Loops, AnHourOfEachLengthJumpsAtTheExactFrame)
{
    FakeAudio audio;
    const auto song = std::make_shared<FakeSong>();
    engine::tearDownAudioSystem();
    engine::setAudioUnitFactory(audio.factory());
    engine::setSongReaderFactory(fakeSongReaderFactory(song));
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    song->frames = 2'000'000;
    ASSERT_EQ(engine::loadAudioFile(QUrl::fromLocalFile(QStringLiteral("/songs/a.wav"))), 0);

    constexpr std::uint64_t start = 100'001;
    constexpr std::uint64_t hour = 3600ULL * 44100ULL;
    for (const std::uint64_t length : {2205ULL, 2304ULL, 4410ULL, 44100ULL, 1'000'003ULL}) {
        engine::setLoopStartFrame(start);
        engine::setLoopEndFrame(start + length);
        engine::setIsLooping(true);
        engine::seekToFrame(start);
        engine::setOutputRunning(true);
        const std::uint64_t round = framesPerRound(start, start + length);
        std::uint64_t wrong = 0;
        std::uint64_t inRound = 0;
        for (std::uint64_t done = 0; done < hour;) {
            const PulledAudio heard = audio.pull(32768);
            for (const float sample : heard.channels[0]) {
                wrong += sample == static_cast<float>(start + inRound) ? 0 : 1;
                inRound = inRound + 1 == round ? 0 : inRound + 1;
            }
            done += heard.channels[0].size();
        }
        EXPECT_EQ(wrong, 0U) << "loop of " << length;
    }
    engine::tearDownAudioSystem();
    engine::setAudioUnitFactory({});
    engine::setSongReaderFactory({});
}

struct LoopSetting {
    int percent;
    float cents;
    std::uint64_t length;
    double seconds; ///< how long to listen

    float rate() const { return static_cast<float>(percent) / 100.0F; }
};

void PrintTo(const LoopSetting &setting, std::ostream *stream)
{
    *stream << setting.percent << " %, " << setting.cents << " cents, loop of " << setting.length;
}

class LoopSound : public testing::TestWithParam<LoopSetting> {
protected:
    static constexpr std::uint64_t start = 10'007;

    static Stereo listen(Player &player)
    {
        const LoopSetting setting = GetParam();
        Player::setUnevenEqualizer(9.0F);
        engine::setPlaybackRate(setting.rate());
        engine::setPitchCents(setting.cents);
        engine::setOutputRunning(true);
        return player.pull(static_cast<std::size_t>(setting.seconds * 44100.0));
    }
};

TEST_P(LoopSound, EqualsTheSameMaterialJoinedByHand)
{
    const LoopSetting setting = GetParam();
    const std::uint64_t end = start + setting.length;
    Stereo looped;
    std::vector<std::uint64_t> slices;
    {
        Player player(material, 500'000);
        engine::setLoopStartFrame(start);
        engine::setLoopEndFrame(end);
        engine::setIsLooping(true);
        looped = listen(player);
        slices = player.slices();
    }

    // The song with the loop written out: up to the first jump, then round after round.
    const std::uint64_t firstJump = framesPerRound(0, end);
    const std::uint64_t round = framesPerRound(start, end);
    const auto joined = [=](std::uint64_t frame) {
        return frame < firstJump ? frame : start + (frame - firstJump) % round;
    };
    std::uint64_t rounds = 0;
    for (std::size_t i = 0; i < slices.size(); ++i) {
        ASSERT_EQ(slices[i], joined(i * slice)) << "slice " << i;
        rounds += slices[i] == start ? 1 : 0;
    }
    EXPECT_GE(rounds, 3U);

    Player player([joined](std::uint32_t channel,
                           std::uint64_t frame) { return material(channel, joined(frame)); },
                  (slices.size() + 100) * slice);
    const Stereo expected = listen(player);
    std::size_t different = 0;
    for (std::size_t i = 0; i < looped.size(); ++i) {
        if (looped.left[i] != expected.left[i] || looped.right[i] != expected.right[i])
            ++different;
    }
    EXPECT_EQ(different, 0U) << "of " << looped.size();
    std::printf("[ measured ] %3d %%, loop of %6llu frames: %llu rounds, %zu frames differ\n",
                setting.percent, static_cast<unsigned long long>(setting.length),
                static_cast<unsigned long long>(rounds), different);
}

TEST_P(LoopSound, PlaysAToneWithoutABreakAtTheJump)
{
    // A period has 64 frames, so any number of whole slices is a whole number of periods.
    constexpr double hertz = 44100.0 / 128.0;
    const LoopSetting setting = GetParam();
    Player player(tone(hertz), 500'000);
    engine::setPlaybackRate(setting.rate());
    engine::setPitchCents(setting.cents);
    engine::setOutputRunning(true);
    player.pull(4410);
    engine::setLoopStartFrame(start);
    engine::setLoopEndFrame(start + setting.length);
    engine::setIsLooping(true);
    engine::seekToFrame(start);
    player.pull(22050);
    const Stereo heard = player.pull(static_cast<std::size_t>(setting.seconds * 22050.0));
    const double level = clickLevel(heard.left);
    std::printf("[ measured ] %3d %%, loop of %6llu frames: other sound %.1f dB\n", setting.percent,
                static_cast<unsigned long long>(setting.length), level);
    EXPECT_LT(level, -80.0);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, LoopSound,
    testing::Values(LoopSetting{10, 0.0F, 2205, 6.0}, LoopSetting{25, 0.0F, 2206, 4.0},
                    LoopSetting{50, 0.0F, 2205, 4.0}, LoopSetting{75, 0.0F, 11025, 4.0},
                    LoopSetting{100, 0.0F, 2205, 10.0}, LoopSetting{100, 300.0F, 3333, 3.0},
                    LoopSetting{125, 0.0F, 2304, 3.0}, LoopSetting{200, 0.0F, 44100, 4.0},
                    LoopSetting{200, 0.0F, 2205, 3.0}));

} // namespace
