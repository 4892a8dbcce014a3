// Passes are counted where the end of a loop was reached by playing.

#include "EngineFixture.h"
#include "engine/ClicksAndLeadIns.h"

#include <random>

namespace lyrabox::test {
namespace {

constexpr std::uint32_t slice = TimePitchUnit::sliceFrames;

class Passes : public EngineFixture {
protected:
    static void setLoop(std::uint64_t start, std::uint64_t end)
    {
        engine::setIsLooping(false);
        engine::setLoopStartFrame(start);
        engine::setLoopEndFrame(end);
        engine::setIsLooping(true);
    }

    std::uint64_t ended() const { return engine::passes().ended - m_before; }
    void startCounting() { m_before = engine::passes().ended; }

private:
    std::uint64_t m_before = 0;
};

TEST_F(Passes, AreCountedAtEveryJumpThatWasReachedByPlaying)
{
    buildAndPlay(100000);
    setLoop(1000, 2280); // ten slices
    engine::seekToFrame(1000);
    audio.pull(slice);
    startCounting();
    audio.pull(8 * slice);
    EXPECT_EQ(ended(), 0U);
    audio.pull(2 * slice);
    EXPECT_EQ(ended(), 1U);
    EXPECT_EQ(engine::passes().loop, (LoopRange{.start = 1000, .end = 2280}));
    audio.pull(50 * slice);
    EXPECT_EQ(ended(), 6U);
}

TEST_F(Passes, ASeekBehindTheEndIsNone)
{
    buildAndPlay(100000);
    setLoop(1000, 2280);
    engine::seekToFrame(1500);
    audio.pull(slice);
    startCounting();
    for (const std::uint64_t target : {2280ULL, 2281ULL, 5000ULL}) {
        engine::seekToFrame(target);
        audio.pull(slice);
        EXPECT_EQ(engine::currentFrame(), 1000U + slice);
    }
    EXPECT_EQ(ended(), 0U);
    audio.pull(10 * slice);
    EXPECT_EQ(ended(), 1U) << "the pass that follows is played to its end";
}

TEST_F(Passes, ASeekWithinTheLoopMakesAShorterPass)
{
    buildAndPlay(100000);
    setLoop(1000, 2280);
    engine::seekToFrame(2200);
    audio.pull(slice);
    startCounting();
    audio.pull(slice);
    EXPECT_EQ(ended(), 1U);
}

TEST_F(Passes, ALoopThatIsSetOrMovedBehindThePositionIsNone)
{
    buildAndPlay(100000);
    audio.pull(40 * slice); // at 5120
    startCounting();
    setLoop(1000, 5120); // set at the position, as the loop button does
    audio.pull(slice);
    EXPECT_EQ(engine::currentFrame(), 1000U + slice);
    EXPECT_EQ(ended(), 0U);
    audio.pull(10 * slice);
    setLoop(1000, 1100); // moved away from under the position
    audio.pull(slice);
    EXPECT_EQ(ended(), 0U);
    engine::setIsLooping(false);
    audio.pull(10 * slice);
    engine::setIsLooping(true);
    audio.pull(slice);
    EXPECT_EQ(ended(), 0U);
    audio.pull(slice);
    EXPECT_EQ(ended(), 1U);
}

TEST_F(Passes, ANudgeOfTheStartWithinAPassCostsNone)
{
    buildAndPlay(100000);
    setLoop(1000, 2280);
    engine::seekToFrame(1000);
    audio.pull(5 * slice);
    startCounting();
    setLoop(900, 2280);
    audio.pull(6 * slice);
    EXPECT_EQ(ended(), 1U);
    EXPECT_EQ(engine::passes().loop.start, 900U);
}

TEST_F(Passes, ALoopThatNeverPlaysHasNone)
{
    buildAndPlay(100000);
    startCounting();
    setLoop(4000, 0);
    audio.pull(20 * slice);
    setLoop(4000, 4000);
    audio.pull(20 * slice);
    EXPECT_EQ(ended(), 0U);
}

TEST_F(Passes, ALoopShorterThanASliceHasOnePassASlice)
{
    buildAndPlay(100000);
    setLoop(4000, 4010);
    engine::seekToFrame(4000);
    audio.pull(slice);
    startCounting();
    audio.pull(20 * slice);
    EXPECT_EQ(ended(), 20U);
}

TEST_F(Passes, AThousandAreRightThroughSeeksNudgesAndChangesOfTheDevice)
{
    buildAndPlay(100000);
    constexpr std::uint64_t start = 20000;
    constexpr std::uint64_t end = start + 10 * slice;
    setLoop(start, end);
    engine::seekToFrame(start);
    audio.pull(slice);
    startCounting();
    std::mt19937 random(3);
    std::uint64_t expected = 0;
    std::uint64_t slicesLeft = 9; // to the end
    const auto pull = [&](std::uint64_t count) {
        for (; count > 0; --count) {
            audio.pull(slice);
            if (slicesLeft == 0) {
                ++expected;
                slicesLeft = 10;
            }
            --slicesLeft;
        }
    };
    while (expected < 1000) {
        pull(random() % 40);
        switch (random() % 5) {
        case 0: // within the loop
            slicesLeft = 1 + random() % 9;
            engine::seekToFrame(end - slicesLeft * slice);
            break;
        case 1: // behind it: it begins anew at once
            engine::seekToFrame(end + random() % 5000);
            audio.pull(slice);
            slicesLeft = 9;
            break;
        case 2:
            ASSERT_TRUE(audio.fireDefaultOutputChangedOnThread());
            break;
        case 3: // a nudge of the start, to where the position is not, and back
            setLoop(start + 441, end);
            setLoop(start, end);
            break;
        default:
            engine::setOutputRunning(false);
            audio.pull(slice);
            engine::setOutputRunning(true);
            break;
        }
        ASSERT_EQ(ended(), expected);
    }
}

TEST_F(Passes, WaitForTheNextSongWithTheirNumber)
{
    buildAndPlay(100000);
    setLoop(1000, 2280);
    engine::seekToFrame(1000);
    audio.pull(slice);
    startCounting();
    audio.pull(20 * slice);
    engine::setOutputRunning(false);
    ASSERT_EQ(loadSong(50000), 0);
    engine::setOutputRunning(true);
    audio.pull(slice);
    EXPECT_EQ(ended(), 2U);
    EXPECT_EQ(engine::passes().heard, engine::passes().ended);
}

} // namespace
} // namespace lyrabox::test
