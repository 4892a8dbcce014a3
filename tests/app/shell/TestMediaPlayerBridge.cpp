#include "app/shell/MediaPlayerBridge.h"

#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "navigation/LB_NavigationView.h"
#include "support/PrivateBus.h"
#include "support/TransportFixture.h"

#include <QDBusVariant>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace lyrabox::test {

namespace {

/// The bridge between a player on a fake chain and a private session bus. No timer of another view
/// runs.
class MediaPlayerBridgeTest : public testing::Test {
protected:
    MediaPlayerBridgeTest()
    {
        LB_AudioController *audio = player.controller.get();
        queue.setAudio(audio);
        tracks.setQueue(&queue);
        navigation.setAudio(audio);
        navigation.setQueue(&queue);
        bridge = std::make_unique<MediaPlayerBridge>(MediaPlayerBridge::Player{
                                                         .audio = audio,
                                                         .queue = &queue,
                                                         .tracks = &tracks,
                                                         .navigation = &navigation,
                                                         .playPauseButton = player.playPauseButton,
                                                         .shuffleButton = &shuffleButton,
                                                         .raise = [] {},
                                                         .quit = [] {},
                                                         .open = [](const QList<QUrl> &) {},
                                                     },
                                                     bus.connect(u"player"_s));
    }

    void play()
    {
        ASSERT_EQ(player.load(TransportFixture::track(u"A"_s)), status::noError);
        player.controller->setIsRunning(true);
    }

    /// Waits until the desktop sees this status. Returns whether it came.
    bool comesToStatus(const QString &expected)
    {
        return QTest::qWaitFor([&] {
            const QDBusMessage reply = PrivateBus::call(
                client, u"org.mpris.MediaPlayer2.lyrabox"_s, u"/org/mpris/MediaPlayer2"_s,
                u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                {u"org.mpris.MediaPlayer2.Player"_s, u"PlaybackStatus"_s});
            return !reply.arguments().isEmpty() &&
                   reply.arguments().at(0).value<QDBusVariant>().variant().toString() == expected;
        });
    }

    PrivateBus bus;
    QDBusConnection client = bus.connect(u"client"_s);
    TransportFixture player;
    LB_QueueController queue;
    LB_TrackController tracks;
    LB_NavigationView navigation;
    StateButton shuffleButton;
    std::unique_ptr<MediaPlayerBridge> bridge;
};

} // namespace

TEST(PositionHasJumped, ToleratesLessThanHalfASecond)
{
    EXPECT_FALSE(positionHasJumped(1'000'000, 2'000'000, 1.0, 1s));
    EXPECT_FALSE(positionHasJumped(1'000'000, 2'499'999, 1.0, 1s));
    EXPECT_TRUE(positionHasJumped(1'000'000, 2'500'000, 1.0, 1s));
    EXPECT_TRUE(positionHasJumped(1'000'000, 1'500'000, 1.0, 1s));
}

TEST(PositionHasJumped, ExtrapolatesAtTheSpeedOfTheSong)
{
    EXPECT_FALSE(positionHasJumped(0, 1'000'000, 0.5, 2s));
    EXPECT_TRUE(positionHasJumped(0, 2'000'000, 0.5, 2s));
}

TEST_F(MediaPlayerBridgeTest, NoticesByItselfThatTheOutputHasStopped)
{
    player.song->frames = 4096;
    play();
    EXPECT_TRUE(comesToStatus(u"Playing"_s));
    while (player.controller->isRunning())
        player.audio.pull(512);
    player.controller->setTrackHasEnded(false); // the queue has no next song
    EXPECT_TRUE(comesToStatus(u"Paused"_s));
}

TEST_F(MediaPlayerBridgeTest, ClearsALoopWithoutTheButton)
{
    play();
    player.controller->setLoop({.start = 1000, .end = 2000});
    EXPECT_EQ(bridge->currentState().loop, MediaPlayerState::Loop::Song);
    bridge->clearLoop();
    EXPECT_EQ(bridge->currentState().loop, MediaPlayerState::Loop::None);
    EXPECT_EQ(player.loopButton->state(), 0);
}

TEST_F(MediaPlayerBridgeTest, SetsTheSpeedInWholePercentWithinItsRange)
{
    bridge->setRate(0.504);
    EXPECT_EQ(player.controller->playbackSpeedPct(), 50.0F);
    bridge->setRate(9.0);
    EXPECT_EQ(player.controller->playbackSpeedPct(), 200.0F);
    EXPECT_EQ(player.playbackSpeedSlider->floatValue(), 200.0F);
}

} // namespace lyrabox::test
