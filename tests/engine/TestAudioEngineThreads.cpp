#include "EngineFixture.h"
#include "engine/ClicksAndLeadIns.h"
#include "platform/audio/ClickTable.h"

#include <atomic>
#include <random>
#include <thread>

namespace lyrabox::test {
namespace {

class AudioEngineThreads : public EngineFixture {
protected:
    static void changeClicksAndLeadIns(std::mt19937 &random)
    {
        const std::array<SongBeat, 2> beats{SongBeat{.frame = random() % 30000},
                                            SongBeat{.frame = 30000 + random() % 30000}};
        engine::setClicks(random() % 4 == 0 ? nullptr : clickTable(beats, {.subdivision = 8}));
        engine::setClickSound({.loudness = static_cast<float>(random() % 10) / 10.0F});
        engine::setLeadInAtWrap({.frames = static_cast<std::uint32_t>(random() % 700),
                                 .clickCount = static_cast<std::uint32_t>(random() % 3)});
        engine::setLeadInAtStart({.frames = static_cast<std::uint32_t>(random() % 700)});
    }
};

TEST_F(AudioEngineThreads, PullsSeeksLoopsLoadsAndDeviceChangesDoNotDisturbEachOther)
{
    buildAndPlay(50000);
    engine::setOutputVolume(0.5F);
    engine::setEqLevel(5, 3.0F);

    std::atomic<bool> done = false;
    std::atomic<bool> channelsAgree = true;
    std::thread device([&] {
        while (!done) {
            const PulledAudio heard = audio.pull(512);
            for (std::size_t i = 0; i < 512; ++i) {
                if (heard.channels[0][i] != -heard.channels[1][i])
                    channelsAgree = false;
            }
            std::this_thread::yield(); // lets a stop that waits have the device
        }
    });
    std::thread notifications([&] {
        for (int i = 0; i < 60; ++i) {
            audio.fireDefaultOutputChanged();
            std::this_thread::yield();
        }
    });

    std::mt19937 random(7);
    std::uint64_t passes = 0;
    for (int i = 0; i < 600; ++i) {
        const engine::PassCount count = engine::passes();
        EXPECT_GE(count.ended, passes);
        EXPECT_LE(count.heard, count.ended);
        passes = count.ended;
        switch (random() % 9) {
        case 0:
            engine::setIsLooping(random() % 2 == 0);
            break;
        case 1:
            engine::setLoopStartFrame(random() % 60000);
            break;
        case 2:
            engine::setLoopEndFrame(random() % 60000);
            break;
        case 3:
            engine::setPlaybackRate(0.5F + static_cast<float>(random() % 100) / 100.0F);
            engine::setEqLevel(2, static_cast<float>(random() % 12));
            break;
        case 4:
            if (engine::trackHasEnded())
                engine::setTrackHasEnded(false);
            engine::setOutputRunning(true);
            break;
        case 5:
            if (random() % 8 == 0) {
                engine::setOutputRunning(false);
                EXPECT_EQ(loadSong(random() % 50000), 0);
                engine::setOutputRunning(true);
            }
            break;
        case 6:
            changeClicksAndLeadIns(random);
            break;
        default:
            engine::seekToFrame(random() % 60000);
            engine::outputIsRunning();
            engine::wholeSeconds(engine::currentFrame(), engine::streamFormat().mSampleRate);
            break;
        }
    }
    notifications.join();
    done = true;
    device.join();

    EXPECT_TRUE(channelsAgree);
    EXPECT_EQ(engine::outputVolume(), 0.5F);
    EXPECT_EQ(engine::eqLevel(5), 3.0F);
    EXPECT_EQ(audio.unitsAlive(), 4);
}

TEST_F(AudioEngineThreads, NoSeekIsLostToTheCallback)
{
    buildAndPlay(10000000);
    std::atomic<bool> done = false;
    std::thread device([&] {
        while (!done) {
            audio.pull(128);
            std::this_thread::yield();
        }
    });
    // Each seek goes far beyond the frames that are pulled meanwhile. So a lost seek would show as
    // a step back.
    std::uint64_t target = 0;
    for (int i = 0; i < 2000; ++i) {
        target += 2000;
        engine::seekToFrame(target);
        ASSERT_GE(engine::currentFrame(), target);
        target = engine::currentFrame();
        if (target > 9000000)
            break;
    }
    done = true;
    device.join();
}

TEST_F(AudioEngineThreads, TearDownWaitsForARunningNotification)
{
    buildAndPlay(10000);
    std::thread notifications([&] {
        for (int i = 0; i < 20; ++i)
            audio.fireDefaultOutputChanged();
    });
    engine::tearDownAudioSystem();
    notifications.join();
    EXPECT_EQ(audio.unitsAlive(), 0);
}

} // namespace
} // namespace lyrabox::test
