#include "app/practice/MetronomeRules.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace lyrabox;
using Unit = CountInLength::Unit;

namespace {

constexpr std::uint64_t beat = 22050;
constexpr std::uint64_t firstBeat = 20000;

/// 120 beats a minute in bars of 4, from firstBeat on, known for so many beats.
BeatGrid steadyGrid(int bars = 8)
{
    return BeatGrid(
        {{.frame = firstBeat, .bar = 1},
         {.frame = firstBeat + 4U * static_cast<unsigned>(bars) * beat, .bar = 1 + bars}});
}

LeadIn oneBarBefore(std::uint64_t frame, const BeatGrid &grid = steadyGrid())
{
    return metronome::countInBefore(grid, frame, {.unit = Unit::Bars, .amount = 1});
}

TEST(Clicks, StandOnTheKnownBeatsAndNowhereElse)
{
    const auto table = metronome::clicksOn(steadyGrid(2), 100 * beat, {});
    ASSERT_TRUE(table);
    ASSERT_EQ(table->clicks.size(), 9U) << "the last anchor is a beat, too";
    for (std::size_t i = 0; i < table->clicks.size(); ++i) {
        EXPECT_EQ(table->clicks[i].frame, firstBeat + i * beat);
        EXPECT_EQ(table->clicks[i].kind, i % 4 == 0 ? ClickKind::Accent : ClickKind::Beat);
    }
    EXPECT_EQ(metronome::clicksOn(BeatGrid(), 100 * beat, {}), nullptr);
}

TEST(Clicks, AreSilentWhereTheBeatsAreLost)
{
    const BeatGrid grid({{.frame = firstBeat, .bar = 1},
                         {.frame = firstBeat + 4 * beat, .bar = 2, .isLost = true},
                         {.frame = firstBeat + 8 * beat, .bar = 3},
                         {.frame = firstBeat + 12 * beat, .bar = 4}});
    const auto table = metronome::clicksOn(grid, 100 * beat, {.subdivision = 2});
    for (const SongClick &click : table->clicks) {
        EXPECT_FALSE(click.frame > firstBeat + 4 * beat && click.frame < firstBeat + 8 * beat)
            << click.frame;
    }
    EXPECT_EQ(table->clicks.size(), 2U * (2 * 4 + 1));
}

TEST(Clicks, KeepThePattern)
{
    const auto table = metronome::clicksOn(steadyGrid(2), 100 * beat,
                                           {.onlyBackbeats = true, .barsOn = 2, .barsOff = 3});
    EXPECT_EQ(table->clicks.size(), 4U);
    EXPECT_EQ(table->barsOn, 2U);
    EXPECT_EQ(table->barsOff, 3U);
}

TEST(CountInOnTheBeats, LastsTheBarsThatAreAskedFor)
{
    const LeadIn leadIn = oneBarBefore(firstBeat + 4 * beat);
    EXPECT_EQ(leadIn.frames, 4 * beat);
    EXPECT_EQ(leadIn.clickCount, 4U);
    EXPECT_EQ(leadIn.clicks[0].kind, ClickKind::Accent);
    EXPECT_EQ(metronome::countInBefore(steadyGrid(), firstBeat + 5 * beat,
                                       {.unit = Unit::Beats, .amount = 3})
                  .clickCount,
              3U);
}

TEST(CountInOnTheBeats, RunsOnToAPickUp)
{
    // A beat and a half before bar 2: the bar before is counted, and two and a half beats of bar 1.
    const LeadIn leadIn = oneBarBefore(firstBeat + 2 * beat + beat / 2);
    EXPECT_EQ(leadIn.clickCount, 7U);
    EXPECT_EQ(leadIn.frames, 6 * beat + beat / 2);
}

TEST(CountInOnTheBeats, TakesALoopThatBeginsALittleEarlyOrLateForOneOnTheBeat)
{
    for (const int milliseconds : {-40, -5, 5, 40}) {
        const auto offset = milliseconds * 44100 / 1000;
        const LeadIn leadIn = oneBarBefore(
            static_cast<std::uint64_t>(static_cast<int>(firstBeat + 4 * beat) + offset));
        EXPECT_EQ(leadIn.clickCount, 4U) << milliseconds;
        EXPECT_EQ(static_cast<int>(leadIn.frames), static_cast<int>(4 * beat) + offset)
            << "the music must stay in time with the clicks";
    }
}

TEST(CountInOnTheBeats, ComesBeforeTheFirstBeatOfTheSong)
{
    const LeadIn leadIn = oneBarBefore(0);
    // The song's first frame lies in the bar before bar 1, 0.45 s before it.
    EXPECT_EQ((leadIn.frames + firstBeat) % beat, 0U);
    EXPECT_EQ(leadIn.clickCount, 8U);
}

TEST(CountInOnTheBeats, KnowsOnlyTheTempoFarFromKnownBeats)
{
    const std::uint64_t far = firstBeat + 100 * beat + 777;
    const LeadIn leadIn = oneBarBefore(far);
    EXPECT_EQ(leadIn.frames, 4 * beat);
    EXPECT_EQ(leadIn.clicks[0].kind, ClickKind::Accent);

    const BeatGrid lost({{.frame = 0, .bar = 1},
                         {.frame = 4 * beat, .bar = 2, .isLost = true},
                         {.frame = 60 * beat, .bar = 3},
                         {.frame = 66 * beat, .bar = 5}});
    EXPECT_EQ(oneBarBefore(30 * beat, lost).frames, 4 * beat) << "the tempo before it was lost";
}

TEST(CountInOnTheBeats, KeepsTheLengthOfTheBarsThere)
{
    const BeatGrid grid({{.frame = 0, .bar = 1},
                         {.frame = 8 * beat, .bar = 3, .beatsPerBar = 3},
                         {.frame = 20 * beat, .bar = 7, .beatsPerBar = 3}});
    EXPECT_EQ(oneBarBefore(4 * beat, grid).clickCount, 4U);
    EXPECT_EQ(oneBarBefore(8 * beat, grid).clickCount, 3U);
    EXPECT_EQ(oneBarBefore(11 * beat, grid).clickCount, 3U);
}

TEST(CountInOnTheBeats, NeedsBeats)
{
    EXPECT_EQ(oneBarBefore(1000, BeatGrid()), LeadIn());
    EXPECT_EQ(metronome::restBefore(BeatGrid(), 1000, 4).frames, 4U * 22050U);
    EXPECT_EQ(metronome::restBefore(steadyGrid(), firstBeat, 3).frames, 3 * beat);
    EXPECT_EQ(metronome::restBefore(steadyGrid(), firstBeat, 3).clickCount, 0U);
}

TEST(TheGridOfALoop, HasItsBars)
{
    const BeatGrid grid = metronome::gridOfLoop({.start = 1000, .end = 1000 + 12 * beat},
                                                {.bars = 4, .beatsPerBar = 3});
    EXPECT_NEAR(grid.tempoAt(5000), 120.0, 1e-9);
    EXPECT_EQ(oneBarBefore(1000, grid).clickCount, 3U);
    EXPECT_TRUE(metronome::gridOfLoop({.start = 1000, .end = 1010}, {.bars = 64, .beatsPerBar = 12})
                    .isEmpty())
        << "too fast to be beats";
    // Numbers beyond their ranges count as the nearest ones.
    EXPECT_NEAR(metronome::gridOfLoop({.start = 0, .end = 2 * beat}, {.bars = 0, .beatsPerBar = 1})
                    .tempoAt(0),
                120.0, 1e-9);
}

} // namespace
