// Loops that take turns on the player.

#include "TrainerRunFixture.h"

#include <set>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ARotation : public TrainerRunFixture {
protected:
    ARotation()
    {
        keep(loop, quick());
        for (std::uint64_t second : {20, 30}) {
            const PracticeId id = addLoop(second * rate, second * rate + loopFrames);
            keep(id, quick());
            loops.push_back(id);
        }
        loops.push_back(loop);
        audio().setPlaybackSpeedPct(90.0F);
    }

    std::vector<PracticeId> loops;
};

TEST_F(ARotation, PlaysEveryLoopForItsPassesAndEachGoesOnWithItsLadder)
{
    ASSERT_TRUE(run->startRotation(loops, {.amount = 2}));
    EXPECT_TRUE(run->isRotating());
    std::set<PracticeId> seen;
    for (std::size_t turn = 0; turn < loops.size(); ++turn) {
        const PracticeId present = run->loop().value_or(0);
        EXPECT_EQ(practice->calledUp(), present);
        EXPECT_TRUE(seen.insert(present).second) << "a loop came twice";
        EXPECT_EQ(speed(), 60.0F);
        playPass();
        EXPECT_EQ(speed(), 70.0F);
        EXPECT_EQ(run->loop(), present);
        playPass();
    }
    EXPECT_EQ(speed(), 80.0F) << "the second round goes on where the first one ended";
    run->stop();
    EXPECT_EQ(speed(), 90.0F);
    EXPECT_FALSE(run->isRotating());
}

TEST_F(ARotation, IgnoresTheSpeedsThatAreKeptWithItsLoops)
{
    for (const PracticeId id : loops) {
        PracticeLoop changed = *record().loop(id);
        changed.speed = 33;
        ASSERT_TRUE(practice->store().apply({PutLoop{changed}}));
    }
    ASSERT_TRUE(run->startRotation(loops, {.amount = 1}));
    EXPECT_EQ(speed(), 60.0F);
    playPass();
    EXPECT_EQ(speed(), 60.0F);
    run->stop();
    EXPECT_EQ(speed(), 90.0F);
}

TEST_F(ARotation, GoesOnWithoutALoopThatIsDeleted)
{
    ASSERT_TRUE(run->startRotation(loops, {.amount = 5}));
    const PracticeId first = run->loop().value_or(0);
    ASSERT_TRUE(practice->remove(first));
    EXPECT_TRUE(run->isRotating());
    EXPECT_NE(run->loop(), first);
    EXPECT_EQ(practice->calledUp(), run->loop());
    const PracticeId second = run->loop().value_or(0);
    for (const PracticeId id : loops) {
        if (id != first && id != second) {
            ASSERT_TRUE(practice->remove(id));
        }
    }
    EXPECT_EQ(run->loop(), second);
    ASSERT_TRUE(practice->remove(second));
    EXPECT_FALSE(run->isRunning());
    EXPECT_EQ(speed(), 90.0F);
}

TEST_F(ARotation, EndsWhenAnotherLoopIsCalledUpByHand)
{
    ASSERT_TRUE(run->startRotation({loops[0], loops[1]}, {.amount = 5}));
    practice->play(loop);
    EXPECT_FALSE(run->isRunning());
    EXPECT_EQ(speed(), 90.0F);
}

TEST_F(ARotation, NeedsALoopThatCanBePlayed)
{
    EXPECT_FALSE(run->startRotation({}, {}));
    EXPECT_FALSE(run->startRotation({addLoop(59 * rate, 70 * rate), 4711}, {}));
    EXPECT_FALSE(run->isRunning());
    const PracticeLoop slow{.from = rate, .to = 2 * rate, .speed = 55};
    ASSERT_TRUE(practice->store().apply({PutLoop{slow}}));
    practice->play(slow.id);
    EXPECT_EQ(speed(), 55.0F) << "kept speeds work as before";
}

TEST_F(ARotation, StopsWhenALadderEndsWithAStop)
{
    TrainerSettings settings = quick();
    settings.from = 100;
    settings.atTop = AtTop::Stop;
    for (const PracticeId id : loops)
        keep(id, settings);
    ASSERT_TRUE(run->startRotation(loops, {.amount = 5}));
    playPass();
    EXPECT_FALSE(run->isRunning());
    EXPECT_FALSE(audio().isRunning());
    EXPECT_EQ(speed(), 90.0F);
}

} // namespace
