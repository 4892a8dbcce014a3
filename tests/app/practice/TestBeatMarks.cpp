#include "app/practice/BeatMarks.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace lyrabox::beatMarks;

namespace {

constexpr std::uint64_t beat = 22'050; // at 120 a minute

/// Beats at 120 a minute from second 5 on, in bars of 4; bars 5 to 8 are lost.
BeatGrid withGap()
{
    const auto at = [](std::uint64_t beats) { return 220'500 + beats * beat; };
    return BeatGrid({{.frame = at(0), .bar = 1, .beat = 1},
                     {.frame = at(16), .bar = 5, .beat = 1, .isLost = true},
                     {.frame = at(32), .bar = 9, .beat = 1},
                     {.frame = at(48), .bar = 13, .beat = 1}});
}

double frameOf(int beats)
{
    return 220'500.0 + beats * double{beat};
}

TEST(BeatMarks, AreShownWhereTheBeatsAreKnownAndABarBeyond)
{
    const BeatGrid grid = withGap();
    EXPECT_TRUE(isShown(grid, frameOf(0)));
    EXPECT_TRUE(isShown(grid, frameOf(15)));
    EXPECT_FALSE(isShown(grid, frameOf(18)));
    EXPECT_TRUE(isShown(grid, frameOf(32)));
    EXPECT_TRUE(isShown(grid, frameOf(52)));
    EXPECT_FALSE(isShown(grid, frameOf(53)));
    EXPECT_TRUE(isShown(grid, frameOf(-4)));
    EXPECT_FALSE(isShown(grid, frameOf(-5)));
    EXPECT_FALSE(isShown(BeatGrid(), frameOf(0)));
}

TEST(BeatMarks, SnapToTheNearestBeatThatIsShown)
{
    const BeatGrid grid = withGap();
    EXPECT_EQ(nearestBeat(grid, frameOf(3) + 400.0, 500.0), std::uint64_t{220'500 + 3 * beat});
    EXPECT_FALSE(nearestBeat(grid, frameOf(3) + 600.0, 500.0));
    EXPECT_FALSE(nearestBeat(grid, frameOf(20) + 10.0, 500.0)) << "the beats are lost there";
    EXPECT_FALSE(nearestBeat(BeatGrid(), 100.0, 500.0));
}

TEST(BeatMarks, AreLinesInTheColumnsOfTheirFrames)
{
    const BeatGrid grid = withGap();
    const Density all = density(grid, 441.0);
    ASSERT_TRUE(all.hasBeats);
    const std::vector<Line> found = lines(grid, all, 441.0, 500, 701); // 50 columns a beat
    ASSERT_EQ(found.size(), 5U);
    EXPECT_EQ(found[0], (Line{500, true}));
    EXPECT_EQ(found[1], (Line{550, false}));
    EXPECT_EQ(found[4], (Line{700, true}));
    EXPECT_TRUE(lines(grid, all, 441.0, 1340, 2090).empty()) << "lost";
    for (const Line &line : lines(grid, all, 441.0, 500, 701, false))
        EXPECT_FALSE(line.isBar);
}

TEST(BeatMarks, OfNeighbouringPicturesNeitherMissNorDoubleABeat)
{
    const BeatGrid grid = withGap();
    const Density all = density(grid, 441.0);
    const std::size_t whole = lines(grid, all, 441.0, 300, 1340).size();
    std::size_t parts = 0;
    for (std::int64_t first = 300; first < 1340; first += 10)
        parts += lines(grid, all, 441.0, first, first + 10).size();
    EXPECT_EQ(parts, whole);
}

TEST(BeatMarks, AreFewerWhereThereIsNoRoom)
{
    const BeatGrid grid = withGap();
    const Density bars = density(grid, 8'820.0); // 2.5 points a beat, 10 a bar
    EXPECT_FALSE(bars.hasBeats);
    EXPECT_EQ(bars.bars, 1);
    EXPECT_EQ(bars.labels, 8);
    for (const Line &line : lines(grid, bars, 8'820.0, 0, 200))
        EXPECT_TRUE(line.isBar);
    EXPECT_EQ(density(grid, 44'100.0).bars, 4); // 2 points a bar
}

TEST(BeatMarks, NumberTheBars)
{
    const BeatGrid grid = withGap();
    const Density wide = density(grid, 441.0);
    const std::vector<Label> found = labels(grid, wide, frameOf(3), frameOf(13));
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].bar, 2);
    EXPECT_NEAR(found[0].frame, frameOf(4), 1.0);
    EXPECT_EQ(found[2].bar, 4);
    EXPECT_TRUE(labels(grid, wide, frameOf(-8), frameOf(-1)).empty()) << "bars before the first";
}

TEST(BeatMarks, AreLostBetweenAndWhereTheSongGoesOn)
{
    const BeatGrid grid = withGap();
    const auto at = [](int beats) { return static_cast<std::uint64_t>(frameOf(beats)); };
    const std::vector<LoopRange> found = lostParts(grid, {0, at(60)});
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0], (LoopRange{0, at(0)}));
    EXPECT_EQ(found[1], (LoopRange{at(16), at(32)}));
    EXPECT_EQ(found[2], (LoopRange{at(48), at(60)}));
    EXPECT_EQ(lostParts(grid, {at(-3), at(51)}).size(), 1U) << "a bar without beats is an ending";
    EXPECT_EQ(lostParts(grid, {~std::uint64_t{0}, 0}).size(), 1U) << "not analysed yet";
    EXPECT_TRUE(lostParts(BeatGrid(), {0, at(60)}).empty());
}

} // namespace
