// Faults during a long session: servers that die, and devices that come, go and differ.

#include "engine/AudioEngine.h"

#include "device/Fixtures.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <random>
#include <thread>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST_F(SoundFaults, TheServerMayBeKilledAndStartedAgainTwentyTimesInASong)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setPlaybackRate(0.5F);
    engine::setEqLevel(firstBand, 3.0F);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    std::uint64_t before = engine::currentFrame();
    for (int round = 0; round < 20; ++round) {
        server.kill();
        EXPECT_TRUE(engine::outputIsRunning());
        ASSERT_TRUE(server.restart());
        recorder = server.record(u"a"_s);
        ASSERT_GE(recorder->waitForSound(0, 0.05, 15.0), 0) << "round " << round;
        const std::uint64_t position = engine::currentFrame();
        EXPECT_GE(position, before) << "round " << round;
        EXPECT_LT(position, before + frames(8.0)) << "round " << round;
        before = position;
    }
    EXPECT_EQ(engine::playbackRate(), 0.5F);
    EXPECT_EQ(engine::eqLevel(firstBand), 3.0F);
    EXPECT_FALSE(engine::trackHasEnded());
    expectTone(u"a"_s);
}

TEST_F(SoundFaults, TheDefaultDeviceMayChangeAHundredTimesWhileSongsAreUsedInEveryWay)
{
    constexpr int enoughChanges = 100;
    constexpr int enoughLoads = 30;
    std::atomic<int> changes{0};
    std::atomic<int> loads{0};
    const auto isDone = [&] { return changes >= enoughChanges && loads >= enoughLoads; };
    std::thread user([&] {
        for (; !isDone() || changes % 2 != 0; ++changes) {
            // By the shell, because the fixture of the server is for the main thread only.
            if (std::system(changes % 2 == 0 ? "pactl set-default-sink b"
                                             : "pactl set-default-sink a") != 0)
                ADD_FAILURE() << "the default device cannot be changed";
        }
    });
    const std::vector<QUrl> songs{tone(1.2), tone(1.2, u"mp3"_s), tone(6.0), tone(0.3, u"wav"_s)};
    std::mt19937 dice(100);
    const auto draw = [&dice](unsigned below) { return static_cast<unsigned>(dice() % below); };
    while (!isDone()) {
        switch (draw(9)) {
        case 0:
            engine::setOutputRunning(false);
            EXPECT_EQ(engine::loadAudioFile(songs[draw(4)]), status::noError);
            engine::setTrackHasEnded(false);
            engine::setOutputRunning(true);
            ++loads;
            break;
        case 1:
        case 2:
            engine::seekToFrame(draw(static_cast<unsigned>(engine::totalFrames()) + 1));
            break;
        case 3:
            engine::setLoopStartFrame(draw(20'000));
            engine::setLoopEndFrame(20'000 + draw(20'000));
            engine::setIsLooping(draw(3) != 0);
            break;
        case 4:
            engine::setPlaybackRate(0.25F + 0.05F * static_cast<float>(draw(30)));
            break;
        case 5:
            engine::setPitchCents(static_cast<float>(draw(2400)) - 1200.0F);
            break;
        case 6:
            engine::setEqLevel(firstBand + 3 * draw(bands), static_cast<float>(draw(24)) - 12.0F);
            break;
        case 7:
            engine::setOutputRunning(draw(4) != 0);
            break;
        default:
            engine::setOutputVolume(static_cast<float>(draw(100)) / 100.0F);
            break;
        }
        EXPECT_LE(engine::currentFrame(), engine::totalFrames());
    }
    user.join();
    RecordProperty("songsLoaded", loads);
    RecordProperty("changes", changes);

    // The last change was to "a", so it must play there.
    engine::setOutputRunning(false);
    engine::setIsLooping(false);
    engine::setTrackHasEnded(false);
    ASSERT_EQ(engine::loadAudioFile(tone(60.0)), status::noError);
    engine::setPlaybackRate(1.0F);
    engine::setPitchCents(0.0F);
    engine::setOutputVolume(1.0F);
    for (std::uint32_t band = 0; band < bands; ++band)
        engine::setEqLevel(firstBand + 3 * band, 0.0F);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
}

TEST_F(SoundFaults, ADeviceWithAnotherRateOrChannelCountPlaysTheSameTone)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    const std::vector<QStringList> devices{{u"rate=96000"_s, u"channels=6"_s},
                                           {u"rate=22050"_s, u"channels=1"_s},
                                           {u"rate=48000"_s, u"channels=8"_s},
                                           {u"rate=8000"_s, u"channels=2"_s},
                                           {u"rate=192000"_s, u"format=s24le"_s}};
    for (std::size_t i = 0; i < devices.size(); ++i) {
        const QString name = u"odd%1"_s.arg(i);
        ASSERT_GE(server.loadModule(u"module-null-sink"_s,
                                    QStringList{u"sink_name="_s + name} + devices[i]),
                  0);
        ASSERT_TRUE(server.setDefaultSink(name));
        SCOPED_TRACE(devices[i].join(u' ').toStdString());
        expectTone(name);
    }
}

