// The frames that the stages hold after a song's end, and the calls that drop them.

#include "EngineFixture.h"
#include "support/HoldingOutput.h"

namespace lyrabox::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class HeldSound : public EngineFixture {
protected:
    HeldSound()
    {
        engine::setAudioUnitFactory(withHoldingOutput(audio.factory(), output));
        EXPECT_EQ(engine::buildAudioSystem(), 0);
        EXPECT_EQ(loadSong(10000), 0);
        output = {.isPlayingOut = true};
    }
    ~HeldSound() override { engine::tearDownAudioSystem(); } // before the log goes

    HoldingOutput::Log output;
};

TEST_F(HeldSound, IsCutOffByAStopAndByALoad)
{
    engine::setOutputRunning(false);
    EXPECT_THAT(output.calls, ElementsAre("stop"));
    output = {.isPlayingOut = true};
    loadSong(10000);
    EXPECT_THAT(output.calls, ElementsAre("reset"));
}

TEST_F(HeldSound, IsKeptThroughAStopALoadAndAnUnload)
{
    engine::setHeldSoundIsKept(true);
    engine::setOutputRunning(false);
    loadSong(10000);
    engine::emptyAudioBuffers();
    EXPECT_THAT(output.calls, IsEmpty());
    engine::setHeldSoundIsKept(false);
    engine::seekToFrame(0);
    EXPECT_THAT(output.calls, ElementsAre("reset"));
}

TEST_F(HeldSound, IsNotKeptIfNothingIsHeld)
{
    output.isPlayingOut = false;
    engine::setHeldSoundIsKept(true);
    engine::setOutputRunning(false);
    loadSong(10000);
    engine::setHeldSoundIsKept(false);
    EXPECT_THAT(output.calls, ElementsAre("stop", "reset"));
}

TEST_F(HeldSound, TheOutputIsHaltedAfterItWasHeard)
{
    engine::setHeldSoundIsKept(true);
    engine::setOutputRunning(false);
    engine::setHeldSoundIsKept(false);
    engine::haltWhenPlayedOut();
    EXPECT_THAT(output.calls, IsEmpty());
    output.isPlayingOut = false;
    engine::haltWhenPlayedOut();
    engine::haltWhenPlayedOut();
    EXPECT_THAT(output.calls, ElementsAre("stop"));
}

TEST_F(HeldSound, TheOutputIsNotHaltedIfASongHasStarted)
{
    engine::setHeldSoundIsKept(true);
    engine::setOutputRunning(false);
    engine::setHeldSoundIsKept(false);
    engine::setOutputRunning(true);
    output.isPlayingOut = false;
    engine::haltWhenPlayedOut();
    engine::haltWhenPlayedOut();
    EXPECT_THAT(output.calls, Not(Contains("stop")));
    engine::setOutputRunning(false); // a later pause stops at once
    EXPECT_THAT(output.calls, ElementsAre("start", "stop"));
}

} // namespace
} // namespace lyrabox::test
