// A run of the trainer on the player: passes that are played, and the speeds that follow.

#include "TrainerRunFixture.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ARunOfTheTrainer : public TrainerRunFixture {};

TEST_F(ARunOfTheTrainer, TakesThePlayerUpTheLadderPassByPass)
{
    train(quick());
    EXPECT_TRUE(audio().isRunning());
    EXPECT_EQ(audio().currentFrame(), firstFrame);
    std::vector<float> speeds{speed()};
    for (int pass = 0; pass < 5; ++pass) {
        playPass();
        speeds.push_back(speed());
    }
    EXPECT_EQ(speeds, (std::vector<float>{60, 70, 80, 90, 100, 100}));
    run->stop();
    EXPECT_EQ(speed(), 100.0F);
}

TEST_F(ARunOfTheTrainer, NeedsPassesInARowAndStepsDownOnAMiss)
{
    TrainerSettings settings = quick();
    settings.passes = 2;
    train(settings);
    playPass();
    EXPECT_EQ(speed(), 60.0F);
    EXPECT_EQ(run->strip().passesDone, 1);
    playPass();
    EXPECT_EQ(speed(), 70.0F);
    run->missed(); // within two seconds: the pass before is meant
    EXPECT_EQ(speed(), 60.0F);
    EXPECT_EQ(run->strip().news, TrainerStrip::News::Missed);
}

TEST_F(ARunOfTheTrainer, AVerdictAfterTwoSecondsIsMeantForThePassThatPlays)
{
    const PracticeId longLoop = addLoop(20 * rate, 25 * rate);
    keep(longLoop, quick());
    practice->play(longLoop);
    ASSERT_TRUE(run->start());
    playPass();
    ASSERT_EQ(speed(), 70.0F);
    playSeconds(1.3); // 1.9 s at 70 %
    run->missed();
    EXPECT_EQ(speed(), 60.0F) << "the pass before";
    playPass();
    ASSERT_EQ(speed(), 70.0F);
    playSeconds(1.5); // 2.1 s at 70 %
    run->missed();
    EXPECT_EQ(speed(), 70.0F);
    EXPECT_EQ(run->strip().thisPass, PassVerdict::Missed);
    playPass();
    EXPECT_EQ(speed(), 60.0F);
}

TEST_F(ARunOfTheTrainer, CountsOnlyWhatWasCalledRightIfThatIsSet)
{
    TrainerSettings settings = quick();
    settings.judging = PassJudging::OnlyRight;
    train(settings);
    playPass();
    EXPECT_EQ(speed(), 60.0F);
    run->right();
    EXPECT_EQ(speed(), 70.0F);
    playPass();
    EXPECT_EQ(speed(), 70.0F);
}

TEST_F(ARunOfTheTrainer, MovesItsStepWhenTheSpeedIsSetByHand)
{
    TrainerSettings settings = quick();
    settings.passes = 2;
    train(settings);
    playPass();
    audio().setPlaybackSpeedPct(75.0F);
    EXPECT_EQ(run->strip().speed, 75.0);
    EXPECT_EQ(run->strip().passesDone, 0);
    playPass();
    playPass();
    EXPECT_EQ(speed(), 80.0F);
    run->goTo(60.0);
    EXPECT_EQ(speed(), 60.0F);
    run->goTo(5.0);
    EXPECT_EQ(speed(), 10.0F) << "the speed stays within its range";
}

TEST_F(ARunOfTheTrainer, KeepsALoopThatIsNotKeptAndTrainsIt)
{
    audio().setLoop({30 * rate, 31 * rate});
    ASSERT_TRUE(run->canStart());
    EXPECT_FALSE(run->target());
    ASSERT_TRUE(run->start());
    EXPECT_EQ(record().loops.size(), 2U);
    EXPECT_EQ(run->loop(), practice->calledUp());
    EXPECT_EQ(speed(), 60.0F);
}

