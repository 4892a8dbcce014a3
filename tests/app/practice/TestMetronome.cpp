#include "app/practice/Metronome.h"

#include "PracticingFixture.h"
#include "engine/ClicksAndLeadIns.h"
#include "platform/foundation/UserDefaults.h"

#include <QSignalSpy>

#include <algorithm>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::uint64_t beat = 22050;

class TheMetronome : public PracticingFixture {
protected:
    TheMetronome()
    {
        userDefaults().clear();
        metronome = std::make_unique<Metronome>(&audio(), practice.get());
    }

    void putBeats(std::uint64_t from = 0)
    {
        const BeatGrid grid({{.frame = from, .bar = 1}, {.frame = from + 80 * beat, .bar = 21}});
        ASSERT_TRUE(practice->store().apply({PutBeats{grid}}));
    }

    /// The frames that come before the next frame of the song: its position stands meanwhile.
    std::uint64_t leadInNow()
    {
        const quint64 place = audio().currentFrame();
        std::uint64_t frames = 0;
        while (audio().currentFrame() == place && frames < 100 * beat) {
            transport.audio.pull(128);
            frames += 128;
        }
        return frames - (audio().currentFrame() - place);
    }

    void play()
    {
        transport.playPauseButton->setState(1);
        audio().playPauseButtonPressed(transport.playPauseButton);
    }

    void pause()
    {
        transport.playPauseButton->setState(0);
        audio().playPauseButtonPressed(transport.playPauseButton);
    }

    std::unique_ptr<Metronome> metronome;
};

TEST_F(TheMetronome, IsOffAtFirstAndLeavesTheEngineAlone)
{
    load(u"A"_s);
    putBeats();
    audio().setLoop({.start = 4 * beat, .end = 8 * beat});
    EXPECT_EQ(engine::clicks(), nullptr);
    play();
    EXPECT_EQ(leadInNow(), 0U);
    EXPECT_TRUE(userDefaults().allKeys().isEmpty()) << "nothing is stored";
}

TEST_F(TheMetronome, ClicksOnTheBeatsOfTheSongAndFollowsThem)
{
    load(u"A"_s);
    metronome->setClickOn(true);
    EXPECT_EQ(engine::clicks(), nullptr) << "there are no beats yet";
    putBeats(1000);
    ASSERT_NE(engine::clicks(), nullptr);
    EXPECT_EQ(engine::clicks()->clicks.front().frame, 1000U);
    const auto before = engine::clicks();
    practice->addMarker(5000);
    EXPECT_EQ(engine::clicks(), before) << "other edits make no new clicks";
    putBeats(2000);
    EXPECT_EQ(engine::clicks()->clicks.front().frame, 2000U);
    practice->store().undo();
    EXPECT_EQ(engine::clicks()->clicks.front().frame, 1000U);
    metronome->setClickOn(false);
    EXPECT_EQ(engine::clicks(), nullptr);
}

TEST_F(TheMetronome, StaysOnForTheNextSongWithTheBeatsOfThat)
{
    load(u"A"_s);
    putBeats(1000);
    load(u"B"_s);
    putBeats(2000);
    metronome->setClickOn(true);
    EXPECT_EQ(engine::clicks()->clicks.front().frame, 2000U);
    load(u"A"_s);
    EXPECT_TRUE(metronome->clickIsOn());
    ASSERT_NE(engine::clicks(), nullptr);
    EXPECT_EQ(engine::clicks()->clicks.front().frame, 1000U);
    load(u"C"_s);
    EXPECT_EQ(engine::clicks(), nullptr) << "no beats of another song";
    audio().emptyPlayer();
    EXPECT_EQ(engine::clicks(), nullptr);
}

TEST_F(TheMetronome, IsSilentWhileThePaneIsClosed)
{
    load(u"A"_s);
    putBeats();
    metronome->setClickOn(true);
    metronome->setCountInOn(true);
    practice->setOpen(false);
    EXPECT_EQ(engine::clicks(), nullptr);
    play();
    EXPECT_EQ(leadInNow(), 0U);
    practice->setOpen(true);
    EXPECT_NE(engine::clicks(), nullptr);
}

TEST_F(TheMetronome, CountsInWhenThePlayerStarts)
{
    load(u"A"_s);
    putBeats();
    metronome->setCountInOn(true);
    audio().setCurrentFrame(8 * beat);
    play();
    EXPECT_EQ(leadInNow(), 4 * beat);
    EXPECT_EQ(leadInNow(), 0U) << "once";
}

