// What the engine does with the song's channels: the tools in the render routine, which reads
// ahead.

#include "EngineFixture.h"
#include "engine/ClicksAndLeadIns.h"
#include "engine/SongChannels.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace lyrabox::test {
namespace {

constexpr std::uint32_t slice = TimePitchUnit::sliceFrames;
constexpr ChannelTools withoutMiddle{.centre = -100};

struct Heard {
    std::vector<float> left;
    std::vector<float> right;

    bool operator==(const Heard &) const = default;
};

/// Tones on both sides, and a melody in the middle that never repeats.
float music(std::uint32_t channel, std::uint64_t frame)
{
    const auto time = static_cast<double>(frame) / 44100.0;
    const double middle = 0.3 * std::sin(3000.0 * time * (1.0 + 0.3 * time));
    const double side =
        0.3 * std::sin(2.0 * std::numbers::pi * (channel == 0 ? 311.0 : 1207.0) * time);
    return static_cast<float>(middle + side);
}

class SongChannels : public EngineFixture {
protected:
    SongChannels() { song->sample = &music; }

    Heard pull(std::size_t frames)
    {
        Heard heard;
        pull(heard, frames);
        return heard;
    }
    void pull(Heard &heard, std::size_t frames)
    {
        for (std::size_t done = 0; done < frames; done += slice) {
            const PulledAudio part = audio.pull(slice);
            heard.left.insert(heard.left.end(), part.channels[0].begin(), part.channels[0].end());
            heard.right.insert(heard.right.end(), part.channels[1].begin(), part.channels[1].end());
        }
    }

    static void setLoop(std::uint64_t start, std::uint64_t end)
    {
        engine::setLoopStartFrame(start);
        engine::setLoopEndFrame(end);
        engine::setIsLooping(true);
    }

