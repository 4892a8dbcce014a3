// A run-up: the music before a loop, which is played before each pass.

#include "EngineFixture.h"
#include "engine/ClicksAndLeadIns.h"

namespace lyrabox::test {
namespace {

constexpr std::uint32_t slice = TimePitchUnit::sliceFrames;
constexpr std::uint64_t start = 100 * slice;
constexpr std::uint64_t end = 110 * slice;

class RunUp : public EngineFixture {
protected:
    void playLoop()
    {
        buildAndPlay(100000);
        setLoop(start, end);
        engine::seekToFrame(start);
        m_before = engine::passes().ended;
    }

    static void setLoop(std::uint64_t from, std::uint64_t to)
    {
        engine::setLoopStartFrame(from);
        engine::setLoopEndFrame(to);
        engine::setIsLooping(true);
    }

    std::uint64_t ended() const { return engine::passes().ended - m_before; }

private:
    std::uint64_t m_before = 0;
};

TEST_F(RunUp, IsPlayedBeforeEveryPassAndThePassEndsAtTheLoopsEnd)
{
    playLoop();
    engine::setRunUp(4 * slice);
    audio.pull(10 * slice);
    EXPECT_EQ(engine::currentFrame(), end);
    audio.pull(slice);
    EXPECT_EQ(engine::currentFrame(), start - 3 * slice);
    EXPECT_EQ(ended(), 1U);
    EXPECT_EQ(engine::passes().loop, (LoopRange{.start = start, .end = end}));
    for (std::uint64_t pass = 2; pass < 6; ++pass) {
        audio.pull(14 * slice);
        EXPECT_EQ(engine::currentFrame(), start - 3 * slice);
        EXPECT_EQ(ended(), pass);
    }
    EXPECT_EQ(engine::loopStartFrame(), start) << "the loop itself stays";
}

TEST_F(RunUp, OfALoopNearTheSongsStartBeginsThere)
{
    buildAndPlay(100000);
    setLoop(2 * slice, 5 * slice);
    engine::seekToFrame(4 * slice);
    engine::setRunUp(50 * slice);
    audio.pull(2 * slice);
    EXPECT_EQ(engine::currentFrame(), slice);
}

TEST_F(RunUp, StandsBehindTheSilenceOfALeadIn)
{
    playLoop();
    engine::setRunUp(4 * slice);
    engine::setLeadInAtWrap({.frames = 6 * slice});
    audio.pull(10 * slice);
    audio.pull(3 * slice);
    EXPECT_EQ(engine::currentFrame(), start - 4 * slice);
    audio.pull(4 * slice);
    EXPECT_EQ(engine::currentFrame(), start - 3 * slice);
}

TEST_F(RunUp, IsLeftOutWhereTheLoopNeverPlays)
{
    playLoop();
    engine::setRunUp(4 * slice);
    setLoop(start, start);
    audio.pull(5 * slice);
    EXPECT_EQ(engine::currentFrame(), start + slice);
}

TEST_F(RunUp, IsHeardWhereItIsRead)
{
    playLoop();
    engine::setRunUp(4 * slice);
    audio.pull(12 * slice);
    EXPECT_LE(engine::heardFrame(), engine::currentFrame());
    EXPECT_GE(engine::heardFrame(), start - 4 * slice);
}

TEST_F(RunUp, GoesWithTheSongButNotWithTheDevice)
{
    playLoop();
    engine::setRunUp(4 * slice);
    ASSERT_TRUE(audio.fireDefaultOutputChangedOnThread());
    audio.pull(11 * slice);
    EXPECT_EQ(engine::currentFrame(), start - 3 * slice);
    engine::setOutputRunning(false);
    ASSERT_EQ(loadSong(100000), 0);
    setLoop(start, end);
    engine::seekToFrame(start);
    engine::setOutputRunning(true);
    audio.pull(11 * slice);
    EXPECT_EQ(engine::currentFrame(), start + slice);
}

} // namespace
} // namespace lyrabox::test
