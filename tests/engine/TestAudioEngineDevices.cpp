// Tests with an output device that changes, is lost or does not answer.

#include "EngineFixture.h"

#include <algorithm>

namespace lyrabox::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

class AudioEngineOnDevices : public EngineFixture {};

TEST_F(AudioEngineOnDevices, ADeviceChangeKeepsTheWatcher)
{
    buildAndPlay(100000);
    audio.pull(1024);
    const auto frame = engine::currentFrame();
    audio.failAt(FakeStep::WatcherMissing, -7);
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(audio.fireDefaultOutputChangedOnThread());
        EXPECT_TRUE(engine::outputIsRunning());
        EXPECT_EQ(engine::soundStatus(), status::noError);
    }
    EXPECT_EQ(audio.pull(16).channels[0].front(), static_cast<float>(frame));
}

TEST_F(AudioEngineOnDevices, DeviceChangeStopsTheOldChainFirstAndReleasesItLast)
{
    buildAndPlay(100000);
    audio.clearCalls();
    EXPECT_TRUE(audio.fireDefaultOutputChangedOnThread());
    const std::vector<std::string> calls = audio.calls();
    const auto placeOf = [&calls](const std::string &call) {
        const auto found = std::find(calls.begin(), calls.end(), call);
        EXPECT_NE(found, calls.end()) << call;
        return found;
    };
    EXPECT_LT(placeOf("output1.stop"), placeOf("equalizer2.initialize"));
    EXPECT_LT(placeOf("output2.initialize"), placeOf("output2.start"));
    EXPECT_LT(placeOf("output2.start"), placeOf("output1.destroyed"));
    // The output goes first, because it pulls the others.
    EXPECT_LT(placeOf("output1.destroyed"), placeOf("timePitch1.destroyed"));
    EXPECT_LT(placeOf("timePitch1.destroyed"), placeOf("equalizer1.destroyed"));
}

TEST_F(AudioEngineOnDevices, DeviceChangeWhilePlayingKeepsPositionAndValues)
{
    buildAndPlay(100000);
    engine::setOutputVolume(0.5F);
    engine::setPlaybackRate(0.8F);
    engine::setPitchCents(150.5F);
    for (std::uint32_t band = 0; band < parameter::equalizerBands; ++band)
        engine::setEqLevel(band, static_cast<float>(band) - 15.0F);
    engine::setLoopStartFrame(7);
    engine::setLoopEndFrame(90000);
    engine::setIsLooping(true);
    audio.pull(4096);
    const auto frame = engine::currentFrame();

    audio.fireDefaultOutputChangedOnThread();

    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_EQ(engine::currentFrame(), frame);
    EXPECT_EQ(engine::totalFrames(), 100000U);
    EXPECT_EQ(engine::loopStartFrame(), 7U);
    EXPECT_EQ(engine::loopEndFrame(), 90000U);
    EXPECT_TRUE(engine::isLooping());
    EXPECT_EQ(engine::outputVolume(), 0.5F);
    EXPECT_EQ(engine::playbackRate(), 0.8F);
    EXPECT_EQ(engine::pitchCents(), 150.5F);
    for (std::uint32_t band = 0; band < parameter::equalizerBands; ++band) {
        const bool isCarried = band % 3 == 2 && band <= 29;
        EXPECT_EQ(engine::eqLevel(band), isCarried ? static_cast<float>(band) - 15.0F : 0.0F)
            << "band " << band;
    }
    EXPECT_EQ(audio.pull(1).channels[0].front(), static_cast<float>(frame));
}

TEST_F(AudioEngineOnDevices, DeviceChangeWhileStoppedStaysStopped)
{
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    loadSong(10000);
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_FALSE(engine::outputIsRunning());
    EXPECT_FALSE(audio.outputIsRunning());
    EXPECT_TRUE(audio.pull(256).isSilent());
    EXPECT_EQ(engine::currentFrame(), 0U);
}

TEST_F(AudioEngineOnDevices, DeviceChangesKeepOnlyOneChain)
{
    buildAndPlay(100000);
    for (int i = 0; i < 20; ++i)
        audio.fireDefaultOutputChangedOnThread();
    EXPECT_EQ(audio.unitsAlive(), 4); // three stages and one watcher
    EXPECT_TRUE(engine::outputIsRunning());
}

TEST_F(AudioEngineOnDevices, FailedDeviceChangesLeaveNoUnitsBehind)
{
    buildAndPlay(100000);
    audio.failAt(FakeStep::OutputInitialize, status::noAudioDevice);
    for (int i = 0; i < 20; ++i)
        audio.fireDefaultOutputChangedOnThread();
    EXPECT_EQ(audio.unitsAlive(), 4);
}

TEST_F(AudioEngineOnDevices, PauseWithoutADeviceAppliesToTheNextDevice)
{
    buildAndPlay(100000);
    audio.failAt(FakeStep::OutputInitialize, status::noAudioDevice);
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_TRUE(engine::outputIsRunning());
    engine::setOutputRunning(false);
    EXPECT_FALSE(engine::outputIsRunning());
    audio.clearFailures();
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_FALSE(engine::outputIsRunning());
}