TEST_F(SoundFaults, ASuspendedDeviceHoldsTheSongUntilItIsResumed)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    for (int round = 0; round < 3; ++round) {
        recorder.reset();
        const std::uint64_t before = engine::currentFrame();
        ASSERT_TRUE(server.suspendSink(u"a"_s, true));
        EXPECT_TRUE(engine::outputIsRunning());
        if (server.kind() == PrivateSoundServer::Kind::PulseAudio)
            EXPECT_TRUE(waitForSoundStatus(status::soundServerHangs));
        else
            expectTone(u"a"_s); // PipeWire wakes a device that is in use at once
        ASSERT_TRUE(server.suspendSink(u"a"_s, false));
        expectTone(u"a"_s);
        EXPECT_GE(engine::currentFrame(), before);
        EXPECT_EQ(engine::soundStatus(), status::noError);
    }
}

TEST_F(SoundFaults, ASongMayBePausedAndResumedWhileItsDeviceIsSuspended)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    recorder.reset();
    ASSERT_TRUE(server.suspendSink(u"a"_s, true));
    engine::setOutputRunning(false);
    EXPECT_FALSE(engine::outputIsRunning());
    engine::seekToFrame(frames(100.0));
    engine::setOutputRunning(true);
    EXPECT_TRUE(engine::outputIsRunning());
    ASSERT_TRUE(server.suspendSink(u"a"_s, false));
    expectTone(u"a"_s);
    EXPECT_GE(engine::currentFrame(), frames(100.0));
}

TEST_F(SoundFaults, TheLastDeviceMayDisappearDuringASongAndAnotherOneTakesOver)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    for (const QString &name : {u"one"_s, u"two"_s, u"three"_s}) {
        recorder.reset();
        const std::uint64_t before = engine::currentFrame();
        ASSERT_TRUE(server.removeSinks());
        EXPECT_TRUE(engine::outputIsRunning());
        ASSERT_GE(server.loadModule(u"module-null-sink"_s, {u"sink_name="_s + name}), 0);
        ASSERT_TRUE(server.setDefaultSink(name));
        expectTone(name);
        EXPECT_GE(engine::currentFrame(), before);
    }
}

TEST(SoundWithoutDevice, IsRefusedAtTheStartAndBuiltWhenADeviceIsThere)
{
    PrivateSoundServer server;
    ASSERT_TRUE(server.removeSinks());
    EXPECT_EQ(engine::buildAudioSystem(), status::noAudioDevice);
    EXPECT_EQ(engine::buildAudioSystem(), status::noAudioDevice);
    ASSERT_GE(server.loadModule(u"module-null-sink"_s, {u"sink_name=late"_s}), 0);
    ASSERT_EQ(engine::buildAudioSystem(), status::noError);
    ASSERT_EQ(engine::loadAudioFile(tone(60.0)), status::noError);
    engine::setOutputRunning(true);
    const auto recorder = server.record(u"late"_s);
    EXPECT_GE(recorder->waitForSound(0, 0.05, 15.0), 0);
    engine::tearDownAudioSystem();
}

} // namespace
