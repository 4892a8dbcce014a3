#include "platform/output/CubebOutput.h"

#include "device/Fixtures.h"
#include "device/SineSource.h"
#include "support/PrivateSoundServer.h"

#include <QDir>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sched.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

constexpr std::size_t second = Recorder::sampleRate;

/// A source that stops its output from within the callback after a number of frames.
class EndingSource : public SineSource {
public:
    EndingSource(OutputUnit &output, std::uint64_t frames)
        : SineSource(440.0), end(frames), m_output(output)
    {}
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        if (rendered + frames > end) {
            m_output.stop();
            ++endings;
            return;
        }
        SineSource::render(frames, ioData);
    }
    std::atomic<std::uint64_t> end;
    std::atomic<int> endings{0};

private:
    OutputUnit &m_output;
};

/// A source that records the scheduling policy of the thread that pulls it.
class WatchedSource : public SineSource {
public:
    WatchedSource() : SineSource(440.0) {}
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        policy = sched_getscheduler(0);
        SineSource::render(frames, ioData);
    }
    std::atomic<int> policy{-1};
};

TEST_F(CubebOutputOnServer, ToneIsHeardAtItsFrequencyAndLevel)
{
    SineSource source(440.0);
    open(source);
    ASSERT_EQ(output.start(), status::noError);
    const auto begin = recorder->waitForSound(0);
    ASSERT_GE(begin, 0);
    const auto from = static_cast<std::size_t>(begin) + second / 10;
    recorder->waitForSize(from + second);
    const std::vector<float> heard = recorder->samples(from, from + second);
    EXPECT_NEAR(frequencyOf(heard), 440.0, 0.1);
    EXPECT_NEAR(peakOf(heard), 0.5, 0.001);
    output.stop();
}

TEST_F(CubebOutputOnServer, OnlyTheCallbackThreadHasRealtimePriorityIfTheUserMaySetIt)
{
    constexpr sched_param tried{.sched_priority = 1};
    constexpr sched_param usual{};
    if (sched_setscheduler(0, SCHED_RR, &tried) != 0)
        GTEST_SKIP() << "this user may not use real-time priority";
    sched_setscheduler(0, SCHED_OTHER, &usual);
    std::thread([] {}).join(); // with the first thread the thread sanitizer starts one, too

    WatchedSource source;
    open(source);
    int ofRealtime = 0;
    for (const QString &thread :
         QDir(QStringLiteral("/proc/self/task")).entryList(QDir::AllDirs | QDir::NoDotAndDotDot))
        ofRealtime += sched_getscheduler(thread.toInt()) == SCHED_RR ? 1 : 0;
    EXPECT_EQ(ofRealtime, 1);
    EXPECT_EQ(sched_getscheduler(0), SCHED_OTHER);

    // A process that such a thread starts has the usual priority.
    sched_setscheduler(0, SCHED_RR, &tried);
    const pid_t child = fork();
    if (child == 0)
        _exit(sched_getscheduler(0));
    sched_setscheduler(0, SCHED_OTHER, &usual);
    int ended = -1;
    waitpid(child, &ended, 0);
    EXPECT_TRUE(WIFEXITED(ended));
    EXPECT_EQ(WEXITSTATUS(ended), SCHED_OTHER);

    output.start();
    ASSERT_GE(recorder->waitForSound(0), 0);
    EXPECT_EQ(source.policy, SCHED_RR);
    output.stop();
}

TEST_F(CubebOutputOnServer, NothingIsHeardBeforeTheStart)
{
    SineSource source(440.0);
    open(source);
    recorder->waitFor(0.2);
    EXPECT_EQ(peakOf(recorder->samples()), 0.0F);
    EXPECT_EQ(source.rendered, 0U);
    EXPECT_FALSE(output.isRunning());
}

/// Measures the latency in frames, including the delay of the recorder: the number of frames that
/// were pulled but not yet heard after half a second.
class MeasuredLatency : public CubebOutputOnServer,
                        public testing::WithParamInterface<const char *> {
protected:
    double frames()
    {
        const QByteArray old = qgetenv(CubebOutput::latencyVariable);
        qputenv(CubebOutput::latencyVariable, GetParam());
        SineSource source(440.0);
        open(source);
        if (old.isNull())
            qunsetenv(CubebOutput::latencyVariable);
        else
            qputenv(CubebOutput::latencyVariable, old);
        output.start();
        const auto begin = recorder->waitForSound(0);
        EXPECT_GE(begin, 0);
        recorder->waitForSize(static_cast<std::size_t>(begin) + second / 2);
        const double heard = static_cast<double>(recorder->size()) - static_cast<double>(begin);
        const auto pulled = static_cast<double>(source.rendered.load());
        output.stop();
        return pulled - heard;
    }
};

