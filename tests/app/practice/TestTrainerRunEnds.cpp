// However a run of the trainer ends, the speed is what it was.

#include "TrainerRunFixture.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheEndOfARun : public TrainerRunFixture {
protected:
    TheEndOfARun()
    {
        audio().setPlaybackSpeedPct(85.0F);
        train(quick());
        playPass();
        EXPECT_EQ(speed(), 70.0F);
    }

    void expectTheSpeedOfBefore() const
    {
        EXPECT_FALSE(run->isRunning());
        EXPECT_EQ(speed(), 85.0F);
        EXPECT_FALSE(wanted.back()) << "count-ins are the player's own again";
    }
};

TEST_F(TheEndOfARun, ByHandRestoresTheSpeed)
{
    run->stop();
    expectTheSpeedOfBefore();
    EXPECT_TRUE(audio().isRunning()) << "the loop goes on";
    playPass();
    EXPECT_EQ(speed(), 85.0F);
}

TEST_F(TheEndOfARun, ByClearingTheLoopRestoresTheSpeed)
{
    audio().clearLoop();
    expectTheSpeedOfBefore();
}

TEST_F(TheEndOfARun, ByAnotherLoopRestoresTheSpeedOrTakesTheOneThatIsKeptWithIt)
{
    practice->play(addLoop(20 * rate, 21 * rate));
    expectTheSpeedOfBefore();
    practice->play(loop);
    ASSERT_TRUE(run->start());
    const PracticeLoop slow{.from = 30 * rate, .to = 31 * rate, .speed = 55};
    ASSERT_TRUE(practice->store().apply({PutLoop{slow}}));
    practice->play(slow.id);
    EXPECT_FALSE(run->isRunning());
    EXPECT_EQ(speed(), 55.0F);
}

TEST_F(TheEndOfARun, ByALoopThatIsNotKeptRestoresTheSpeed)
{
    practice->changeLoop({30 * rate, 31 * rate}, loopHands::Grip::Nothing);
    expectTheSpeedOfBefore();
}

TEST_F(TheEndOfARun, ByDeletingItsLoopRestoresTheSpeed)
{
    ASSERT_TRUE(practice->remove(loop));
    expectTheSpeedOfBefore();
}

TEST_F(TheEndOfARun, ByAnotherSongLeavesThatSongsSpeed)
{
    load(u"B"_s);
    EXPECT_FALSE(run->isRunning());
    EXPECT_EQ(speed(), 100.0F);
    EXPECT_FALSE(wanted.back());
}

TEST_F(TheEndOfARun, ByTheSameSongLoadedAgainLeavesTheSongsSpeed)
{
    load(u"A"_s);
    EXPECT_FALSE(run->isRunning());
    EXPECT_EQ(speed(), 100.0F);
}

TEST_F(TheEndOfARun, ByALoadThatFailsRestoresTheSpeed)
{
    transport.song->openStatus = status::fileNotFound;
    EXPECT_NE(transport.load(song(u"B"_s)), 0);
    expectTheSpeedOfBefore();
}

TEST_F(TheEndOfARun, ByEmptyingThePlayerLeavesTheUsualSpeed)
{
    audio().emptyPlayer();
    EXPECT_FALSE(run->isRunning());
    EXPECT_EQ(speed(), 100.0F);
}

TEST_F(TheEndOfARun, ByTheLossOfTheDeviceRestoresTheSpeed)
{
    transport.audio.failAt(FakeStep::OutputInitialize, status::noAudioDevice);
    transport.audio.loseDevice();
    ASSERT_TRUE(transport.audio.fireDefaultOutputChanged());
    QCoreApplication::processEvents();
    expectTheSpeedOfBefore();
    transport.audio.clearFailures();
    ASSERT_TRUE(transport.audio.fireDefaultOutputChanged());
    EXPECT_EQ(speed(), 85.0F);
}

TEST_F(TheEndOfARun, DoesNotComeWithAnotherDevice)
{
    ASSERT_TRUE(transport.audio.fireDefaultOutputChangedOnThread());
    QCoreApplication::processEvents();
    EXPECT_TRUE(run->isRunning());
    playPass();
    EXPECT_EQ(speed(), 80.0F);
}

TEST_F(TheEndOfARun, ByClosingThePaneRestoresTheSpeed)
{
    practice->setOpen(false);
    expectTheSpeedOfBefore();
}

TEST_F(TheEndOfARun, ByTheEndOfTheProgramRestoresTheSpeed)
{
    NotificationCenter::defaultCenter().post(notification::applicationWillTerminate);
    expectTheSpeedOfBefore();
}

TEST_F(TheEndOfARun, AtTheTopRestoresTheSpeed)
{
    TrainerSettings settings = run->settings();
    settings.to = 70;
    settings.atTop = AtTop::Stop;
    ASSERT_TRUE(run->setSettings(settings));
    playPass();
    expectTheSpeedOfBefore();
    EXPECT_FALSE(audio().isRunning());
}

} // namespace
