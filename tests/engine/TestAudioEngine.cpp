#include "EngineFixture.h"

#include <limits>

namespace lyrabox::test {
namespace {

using testing::ElementsAre;

class AudioEngine : public EngineFixture {};

TEST_F(AudioEngine, BuildCarriesOutItsStepsInOrder)
{
    EXPECT_EQ(engine::buildAudioSystem(), 0);
    EXPECT_THAT(audio.calls(),
                ElementsAre("equalizer1.initialize", "timePitch1.initialize", "output1.initialize",
                            "output1.connect(timePitch1)", "timePitch1.connect(equalizer1)",
                            "equalizer1.streamFormat", "equalizer1.setRenderCallback",
                            "watcher1.listen", "equalizer1.setParameter(31, 0)"));
    EXPECT_EQ(engine::streamFormat().mSampleRate, 44100.0);
    EXPECT_EQ(engine::streamFormat().mBytesPerFrame, 4U);
    EXPECT_EQ(engine::streamFormat().mChannelsPerFrame, 2U);
    EXPECT_FALSE(engine::outputIsRunning());
}

struct FailingStep {
    FakeStep step;
    Status expected;
    const char *lastCall;
};

class AudioEngineBuildFailure : public EngineFixture,
                                public testing::WithParamInterface<FailingStep> {};

TEST_P(AudioEngineBuildFailure, ReturnsTheStatusAndSkipsLaterSteps)
{
    audio.failAt(GetParam().step, -7);
    EXPECT_EQ(engine::buildAudioSystem(), GetParam().expected);
    const auto calls = audio.calls();
    EXPECT_EQ(calls.empty() ? std::string() : calls.back(), GetParam().lastCall);
}

TEST_P(AudioEngineBuildFailure, LeavesAnEngineThatAcceptsAllCalls)
{
    audio.failAt(GetParam().step, -7);
    engine::buildAudioSystem();
    engine::setOutputVolume(0.5F);
    engine::setPlaybackRate(0.5F);
    engine::setPitchCents(100.0F);
    engine::setEqLevel(2, 3.0F);
    engine::seekToFrame(10);
    engine::setOutputRunning(false);
    engine::defaultOutputChanged();
    EXPECT_EQ(loadSong(1000), 0);
    engine::emptyAudioBuffers();
    EXPECT_EQ(engine::totalFrames(), 0U);
}

class AudioEngineRebuildFailure : public AudioEngineBuildFailure {};

TEST_P(AudioEngineRebuildFailure, DuringADeviceChangeKeepsTheValuesForTheNextDevice)
{
    buildAndPlay(100000);
    engine::setOutputVolume(0.25F);
    engine::setPlaybackRate(0.75F);
    engine::setPitchCents(-300.0F);
    engine::setEqLevel(29, -4.0F);
    audio.pull(1024);
    const auto frame = engine::currentFrame();

    audio.failAt(GetParam().step, -7);
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_TRUE(audio.pull(256).isSilent());
    EXPECT_EQ(engine::outputVolume(), 0.25F);
    engine::setPitchCents(-200.0F); // changed without a device

    audio.clearFailures();
    audio.fireDefaultOutputChangedOnThread();
    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_EQ(audio.outputParameter(parameter::outputVolume), 0.25F);
    EXPECT_EQ(audio.timePitchParameter(parameter::rate), 0.75F);
    EXPECT_EQ(audio.timePitchParameter(parameter::pitch), -200.0F);
    EXPECT_EQ(audio.equalizerParameter(29), -4.0F);
    EXPECT_EQ(engine::currentFrame(), frame);
    EXPECT_EQ(audio.pull(16).channels[0].front(), static_cast<float>(frame));
}

const FailingStep missingWatcher{FakeStep::WatcherMissing, engine::missingComponent,
                                 "equalizer1.setRenderCallback"};

/// The steps that a rebuild repeats. The watcher is made only once.
const auto stepsOfEveryBuild = testing::Values(
    FailingStep{FakeStep::EqualizerMissing, engine::missingComponent, ""},
    FailingStep{FakeStep::EqualizerInitialize, -7, "equalizer1.initialize"},
    FailingStep{FakeStep::TimePitchMissing, engine::missingComponent, "equalizer1.initialize"},
    FailingStep{FakeStep::TimePitchInitialize, -7, "timePitch1.initialize"},
    FailingStep{FakeStep::OutputMissing, engine::missingComponent, "timePitch1.initialize"},
    FailingStep{FakeStep::OutputInitialize, -7, "output1.initialize"},
    FailingStep{FakeStep::OutputConnect, -7, "output1.connect(timePitch1)"},
    FailingStep{FakeStep::TimePitchConnect, -7, "timePitch1.connect(equalizer1)"},
    FailingStep{FakeStep::SetRenderCallback, -7, "equalizer1.setRenderCallback"},
    FailingStep{FakeStep::Listen, -7, "watcher1.listen"},
    FailingStep{FakeStep::EqualizerFixedParameter, -7, "equalizer1.setParameter(31, 0)"});

INSTANTIATE_TEST_SUITE_P(Steps, AudioEngineBuildFailure, stepsOfEveryBuild);
INSTANTIATE_TEST_SUITE_P(Watcher, AudioEngineBuildFailure, testing::Values(missingWatcher));
INSTANTIATE_TEST_SUITE_P(Steps, AudioEngineRebuildFailure, stepsOfEveryBuild);

TEST_F(AudioEngine, BuildCanBeRepeatedAfterAFailure)
{
    audio.failAt(FakeStep::OutputInitialize, status::noAudioDevice);
    EXPECT_EQ(engine::buildAudioSystem(), status::noAudioDevice);
    audio.clearFailures();
    buildAndPlay(10000);
    EXPECT_EQ(audio.pull(10).channels[0].back(), 9.0F);
}

TEST_F(AudioEngine, PreparesThisChainAndEveryLaterOne)
{
    const auto preparations = [this] {
        std::vector<std::string> calls = audio.calls();
        std::erase_if(calls, [](const std::string &call) { return !call.ends_with(".prepare"); });
        return calls;
    };
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    EXPECT_TRUE(audio.fireDefaultOutputChangedOnThread());
    EXPECT_TRUE(preparations().empty());
    engine::prepareForPlayback();
    EXPECT_EQ(preparations(), std::vector<std::string>{"timePitch2.prepare"});
    EXPECT_TRUE(audio.fireDefaultOutputChangedOnThread());
    EXPECT_EQ(preparations(),
              (std::vector<std::string>{"timePitch2.prepare", "timePitch3.prepare"}));
}

TEST_F(AudioEngine, PreparesNothingWithoutAChain)
{
    engine::prepareForPlayback();
    EXPECT_TRUE(audio.calls().empty());
}

TEST_F(AudioEngine, StartAndStopReachTheOutput)
{
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    loadSong(1000);
    engine::setOutputRunning(true);
    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_TRUE(audio.outputIsRunning());
    engine::setOutputRunning(false);
    EXPECT_FALSE(engine::outputIsRunning());
    EXPECT_FALSE(audio.outputIsRunning());
}

TEST_F(AudioEngine, SeekResetsOutputTimePitchAndEqualizerInThisOrder)
{
    buildAndPlay(100000);
    audio.clearCalls();
    engine::seekToFrame(777);
    EXPECT_EQ(engine::currentFrame(), 777U);
    EXPECT_THAT(audio.calls(),
                ElementsAre("output1.reset", "timePitch1.reset", "equalizer1.reset"));
}

TEST_F(AudioEngine, SeekIsHeardAtOnce)
{
    buildAndPlay(100000);
    audio.pull(100); // time/pitch holds 28 more frames
    engine::seekToFrame(5000);
    EXPECT_EQ(audio.pull(10).channels[0].front(), 5000.0F);
}

TEST_F(AudioEngine, LoopPointsAreWrittenWithoutAReset)
{
    buildAndPlay(100000);
    audio.pull(100); // time/pitch holds 28 more frames
    engine::setLoopStartFrame(1000);
    engine::setLoopEndFrame(50);
    engine::setIsLooping(true);
    const PulledAudio heard = audio.pull(100);
    EXPECT_EQ(heard.channels[0][27], 127.0F);
    EXPECT_EQ(heard.channels[0][28], 1000.0F);
}

TEST_F(AudioEngine, ParametersReachTheirUnits)
{
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    engine::setOutputVolume(0.25F);
    engine::setPlaybackRate(0.5F);
    engine::setPitchCents(-100.0F);
    engine::setEqLevel(17, 6.0F);
    EXPECT_EQ(audio.outputParameter(14), 0.25F);
    EXPECT_EQ(audio.timePitchParameter(0), 0.5F);
    EXPECT_EQ(audio.timePitchParameter(1), -100.0F);
    EXPECT_EQ(audio.equalizerParameter(17), 6.0F);
    EXPECT_EQ(engine::outputVolume(), 0.25F);
    EXPECT_EQ(engine::playbackRate(), 0.5F);
    EXPECT_EQ(engine::pitchCents(), -100.0F);
    EXPECT_EQ(engine::eqLevel(17), 6.0F);
}

TEST_F(AudioEngine, WholeSecondsAreTruncated)
{
    EXPECT_EQ(engine::wholeSeconds(44099, 44100.0), 0);
    EXPECT_EQ(engine::wholeSeconds(44100, 44100.0), 1);
    EXPECT_EQ(engine::wholeSeconds(88199, 44100.0), 1);
    EXPECT_EQ(engine::wholeSeconds(0, 44100.0), 0);
}

TEST_F(AudioEngine, WholeSecondsOfAWrappedPositionStayInRange)
{
    constexpr auto huge = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(engine::wholeSeconds(huge, 44100.0), 418293516410647);
    EXPECT_EQ(engine::wholeSeconds(huge, 1.0), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(engine::wholeSeconds(100, 0.0), 0);
    EXPECT_EQ(engine::wholeSeconds(100, std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST_F(AudioEngine, TearDownReleasesEveryUnitAndZeroesTheRecord)
{
    buildAndPlay(100000);
    engine::setLoopEndFrame(5);
    engine::setIsLooping(true);
    audio.pull(256);
    engine::tearDownAudioSystem();
    EXPECT_EQ(audio.unitsAlive(), 0);
    EXPECT_EQ(engine::totalFrames(), 0U);
    EXPECT_EQ(engine::currentFrame(), 0U);
    EXPECT_EQ(engine::loopEndFrame(), 0U);
    EXPECT_FALSE(engine::isLooping());
    EXPECT_FALSE(engine::outputIsRunning());
    EXPECT_EQ(engine::defaultOutputChanged(), 0);
    EXPECT_EQ(audio.unitsAlive(), 0);
}

} // namespace
} // namespace lyrabox::test
