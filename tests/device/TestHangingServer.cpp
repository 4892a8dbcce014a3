// A sound server that runs but does not answer.

#include "device/Fixtures.h"
#include "device/SineSource.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// The library itself would wait half a minute for a server that hangs.
constexpr qint64 soonMilliseconds = 10'000;

TEST_F(CubebOutputOnServer, AStopDoesNotWaitForAServerThatHangsAndNoCallbackPullsTheSourceAfterIt)
{
    std::atomic<int> losses{0};
    output.setLossListener([&] { ++losses; });
    SineSource source(440.0);
    open(source);
    output.start();
    ASSERT_GE(recorder->waitForSound(0), 0);
    EXPECT_EQ(output.deviceStatus(), status::noError);
    server.hang();
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(output.stop(), status::noError);
    EXPECT_LT(timer.elapsed(), soonMilliseconds);
    EXPECT_FALSE(output.isRunning());
    EXPECT_EQ(output.deviceStatus(), status::soundServerHangs);
    EXPECT_EQ(losses, 1);
    const std::uint64_t rendered = source.rendered;

    // Nothing asks the server any more; a start takes effect on the next output.
    EXPECT_EQ(output.start(), status::soundServerHangs);
    EXPECT_TRUE(output.isRunning());
    EXPECT_EQ(output.stop(), status::noError);
    EXPECT_FALSE(output.isRunning());
    EXPECT_EQ(output.setParameter(parameter::outputVolume, 0.5F), status::noError);
    EXPECT_EQ(output.parameter(parameter::outputVolume), 0.5F);
    EXPECT_EQ(losses, 1);

    server.resume();
    ASSERT_GE(recorder->waitForSilence(recorder->size()), 0);
    EXPECT_EQ(source.rendered, rendered);
    EXPECT_EQ(losses, 1);

    ASSERT_EQ(output.initialize(), status::noError);
    EXPECT_EQ(output.deviceStatus(), status::noError);
    EXPECT_EQ(output.start(), status::noError);
    EXPECT_GE(recorder->waitForSound(recorder->size()), 0);
    output.stop();
}

TEST_F(CubebOutputOnServer, TheSourceMayBeDestroyedAfterAStopThatTheServerDidNotAnswer)
{
    auto source = std::make_unique<SineSource>(440.0);
    open(*source);
    output.start();
    ASSERT_GE(recorder->waitForSound(0), 0);
    server.hang();
    output.stop();
    source.reset();
    server.resume();
    EXPECT_GE(recorder->waitForSilence(recorder->size()), 0);
}

TEST_F(CubebOutputOnServer, OpeningDoesNotWaitForAServerThatHangs)
{
    std::atomic<int> losses{0};
    output.setLossListener([&] { ++losses; });
    server.hang();
    SineSource source(440.0);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(output.initialize(), status::noError);
    EXPECT_LT(timer.elapsed(), soonMilliseconds);
    EXPECT_EQ(output.deviceStatus(), status::soundServerHangs);
    EXPECT_EQ(losses, 1);
    EXPECT_EQ(output.connect(&source), status::noError);
    EXPECT_EQ(output.start(), status::soundServerHangs);
    EXPECT_TRUE(output.isRunning());

    // The abandoned output plays nothing, but the next one does.
    server.resume();
    ASSERT_EQ(output.initialize(), status::noError);
    EXPECT_EQ(output.start(), status::noError);
    recorder = server.record(QStringLiteral("a"));
    EXPECT_GE(recorder->waitForSound(0), 0);
    output.stop();
}

TEST_F(CubebOutputOnServer, AStartDoesNotWaitForAServerThatHangs)
{
    SineSource source(440.0);
    open(source);
    server.hang();
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(output.start(), status::soundServerHangs);
    EXPECT_LT(timer.elapsed(), soonMilliseconds);
    EXPECT_TRUE(output.isRunning());
    server.resume();
    recorder->waitFor(0.3);
    EXPECT_EQ(peakOf(recorder->samples()), 0.0F);
    EXPECT_EQ(source.rendered, 0U);
}