TEST_F(AudioEngineOnDevices, PlayWithoutADeviceStartsOnTheNextDevice)
{
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    loadSong(100000);
    audio.failAt(FakeStep::OutputInitialize, status::noAudioDevice);
    audio.failAt(FakeStep::OutputStart, status::noAudioDevice);
    audio.fireDefaultOutputChangedOnThread();
    engine::setOutputRunning(true);
    EXPECT_TRUE(engine::outputIsRunning()); // the play button is on
    audio.clearFailures();
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_TRUE(engine::outputIsRunning());
}

TEST_F(AudioEngineOnDevices, AFailedStartOnTheNewDeviceIsRepeatedOnTheNext)
{
    buildAndPlay(100000);
    audio.failAt(FakeStep::OutputStart, status::noAudioDevice);
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_TRUE(engine::outputIsRunning());
    audio.clearFailures();
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_TRUE(engine::outputIsRunning());
}

TEST_F(AudioEngineOnDevices, ASuccessfulBuildEndsTheWaitForADevice)
{
    buildAndPlay(100000);
    audio.failAt(FakeStep::OutputInitialize, status::noAudioDevice);
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_TRUE(engine::outputIsRunning()); // it will run when there is a device
    audio.clearFailures();
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    EXPECT_FALSE(engine::outputIsRunning()); // a new output, which nobody has started
    EXPECT_EQ(engine::soundStatus(), status::noError);
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_FALSE(engine::outputIsRunning());
}

TEST_F(AudioEngineOnDevices, AStartOnALostDeviceRebuildsOnceAndPlays)
{
    buildAndPlay(100000);
    engine::setOutputVolume(0.25F);
    engine::setOutputRunning(false);
    audio.failOnceAt(FakeStep::OutputStart, status::noAudioDevice);
    engine::setOutputRunning(true);
    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_TRUE(audio.outputIsRunning());
    EXPECT_EQ(engine::soundStatus(), status::noError);
    EXPECT_EQ(audio.outputParameter(parameter::outputVolume), 0.25F);
    EXPECT_FALSE(audio.pull(256).isSilent());
}

TEST_F(AudioEngineOnDevices, AStartThatAlsoFailsOnTheRebuiltDeviceRebuildsOnlyOnce)
{
    buildAndPlay(100000);
    engine::setOutputRunning(false);
    audio.failAt(FakeStep::OutputStart, status::noAudioDevice);
    audio.clearCalls();
    engine::setOutputRunning(true);
    EXPECT_EQ(engine::soundStatus(), status::noAudioDevice);
    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_THAT(audio.calls(), Contains("output2.start"));
    EXPECT_THAT(audio.calls(), Not(Contains(StartsWith("output3."))));
}

TEST_F(AudioEngineOnDevices, AStartOnAServerThatHangsRebuildsNothing)
{
    buildAndPlay(100000);
    engine::setOutputRunning(false);
    audio.failAt(FakeStep::OutputStart, status::soundServerHangs);
    audio.clearCalls();
    engine::setOutputRunning(true);
    EXPECT_EQ(engine::soundStatus(), status::soundServerHangs);
    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_THAT(audio.calls(), ElementsAre("output1.start"));
    audio.clearFailures();
    audio.fireDefaultOutputChangedOnThread(); // the server answers
    EXPECT_EQ(engine::soundStatus(), status::noError);
    EXPECT_FALSE(audio.pull(256).isSilent());
}

TEST_F(AudioEngineOnDevices, ADeviceThatCannotBeUsedYetIsTriedAgain)
{
    buildAndPlay(100000);
    audio.failOnceAt(FakeStep::OutputInitialize, status::noAudioDevice);
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_EQ(engine::soundStatus(), status::noAudioDevice);
    EXPECT_EQ(audio.callsRequested(), 1);
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_EQ(engine::soundStatus(), status::noError);
    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_EQ(audio.callsRequested(), 1);
}

TEST_F(AudioEngineOnDevices, TheLossOfTheDeviceAsksForOneRebuild)
{
    buildAndPlay(100000);
    EXPECT_EQ(audio.callsRequested(), 0);
    audio.loseDevice();
    EXPECT_EQ(audio.callsRequested(), 1);
    audio.fireDefaultOutputChangedOnThread();
    audio.loseDevice(); // the new output, too
    EXPECT_EQ(audio.callsRequested(), 2);
}

TEST_F(AudioEngineOnDevices, ABuildOnAServerThatHangsSucceedsAndReportsIt)
{
    audio.failAt(FakeStep::OutputDevice, status::soundServerHangs);
    int told = 0;
    engine::setSoundStatusHook([&] { ++told; });
    EXPECT_EQ(engine::buildAudioSystem(), 0);
    EXPECT_EQ(engine::soundStatus(), status::soundServerHangs);
    EXPECT_EQ(told, 1);
    audio.clearFailures();
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_EQ(engine::soundStatus(), status::noError);
    EXPECT_EQ(told, 2);
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_EQ(told, 2); // no change
    engine::setSoundStatusHook({});
}

TEST_F(AudioEngineOnDevices, AStopOnAServerThatHangsReportsIt)
{
    buildAndPlay(100000);
    audio.failAt(FakeStep::OutputDevice, status::soundServerHangs);
    engine::setOutputRunning(false);
    EXPECT_EQ(engine::soundStatus(), status::soundServerHangs);
    EXPECT_FALSE(engine::outputIsRunning());
    audio.clearFailures();
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_EQ(engine::soundStatus(), status::noError);
    EXPECT_FALSE(engine::outputIsRunning());
}

} // namespace
} // namespace lyrabox::test