TEST_F(ARunOfTheTrainer, TrainsTheSelectedLoopIfThePlayerRepeatsNone)
{
    EXPECT_FALSE(run->canStart());
    EXPECT_FALSE(run->start());
    practice->select(loop);
    ASSERT_TRUE(run->canStart());
    ASSERT_TRUE(run->start());
    EXPECT_EQ(practice->calledUp(), loop);
    EXPECT_TRUE(audio().isRunning());
}

TEST_F(ARunOfTheTrainer, CannotBeginWithALoopBeyondTheSongOrInBeatsThatAreNotKnown)
{
    practice->select(addLoop(59 * rate, 70 * rate));
    EXPECT_FALSE(run->canStart());
    TrainerSettings beats = quick();
    beats.unit = TempoUnit::BeatsPerMinute;
    keep(loop, beats);
    practice->play(loop);
    EXPECT_FALSE(run->canStart());
    EXPECT_FALSE(run->start());
    EXPECT_EQ(speed(), 100.0F);
    ASSERT_TRUE(practice->store().apply(
        {PutBeats{BeatGrid({{.frame = 0}, {.frame = 40 * rate, .bar = 21}})}})); // 120 BPM
    ASSERT_TRUE(run->start());
    EXPECT_NEAR(*run->strip().tempo, 60.0, 0.01);
    EXPECT_EQ(speed(), 50.0F);
}

TEST_F(ARunOfTheTrainer, OfATopBelowItsStartGoesUpAllTheSame)
{
    TrainerSettings settings = quick();
    settings.from = 90;
    settings.to = 70;
    train(settings);
    EXPECT_EQ(speed(), 70.0F);
    EXPECT_EQ(run->ladder(), (std::vector<int>{70, 80, 90}));
}

TEST_F(ARunOfTheTrainer, StaysWithinTheRangeOfTheSpeed)
{
    TrainerSettings settings = quick();
    settings.from = 1;
    settings.to = 900;
    settings.step = 95;
    train(settings);
    EXPECT_EQ(run->ladder(), (std::vector<int>{10, 105, 200}));
}

TEST_F(ARunOfTheTrainer, TakesChangedSettingsOverAtItsSpeed)
{
    train(quick());
    playPass();
    ASSERT_EQ(speed(), 70.0F);
    TrainerSettings settings = run->settings();
    settings.step = 5;
    ASSERT_TRUE(run->setSettings(settings));
    EXPECT_EQ(speed(), 70.0F);
    playPass();
    EXPECT_EQ(speed(), 75.0F);
    ASSERT_TRUE(practice->store().undo());
    EXPECT_EQ(run->ladder().size(), 5U);
    run->stop();
    EXPECT_EQ(speed(), 100.0F);
}

TEST_F(ARunOfTheTrainer, WaitsWhileThePlayerIsPaused)
{
    train(quick());
    audio().setIsRunning(false);
    transport.audio.pull(200 * slice);
    run->poll();
    EXPECT_TRUE(run->isRunning());
    EXPECT_EQ(speed(), 60.0F);
    audio().setIsRunning(true);
    playPass();
    EXPECT_EQ(speed(), 70.0F);
}

TEST_F(ARunOfTheTrainer, FollowsItsLoopWhenThatIsMoved)
{
    train(quick());
    practice->changeLoop({firstFrame + slice, firstFrame + loopFrames}, loopHands::Grip::Start);
    EXPECT_TRUE(run->isRunning());
    playPass();
    EXPECT_EQ(speed(), 70.0F);
}

TEST_F(ARunOfTheTrainer, GoesOnWhenItsLoopIsPlayedFromItsStart)
{
    train(quick());
    playPass();
    PracticeLoop changed = *record().loop(loop);
    changed.speed = 40;
    ASSERT_TRUE(practice->store().apply({PutLoop{changed}}));
    practice->play(loop);
    EXPECT_TRUE(run->isRunning());
    EXPECT_EQ(speed(), 70.0F) << "the kept speed must not disturb it";
}

