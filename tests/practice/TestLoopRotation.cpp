#include "practice/LoopRotation.h"

#include <gmock/gmock.h>

#include <set>
#include <vector>

namespace lyrabox {
namespace {

using Turn = LoopRotation::Turn;

std::vector<LoopRotation::Loop> loops(PracticeId count)
{
    TrainerSettings settings;
    settings.step = 10;
    settings.passes = 1;
    std::vector<LoopRotation::Loop> result;
    for (PracticeId id = 1; id <= count; ++id)
        result.push_back({.id = id, .settings = settings});
    return result;
}

/// The loops of so many turns of one pass.
std::vector<PracticeId> turns(LoopRotation &rotation, int count)
{
    std::vector<PracticeId> found;
    for (int i = 0; i < count; ++i) {
        found.push_back(rotation.current().value_or(0));
        rotation.passEnded(1.0);
    }
    return found;
}

TEST(LoopRotation, PlaysEveryLoopOncePerRoundAndNoneTwiceInARow)
{
    for (std::uint64_t seed = 0; seed < 50; ++seed) {
        LoopRotation rotation(loops(4), {.amount = 1}, seed, 100.0);
        const std::vector<PracticeId> found = turns(rotation, 40);
        for (std::size_t round = 0; round < 10; ++round)
            EXPECT_EQ(std::set(found.begin() + static_cast<std::ptrdiff_t>(4 * round),
                               found.begin() + static_cast<std::ptrdiff_t>(4 * round + 4))
                          .size(),
                      4U);
        for (std::size_t i = 1; i < found.size(); ++i)
            EXPECT_NE(found[i], found[i - 1]) << "seed " << seed;
    }
}

TEST(LoopRotation, ShufflesAsItsSeedSays)
{
    LoopRotation one(loops(6), {.amount = 1}, 7, 100.0);
    LoopRotation same(loops(6), {.amount = 1}, 7, 100.0);
    LoopRotation other(loops(6), {.amount = 1}, 8, 100.0);
    const std::vector<PracticeId> found = turns(one, 24);
    EXPECT_EQ(found, turns(same, 24));
    EXPECT_NE(found, turns(other, 24));
}

TEST(LoopRotation, EachLoopGoesOnWithItsOwnLadder)
{
    LoopRotation rotation(loops(2), {.amount = 2}, 1, 90.0);
    const PracticeId first = rotation.current().value_or(0);
    EXPECT_FALSE(rotation.passEnded(1.0).loopChanges);
    LoopRotation::Order order = rotation.passEnded(1.0); // the first loop is at 80 now
    EXPECT_TRUE(order.loopChanges);
    EXPECT_NE(rotation.current(), first);
    EXPECT_EQ(order.trainer.speed, 60.0);
    rotation.passEnded(1.0);
    order = rotation.passEnded(1.0);
    EXPECT_TRUE(order.loopChanges);
    EXPECT_EQ(rotation.current(), first);
    EXPECT_EQ(order.trainer.speed, 80.0);
    EXPECT_EQ(rotation.speedSet(85.0).trainer.speed, 85.0);
    EXPECT_EQ(rotation.stop(TrainerEnd::ByHand).trainer.speed, 90.0);
    EXPECT_EQ(rotation.current(), std::nullopt);
}

TEST(LoopRotation, ChangesAtTheEndOfAPassAfterItsMinutes)
{
    LoopRotation rotation(loops(2), {.unit = Turn::Unit::Minutes, .amount = 2}, 1, 100.0);
    EXPECT_FALSE(rotation.passEnded(30.0).loopChanges);
    EXPECT_FALSE(rotation.passEnded(119.0).loopChanges);
    EXPECT_TRUE(rotation.passEnded(131.0).loopChanges);
}

TEST(LoopRotation, ALateMissBelongsToTheLoopBefore)
{
    LoopRotation rotation(loops(2), {.amount = 1}, 1, 100.0);
    EXPECT_TRUE(rotation.passEnded(1.0).loopChanges); // the first loop went up to 70
    EXPECT_EQ(rotation.missed(1.0).trainer.speed, 60.0) << "the present loop's speed";
    EXPECT_EQ(rotation.trainer().order().strip.thisPass, PassVerdict::None);
    EXPECT_EQ(rotation.missed(1.0).trainer.strip.thisPass, PassVerdict::Missed)
        << "a second one is meant for the present pass";
    const LoopRotation::Order back = rotation.passEnded(1.0);
    EXPECT_EQ(back.trainer.speed, 60.0) << "the first loop stayed, because it was missed";
    EXPECT_EQ(back.trainer.strip.news, TrainerStrip::News::Missed);
}

TEST(LoopRotation, OfOneLoopGoesOnWithIt)
{
    LoopRotation rotation(loops(1), {.amount = 1}, 1, 100.0);
    EXPECT_FALSE(rotation.passEnded(1.0).loopChanges);
    EXPECT_FALSE(rotation.skip().loopChanges);
    EXPECT_EQ(rotation.trainer().order().speed, 70.0);
}

TEST(LoopRotation, GoesOnWithoutALoopThatIsRemoved)
{
    LoopRotation rotation(loops(3), {.amount = 1}, 1, 77.0);
    const PracticeId first = rotation.current().value_or(0);
    EXPECT_TRUE(rotation.remove(first).loopChanges);
    const PracticeId second = rotation.current().value_or(0);
    EXPECT_NE(second, first);
    EXPECT_FALSE(rotation.remove(first).loopChanges) << "it is gone already";
    const PracticeId third = 6 - first - second;
    EXPECT_FALSE(rotation.remove(third).loopChanges);
    EXPECT_EQ(rotation.current(), second);
    const LoopRotation::Order last = rotation.remove(second);
    EXPECT_TRUE(last.hasEnded);
    EXPECT_EQ(last.trainer.speed, 77.0);
    EXPECT_EQ(rotation.passEnded(1.0).trainer, TrainerOrder{});
}

TEST(LoopRotation, EndsWhenALadderEndsWithAStop)
{
    std::vector<LoopRotation::Loop> two = loops(2);
    for (LoopRotation::Loop &loop : two) {
        loop.settings.from = 100;
        loop.settings.atTop = AtTop::Stop;
    }
    LoopRotation rotation(two, {.amount = 9}, 1, 77.0);
    const LoopRotation::Order last = rotation.passEnded(1.0);
    EXPECT_TRUE(last.hasEnded);
    EXPECT_EQ(last.trainer.command, TrainerOrder::Command::StopPlaying);
    EXPECT_EQ(last.trainer.speed, 77.0);
}

TEST(LoopRotation, ALateVerdictThatEndsALadderEndsOrChangesAsTheEndOfAPassDoes)
{
    for (const AtTop atTop : {AtTop::Stop, AtTop::NextLoop}) {
        std::vector<LoopRotation::Loop> two = loops(2);
        for (LoopRotation::Loop &loop : two) {
            loop.settings.from = 100;
            loop.settings.atTop = atTop;
            loop.settings.judging = PassJudging::OnlyRight;
        }
        LoopRotation rotation(two, {.amount = 9}, 1, 77.0);
        const PracticeId first = rotation.current().value_or(0);
        EXPECT_FALSE(rotation.passEnded(1.0).hasEnded);
        const LoopRotation::Order last = rotation.right(1.0);
        EXPECT_EQ(last.hasEnded, atTop == AtTop::Stop);
        EXPECT_EQ(last.loopChanges, atTop == AtTop::NextLoop);
        EXPECT_NE(rotation.current(), first);
        if (atTop == AtTop::Stop) {
            EXPECT_EQ(last.trainer.command, TrainerOrder::Command::StopPlaying);
            EXPECT_EQ(last.trainer.speed, 77.0);
        }
    }
}

TEST(LoopRotation, LeavesOutWhatItCannotTrain)
{
    std::vector<LoopRotation::Loop> three = loops(2);
    three.push_back(three[0]);
    three[1].settings.unit = TempoUnit::BeatsPerMinute;
    LoopRotation rotation(three, {.amount = -5}, 1, 100.0);
    EXPECT_EQ(rotation.current(), PracticeId{1});
    EXPECT_FALSE(rotation.passEnded(1.0).loopChanges);
    LoopRotation none({}, {}, 1, 100.0);
    EXPECT_EQ(none.current(), std::nullopt);
    EXPECT_EQ(none.passEnded(1.0).trainer, TrainerOrder{});
    EXPECT_FALSE(none.stop(TrainerEnd::Quit).hasEnded);
}

} // namespace
} // namespace lyrabox
