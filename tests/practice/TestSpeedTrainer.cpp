// The way through a ladder of speeds.

#include "TrainerFixture.h"

#include <limits>

namespace lyrabox::test {
namespace {

using testing::ElementsAre;
using Command = TrainerOrder::Command;
using News = TrainerStrip::News;

class SpeedTrainerTest : public TrainerFixture {};

TEST_F(SpeedTrainerTest, GoesUpAStepAfterSoManyPasses)
{
    TrainerSettings settings = quick();
    settings.passes = 3;
    ASSERT_TRUE(trainer.start(settings, 87.5));
    EXPECT_EQ(trainer.order().speed, 60.0);
    EXPECT_THAT(speedsOf(7), ElementsAre(60, 60, 70, 70, 70, 80, 80));
    EXPECT_EQ(trainer.order().strip.passesDone, 1);
    EXPECT_EQ(trainer.order().strip.passesNeeded, 3);
    EXPECT_EQ(trainer.order().strip.rung, 3);
    EXPECT_EQ(trainer.order().strip.rungs, 5);
}

TEST_F(SpeedTrainerTest, WalksTheWholeLadderWithMisses)
{
    TrainerSettings settings = quick();
    settings.passes = 2;
    trainer.start(settings, 100.0);
    EXPECT_THAT(speedsOf(2), ElementsAre(60, 70));
    EXPECT_EQ(miss(), 60.0);
    EXPECT_THAT(speedsOf(8), ElementsAre(60, 70, 70, 80, 80, 90, 90, 100));
    EXPECT_EQ(miss(), 90.0);
    EXPECT_THAT(speedsOf(4), ElementsAre(90, 100, 100, 100));
    EXPECT_EQ(trainer.order().strip.news, News::AtTop);
    EXPECT_EQ(trainer.stop(TrainerEnd::ByHand).speed, 100.0);
}

TEST_F(SpeedTrainerTest, ASteadyOneStays)
{
    TrainerSettings settings = quick();
    settings.kind = LadderKind::Steady;
    trainer.start(settings, 100.0);
    EXPECT_THAT(trainer.ladder(), ElementsAre(60));
    EXPECT_THAT(speedsOf(3), ElementsAre(60, 60, 60));
    EXPECT_EQ(miss(), 60.0);
}

TEST_F(SpeedTrainerTest, GoesTwoUpAndOneDown)
{
    TrainerSettings settings = quick();
    settings.kind = LadderKind::TwoUpOneDown;
    settings.atTop = AtTop::Again;
    trainer.start(settings, 100.0);
    EXPECT_THAT(speedsOf(7), ElementsAre(80, 70, 90, 80, 100, 60, 80));
    EXPECT_EQ(miss(), 70.0);
    EXPECT_THAT(speedsOf(2), ElementsAre(90, 80)) << "after a miss it begins with two up";
}

TEST_F(SpeedTrainerTest, GoesUpAndBack)
{
    TrainerSettings settings = quick();
    settings.kind = LadderKind::UpAndBack;
    settings.to = 80;
    settings.atTop = AtTop::Stop;
    trainer.start(settings, 95.0);
    EXPECT_THAT(speedsOf(4), ElementsAre(70, 80, 70, 60));
    const TrainerOrder last = trainer.passEnded();
    EXPECT_EQ(last.command, Command::StopPlaying);
    EXPECT_EQ(last.speed, 95.0);
    EXPECT_FALSE(last.strip.isRunning);
}

TEST_F(SpeedTrainerTest, EndsWithTheTopEvenIfTheStepDoesNotMeetIt)
{
    TrainerSettings settings = quick();
    settings.to = 85;
    trainer.start(settings, 100.0);
    EXPECT_THAT(trainer.ladder(), ElementsAre(60, 70, 80, 85));
    EXPECT_THAT(speedsOf(5), ElementsAre(70, 80, 85, 85, 85));
}

TEST_F(SpeedTrainerTest, AMissStartsARowAnewButOnlyDoesNotCountInAll)
{
    TrainerSettings settings = quick();
    settings.passes = 3;
    settings.afterMiss = AfterMiss::Stay;
    trainer.start(settings, 100.0);
    speedsOf(2);
    EXPECT_EQ(miss(), 60.0);
    EXPECT_EQ(trainer.order().strip.passesDone, 0);
    EXPECT_EQ(trainer.order().strip.news, News::Missed);

    settings.counting = PassCounting::InAll;
    trainer.start(settings, 100.0);
    speedsOf(2);
    EXPECT_EQ(miss(), 60.0);
    EXPECT_EQ(trainer.order().strip.passesDone, 2);
    EXPECT_THAT(speedsOf(1), ElementsAre(70));
}

TEST_F(SpeedTrainerTest, AMissLeadsWhereTheSettingsSay)
{
    for (const auto &[afterMiss, expected] :
         {std::pair{AfterMiss::Stay, 90.0}, std::pair{AfterMiss::OneDown, 80.0},
          std::pair{AfterMiss::TwoDown, 70.0}, std::pair{AfterMiss::ToStart, 60.0}}) {
        TrainerSettings settings = quick();
        settings.afterMiss = afterMiss;
        trainer = {};
        trainer.start(settings, 100.0);
        speedsOf(3);
        EXPECT_EQ(miss(), expected);
    }
    EXPECT_EQ(miss(), 60.0) << "not below the ladder";
}

TEST_F(SpeedTrainerTest, AVerdictInTheFirstTwoSecondsIsMeantForThePassBefore)
{
    trainer.start(quick(), 100.0);
    EXPECT_THAT(speedsOf(2), ElementsAre(70, 80));
    EXPECT_EQ(trainer.missed(1.9).speed, 60.0) << "from 70, where that pass was played";
    EXPECT_EQ(trainer.order().strip.thisPass, PassVerdict::None);
    EXPECT_THAT(speedsOf(1), ElementsAre(70)) << "the present pass counts";
    EXPECT_EQ(trainer.missed(2.0).speed, 70.0) << "meant for the present pass";
    EXPECT_EQ(trainer.order().strip.thisPass, PassVerdict::Missed);
    EXPECT_THAT(speedsOf(1), ElementsAre(60));
}

TEST_F(SpeedTrainerTest, ASecondMissInTheFirstTwoSecondsIsMeantForThePresentPass)
{
    trainer.start(quick(), 100.0);
    speedsOf(2);
    EXPECT_EQ(trainer.missed(soon).speed, 60.0);
    EXPECT_EQ(trainer.missed(soon).speed, 60.0);
    EXPECT_EQ(trainer.order().strip.thisPass, PassVerdict::Missed);
    EXPECT_THAT(speedsOf(1), ElementsAre(60));
}

TEST_F(SpeedTrainerTest, RightTakesAMissBack)
{
    trainer.start(quick(), 100.0);
    trainer.missed(late);
    trainer.right(late);
    EXPECT_THAT(speedsOf(1), ElementsAre(70));
    trainer.missed(soon);
    EXPECT_EQ(speed(), 60.0);
    EXPECT_EQ(trainer.right(soon).speed, 70.0);
    EXPECT_THAT(speedsOf(1), ElementsAre(80));
    EXPECT_EQ(trainer.right(soon).speed, 80.0) << "it counts already";
    EXPECT_THAT(speedsOf(1), ElementsAre(90));
}

TEST_F(SpeedTrainerTest, OnlyWhatIsCalledRightCountsIfThePlayerWantsThat)
{
    TrainerSettings settings = quick();
    settings.judging = PassJudging::OnlyRight;
    settings.passes = 2;
    trainer.start(settings, 100.0);
    speedsOf(3);
    EXPECT_EQ(trainer.order().strip.passesDone, 0);
    trainer.right(late);
    speedsOf(1);
    EXPECT_EQ(trainer.order().strip.passesDone, 1);
    speedsOf(1); // nothing said: neither right nor missed
    EXPECT_EQ(trainer.order().strip.passesDone, 1);
    EXPECT_EQ(trainer.right(soon).speed, 70.0) << "said late, of the pass before";
    EXPECT_EQ(miss(), 60.0);
}

TEST_F(SpeedTrainerTest, AtTheTopItDoesWhatTheSettingsSay)
{
    TrainerSettings settings = quick();
    settings.from = 90;
    settings.atTop = AtTop::GoOn;
    trainer.start(settings, 100.0);
    EXPECT_THAT(speedsOf(4), ElementsAre(100, 100, 100, 100));
    settings.atTop = AtTop::Again;
    trainer.start(settings, 100.0);
    EXPECT_THAT(speedsOf(4), ElementsAre(100, 90, 100, 90));
    settings.atTop = AtTop::TenMore;
    settings.step = 4;
    trainer.start(settings, 100.0);
    EXPECT_THAT(speedsOf(8), ElementsAre(94, 98, 100, 104, 108, 110, 114, 118));
    settings.atTop = AtTop::NextLoop;
    settings.to = 90;
    trainer.start(settings, 100.0);
    const TrainerOrder next = trainer.passEnded();
    EXPECT_EQ(next.command, Command::NextLoop);
    EXPECT_TRUE(next.strip.isRunning);
}

TEST_F(SpeedTrainerTest, GrowsToTheHighestSpeedAndStaysThere)
{
    TrainerSettings settings = quick();
    settings.kind = LadderKind::Steady;
    settings.from = 185;
    settings.atTop = AtTop::TenMore;
    trainer.start(settings, 100.0);
    EXPECT_THAT(speedsOf(4), ElementsAre(195, 200, 200, 200));
}

TEST_F(SpeedTrainerTest, ASpeedByHandMovesThePresentStep)
{
    trainer.start(quick(), 100.0);
    speedsOf(1);
    EXPECT_EQ(trainer.speedSet(76.5).speed, 76.5);
    EXPECT_THAT(speedsOf(1), ElementsAre(80));
    trainer.speedSet(83.0);
    EXPECT_EQ(miss(), 80.0);
    trainer.speedSet(20.0);
    EXPECT_EQ(trainer.order().strip.rung, 0);
    EXPECT_EQ(miss(), 20.0) << "there is nothing lower";
    EXPECT_THAT(speedsOf(1), ElementsAre(60));
    trainer.speedSet(150.0);
    EXPECT_EQ(trainer.passEnded().strip.news, News::AtTop);
    EXPECT_EQ(miss(), 100.0);
}

TEST_F(SpeedTrainerTest, ASpeedByHandStartsTheCountAnewAndIsNotUndoneByALateMiss)
{
    TrainerSettings settings = quick();
    settings.passes = 2;
    trainer.start(settings, 100.0);
    speedsOf(1);
    trainer.speedSet(60.0); // the present one
    EXPECT_EQ(trainer.order().strip.passesDone, 1);
    trainer.speedSet(75.0);
    EXPECT_EQ(trainer.order().strip.passesDone, 0);
    EXPECT_EQ(trainer.missed(soon).speed, 75.0);
    EXPECT_EQ(trainer.speedSet(std::numeric_limits<double>::quiet_NaN()).speed, 75.0);
    EXPECT_EQ(trainer.speedSet(1e9).speed, 200.0);
    EXPECT_EQ(trainer.speedSet(-5.0).speed, 10.0);
}

TEST_F(SpeedTrainerTest, RestoresTheSpeedHoweverTheRunEnds)
{
    for (const auto end :
         {TrainerEnd::ByHand, TrainerEnd::LoopCleared, TrainerEnd::DeviceLost, TrainerEnd::Quit}) {
        trainer.start(quick(), 87.25);
        speedsOf(2);
        trainer.speedSet(133.0);
        const TrainerOrder last = trainer.stop(end);
        EXPECT_EQ(last.speed, 87.25);
        EXPECT_FALSE(trainer.isRunning());
        EXPECT_FALSE(last.strip.isRunning);
        EXPECT_EQ(last.next, BeforePass{});
    }
    trainer.start(quick(), 87.25);
    EXPECT_EQ(trainer.stop(TrainerEnd::SongChanged).speed, std::nullopt)
        << "the new song has its own speed";
}

TEST_F(SpeedTrainerTest, ASecondStartKeepsTheSpeedFromBeforeTheFirst)
{
    trainer.start(quick(), 87.25);
    speedsOf(1);
    trainer.start(quick(), 70.0);
    EXPECT_EQ(speed(), 60.0);
    EXPECT_EQ(trainer.stop(TrainerEnd::ByHand).speed, 87.25);
}

TEST_F(SpeedTrainerTest, WithoutARunEventsHaveNoEffect)
{
    EXPECT_EQ(trainer.passEnded(), TrainerOrder{});
    EXPECT_EQ(trainer.missed(soon), TrainerOrder{});
    EXPECT_EQ(trainer.right(late), TrainerOrder{});
    EXPECT_EQ(trainer.speedSet(50.0), TrainerOrder{});
    EXPECT_EQ(trainer.stop(TrainerEnd::ByHand), TrainerOrder{});
    EXPECT_EQ(trainer.order(), TrainerOrder{});
    EXPECT_EQ(trainer.beforeFirstPass(), BeforePass{});
    trainer.start(quick(), 100.0);
    trainer.stop(TrainerEnd::ByHand);
    EXPECT_EQ(trainer.passEnded(), TrainerOrder{});
    EXPECT_EQ(trainer.missed(soon), TrainerOrder{});
}

TEST_F(SpeedTrainerTest, TakesTempiInBeatsPerMinuteAsTheNearestPercent)
{
    TrainerSettings settings = quick();
    settings.unit = TempoUnit::BeatsPerMinute;
    settings.from = 60;
    settings.to = 92;
    settings.step = 10;
    EXPECT_FALSE(trainer.start(settings, 100.0)) << "the tempo is not known";
    EXPECT_FALSE(trainer.start(settings, 100.0, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(trainer.isRunning());
    ASSERT_TRUE(trainer.start(settings, 100.0, 123.0));
    EXPECT_THAT(trainer.ladder(), ElementsAre(49, 57, 65, 73, 75));
    EXPECT_NEAR(trainer.order().strip.tempo.value_or(0.0), 123.0 * 0.49, 1e-9);
    settings.step = 1;
    settings.to = 63;
    trainer.start(settings, 100.0, 1000.0);
    EXPECT_THAT(trainer.ladder(), ElementsAre(10)) << "all below the lowest speed";
}

TEST(TrainerSettings, AreBroughtWithinTheirRanges)
{
    TrainerSettings settings;
    settings.from = 150;
    settings.to = 40;
    clean(settings);
    EXPECT_EQ(settings.from, 40);
    EXPECT_EQ(settings.to, 150);
    settings = {.from = -7, .to = 100000, .step = 0, .passes = -1, .beats = 1000};
    clean(settings);
    EXPECT_EQ(settings,
              (TrainerSettings{.from = 10, .to = 200, .step = 1, .passes = 1, .beats = 24}));
    settings = {.unit = TempoUnit::BeatsPerMinute, .from = 0, .to = 99999, .step = 1000};
    clean(settings);
    EXPECT_EQ(settings.from, 5);
    EXPECT_EQ(settings.to, 1000);
    EXPECT_EQ(settings.step, 100);
    EXPECT_THAT(ladderSpeeds({.from = 100, .to = 90, .step = 5}, 0.0),
                testing::ElementsAre(90, 95, 100));
}

} // namespace
} // namespace lyrabox::test
