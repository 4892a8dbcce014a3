// Silence before a loop's start and before the song's place.

#include "EngineFixture.h"
#include "engine/ClicksAndLeadIns.h"

#include <algorithm>
#include <cmath>

namespace lyrabox::test {
namespace {

constexpr std::uint32_t slice = TimePitchUnit::sliceFrames;
constexpr std::uint32_t fade = 256;
constexpr std::uint64_t start = 10000;
constexpr std::uint64_t end = 12560; // 20 slices

class LeadInTest : public EngineFixture {
protected:
    static void setLoop(std::uint64_t from = start, std::uint64_t to = end)
    {
        engine::setLoopStartFrame(from);
        engine::setLoopEndFrame(to);
        engine::setIsLooping(true);
    }

    std::vector<float> pull(std::uint32_t frames)
    {
        std::vector<float> heard;
        for (std::uint32_t done = 0; done < frames;) {
            const std::uint32_t count = std::min(slice, frames - done);
            const PulledAudio part = audio.pull(count);
            heard.insert(heard.end(), part.channels[0].begin(), part.channels[0].end());
            done += count;
        }
        return heard;
    }

    /// Expects a complete lead-in of `frames` frames, and then the loop from its start.
    static void expectLeadIn(const std::vector<float> &heard, std::uint32_t frames, bool fadesOut)
    {
        for (std::uint32_t i = 0; i < frames; ++i) {
            if (i < fade && fadesOut) {
                ASSERT_LE(heard[i], static_cast<float>(end + i)) << i;
                ASSERT_GE(heard[i], i < fade / 2 ? 0.45F * static_cast<float>(end) : 0.0F) << i;
            } else if (i + fade >= frames) {
                const auto song = static_cast<float>(start - frames + i);
                ASSERT_LE(heard[i], song) << i;
                ASSERT_GE(heard[i], i + fade / 2 >= frames ? 0.45F * song : 0.0F) << i;
            } else {
                ASSERT_EQ(heard[i], 0.0F) << i;
            }
        }
        for (std::size_t i = frames; i < heard.size(); ++i)
            ASSERT_EQ(heard[i], static_cast<float>(start + i - frames)) << i;
    }
};

TEST_F(LeadInTest, StandsBeforeEveryPassToTheFrame)
{
    buildAndPlay(100000);
    setLoop();
    for (const std::uint32_t frames : {1280U, 2000U, 513U, 10001U}) {
        engine::setLeadInAtWrap({.frames = frames});
        engine::seekToFrame(end - slice);
        EXPECT_EQ(pull(slice).front(), static_cast<float>(end - slice));
        for (int pass = 0; pass < 3; ++pass) {
            // Whole slices, so the last may go on behind the loop's end.
            const std::uint32_t all = (frames + (end - start) + slice - 1) / slice * slice;
            std::vector<float> heard = pull(all);
            ASSERT_NO_FATAL_FAILURE(expectLeadIn(heard, frames, true));
            if (all != frames + (end - start))
                break; // the next round begins behind the end: its fade-out differs
        }
    }
}

TEST_F(LeadInTest, TellsHowMuchOfItWasHeard)
{
    constexpr std::uint32_t frames = 1280;
    buildAndPlay(100000);
    setLoop();
    engine::setLeadInAtWrap({.frames = frames});
    engine::seekToFrame(end - slice);
    pull(slice);
    for (std::uint32_t done = 0; done + slice < frames; done += slice) {
        pull(slice);
        const auto heard = engine::heardLeadIn();
        ASSERT_TRUE(heard) << done;
        EXPECT_EQ(heard->frames, frames);
        EXPECT_EQ(heard->done, done + slice);
    }
    pull(2 * slice);
    EXPECT_FALSE(engine::heardLeadIn()) << "the song is heard";
}

TEST_F(LeadInTest, IsNotHeardAfterASeek)
{
    buildAndPlay(100000);
    setLoop();
    engine::setLeadInAtWrap({.frames = 1280});
    engine::seekToFrame(end - slice);
    pull(3 * slice);
    ASSERT_TRUE(engine::heardLeadIn());
    engine::seekToFrame(start + slice);
    EXPECT_FALSE(engine::heardLeadIn());
    pull(slice);
    EXPECT_FALSE(engine::heardLeadIn());
}

TEST_F(LeadInTest, LeavesThePositionAtTheLoopsStart)
{
    buildAndPlay(100000);
    setLoop();
    engine::setLeadInAtWrap({.frames = 1280});
    engine::seekToFrame(end - slice);
    pull(slice);
    for (std::uint32_t done = 0; done < 1280; done += slice) {
        pull(slice);
        EXPECT_EQ(engine::currentFrame(), start);
    }
    pull(slice);
    EXPECT_EQ(engine::currentFrame(), start + slice);
}

TEST_F(LeadInTest, ThatIsVeryShortIsFadedOverItsHalves)
{
    buildAndPlay(100000);
    setLoop();
    for (const std::uint32_t frames : {1U, 2U, 3U, 100U}) {
        engine::setLeadInAtWrap({.frames = frames});
        engine::seekToFrame(end - slice);
        pull(slice);
        const std::vector<float> heard = pull(slice);
        EXPECT_LT(heard[frames / 2], 0.6F * static_cast<float>(end)) << frames;
        EXPECT_EQ(heard[frames], static_cast<float>(start));
    }
}

TEST_F(LeadInTest, OfZeroFramesLeavesTheLoopAsItIs)
{
    buildAndPlay(100000);
    setLoop();
    engine::setLeadInAtWrap({.frames = 700});
    engine::setLeadInAtWrap({});
    engine::setLeadInAtStart({});
    engine::seekToFrame(end - slice);
    pull(slice);
    const std::vector<float> heard = pull(slice);
    EXPECT_EQ(heard.front(), static_cast<float>(start));
    EXPECT_EQ(heard.back(), static_cast<float>(start + slice - 1));
}

TEST_F(LeadInTest, IsEndedByASeek)
{
    buildAndPlay(100000);
    setLoop();
    engine::setLeadInAtWrap({.frames = 5000});
    engine::seekToFrame(end - slice);
    pull(4 * slice);
    EXPECT_EQ(engine::currentFrame(), start);
    engine::seekToFrame(11000);
    EXPECT_EQ(pull(slice).front(), 11000.0F);
}

TEST_F(LeadInTest, OfALoopThatIsShorterIsStillComplete)
{
    buildAndPlay(100000);
    setLoop(start, start + 10);
    engine::setLeadInAtWrap({.frames = 3000});
    engine::seekToFrame(start);
    const std::uint64_t before = engine::passes().ended;
    pull(slice);
    for (int pass = 0; pass < 3; ++pass) {
        const std::vector<float> heard = pull(3072);
        for (std::uint32_t i = fade; i < 3000 - fade; ++i)
            ASSERT_EQ(heard[i], 0.0F) << i;
        EXPECT_EQ(heard[3000], static_cast<float>(start));
    }
    EXPECT_EQ(engine::passes().ended - before, 3U);
}

TEST_F(LeadInTest, IsLeftOutWhereTheLoopNeverPlays)
{
    buildAndPlay(100000);
    setLoop(start, start);
    engine::setLeadInAtWrap({.frames = 3000});
    engine::seekToFrame(start);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(pull(slice)[0], static_cast<float>(start));
}

TEST_F(LeadInTest, GoesOnIfTheLoopIsClearedAndThenTheSongDoes)
{
    buildAndPlay(100000);
    setLoop();
    engine::setLeadInAtWrap({.frames = 1280});
    engine::seekToFrame(end - slice);
    pull(2 * slice);
    engine::setIsLooping(false);
    const std::vector<float> heard =
        pull(1280 - slice + static_cast<std::uint32_t>(end - start) + 2 * slice);
    EXPECT_EQ(heard[1280 - slice], static_cast<float>(start));
    EXPECT_EQ(heard.back(), static_cast<float>(end + 2 * slice - 1));
}

TEST_F(LeadInTest, ReadsSilenceBeforeTheSongsFirstFrame)
{
    buildAndPlay(100000);
    setLoop(0, 2560);
    engine::setLeadInAtWrap({.frames = 1280});
    engine::seekToFrame(2560 - slice);
    pull(slice);
    const std::vector<float> heard = pull(1280 + slice);
    for (std::uint32_t i = fade; i <= 1280; ++i)
        ASSERT_EQ(heard[i], 0.0F) << i;
    EXPECT_EQ(heard[1281], 1.0F);
}

TEST_F(LeadInTest, AtAStartComesBeforeTheSongsPlaceAndOnlyOnce)
{
    buildAndPlay(100000);
    engine::setOutputRunning(false);
    engine::seekToFrame(start);
    engine::setLeadInAtStart({.frames = 1280});
    engine::setOutputRunning(true);
    ASSERT_NO_FATAL_FAILURE(expectLeadIn(pull(1280 + 10 * slice), 1280, false));
    EXPECT_EQ(engine::currentFrame(), start + 10 * slice);
    engine::setOutputRunning(true); // it runs already
    EXPECT_EQ(pull(1).front(), static_cast<float>(start + 10 * slice));
    ASSERT_TRUE(audio.fireDefaultOutputChangedOnThread());
    EXPECT_NE(pull(slice).back(), 0.0F) << "a change of the device is no start";
}

TEST_F(LeadInTest, AtAStartComesAlsoWhereARunningPlayerStartsAnew)
{
    buildAndPlay(100000);
    engine::setLeadInAtStart({.frames = 1280});
    pull(1000);
    engine::startAtFrame(start);
    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_EQ(engine::currentFrame(), start);
    ASSERT_NO_FATAL_FAILURE(expectLeadIn(pull(1280 + 10 * slice), 1280, false));
    engine::setLeadInAtStart({});
    audio.clearCalls();
    engine::startAtFrame(20000);
    EXPECT_EQ(pull(slice).front(), 20000.0F);
    const std::vector<std::string> calls = audio.calls();
    EXPECT_EQ(std::ranges::count(calls, "output1.stop"), 0) << "without a lead-in it is a seek";

    engine::setLeadInAtStart({.frames = 1280});
    engine::setOutputRunning(false);
    engine::startAtFrame(start);
    EXPECT_FALSE(engine::outputIsRunning());
    engine::setLeadInAtStart({});
    engine::setOutputRunning(true);
    EXPECT_EQ(pull(slice).front(), static_cast<float>(start)) << "it has not started";
}

TEST_F(LeadInTest, AtAStartIsForgottenIfTheNextStartHasNone)
{
    buildAndPlay(100000);
    engine::setOutputRunning(false);
    engine::seekToFrame(start);
    engine::setLeadInAtStart({.frames = 1280});
    engine::setOutputRunning(true);
    engine::setOutputRunning(false); // before any callback
    engine::setLeadInAtStart({});
    engine::setOutputRunning(true);
    EXPECT_EQ(pull(slice).front(), static_cast<float>(start));
}

TEST_F(LeadInTest, AndClicksAreDroppedWithTheSongButNotWithTheDevice)
{
    buildAndPlay(100000);
    setLoop();
    engine::setLeadInAtWrap({.frames = 1280});
    engine::seekToFrame(end - slice);
    ASSERT_TRUE(audio.fireDefaultOutputChangedOnThread());
    pull(2 * slice);
    EXPECT_EQ(engine::currentFrame(), start);
    engine::setOutputRunning(false);
    engine::setLeadInAtStart({.frames = 1280});
    ASSERT_EQ(loadSong(100000), 0);
    engine::setOutputRunning(true);
    EXPECT_EQ(pull(slice).back(), static_cast<float>(slice - 1));
    engine::seekToFrame(end - slice);
    pull(2 * slice);
    EXPECT_EQ(engine::currentFrame(), start + slice);
}

TEST_F(LeadInTest, StandsForTheHeardFrameAsWell)
{
    buildAndPlay(100000);
    setLoop();
    engine::setLeadInAtWrap({.frames = 1280});
    engine::seekToFrame(end - slice);
    pull(slice);
    EXPECT_EQ(engine::heardFrame(), end);
    pull(3 * slice);
    EXPECT_EQ(engine::heardFrame(), start);
    pull(1280 - 2 * slice);
    EXPECT_EQ(engine::heardFrame(), start + slice);
}

} // namespace
} // namespace lyrabox::test
