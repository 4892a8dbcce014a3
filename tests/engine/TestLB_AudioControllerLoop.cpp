// LB_AudioController's loop and position without any button.

#include "engine/AudioControllerFixture.h"

namespace lyrabox::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class AudioControllerLoop : public AudioController {
protected:
    AudioControllerLoop()
    {
        QObject::connect(&player, &LB_AudioController::loopChanged, &context, [this] { ++told; });
        loadedTrack();
        told = 0;
    }

    int told = 0;
};

TEST_F(AudioControllerLoop, SetLoopLoopsAndShowsItOnTheButton)
{
    player.setLoop({.start = 2000, .end = 2256});
    EXPECT_EQ(player.loop(), (LoopRange{.start = 2000, .end = 2256}));
    EXPECT_TRUE(player.loopStartIsSet());
    EXPECT_EQ(transport.loopButton->state(), 1);
    EXPECT_EQ(loopImage(), u"LoopButton3"_s);
    EXPECT_EQ(told, 1);

    player.setCurrentFrame(2000);
    player.setIsRunning(true);
    const PulledAudio heard = transport.audio.pull(512);
    EXPECT_EQ(heard.channels[0][255], 2255.0F);
    EXPECT_EQ(heard.channels[0][256], 2000.0F);
}

TEST_F(AudioControllerLoop, ALoopToTheLastEndJumpsBackFromEveryPlaceInASlice)
{
    const quint64 end = player.lastLoopEnd();
    for (quint64 offset = 0; offset < 128; ++offset) {
        player.setLoop({.start = end - 1000 + offset, .end = end});
        player.setCurrentFrame(end - 1000 + offset);
        player.setIsRunning(true);
        transport.audio.pull(3000);
        ASSERT_FALSE(player.trackHasEnded()) << "from " << offset << " frames behind a slice";
        ASSERT_LT(player.currentFrame(), end + 128);
    }
    // One frame more and the song ends at some of them.
    player.setLoop({.start = end - 127, .end = end + 1});
    player.setCurrentFrame(end - 128);
    player.setIsRunning(true);
    transport.audio.pull(3000);
    EXPECT_TRUE(player.trackHasEnded());
}

TEST_F(AudioControllerLoop, AClickAfterSetLoopClearsTheLoop)
{
    player.setLoop({.start = 2000, .end = 3000});
    clickLoop();
    EXPECT_FALSE(player.loop());
    EXPECT_EQ(loopImage(), u"LoopButton1"_s);
}

TEST_F(AudioControllerLoop, ANewLoopReplacesTheOldOne)
{
    player.setLoop({.start = 2000, .end = 3000});
    player.setLoop({.start = 5000, .end = 7000});
    EXPECT_EQ(player.loop(), (LoopRange{.start = 5000, .end = 7000}));
    EXPECT_EQ(told, 2);
}

TEST_F(AudioControllerLoop, ClearLoopEndsTheLoopAndKeepsItsFrames)
{
    player.setLoop({.start = 2000, .end = 3000});
    player.clearLoop();
    EXPECT_FALSE(player.loop());
    EXPECT_FALSE(player.loopStartIsSet());
    EXPECT_EQ(player.loopStartFrame(), 2000U);
    EXPECT_EQ(player.loopEndFrame(), 3000U);
    EXPECT_EQ(transport.loopButton->state(), 0);
    EXPECT_EQ(loopImage(), u"LoopButton1"_s);
    EXPECT_EQ(told, 2);
}

TEST_F(AudioControllerLoop, AMarkedStartIsClosedByTheNextClick)
{
    player.markLoopStart(1500);
    EXPECT_TRUE(player.loopStartIsSet());
    EXPECT_FALSE(player.loop());
    EXPECT_EQ(loopImage(), u"LoopButton2"_s);
    player.setCurrentFrame(4000);
    clickLoop();
    EXPECT_EQ(player.loop(), (LoopRange{.start = 1500, .end = 4000}));
}

TEST_F(AudioControllerLoop, EveryClickOnTheButtonSendsLoopChanged)
{
    clickLoop();
    clickLoop();
    clickLoop();
    EXPECT_EQ(told, 3);
}

TEST_F(AudioControllerLoop, TheRangesAreThoseOfTheSliders)
{
    EXPECT_EQ(player.playbackSpeedRange(), speedRange);
    EXPECT_EQ(player.playbackPitchRange(), pitchRange);
    transport.playbackSpeedSlider->setMinValue(25.0);
    EXPECT_EQ(player.playbackSpeedRange().minimum, 25.0F);
}

TEST_F(AudioControllerLoop, TheHeardFrameIsThePositionIfNothingIsHeld)
{
    player.setCurrentFrame(1000);
    EXPECT_EQ(player.heardFrame(), 1000U);
    player.setIsRunning(true);
    transport.audio.pull(512);
    EXPECT_EQ(player.heardFrame(), 1512U);
    player.setCurrentFrame(3000);
    EXPECT_EQ(player.heardFrame(), 3000U);
    player.emptyPlayer();
    EXPECT_EQ(player.heardFrame(), 0U);
}

} // namespace
} // namespace lyrabox::test