TEST_F(SoundFaults, PauseAndPlayDoNotWaitForAServerThatHangsAndTheSongContinuesWhenItAnswers)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    engine::setEqLevel(firstBand, 3.0F);
    const QUrl other = tone(120.0);
    server.hang();
    QElapsedTimer timer;
    timer.start();
    engine::setOutputRunning(false);
    EXPECT_FALSE(engine::outputIsRunning());
    EXPECT_EQ(engine::soundStatus(), status::soundServerHangs);
    const std::uint64_t position = engine::currentFrame();
    engine::setOutputRunning(true);
    EXPECT_TRUE(engine::outputIsRunning());
    engine::setOutputRunning(false);
    ASSERT_EQ(engine::loadAudioFile(other), status::noError);
    engine::seekToFrame(position);
    engine::setOutputRunning(true);
    EXPECT_LT(timer.elapsed(), 20'000); // the libraries would wait half a minute each time
    EXPECT_EQ(engine::soundStatus(), status::soundServerHangs);
    EXPECT_EQ(engine::currentFrame(), position);

    server.resume();
    EXPECT_TRUE(waitForSoundStatus(status::noError));
    EXPECT_TRUE(engine::outputIsRunning());
    EXPECT_EQ(engine::eqLevel(firstBand), 3.0F);
    expectTone(u"a"_s);
    EXPECT_GE(engine::currentFrame(), position);
}

TEST_F(SoundFaults, APauseWhileTheServerHangsLastsWhenItAnswers)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    server.hang();
    engine::setOutputRunning(false);
    server.resume();
    EXPECT_TRUE(waitForSoundStatus(status::noError));
    EXPECT_FALSE(engine::outputIsRunning());
    recorder = server.record(u"a"_s);
    recorder->waitFor(0.5);
    EXPECT_EQ(peakOf(recorder->samples()), 0.0F);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
}

TEST_F(SoundFaults, AServerThatHungAndIsKilledIsReplacedByTheNextOne)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    server.hang();
    engine::setOutputRunning(false);
    engine::setOutputRunning(true);
    server.kill();
    EXPECT_TRUE(waitForSoundStatus(status::noAudioDevice));
    ASSERT_TRUE(server.restart());
    EXPECT_TRUE(waitForSoundStatus(status::noError));
    expectTone(u"a"_s);
}

TEST(SoundWithoutAnswer, TheEngineIsBuiltAndPlaysWhenTheServerAnswers)
{
    PrivateSoundServer server;
    server.hang();
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(engine::buildAudioSystem(), status::noError);
    EXPECT_LT(timer.elapsed(), 15'000);
    EXPECT_EQ(engine::soundStatus(), status::soundServerHangs);
    ASSERT_EQ(engine::loadAudioFile(tone(60.0)), status::noError);
    engine::setOutputVolume(0.5F);
    engine::setOutputRunning(true);
    server.resume();
    const auto recorder = server.record(u"a"_s);
    const auto begin = recorder->waitForSound(0, 0.05, 15.0);
    ASSERT_GE(begin, 0);
    EXPECT_EQ(engine::soundStatus(), status::noError);
    recorder->waitForSize(static_cast<std::size_t>(begin) + frames(0.5));
    EXPECT_NEAR(peakOf(recorder->samples(static_cast<std::size_t>(begin))), 0.25, 0.03);
    engine::tearDownAudioSystem();
}

TEST(SoundWithoutAnswer, TheEngineMayBeTornDownWhileTheServerHangs)
{
    PrivateSoundServer server;
    ASSERT_EQ(engine::buildAudioSystem(), status::noError);
    ASSERT_EQ(engine::loadAudioFile(tone(60.0)), status::noError);
    engine::setOutputRunning(true);
    server.hang();
    QElapsedTimer timer;
    timer.start();
    engine::tearDownAudioSystem();
    EXPECT_LT(timer.elapsed(), 15'000);
    EXPECT_EQ(engine::totalFrames(), 0U);
}

} // namespace
