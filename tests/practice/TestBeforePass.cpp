// What the trainer wants before a pass.

#include "TrainerFixture.h"

namespace lyrabox::test {
namespace {

class BeforePassTest : public TrainerFixture {
protected:
    void start(BetweenPasses between, CountInWhen when = CountInWhen::AtNewSpeed)
    {
        TrainerSettings settings = quick();
        settings.passes = 2;
        settings.between = between;
        settings.countInWhen = when;
        settings.beats = 8;
        trainer.start(settings, 100.0);
    }

    BetweenPasses next() const { return trainer.order().next.kind; }
    BetweenPasses first() const { return trainer.beforeFirstPass().kind; }
};

TEST_F(BeforePassTest, ACountInAtANewSpeedIsForeseen)
{
    start(BetweenPasses::CountIn);
    EXPECT_EQ(trainer.beforeFirstPass(), (BeforePass{BetweenPasses::CountIn, 8}));
    EXPECT_EQ(next(), BetweenPasses::Nothing);
    trainer.passEnded(); // one more, and the speed goes up
    EXPECT_EQ(trainer.order().next, (BeforePass{BetweenPasses::CountIn, 8}));
    EXPECT_EQ(trainer.missed(late).next.kind, BetweenPasses::Nothing)
        << "after a miss at the lowest speed it stays";
    trainer.right(late);
    EXPECT_EQ(next(), BetweenPasses::CountIn);
    trainer.passEnded();
    EXPECT_EQ(speed(), 70.0);
    EXPECT_EQ(next(), BetweenPasses::Nothing);
    EXPECT_EQ(trainer.missed(late).next.kind, BetweenPasses::CountIn) << "the speed will go down";
}

TEST_F(BeforePassTest, ACountInComesAsOftenAsTheSettingsSay)
{
    start(BetweenPasses::CountIn, CountInWhen::EveryPass);
    EXPECT_EQ(first(), BetweenPasses::CountIn);
    EXPECT_EQ(next(), BetweenPasses::CountIn);
    start(BetweenPasses::CountIn, CountInWhen::AtPlay);
    EXPECT_EQ(first(), BetweenPasses::CountIn);
    trainer.passEnded();
    EXPECT_EQ(next(), BetweenPasses::Nothing);
    start(BetweenPasses::CountIn, CountInWhen::Never);
    EXPECT_EQ(first(), BetweenPasses::Nothing);
    trainer.passEnded();
    EXPECT_EQ(next(), BetweenPasses::Nothing);
}

TEST_F(BeforePassTest, ARunUpComesBeforeEveryPassAndARestBetweenThem)
{
    start(BetweenPasses::RunUp);
    EXPECT_EQ(first(), BetweenPasses::RunUp);
    EXPECT_EQ(next(), BetweenPasses::RunUp);
    start(BetweenPasses::Rest);
    EXPECT_EQ(first(), BetweenPasses::Nothing);
    EXPECT_EQ(next(), BetweenPasses::Rest);
    start(BetweenPasses::Nothing);
    EXPECT_EQ(first(), BetweenPasses::Nothing);
    EXPECT_EQ(next(), BetweenPasses::Nothing);
}

TEST_F(BeforePassTest, NothingComesBeforeAPassThatThereWillNotBe)
{
    TrainerSettings settings = quick();
    settings.from = 100;
    settings.atTop = AtTop::Stop;
    settings.between = BetweenPasses::Rest;
    trainer.start(settings, 100.0);
    EXPECT_EQ(next(), BetweenPasses::Nothing);
    EXPECT_EQ(trainer.missed(late).next.kind, BetweenPasses::Rest);
}

} // namespace
} // namespace lyrabox::test
