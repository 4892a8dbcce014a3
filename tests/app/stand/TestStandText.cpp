#include "app/stand/StandText.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::uint64_t rate = 44100;

/// 64 beats of 120 a minute from the start on, in bars of 4.
BeatGrid steadyGrid()
{
    std::vector<std::uint64_t> frames;
    for (std::uint64_t beat = 0; beat < 64; ++beat)
        frames.push_back(beat * rate / 2);
    return fittedGrid(frames, 0, 4);
}

StandFacts facts()
{
    return {.hasSong = true, .title = u"Blues"_s, .speed = 75.0};
}

TEST(StandText, AsksForASongIfThereIsNone)
{
    const StandPage page = standText::page({.title = u"Blues"_s});
    EXPECT_EQ(page.title, u"Play a song."_s);
    EXPECT_TRUE(page.numbers.empty());
}

TEST(StandText, SaysTitleAndSpeedOfASongWithoutBeatsAndLoops)
{
    const StandPage page = standText::page(facts());
    EXPECT_EQ(page.title, u"Blues"_s);
    EXPECT_EQ(page.loop, QString());
    ASSERT_EQ(page.numbers.size(), 1U);
    EXPECT_EQ(page.numbers[0], (StandNumber{u"Speed"_s, u"75 %"_s}));
    EXPECT_EQ(page.beats, 0);
}

TEST(StandText, SaysTempoAtTheSpeedAndTheBarThatIsHeard)
{
    StandFacts now = facts();
    now.grid = steadyGrid();
    now.frame = 5 * rate + rate / 10; // ten beats and a little later
    const StandPage page = standText::page(now);
    ASSERT_EQ(page.numbers.size(), 3U);
    EXPECT_EQ(page.numbers[1], (StandNumber{u"BPM"_s, u"90"_s}));
    EXPECT_EQ(page.numbers[2], (StandNumber{u"Bar"_s, u"3"_s}));
    EXPECT_EQ(page.beat, 3);
    EXPECT_EQ(page.beats, 4);
}

TEST(StandText, ShowsNoBarWhereTheBeatsAreNotKnown)
{
    StandFacts now = facts();
    now.grid = steadyGrid();
    now.frame = 300 * rate;
    const StandPage page = standText::page(now);
    EXPECT_EQ(page.numbers[2], (StandNumber{u"Bar"_s, u"–"_s}));
    EXPECT_EQ(page.beats, 0);
}

TEST(StandText, CountsTheBeatsBeforeTheMusic)
{
    StandFacts now = facts();
    now.grid = steadyGrid();
    now.frame = 4 * rate; // bar 3
    now.silence = StandFacts::Silence::CountIn;
    for (int beat = 1; beat <= 4; ++beat) {
        now.silenceLeft = (4.8 - beat) * rate / 2;
        const StandPage page = standText::page(now);
        EXPECT_EQ(page.numbers[2], (StandNumber{u"Count-in"_s, QString::number(beat)}));
        EXPECT_EQ(page.beat, beat);
    }
    now.silence = StandFacts::Silence::Rest;
    EXPECT_EQ(standText::page(now).numbers[2].caption, u"Rest"_s);
}

TEST(StandText, SaysHowLongTheCountInIsIfItCanBeCounted)
{
    StandFacts now = facts();
    now.countIn = CountInLength{.unit = CountInLength::Unit::Bars, .amount = 2};
    EXPECT_EQ(standText::page(now).countIn, QString());
    now.grid = steadyGrid();
    EXPECT_EQ(standText::page(now).countIn, u"Count-in: 2 bars"_s);
    now.countIn = CountInLength{.unit = CountInLength::Unit::Beats, .amount = 1};
    EXPECT_EQ(standText::page(now).countIn, u"Count-in: 1 beat"_s);
}

TEST(StandText, ShowsTheStepsAroundThePresentOne)
{
    StandFacts now = facts();
    now.strip = {.isRunning = true,
                 .speed = 85.0,
                 .passesDone = 1,
                 .passesNeeded = 4,
                 .rung = 11,
                 .rungs = 16};
    for (int speed = 35; speed <= 110; speed += 5)
        now.ladder.push_back(speed);
    now.nextSpeed = 90.0;
    const StandPage page = standText::page(now);
    ASSERT_EQ(page.steps.size(), static_cast<std::size_t>(standText::mostSteps));
    EXPECT_EQ(page.steps[0], (StandStep{u"65"_s, StandStep::State::Done, 0.0}));
    EXPECT_EQ(page.steps[4], (StandStep{u"85"_s, StandStep::State::Present, 0.25}));
    EXPECT_EQ(page.steps[8], (StandStep{u"105"_s, StandStep::State::Coming, 0.0}));
    EXPECT_EQ(page.passes, u"pass 2 of 4 · next 90 %"_s);
}

TEST(StandText, MakesNamesOneLine)
{
    StandFacts now = facts();
    now.title = u"A\nB\t C"_s;
    now.loop = u"Riff\u2028two"_s;
    EXPECT_EQ(standText::page(now).title, u"A B C"_s);
    EXPECT_EQ(standText::page(now).loop, u"Riff two"_s);
}

TEST(StandText, IsSpokenWithoutTheBeat)
{
    StandFacts now = facts();
    now.loop = u"Riff"_s;
    now.grid = steadyGrid();
    EXPECT_EQ(standText::spoken(standText::page(now)), u"Blues, Riff, Speed: 75 %, BPM: 90"_s);
}

} // namespace