    /// Plays what `run` makes of the song a second time: as a song of its own, without any jump.
    void expectAsIfJoinedByHand(const std::function<void(Heard &heard)> &run,
                                const ChannelTools &tools)
    {
        ASSERT_EQ(engine::buildAudioSystem(), 0);
        const auto heardWith = [&](const ChannelTools &used) {
            loadSong(1'000'000);
            engine::setIsLooping(false);
            engine::setOutputRunning(true);
            engine::setChannelTools(used);
            Heard heard;
            run(heard);
            engine::setOutputRunning(false);
            return heard;
        };
        const Heard plain = heardWith({});
        const Heard filtered = heardWith(tools);
        song->sample = [&plain](std::uint32_t channel, std::uint64_t frame) {
            const std::vector<float> &samples = channel == 0 ? plain.left : plain.right;
            return frame < samples.size() ? samples[frame] : 0.0F;
        };
        loadSong(1'000'000);
        engine::setIsLooping(false);
        engine::setOutputRunning(true);
        engine::setChannelTools(tools);
        // What comes after the end of what was recorded is not known by hand.
        const std::size_t frames = plain.left.size() - 2176;
        const Heard joined = pull(frames);
        ASSERT_NE(plain, filtered);
        for (std::size_t i = 0; i < frames; ++i) {
            ASSERT_EQ(filtered.left[i], joined.left[i]) << i;
            ASSERT_EQ(filtered.right[i], joined.right[i]) << i;
        }
    }
};

TEST_F(SongChannels, AreLeftAsTheyAreBitForBitWhileTheToolsAreNeutral)
{
    buildAndPlay(200'000);
    engine::setChannelTools({.mode = ChannelMode::Mono, .balance = -20, .centre = 70});
    pull(5000);
    engine::setChannelTools({.centreFrom = 300});
    pull(2 * slice); // the glide
    const std::uint64_t place = engine::currentFrame();
    const Heard heard = pull(50'000);
    for (std::size_t i = 0; i < heard.left.size(); ++i) {
        ASSERT_EQ(heard.left[i], music(0, place + i));
        ASSERT_EQ(heard.right[i], music(1, place + i));
    }
}

TEST_F(SongChannels, AreReadAheadAcrossTheSeamOfALoop)
{
    // Ends on and between slices, and loops that are shorter than a window.
    for (const std::uint64_t length : {10'000U, 8192U, 2205U, 700U, 64U}) {
        song->sample = &music;
        expectAsIfJoinedByHand(
            [this, length](Heard &heard) {
                setLoop(3000, 3000 + length);
                pull(heard, 60'000);
            },
            withoutMiddle);
        if (HasFatalFailure())
            FAIL() << length;
    }
}

TEST_F(SongChannels, AreReadAheadAcrossTheSilenceBeforeALoop)
{
    for (const std::uint32_t silence : {5000U, 1280U, 100U}) {
        song->sample = &music;
        expectAsIfJoinedByHand(
            [this, silence](Heard &heard) {
                engine::setLeadInAtWrap({.frames = silence});
                setLoop(3000, 13'000);
                pull(heard, 60'000);
            },
            {.centre = 100});
        if (HasFatalFailure())
            FAIL() << silence;
    }
}

TEST_F(SongChannels, AreReadAheadIntoTheMusicBeforeALoop)
{
    expectAsIfJoinedByHand(
        [this](Heard &heard) {
            engine::setLeadInAtWrap({.frames = 700});
            engine::setRunUp(2000);
            setLoop(3000, 13'000);
            pull(heard, 60'000);
        },
        withoutMiddle);
}

TEST_F(SongChannels, AreReadAheadBehindASilenceAtTheStart)
{
    expectAsIfJoinedByHand(
        [this](Heard &heard) {
            engine::setOutputRunning(false);
            engine::seekToFrame(20'000);
            engine::setLeadInAtStart({.frames = 1000});
            engine::setOutputRunning(true);
            pull(heard, 20'000);
            engine::setLeadInAtStart({});
        },
        withoutMiddle);
}

TEST_F(SongChannels, AreFilteredAtOnceBehindASeek)
{
    buildAndPlay(400'000);
    engine::setChannelTools(withoutMiddle);
    engine::seekToFrame(100'096);
    const Heard played = pull(10'240);
    engine::seekToFrame(102'144); // the windows lie the same way
    const Heard sought = pull(1280);
    for (std::size_t i = 0; i < sought.left.size(); ++i) {
        ASSERT_NEAR(sought.left[i], played.left[2048 + i], 1.0e-6) << i;
        ASSERT_NEAR(sought.right[i], played.right[2048 + i], 1.0e-6) << i;
    }
}

TEST_F(SongChannels, GoOnAfterALoopThatIsSetAtTheLastMoment)
{
    song->sample = [](std::uint32_t channel, std::uint64_t frame) {
        // 441 Hz: a jump by whole hundreds of frames is not heard.
        const double phase = 2.0 * std::numbers::pi * static_cast<double>(frame % 100) / 100.0;
        return static_cast<float>((channel == 0 ? 0.4 : 0.1) * std::sin(phase));
    };
    buildAndPlay(400'000);
    engine::setChannelTools({.centre = -60});
    Heard heard = pull(12'800);      // a hundred slices
    engine::setLoopStartFrame(3200); // 75 slices and 96 periods before the end
    engine::setLoopEndFrame(12'800);
    engine::setIsLooping(true);
    pull(heard, 100 * slice);
    engine::setIsLooping(false);
    pull(heard, 20 * slice);
    const double steepest = 2.0 * std::numbers::pi / 100.0 * 0.5;
    for (std::size_t i = 5000; i < heard.left.size(); ++i)
        ASSERT_LT(std::abs(heard.left[i] - heard.left[i - 1]), steepest) << i;
}

TEST_F(SongChannels, AreNeutralAgainWithTheNextSongButNotWithTheDevice)
{
    buildAndPlay(100'000);
    const ChannelTools tools{.mode = ChannelMode::Swapped, .balance = 10, .centre = -30};
    engine::setChannelTools(tools);
    ASSERT_TRUE(audio.fireDefaultOutputChangedOnThread());
    EXPECT_EQ(engine::channelTools(), tools);
    const std::uint64_t place = engine::currentFrame();
    EXPECT_NE(pull(slice).left.front(), music(0, place));
    engine::setOutputRunning(false);
    ASSERT_EQ(loadSong(100'000), 0);
    EXPECT_EQ(engine::channelTools(), ChannelTools{});
    engine::setOutputRunning(true);
    const Heard heard = pull(slice);
    for (std::uint32_t i = 0; i < slice; ++i)
        ASSERT_EQ(heard.left[i], music(0, i));
}

TEST_F(SongChannels, OfVeryShortSongsAndAtTheEndAreNoTrouble)
{
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    for (const std::uint64_t frames : {1U, 257U, 300U, 5000U}) {
        ASSERT_EQ(loadSong(frames), 0);
        engine::setChannelTools({.mode = ChannelMode::Mono, .centre = -100});
        engine::setTrackHasEnded(false);
        engine::setOutputRunning(true);
        for (const float sample : pull(6000).left)
            ASSERT_TRUE(std::isfinite(sample));
        EXPECT_TRUE(engine::trackHasEnded()) << frames;
    }
}

TEST_F(SongChannels, GiveNumbersBeyondTheirRangesTheNearestValue)
{
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    engine::setChannelTools({.balance = -400, .centre = 400});
    EXPECT_EQ(engine::channelTools().balance, -100);
    EXPECT_EQ(engine::channelTools().centre, 100);
}

} // namespace
} // namespace lyrabox::test