using LongerLatency = MeasuredLatency;
TEST_P(LongerLatency, IsUsedIfTheEnvironmentSetsIt)
{
    EXPECT_GT(frames(), 0.35 * second); // the device pulls half of it at a time
}
INSTANTIATE_TEST_SUITE_P(Milliseconds, LongerLatency, testing::Values("1000"));

using UsualLatency = MeasuredLatency;
TEST_P(UsualLatency, IsUsedIfTheEnvironmentSetsLessOrNonsense)
{
    EXPECT_LT(frames(), 0.25 * second);
}
INSTANTIATE_TEST_SUITE_P(Texts, UsualLatency,
                         testing::Values("", "10", "-450", "450 ms", "2001", "99999999999999"));

TEST_F(CubebOutputOnServer, AfterAStopNoCallbackPullsTheSource)
{
    SineSource source(440.0);
    open(source);
    for (int round = 0; round < 5; ++round) {
        output.start();
        EXPECT_TRUE(output.isRunning());
        recorder->waitForSound(recorder->size());
        output.stop();
        EXPECT_FALSE(output.isRunning());
        const std::uint64_t rendered = source.rendered;
        const auto silence = recorder->waitForSilence(recorder->size());
        ASSERT_GE(silence, 0);
        EXPECT_EQ(source.rendered, rendered);
    }
}

class CubebOutputFades : public testing::TestWithParam<PrivateSoundServer::Sinks> {};

TEST_P(CubebOutputFades, StartAndStopPlayAllThatWasPulledWithoutAClick)
{
    if (GetParam() == PrivateSoundServer::Sinks::Rewinding &&
        PrivateSoundServer::chosenKind() == PrivateSoundServer::Kind::PipeWire)
        GTEST_SKIP() << "PipeWire has no such sinks";
    PrivateSoundServer server(PrivateSoundServer::At::Once, GetParam());
    SineSource source(440.0);
    CubebOutput output;
    ASSERT_EQ(output.initialize(), status::noError);
    output.connect(&source);
    const auto recorder = server.record(QStringLiteral("a"));
    output.start();
    const auto begin = recorder->waitForSound(0);
    ASSERT_GE(begin, 0);
    recorder->waitFor(0.3);
    output.stop();
    const auto silence = recorder->waitForSilence(static_cast<std::size_t>(begin));
    ASSERT_GE(silence, 0);
    // Every pulled frame was played, and the last ones fade out.
    EXPECT_NEAR(static_cast<double>(silence - begin), static_cast<double>(source.rendered.load()),
                200.0);

    // No step between two samples is larger than the steepest one of the tone.
    const std::vector<float> heard = recorder->samples();
    float step = 0.0F;
    for (std::size_t i = 1; i < heard.size(); ++i)
        step = std::max(step, std::abs(heard[i] - heard[i - 1]));
    EXPECT_LT(step, 0.5F * 2.0F * std::numbers::pi_v<float> * 440.0F / 44100.0F + 0.001F);
}

INSTANTIATE_TEST_SUITE_P(Sinks, CubebOutputFades,
                         testing::Values(PrivateSoundServer::Sinks::Plain,
                                         PrivateSoundServer::Sinks::Rewinding));

TEST_F(CubebOutputOnServer, AStopFromInsideTheCallbackSilencesAndTheNextStartPlaysOn)
{
    ASSERT_EQ(output.initialize(), status::noError);
    EndingSource source(output, second / 4);
    ASSERT_EQ(output.connect(&source), status::noError);
    recorder = server.record(QStringLiteral("a"));

    output.start();
    const auto begin = recorder->waitForSound(0);
    ASSERT_GE(begin, 0);
    const auto silence = recorder->waitForSilence(static_cast<std::size_t>(begin));
    ASSERT_GE(silence, 0);
    EXPECT_FALSE(output.isRunning());
    EXPECT_EQ(source.endings, 1);

    source.end = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(output.start(), status::noError);
    EXPECT_GE(recorder->waitForSound(static_cast<std::size_t>(silence)), 0);
    EXPECT_TRUE(output.isRunning());
    EXPECT_EQ(output.stop(), status::noError);
    EXPECT_EQ(source.endings, 1);
}