TEST_F(TheMetronome, CountsAgainIfItWasPausedMeanwhile)
{
    load(u"A"_s);
    putBeats();
    metronome->setCountInOn(true);
    audio().setCurrentFrame(8 * beat);
    play();
    transport.audio.pull(30'000);
    EXPECT_TRUE(audio().isRunning());
    EXPECT_EQ(transport.playPauseButton->state(), 1) << "it can be paused";
    pause();
    EXPECT_FALSE(audio().isRunning());
    EXPECT_EQ(audio().heardFrame(), 8 * beat);
    play();
    EXPECT_EQ(leadInNow(), 4 * beat);
}

TEST_F(TheMetronome, PlaysAtOnceWhereTheUserSeeksDuringTheCountIn)
{
    load(u"A"_s);
    putBeats();
    metronome->setCountInOn(true);
    play();
    transport.audio.pull(30'000);
    audio().setCurrentFrame(3 * beat);
    EXPECT_EQ(leadInNow(), 0U);
}

TEST_F(TheMetronome, CountsToTheEndIfTheLoopIsClearedMeanwhileAndNeverAgain)
{
    load(u"A"_s);
    putBeats();
    metronome->setCountInOn(true);
    metronome->setCountIn({.when = CountInSettings::When::EveryPass});
    audio().setLoop({.start = 4 * beat, .end = 5 * beat});
    audio().setCurrentFrame(4 * beat);
    play();
    transport.audio.pull(30'000);
    audio().clearLoop();
    EXPECT_EQ(leadInNow(), 4 * beat - 30'000 / 128 * 128 - 128);
    transport.audio.pull(2 * beat);
    EXPECT_GT(audio().currentFrame(), 5 * beat);
}

TEST_F(TheMetronome, DropsTheCountInWithItsSong)
{
    load(u"A"_s);
    putBeats();
    load(u"B"_s);
    metronome->setCountInOn(true);
    load(u"A"_s);
    play();
    transport.audio.pull(30'000);
    load(u"B"_s); // it starts at once
    EXPECT_TRUE(audio().isRunning());
    EXPECT_EQ(leadInNow(), 0U);
    load(u"A"_s);
    EXPECT_EQ(leadInNow(), 0U) << "a song that is opened plays at once";
    pause();
    play();
    EXPECT_GT(leadInNow(), 0U);
}

TEST_F(TheMetronome, CountsInBeforeEveryPassIfThatIsChosen)
{
    load(u"A"_s);
    putBeats();
    metronome->setCountInOn(true);
    audio().setLoop({.start = 8 * beat, .end = 8 * beat + 1280});
    audio().setCurrentFrame(8 * beat);
    play();
    EXPECT_EQ(leadInNow(), 4 * beat);
    const std::uint64_t passes = engine::passes().ended;
    transport.audio.pull(12'800);
    EXPECT_GT(engine::passes().ended, passes + 5) << "no more count-ins";
    metronome->setCountIn({.when = CountInSettings::When::EveryPass});
    transport.audio.pull(12'800);
    EXPECT_EQ(audio().currentFrame(), 8 * beat);
    EXPECT_LE(engine::passes().ended, passes + 11);
}

TEST_F(TheMetronome, CountsInWhenALoopIsCalledUpAlsoWhileItPlays)
{
    load(u"A"_s);
    putBeats();
    const PracticeId loop = addLoop(4 * beat, 8 * beat);
    play();
    transport.audio.pull(5000);
    metronome->setCountInOn(true);
    ASSERT_TRUE(practice->play(loop));
    EXPECT_TRUE(audio().isRunning());
    EXPECT_EQ(audio().currentFrame(), 4 * beat);
    EXPECT_EQ(leadInNow(), 4 * beat);
    practice->playFromStart();
    EXPECT_EQ(leadInNow(), 4 * beat);
    // What is only moved is heard at once.
    practice->changeLoop({.start = 4 * beat, .end = 9 * beat}, loopHands::Grip::End);
    EXPECT_EQ(leadInNow(), 0U);
}

TEST_F(TheMetronome, CountsOnceIfItStartsBehindTheLoop)
{
    load(u"A"_s);
    putBeats();
    metronome->setCountInOn(true);
    for (const auto when : {CountInSettings::When::AtPlay, CountInSettings::When::EveryPass}) {
        metronome->setCountIn({.when = when});
        audio().setLoop({.start = 4 * beat, .end = 8 * beat});
        audio().setCurrentFrame(20 * beat);
        play();
        std::uint64_t frames = 0;
        while (audio().currentFrame() == 20 * beat || audio().currentFrame() == 4 * beat) {
            transport.audio.pull(128);
            frames += 128;
        }
        EXPECT_EQ(frames - (audio().currentFrame() - 4 * beat), 4 * beat);
        pause();
    }
}

TEST_F(TheMetronome, CountsInByTheBarsOfTheLoopIfTheSongHasNoBeats)
{
    load(u"A"_s);
    metronome->setCountInOn(true);
    play();
    EXPECT_EQ(leadInNow(), 0U) << "nothing is known";
    EXPECT_FALSE(metronome->canSetLoopBars());
    pause();
    audio().setLoop({.start = 1000, .end = 1000 + 12 * beat});
    ASSERT_TRUE(metronome->canSetLoopBars());
    QSignalSpy changed(metronome.get(), &Metronome::changed);
    metronome->setLoopBars(LoopBars{.bars = 4, .beatsPerBar = 3});
    EXPECT_EQ(changed.count(), 1);
    audio().setCurrentFrame(1000);
    play();
    EXPECT_EQ(leadInNow(), 3 * beat);
    metronome->setClickOn(true);
    ASSERT_NE(engine::clicks(), nullptr);
    EXPECT_EQ(engine::clicks()->clicks.size(), 13U) << "in the loop alone";

    audio().setLoop({.start = 2000, .end = 1000 + 12 * beat});
    EXPECT_FALSE(metronome->loopBars());
    EXPECT_EQ(engine::clicks(), nullptr);
    audio().setLoop({.start = 1000, .end = 1000 + 12 * beat});
    EXPECT_TRUE(metronome->loopBars());
    putBeats();
    EXPECT_FALSE(metronome->canSetLoopBars());
    EXPECT_GT(engine::clicks()->clicks.size(), 13U) << "the song's own beats win";
}

TEST_F(TheMetronome, DoesWhatTheTrainerWantsBeforeAPass)
{
    load(u"A"_s);
    putBeats();
    audio().setLoop({.start = 8 * beat, .end = 12 * beat});
    metronome->setBeforePass(BeforePass{.kind = BetweenPasses::CountIn, .beats = 2});
    play();
    practice->playFromStart();
    EXPECT_EQ(leadInNow(), 2 * beat);
    metronome->setCountInOn(true);
    metronome->setBeforePass(BeforePass{.kind = BetweenPasses::Rest, .beats = 3});
    practice->playFromStart();
    EXPECT_EQ(leadInNow(), 3 * beat);
    // The rest comes before the next pass as well.
    const std::uint64_t passes = engine::passes().ended;
    while (engine::passes().ended == passes)
        transport.audio.pull(128);
    EXPECT_EQ(leadInNow(), 3 * beat - 128);
    for (const auto kind : {BetweenPasses::Nothing, BetweenPasses::RunUp}) {
        metronome->setBeforePass(BeforePass{.kind = kind, .beats = 4});
        practice->playFromStart();
        EXPECT_EQ(leadInNow(), 0U) << "the user's count-in is not used in a run";
    }
    metronome->setBeforePass(std::nullopt);
    practice->playFromStart();
    EXPECT_EQ(leadInNow(), 4 * beat);
}

TEST_F(TheMetronome, KeepsItsSettingsButIsOffWhenTheProgramStarts)
{
    const ClickSettings click{
        .loudness = 80,
        .timbre = ClickTimbre::Wood,
        .side = ClickSide::Right,
        .hasAccents = false,
        .pattern = {.subdivision = 3, .onlyBackbeats = true, .barsOn = 2, .barsOff = 4}};
    const CountInSettings countIn{.length = {.unit = CountInLength::Unit::Beats, .amount = 7},
                                  .when = CountInSettings::When::EveryPass};
    metronome->setClick(click);
    metronome->setCountIn(countIn);
    metronome->setClickOn(true);
    metronome->setCountInOn(true);
    metronome.reset();
    reopenUserDefaults();
    metronome = std::make_unique<Metronome>(&audio(), practice.get());
    EXPECT_EQ(metronome->click(), click);
    EXPECT_EQ(metronome->countIn(), countIn);
    EXPECT_FALSE(metronome->clickIsOn());
    EXPECT_FALSE(metronome->countInIsOn());
}

TEST_F(TheMetronome, TakesTheNearestValueOfStoredNonsense)
{
    userDefaults().setValue(u"clickLoudness"_s, 1000);
    userDefaults().setValue(u"clickSound"_s, u"trumpet"_s);
    userDefaults().setValue(u"clickSubdivision"_s, -3);
    userDefaults().setValue(u"clickBarsOn"_s, u"many"_s);
    userDefaults().setValue(u"countInAmount"_s, 99);
    const ClickSettings click = storedClickSettings();
    EXPECT_EQ(click.loudness, 100);
    EXPECT_EQ(click.timbre, ClickTimbre::Tick);
    EXPECT_EQ(click.pattern, ClickPattern());
    EXPECT_EQ(storedCountInSettings().length.amount, 2);
}

} // namespace
