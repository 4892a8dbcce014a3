// A run of the trainer with the program's own stages, and with the metronome.

#include "TrainerRunFixture.h"
#include "app/practice/Metronome.h"
#include "platform/audio/ClickMixer.h"
#include "platform/audio/GraphicEqualizer.h"
#include "platform/audio/TimePitch.h"
#include "support/HandPulledOutput.h"

#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// The stages of the program without its device. Its callbacks are 512 frames long, and the trainer
/// looks after each of them, nearly as often as its timer does.
class ATrainedPlayer : public TrainerRunFixture {
protected:
    static constexpr std::uint32_t callback = 512;

    ATrainedPlayer()
    {
        AudioUnitFactory factory;
        factory.equalizer = [] { return std::make_unique<GraphicEqualizer>(); };
        factory.timePitch = [] { return std::make_unique<TimePitch>(); };
        factory.click = [] { return std::make_unique<ClickMixer>(); };
        factory.output = [this] {
            auto unit = std::make_unique<HandPulledOutput>();
            output = unit.get();
            return unit;
        };
        factory.defaultOutputWatcher = [] { return std::make_unique<DeafWatcher>(); };
        engine::setAudioUnitFactory(std::move(factory));
        EXPECT_EQ(engine::buildAudioSystem(), 0);
    }

    /// How many seconds are played until the next pass has ended.
    double secondsOfPass()
    {
        const std::uint64_t before = engine::passes().ended;
        std::array<float, 2UL * callback> samples{};
        double length = 0.0;
        while (engine::passes().ended == before && length < 60.0) {
            output->pull(samples.data(), callback);
            run->poll();
            length += static_cast<double>(callback) / rate;
        }
        return length;
    }

    HandPulledOutput *output = nullptr;
};

TEST_F(ATrainedPlayer, PlaysEachPassAtTheSpeedOfItsStep)
{
    const PracticeId riff = addLoop(20 * rate, 22 * rate);
    keep(riff, quick());
    practice->play(riff);
    ASSERT_TRUE(run->start());
    secondsOfPass(); // The stages begin with what they read ahead.
    for (const int percent : {70, 80, 90}) {
        EXPECT_EQ(speed(), static_cast<float>(percent));
        EXPECT_NEAR(secondsOfPass(), 2.0 * 100.0 / percent, 0.05) << percent << " %";
    }
    EXPECT_EQ(speed(), 100.0F);
    secondsOfPass(); // At normal speed the stages read less ahead.
    EXPECT_NEAR(secondsOfPass(), 2.0, 0.05);
}

TEST_F(ATrainedPlayer, CountsAThousandPassesThroughSeeksAndNudges)
{
    TrainerSettings settings = quick();
    settings.kind = LadderKind::Steady;
    settings.passes = 99;
    settings.from = 200;
    const PracticeId riff = addLoop(20 * rate, 20 * rate + 4410);
    keep(riff, settings);
    practice->play(riff);
    ASSERT_TRUE(run->start());
    for (int pass = 1; pass <= 1000; ++pass) {
        if (pass % 17 == 0)
            audio().setCurrentFrame(40 * rate); // behind the loop: no pass
        if (pass % 40 == 0)
            practice->changeLoop({20 * rate, 20 * rate + (pass % 80 == 0 ? 4410U : 4851U)},
                                 loopHands::Grip::End);
        secondsOfPass();
        ASSERT_EQ(run->strip().passesDone, pass % 99) << pass;
    }
}

class ATrainerWithCountIn : public TrainerRunFixture {
protected:
    ATrainerWithCountIn()
    {
        metronome = std::make_unique<Metronome>(&audio(), practice.get());
        run->setBeforePassHandler(
            [this](std::optional<BeforePass> before) { metronome->setBeforePass(before); });
        // 120 BPM: a beat is 22,050 frames long, longer than the loop.
        EXPECT_TRUE(practice->store().apply(
            {PutBeats{BeatGrid({{.frame = 0}, {.frame = 40 * rate, .bar = 21}})}}));
    }

    static TrainerSettings counted(CountInWhen when)
    {
        TrainerSettings settings = quick();
        settings.passes = 2;
        settings.between = BetweenPasses::CountIn;
        settings.countInWhen = when;
        return settings;
    }

    /// How many beats of silence come before the end of the next pass.
    double beatsOfSilence()
    {
        const std::uint64_t before = engine::passes().ended;
        std::uint64_t frames = 0;
        while (engine::passes().ended == before && frames < 20 * rate) {
            transport.audio.pull(slice);
            run->poll();
            frames += slice;
        }
        const auto silent = static_cast<double>(frames) - static_cast<double>(loopFrames);
        return std::round(100.0 * silent / 22050.0) / 100.0;
    }

    std::unique_ptr<Metronome> metronome;
};

TEST_F(ATrainerWithCountIn, CountsInBeforeEveryPassOfALoopThatIsShorter)
{
    train(counted(CountInWhen::EveryPass));
    for (int pass = 0; pass < 6; ++pass)
        EXPECT_NEAR(beatsOfSilence(), 4.0, 0.02) << pass;
    EXPECT_EQ(speed(), 90.0F);
    run->stop();
    beatsOfSilence(); // one that may have begun before the end
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02) << "the player's own count-in is off";
}

TEST_F(ATrainerWithCountIn, CountsInAtTheStartAndAtEachNewSpeed)
{
    train(counted(CountInWhen::AtNewSpeed));
    EXPECT_NEAR(beatsOfSilence(), 4.0, 0.02);
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02);
    EXPECT_NEAR(beatsOfSilence(), 4.0, 0.02) << "at 70 %";
    EXPECT_EQ(speed(), 70.0F);
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02);
}

TEST_F(ATrainerWithCountIn, CountsInOnceOrNeverOrRests)
{
    train(counted(CountInWhen::AtPlay));
    EXPECT_NEAR(beatsOfSilence(), 4.0, 0.02);
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02);
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02);
    run->stop();
    train(counted(CountInWhen::Never));
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02);
    run->stop();
    TrainerSettings resting = counted(CountInWhen::Never);
    resting.between = BetweenPasses::Rest;
    resting.beats = 2;
    train(resting);
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02) << "a rest stands between passes";
    EXPECT_NEAR(beatsOfSilence(), 2.0, 0.02);
}

TEST_F(ATrainerWithCountIn, HasNoneWithoutBeats)
{
    ASSERT_TRUE(practice->store().apply({PutBeats{}}));
    train(counted(CountInWhen::EveryPass));
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02);
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02);
}

TEST_F(ATrainerWithCountIn, LeavesALoopWithoutAnExtraCountIn)
{
    const PracticeId next = addLoop(20 * rate, 20 * rate + loopFrames);
    keep(next, counted(CountInWhen::AtPlay));
    TrainerSettings settings = counted(CountInWhen::Never);
    settings.from = 100;
    settings.passes = 1;
    settings.atTop = AtTop::NextLoop;
    train(settings);
    playPass();
    ASSERT_EQ(run->loop(), next);
    EXPECT_NEAR(beatsOfSilence(), 4.0, 0.05) << "the first pass of the next loop is counted in";
    EXPECT_NEAR(beatsOfSilence(), 0.0, 0.02);
}

} // namespace