TEST_F(CubebOutputOnServer, VolumeScalesWhatIsHeardAndReadsBackAsSet)
{
    SineSource source(440.0);
    open(source);
    EXPECT_EQ(output.setParameter(parameter::outputVolume, 0.25F), status::noError);
    output.start();
    const auto begin = recorder->waitForSound(0);
    ASSERT_GE(begin, 0);
    recorder->waitFor(0.3);
    EXPECT_NEAR(peakOf(recorder->samples()), 0.125, 0.001);

    output.setParameter(parameter::outputVolume, 7.0F);
    EXPECT_EQ(output.parameter(parameter::outputVolume), 7.0F);
    recorder->waitFor(0.3);
    EXPECT_NEAR(peakOf(recorder->samples()), 0.5, 0.001);

    output.setParameter(parameter::outputVolume, 0.0F);
    EXPECT_GE(recorder->waitForSilence(recorder->size()), 0);
    output.stop();
}

TEST_F(CubebOutputOnServer, PlaysAtTheRightPitchOnADeviceOfAnotherRateAndChannelCount)
{
    server.loadModule(QStringLiteral("module-null-sink"),
                      {QStringLiteral("sink_name=c"), QStringLiteral("rate=48000"),
                       QStringLiteral("channels=6")});
    server.setDefaultSink(QStringLiteral("c"));
    SineSource source(440.0);
    ASSERT_EQ(output.initialize(), status::noError);
    output.connect(&source);
    recorder = server.record(QStringLiteral("c"));
    output.start();
    const auto begin = recorder->waitForSound(0);
    ASSERT_GE(begin, 0);
    const auto from = static_cast<std::size_t>(begin) + second / 10;
    recorder->waitForSize(from + second / 2);
    EXPECT_NEAR(frequencyOf(recorder->samples(from, from + second / 2)), 440.0, 0.5);
    output.stop(); // before its source is destroyed
}

TEST_F(CubebOutputOnServer, AServerThatGoesAwayLeavesTheOutputRunningAndStoppable)
{
    SineSource source(440.0);
    open(source);
    output.start();
    ASSERT_GE(recorder->waitForSound(0), 0);
    server.kill();
    EXPECT_TRUE(output.isRunning());
    EXPECT_EQ(output.stop(), status::noError);
    EXPECT_FALSE(output.isRunning());

    EXPECT_EQ(output.start(), status::noAudioDevice);
    EXPECT_TRUE(output.isRunning());
    server.restart();
    ASSERT_EQ(output.initialize(), status::noError);
    recorder = server.record(QStringLiteral("a"));
    EXPECT_EQ(output.start(), status::noError);
    EXPECT_GE(recorder->waitForSound(0), 0);
    output.stop(); // before its source is destroyed
}

TEST_F(CubebOutputOnServer, DestroyingARunningOutputLeavesNoStreamBehind)
{
    SineSource source(440.0);
    {
        CubebOutput passing;
        ASSERT_EQ(passing.initialize(), status::noError);
        passing.connect(&source);
        passing.start();
        EXPECT_EQ(server.streamCount(), 1);
    }
    EXPECT_EQ(server.streamCount(), 0);
}

TEST(CubebOutput, FailsQuicklyWithoutASoundServerAndStaysUsable)
{
    const PrivateSoundServer server(PrivateSoundServer::At::Later);
    SineSource source(440.0);
    CubebOutput output;
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(output.initialize(), status::noAudioDevice);
    EXPECT_LT(timer.elapsed(), 5000);
    EXPECT_EQ(output.start(), status::noConnection);
    EXPECT_EQ(output.connect(&source), status::noError);
    EXPECT_EQ(output.start(), status::noAudioDevice);
    EXPECT_EQ(output.stop(), status::noError);
    EXPECT_FALSE(output.isRunning());
    EXPECT_EQ(source.rendered, 0U);
}

TEST(CubebOutput, RefusesParametersThatItDoesNotHaveAndValuesThatAreNotNumbers)
{
    CubebOutput output;
    EXPECT_EQ(output.parameter(parameter::outputVolume), 1.0F);
    EXPECT_EQ(output.setParameter(13, 0.5F), status::invalidParameter);
    EXPECT_EQ(output.parameter(13), 0.0F);
    EXPECT_EQ(output.setParameter(parameter::outputVolume, std::numeric_limits<float>::quiet_NaN()),
              status::invalidParameter);
    EXPECT_EQ(output.setParameter(parameter::outputVolume, std::numeric_limits<float>::infinity()),
              status::invalidParameter);
    EXPECT_EQ(output.parameter(parameter::outputVolume), 1.0F);
}

TEST(CubebOutput, RefusesToBeConnectedToNothing)
{
    CubebOutput output;
    EXPECT_EQ(output.connect(nullptr), status::noConnection);
    EXPECT_EQ(output.start(), status::noConnection);
    EXPECT_FALSE(output.isRunning());
}

} // namespace