TEST_F(ARunOfTheTrainer, AsksForCountInsAndForSilenceBeforeItStops)
{
    TrainerSettings settings = quick();
    settings.from = 90;
    settings.between = BetweenPasses::CountIn;
    settings.beats = 3;
    settings.atTop = AtTop::Stop;
    train(settings);
    const BeforePass countIn{.kind = BetweenPasses::CountIn, .beats = 3};
    EXPECT_EQ(wanted, (std::vector<std::optional<BeforePass>>{countIn, countIn}))
        << "before the first pass, and before the next one, which is faster";
    playPass();
    ASSERT_EQ(speed(), 100.0F);
    EXPECT_EQ(wanted.back()->kind, BetweenPasses::Rest) << "the music stops behind this pass";
    playPass();
    EXPECT_FALSE(run->isRunning());
    EXPECT_FALSE(wanted.back());
    EXPECT_FALSE(audio().isRunning());
    EXPECT_EQ(audio().playPauseButton()->state(), 0);
    EXPECT_EQ(audio().currentFrame(), firstFrame);
}

TEST_F(ARunOfTheTrainer, PlaysTheMusicBeforeTheLoopAsARunUp)
{
    TrainerSettings settings = quick();
    settings.between = BetweenPasses::RunUp;
    settings.beats = 2; // a second without a grid
    train(settings);
    EXPECT_EQ(audio().currentFrame(), firstFrame - rate);
    EXPECT_EQ(audio().loop(), (LoopRange{firstFrame, firstFrame + loopFrames}));
    playPass();
    EXPECT_EQ(speed(), 70.0F);
    EXPECT_LT(audio().currentFrame(), firstFrame - rate + 10 * slice);
    run->missed();
    EXPECT_EQ(speed(), 60.0F) << "nothing of the pass has been played";
    run->stop();
    playPass();
    EXPECT_GE(audio().currentFrame(), firstFrame) << "a loop without a run-up";
}

TEST_F(ARunOfTheTrainer, GoesOnWithTheNextLoopAsItsOwn)
{
    TrainerSettings settings = quick();
    settings.from = 100;
    settings.atTop = AtTop::NextLoop;
    const PracticeId next = addLoop(20 * rate, 20 * rate + loopFrames);
    TrainerSettings nextSettings = quick();
    nextSettings.from = 40;
    nextSettings.atTop = AtTop::NextLoop;
    keep(next, nextSettings);
    audio().setPlaybackSpeedPct(88.0F);
    train(settings);
    playPass();
    EXPECT_EQ(run->loop(), next);
    EXPECT_EQ(practice->calledUp(), next);
    EXPECT_EQ(speed(), 40.0F);
    for (int pass = 0; pass < 9; ++pass)
        playPass();
    EXPECT_TRUE(run->isRunning()) << "behind the last loop of the list it goes on";
    EXPECT_EQ(speed(), 100.0F);
    run->stop();
    EXPECT_EQ(speed(), 88.0F);
}

TEST_F(ARunOfTheTrainer, MissesNoPassOfAVeryShortLoop)
{
    const PracticeId tiny = addLoop(40 * rate, 40 * rate + 2 * slice);
    keep(tiny, quick());
    practice->play(tiny);
    ASSERT_TRUE(run->start());
    transport.audio.pull(9 * slice); // four passes between two looks
    run->poll();
    EXPECT_EQ(speed(), 100.0F);
}

TEST_F(ARunOfTheTrainer, CountsNoSeekBehindTheLoop)
{
    train(quick());
    for (int i = 0; i < 5; ++i) {
        audio().setCurrentFrame(firstFrame + loopFrames + 1000);
        transport.audio.pull(5 * slice);
        run->poll();
    }
    EXPECT_EQ(speed(), 60.0F);
    playPass();
    EXPECT_EQ(speed(), 70.0F);
}

} // namespace
