#include "practice/BeatGrid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace lyrabox;

namespace {

constexpr double rate = 44'100.0;
using Frames = std::vector<std::uint64_t>;

/// Bars of 4 at 120 beats a minute from the frame 10,000 on, then bars of 3 at 90 from bar 9 on.
BeatGrid twoTempi()
{
    return BeatGrid(
        {{.frame = 10'000, .bar = 1, .beat = 1, .beatsPerBar = 4},
         {.frame = 10'000 + 32 * 22'050, .bar = 9, .beat = 1, .beatsPerBar = 3},
         {.frame = 10'000 + 32 * 22'050 + 30 * 29'400, .bar = 19, .beat = 1, .beatsPerBar = 3}});
}

Frames beatsOf(double tempo, std::size_t count, double start = 5000.0)
{
    Frames frames;
    for (std::size_t i = 0; i < count; ++i)
        frames.push_back(static_cast<std::uint64_t>(
            std::llround(start + static_cast<double>(i) * 60.0 / tempo * rate)));
    return frames;
}

/// The largest distance of the beats from the grid, in milliseconds.
double worst(const BeatGrid &grid, const Frames &beats)
{
    double distance = 0.0;
    for (std::size_t i = 0; i < beats.size(); ++i)
        distance = std::max(distance, std::abs(grid.frameOfBeats(static_cast<double>(i)) -
                                               static_cast<double>(beats[i])));
    return distance / rate * 1000.0;
}

} // namespace

TEST(BeatGrid, WithoutAnchorsHasNoBeats)
{
    EXPECT_TRUE(BeatGrid().isEmpty());
    EXPECT_TRUE(BeatGrid(std::vector<BeatAnchor>{}).isEmpty());
    EXPECT_TRUE(BeatGrid(std::vector<BeatAnchor>{{.frame = 100}}).isEmpty());
    EXPECT_TRUE(BeatGrid().beatsBetween(0, 1'000'000).empty());
    EXPECT_FALSE(BeatGrid().isKnown(5.0));
}

TEST(BeatGrid, TellsBarAndBeatOfAFrame)
{
    const BeatGrid grid = twoTempi();
    const auto expectPlace = [&grid](double frame, int bar, double beat) {
        const BarPlace place = grid.placeAt(frame);
        EXPECT_EQ(place.bar, bar) << frame;
        EXPECT_NEAR(place.beat, beat, 1.0e-9) << frame;
        EXPECT_NEAR(grid.frameOf(place), frame, 1.0e-6);
    };
    expectPlace(10'000.0, 1, 1.0);
    expectPlace(10'000.0 + 1.5 * 22'050.0, 1, 2.5);
    expectPlace(10'000.0 + 7.0 * 22'050.0, 2, 4.0);
    const double second = 10'000.0 + 32.0 * 22'050.0;
    expectPlace(second, 9, 1.0);
    expectPlace(second + 3.0 * 29'400.0, 10, 1.0);
    expectPlace(second + 32.25 * 29'400.0, 19, 3.25);
}

TEST(BeatGrid, GoesOnBeforeTheFirstAndBehindTheLastAnchor)
{
    const BeatGrid grid = twoTempi();
    EXPECT_NEAR(grid.beatsAt(10'000.0 - 11'025.0), -0.5, 1.0e-9);
    EXPECT_EQ(grid.placeAt(10'000.0 - 11'025.0).bar, 0);
    EXPECT_NEAR(grid.placeAt(10'000.0 - 11'025.0).beat, 4.5, 1.0e-9);
    EXPECT_NEAR(grid.frameOf({.bar = 0, .beat = 4.5}), 10'000.0 - 11'025.0, 1.0e-6);
    const double end = static_cast<double>(grid.anchors().back().frame);
    EXPECT_EQ(grid.placeAt(end + 4.0 * 29'400.0).bar, 20);
    EXPECT_FALSE(grid.isKnown(9'999.0));
    EXPECT_TRUE(grid.isKnown(10'000.0));
    EXPECT_TRUE(grid.isKnown(end));
    EXPECT_FALSE(grid.isKnown(end + 1.0));
}

TEST(BeatGrid, EveryPlaceLeadsBackToItsFrame)
{
    std::mt19937 random(3);
    for (int run = 0; run < 200; ++run) {
        std::vector<BeatAnchor> anchors;
        BeatAnchor anchor{.frame = random() % 100'000};
        for (int i = 0; i < 8; ++i) {
            anchor.beatsPerBar = 2 + static_cast<int>(random() % 11);
            anchor.beat = 1;
            anchors.push_back(anchor);
            const int bars = 1 + static_cast<int>(random() % 20);
            anchor.bar += bars;
            anchor.frame +=
                static_cast<std::uint64_t>(bars * anchor.beatsPerBar) * (9000 + random() % 50'000);
        }
        const BeatGrid grid(anchors);
        ASSERT_EQ(grid.anchors(), anchors);
        for (int i = 0; i < 50; ++i) {
            const double frame = static_cast<double>(random() % (anchor.frame + 200'000));
            EXPECT_NEAR(grid.frameOf(grid.placeAt(frame)), frame, 0.001);
            EXPECT_NEAR(grid.frameOfBeats(grid.beatsAt(frame)), frame, 0.001);
        }
    }
}

TEST(BeatGrid, TellsTheTempoOfEachLine)
{
    const BeatGrid grid = twoTempi();
    EXPECT_NEAR(grid.tempoAt(0.0), 120.0, 1.0e-6);
    EXPECT_NEAR(grid.tempoAt(500'000.0), 120.0, 1.0e-6);
    EXPECT_NEAR(grid.tempoAt(800'000.0), 90.0, 1.0e-6);
    EXPECT_NEAR(grid.tempoAt(9'000'000.0), 90.0, 1.0e-6);
}

TEST(BeatGrid, ListsTheBeatsOfARange)
{
    const BeatGrid grid = twoTempi();
    const std::uint64_t second = 10'000 + 32 * 22'050;
    const auto beats = grid.beatsBetween(second - 2 * 22'050, second + 4 * 29'400);
    ASSERT_EQ(beats.size(), 6U); // the end is not among them
    const int bars[]{8, 8, 9, 9, 9, 10};
    const int inBar[]{3, 4, 1, 2, 3, 1};
    for (std::size_t i = 0; i < beats.size(); ++i) {
        EXPECT_EQ(beats[i].bar, bars[i]);
        EXPECT_EQ(beats[i].beat, inBar[i]);
        EXPECT_TRUE(beats[i].isKnown);
    }
    EXPECT_NEAR(beats.front().frame, static_cast<double>(second - 2 * 22'050), 1.0e-6);
    const auto early = grid.beatsBetween(0, 10'001);
    ASSERT_EQ(early.size(), 1U);
    EXPECT_EQ(early.front().bar, 1);
    EXPECT_TRUE(grid.beatsBetween(500, 500).empty());
    EXPECT_TRUE(grid.beatsBetween(500, 400).empty());
}

TEST(BeatGrid, ARangeInPiecesHasTheBeatsOfTheWhole)
{
    const BeatGrid grid = fittedGrid(beatsOf(133.7, 200), 2, 4);
    const auto whole = grid.beatsBetween(0, 4'000'000);
    std::size_t count = 0;
    std::mt19937 random(5);
    for (std::uint64_t from = 0; from < 4'000'000;) {
        const std::uint64_t to = std::min<std::uint64_t>(4'000'000, from + random() % 5000);
        count += grid.beatsBetween(from, to).size();
        from = to;
    }
    EXPECT_EQ(count, whole.size());
}

TEST(BeatGrid, BeatsThatAreLostAreNotKnown)
{
    BeatGrid grid = twoTempi();
    std::vector<BeatAnchor> anchors = grid.anchors();
    anchors[1].isLost = true;
    grid = BeatGrid(anchors);
    EXPECT_TRUE(grid.isKnown(20'000.0));
    EXPECT_FALSE(grid.isKnown(static_cast<double>(anchors[1].frame) + 10.0));
    const auto beats = grid.beatsBetween(anchors[1].frame - 1000, anchors[1].frame + 100'000);
    ASSERT_FALSE(beats.empty());
    EXPECT_FALSE(beats.back().isKnown);
}

TEST(BeatGrid, AnchorsOutOfOrderAreSorted)
{
    std::vector<BeatAnchor> anchors = twoTempi().anchors();
    std::reverse(anchors.begin(), anchors.end());
    EXPECT_EQ(BeatGrid(anchors), twoTempi());
}

TEST(BeatGrid, AnchorsThatContradictEarlierOnesAreLeftOut)
{
    const std::vector<BeatAnchor> good = twoTempi().anchors();
    for (const BeatAnchor &bad : {
             BeatAnchor{.frame = 10'000, .bar = 3},            // a frame has one place
             BeatAnchor{.frame = 20'000, .bar = 1},            // a place has one frame
             BeatAnchor{.frame = 20'000, .bar = 0},            // time does not run back
             BeatAnchor{.frame = 20'000, .bar = 7},            // faster than anybody plays
             BeatAnchor{.frame = 20'000, .bar = 1, .beat = 5}, // beyond the bar
             BeatAnchor{.frame = 20'000, .bar = 1, .beat = 0}, // likewise
             BeatAnchor{.frame = 200'000, .bar = 3, .beatsPerBar = 1},
             BeatAnchor{.frame = 200'000, .bar = 3, .beatsPerBar = 13},
             BeatAnchor{.frame = 200'000, .bar = -1},
             BeatAnchor{.frame = 90'000'000'000, .bar = BeatGrid::lastBar + 1},
             BeatAnchor{.frame = std::numeric_limits<std::uint64_t>::max(), .bar = 50},
         }) {
        std::vector<BeatAnchor> anchors = good;
        anchors.insert(anchors.begin() + 1, bad);
        EXPECT_EQ(BeatGrid(anchors), twoTempi()) << bad.frame << ' ' << bad.bar;
    }
}

TEST(BeatGrid, TooManyAnchorsAreLeftOut)
{
    std::vector<BeatAnchor> anchors;
    for (int i = 0; i < 2500; ++i)
        anchors.push_back({.frame = static_cast<std::uint64_t>(i) * 80'000, .bar = i});
    EXPECT_EQ(BeatGrid(anchors).anchors().size(), BeatGrid::mostAnchors);
}

TEST(FittedGrid, ASteadyTempoTakesTwoAnchors)
{
    for (const double tempo : {30.0, 97.3, 120.0, 185.0}) {
        const Frames beats = beatsOf(tempo, 500);
        const BeatGrid grid = fittedGrid(beats, 0, 4);
        EXPECT_EQ(grid.anchors().size(), 2U) << tempo;
        EXPECT_LT(worst(grid, beats), 0.1) << tempo;
        EXPECT_NEAR(grid.tempoAt(0.0), tempo, 0.001 * tempo);
    }
}

TEST(FittedGrid, NotesThatAreALittleEarlyOrLateTakeNoAnchorsOfTheirOwn)
{
    std::mt19937 random(9);
    Frames beats = beatsOf(112.0, 400);
    for (std::uint64_t &beat : beats)
        beat += random() % 400; // 9 ms
    const BeatGrid grid = fittedGrid(beats, 0, 4);
    EXPECT_EQ(grid.anchors().size(), 2U);
    EXPECT_LE(worst(grid, beats), 8.0);
    EXPECT_NEAR(grid.tempoAt(0.0), 112.0, 0.01);
}

TEST(FittedGrid, ATempoThatJumpsTakesThreeAnchors)
{
    Frames beats = beatsOf(120.0, 65);
    for (const std::uint64_t beat : beatsOf(100.0, 60, static_cast<double>(beats.back())))
        beats.push_back(beat);
    beats.erase(beats.begin() + 65);
    const BeatGrid grid = fittedGrid(beats, 0, 4);
    EXPECT_EQ(grid.anchors().size(), 3U);
    EXPECT_LE(worst(grid, beats), 8.0);
}

TEST(FittedGrid, ATempoThatWandersIsKeptWithinEightMilliseconds)
{
    Frames beats{1000};
    for (int i = 1; i < 700; ++i) {
        const double tempo = 100.0 * (1.0 + 0.04 * std::sin(i / 11.0));
        beats.push_back(beats.back() + static_cast<std::uint64_t>(60.0 / tempo * rate));
    }
    const BeatGrid grid = fittedGrid(beats, 0, 4);
    EXPECT_LE(worst(grid, beats), 8.01); // frames are rounded
    EXPECT_LT(grid.anchors().size(), 120U);
    EXPECT_GT(grid.anchors().size(), 20U);
}

TEST(FittedGrid, BeatsOfAPickUpAreInBarZero)
{
    const Frames beats = beatsOf(120.0, 40);
    const BeatGrid grid = fittedGrid(beats, 10, 4); // and so is the beat 2
    EXPECT_EQ(grid.anchors().front().bar, 0);
    EXPECT_EQ(grid.anchors().front().beat, 3);
    const BarPlace place = grid.placeAt(static_cast<double>(beats[2]) + 1.0);
    EXPECT_EQ(place.bar, 1);
    EXPECT_NEAR(place.beat, 1.0, 0.001);
    EXPECT_EQ(fittedGrid(beats, 8, 4).anchors().front().bar, 1);
    EXPECT_EQ(fittedGrid(beats, 8, 4).anchors().front().beat, 1);
}

TEST(FittedGrid, BarsHaveTwoToTwelveBeats)
{
    const Frames beats = beatsOf(120.0, 40);
    EXPECT_EQ(fittedGrid(beats, 0, 1).anchors().front().beatsPerBar, 2);
    EXPECT_EQ(fittedGrid(beats, 0, 7).anchors().front().beatsPerBar, 7);
    EXPECT_EQ(fittedGrid(beats, 0, 99).anchors().front().beatsPerBar, 12);
}

TEST(FittedGrid, WithoutBeatsIsEmpty)
{
    EXPECT_TRUE(fittedGrid({}, 0, 4).isEmpty());
    EXPECT_TRUE(fittedGrid(Frames{5}, 0, 4).isEmpty());
    EXPECT_TRUE(fittedGrid(Frames{5, 50'000}, 2, 4).isEmpty());
    EXPECT_TRUE(fittedGrid(Frames{50'000, 5}, 0, 4).isEmpty());
    EXPECT_TRUE(fittedGrid(Frames{5, 6, 7, 8}, 0, 4).isEmpty());
    EXPECT_EQ(fittedGrid(Frames{5, 50'000}, 0, 4).anchors().size(), 2U);
}
