#include "practice/TrainerTempo.h"

#include <gmock/gmock.h>

namespace lyrabox {
namespace {

constexpr std::uint64_t second = 44100;

/// 120 BPM in bars of four, from 0.5 s on.
BeatGrid even()
{
    return BeatGrid({{.frame = second / 2}, {.frame = second / 2 + 20 * second, .bar = 11}});
}

TEST(TempoBetween, IsTheMeanOfARange)
{
    EXPECT_NEAR(tempoBetween(even(), second, 5 * second), 120.0, 1e-9);
    // Four beats in two seconds, then four beats in four.
    const BeatGrid slower(
        {{.frame = 0}, {.frame = 2 * second, .bar = 2}, {.frame = 6 * second, .bar = 3}});
    EXPECT_NEAR(tempoBetween(slower, 0, 6 * second), 80.0, 1e-9);
}

TEST(TempoBetween, IsNotKnownWithoutAGridOrARange)
{
    EXPECT_EQ(tempoBetween({}, 0, second), 0.0);
    EXPECT_EQ(tempoBetween(even(), second, second), 0.0);
    EXPECT_EQ(tempoBetween(even(), 2 * second, second), 0.0);
}

TEST(RunUpFrames, AreBeatsOfTheGridOrHalfSeconds)
{
    EXPECT_EQ(runUpFrames(even(), 8 * second, 4), 2 * second);
    EXPECT_EQ(runUpFrames({}, 8 * second, 3), second * 3 / 2);
    EXPECT_EQ(runUpFrames({}, second, 24), second) << "the song begins there";
    EXPECT_EQ(runUpFrames(even(), 8 * second, -3), 0U);
}

TEST(NextSpeed, IsTheOneAfterTheRightPassesThatAreLeft)
{
    TrainerSettings settings;
    settings.step = 10;
    SpeedTrainer trainer;
    EXPECT_EQ(nextSpeed(trainer), std::nullopt);
    trainer.start(settings, 100.0);
    EXPECT_EQ(nextSpeed(trainer), 70.0);
    trainer.passEnded();
    EXPECT_EQ(nextSpeed(trainer), 70.0);
    trainer.missed(10.0);
    EXPECT_EQ(nextSpeed(trainer), 70.0) << "a miss that can be taken back";
    EXPECT_EQ(trainer.order().strip.passesDone, 1) << "the trainer itself stays";
}

TEST(NextSpeed, IsNoneAtTheTopAndBeforeAStop)
{
    TrainerSettings settings;
    settings.from = 100;
    for (const AtTop atTop : {AtTop::GoOn, AtTop::Stop, AtTop::NextLoop}) {
        settings.atTop = atTop;
        SpeedTrainer trainer;
        trainer.start(settings, 100.0);
        EXPECT_EQ(nextSpeed(trainer), std::nullopt);
    }
    settings.from = 60;
    settings.to = 70;
    settings.step = 10;
    settings.atTop = AtTop::Again;
    SpeedTrainer trainer;
    trainer.start(settings, 100.0);
    trainer.speedSet(70.0);
    EXPECT_EQ(nextSpeed(trainer), 60.0);
}

} // namespace
} // namespace lyrabox
