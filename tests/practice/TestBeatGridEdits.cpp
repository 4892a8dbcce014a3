#include "practice/BeatGridEdits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace lyrabox;

namespace {

constexpr double beatFrames = 22'050.0; // at 120 beats a minute

/// So many beats at 120 a minute from a frame on, in bars of 4.
BeatGrid steady(std::uint64_t from = 10'000, int beats = 64, std::size_t one = 0)
{
    std::vector<std::uint64_t> frames;
    for (int i = 0; i < beats; ++i)
        frames.push_back(from + static_cast<std::uint64_t>(i) * 22'050);
    return fittedGrid(frames, one, 4);
}

/// The same, with bars of 3 from bar 5 on.
BeatGrid changing()
{
    return gridWithBars(steady(), 10'000 + 16 * 22'050, 3);
}

void expectPlace(const BeatGrid &grid, double frame, int bar, double beat)
{
    const BarPlace place = grid.placeAt(frame + 2.0);
    EXPECT_EQ(place.bar, bar) << frame;
    EXPECT_NEAR(place.beat, beat, 0.01) << frame;
}

double frameOfBeat(double beat)
{
    return 10'000.0 + beat * beatFrames;
}

} // namespace

TEST(ScaledGrid, HasTwiceTheBeats)
{
    const BeatGrid grid = scaledGrid(steady(), BeatScale::Double);
    EXPECT_NEAR(grid.tempoAt(500'000.0), 240.0, 0.01);
    EXPECT_EQ(grid.anchors().size(), 2U);
    expectPlace(grid, frameOfBeat(0), 1, 1.0);
    expectPlace(grid, frameOfBeat(0.5), 1, 2.0);
    expectPlace(grid, frameOfBeat(2), 2, 1.0);
}

TEST(ScaledGrid, HasHalfTheBeatsAndItsFirstBeatsStayFirst)
{
    for (const std::size_t one : {0, 1, 2, 3}) {
        const BeatGrid grid = scaledGrid(steady(10'000, 64, one), BeatScale::Half);
        EXPECT_NEAR(grid.tempoAt(500'000.0), 60.0, 0.01);
        expectPlace(grid, frameOfBeat(static_cast<double>(one)), 1, 1.0);
        expectPlace(grid, frameOfBeat(static_cast<double>(one) + 8.0), 2, 1.0);
    }
}

TEST(ScaledGrid, ThreeHalvesTurnThreesIntoTwos)
{
    const BeatGrid grid = scaledGrid(steady(), BeatScale::ThreeHalves);
    EXPECT_NEAR(grid.tempoAt(500'000.0), 180.0, 0.01);
    expectPlace(grid, frameOfBeat(0), 1, 1.0);
    expectPlace(grid, frameOfBeat(2), 1, 4.0);
}

TEST(ScaledGrid, ThereAndBackIsTheSame)
{
    const BeatGrid grid = steady(10'000, 65);
    EXPECT_EQ(scaledGrid(scaledGrid(grid, BeatScale::Double), BeatScale::Half), grid);
}

TEST(ScaledGrid, KeepsBeatsThatAreLost)
{
    const BeatGrid grid = joinedGrid(steady(), steady(3'000'000));
    ASSERT_TRUE(grid.anchors()[1].isLost);
    const BeatGrid scaled = scaledGrid(grid, BeatScale::Double);
    EXPECT_TRUE(scaled.isKnown(500'000.0));
    EXPECT_FALSE(scaled.isKnown(2'000'000.0));
    EXPECT_TRUE(scaled.isKnown(3'500'000.0));
    EXPECT_NEAR(scaled.tempoAt(3'500'000.0), 240.0, 0.01);
}

TEST(ScaledGrid, IsNotPossibleBeyondTheFastestTempoOrWithoutTwoBeats)
{
    const BeatGrid fast({{.frame = 0}, {.frame = 4 * 4000, .bar = 2}}); // 661 beats a minute
    EXPECT_EQ(scaledGrid(fast, BeatScale::Double), fast);
    const BeatGrid brief({{.frame = 0}, {.frame = 22'050, .beat = 2}});
    EXPECT_EQ(scaledGrid(brief, BeatScale::Half), brief);
    EXPECT_TRUE(scaledGrid({}, BeatScale::Half).isEmpty());
}

TEST(ShiftedGrid, MovesTheFirstBeatOfAllBars)
{
    const BeatGrid later = shiftedGrid(steady(), 1);
    expectPlace(later, frameOfBeat(0), 0, 4.0);
    expectPlace(later, frameOfBeat(1), 1, 1.0);
    expectPlace(later, frameOfBeat(17), 5, 1.0);
    const BeatGrid earlier = shiftedGrid(steady(), -1);
    expectPlace(earlier, frameOfBeat(0), 0, 2.0);
    expectPlace(earlier, frameOfBeat(3), 1, 1.0);
}

TEST(ShiftedGrid, LeavesTheBeatsWhereTheyAre)
{
    const BeatGrid grid = changing();
    for (const int beats : {-3, -1, 1, 2, 5}) {
        const BeatGrid shifted = shiftedGrid(grid, beats);
        for (int beat = 0; beat < 64; ++beat)
            EXPECT_NEAR(shifted.frameOfBeats(beat), grid.frameOfBeats(beat), 1.0) << beats;
    }
}

TEST(ShiftedGrid, MovesTheChangeOfTheBarsAlong)
{
    const BeatGrid shifted = shiftedGrid(changing(), 1);
    expectPlace(shifted, frameOfBeat(13), 4, 1.0);
    expectPlace(shifted, frameOfBeat(16), 4, 4.0);
    expectPlace(shifted, frameOfBeat(17), 5, 1.0);
    expectPlace(shifted, frameOfBeat(20), 6, 1.0);
}

TEST(ShiftedGrid, ThereAndBackHasTheSameBars)
{
    const BeatGrid grid = shiftedGrid(shiftedGrid(changing(), 1), -1);
    for (int beat = 0; beat < 64; ++beat) {
        const BarPlace expected = changing().placeAt(frameOfBeat(beat) + 2.0);
        expectPlace(grid, frameOfBeat(beat), expected.bar, std::floor(expected.beat));
    }
    EXPECT_TRUE(shiftedGrid({}, 1).isEmpty());
}

TEST(GridWithBars, ChangesTheBarsFromTheOneAtThatPlaceOn)
{
    const BeatGrid grid = gridWithBars(steady(), 10'000 + 18 * 22'050, 3); // in bar 5
    expectPlace(grid, frameOfBeat(15), 4, 4.0);
    expectPlace(grid, frameOfBeat(16), 5, 1.0);
    expectPlace(grid, frameOfBeat(19), 6, 1.0);
    EXPECT_EQ(grid.anchors().size(), 3U);
}

TEST(GridWithBars, AtTheFirstBarChangesAll)
{
    const BeatGrid grid = gridWithBars(steady(), 11'000, 5);
    EXPECT_EQ(grid.anchors().size(), 2U);
    expectPlace(grid, frameOfBeat(5), 2, 1.0);
    const BeatGrid pickUp = gridWithBars(steady(10'000, 64, 2), 0, 3);
    EXPECT_EQ(pickUp.anchors().front().beatsPerBar, 3);
}

TEST(GridWithBars, OfAnotherRangeIsNotPossible)
{
    EXPECT_EQ(gridWithBars(steady(), 11'000, 1), steady());
    EXPECT_EQ(gridWithBars(steady(), 11'000, 13), steady());
    EXPECT_TRUE(gridWithBars({}, 11'000, 4).isEmpty());
}

TEST(GridWithBeatAt, MovesABeatAndThoseAroundIt)
{
    const BeatGrid grid =
        gridWithBeatAt(steady(), 10'000 + 32 * 22'050 + 900, 10'000 + 32 * 22'050 + 2205);
    EXPECT_EQ(grid.anchors().size(), 3U);
    EXPECT_NEAR(grid.frameOfBeats(32.0), frameOfBeat(32) + 2205.0, 1.0);
    EXPECT_NEAR(grid.frameOfBeats(16.0), frameOfBeat(16) + 1102.5, 2.0);
    EXPECT_NEAR(grid.frameOfBeats(0.0), frameOfBeat(0), 1.0);
    EXPECT_NEAR(grid.frameOfBeats(63.0), frameOfBeat(63), 1.0);
    const BeatGrid back = gridWithBeatAt(grid, 10'000 + 32 * 22'050 + 2205, 10'000 + 32 * 22'050);
    EXPECT_NEAR(back.frameOfBeats(16.0), frameOfBeat(16), 1.0);
}

TEST(GridWithBeatAt, DoesNotPassAnAnchor)
{
    EXPECT_EQ(gridWithBeatAt(steady(), 10'000 + 32 * 22'050, 9'000), steady());
    EXPECT_EQ(gridWithBeatAt(steady(), 10'000 + 32 * 22'050, 10'500), steady());
    EXPECT_EQ(gridWithBeatAt(steady(), 10'000 + 32 * 22'050, 40'000'000), steady());
    EXPECT_TRUE(gridWithBeatAt({}, 5, 6).isEmpty());
}

TEST(JoinedGrid, GridsApartHaveLostBeatsBetween)
{
    const BeatGrid grid = joinedGrid(steady(), steady(3'000'000));
    ASSERT_EQ(grid.anchors().size(), 4U);
    EXPECT_TRUE(grid.isKnown(1'000'000.0));
    EXPECT_FALSE(grid.isKnown(2'000'000.0));
    EXPECT_TRUE(grid.isKnown(3'500'000.0));
    EXPECT_NEAR(grid.tempoAt(3'500'000.0), 120.0, 0.01);
    EXPECT_EQ(grid.anchors()[2].beat, 1);
    // 2,990,000 frames are 135.6 beats, 33.9 bars.
    EXPECT_NEAR(grid.anchors()[2].bar, 34, 1);
    EXPECT_EQ(joinedGrid(steady(3'000'000), steady()).isKnown(2'000'000.0), false);
    EXPECT_EQ(joinedGrid(steady(3'000'000), steady()).anchors().front().bar, 1);
}

TEST(JoinedGrid, TheOtherGridTakesThePlaceOfTheFirst)
{
    // From beat 20 on, the beats are a third of a beat later, for 16 beats.
    const std::uint64_t from = 10'000 + 20 * 22'050 + 7350;
    const BeatGrid grid = joinedGrid(steady(), steady(from, 17));
    EXPECT_NEAR(grid.placeAt(frameOfBeat(10) + 1.0).beat, 3.0, 0.01);
    EXPECT_NEAR(grid.placeAt(static_cast<double>(from) + 2.0).beat, 1.0, 0.01);
    EXPECT_NEAR(grid.frameOf(grid.placeAt(static_cast<double>(from))), static_cast<double>(from),
                0.01);
    const auto beats = grid.beatsBetween(from, from + 16 * 22'050);
    ASSERT_EQ(beats.size(), 16U);
    EXPECT_NEAR(beats[5].frame, static_cast<double>(from) + 5.0 * beatFrames, 1.0);
    EXPECT_FALSE(grid.isKnown(static_cast<double>(from) - 1000.0));
    EXPECT_TRUE(grid.isKnown(frameOfBeat(50)));
    EXPECT_NEAR(std::remainder(grid.placeAt(frameOfBeat(50) + 1.0).beat, 1.0), 0.0, 0.01);
}

TEST(JoinedGrid, GridsThatMeetAtAnyPlaceAreBothKnown)
{
    for (int third = 1; third < 40; ++third) { // from beat 57 to beat 70, on and off the beat
        const std::uint64_t from = 10'000 + 57 * 22'050 + static_cast<std::uint64_t>(third) * 7350;
        for (const bool isSwapped : {false, true}) {
            const BeatGrid grid =
                isSwapped ? joinedGrid(steady(from), steady()) : joinedGrid(steady(), steady(from));
            EXPECT_TRUE(grid.isKnown(frameOfBeat(40))) << third;
            EXPECT_TRUE(grid.isKnown(static_cast<double>(from) + 20.0 * beatFrames)) << third;
            EXPECT_EQ(grid.isKnown(static_cast<double>(isSwapped ? 10'000 + 63 * 22'050 : from)),
                      true)
                << third;
            expectPlace(grid, frameOfBeat(0), 1, 1.0);
            EXPECT_NEAR(grid.placeAt(static_cast<double>(from) + 20.0 * beatFrames + 2.0).beat, 1.0,
                        0.01)
                << third;
        }
    }
}

TEST(JoinedGrid, AContinuationLosesNothing)
{
    const BeatGrid grid = joinedGrid(steady(), steady(10'000 + 40 * 22'050, 65));
    EXPECT_TRUE(grid.isKnown(frameOfBeat(39.5)));
    EXPECT_TRUE(grid.isKnown(frameOfBeat(80)));
    expectPlace(grid, frameOfBeat(40), 11, 1.0);
    expectPlace(grid, frameOfBeat(100), 26, 1.0);
    const BeatGrid otherBars = joinedGrid(steady(), steady(10'000 + 41 * 22'050, 65));
    EXPECT_FALSE(otherBars.isKnown(frameOfBeat(40.5)));
}

TEST(JoinedGrid, AnEmptyGridChangesNothing)
{
    EXPECT_EQ(joinedGrid({}, steady()), steady());
    EXPECT_EQ(joinedGrid(steady(), {}), steady());
    EXPECT_TRUE(joinedGrid({}, {}).isEmpty());
}

TEST(BeatGridEdits, OfAnyGridGiveAGridWhoseAnchorsAreAllValid)
{
    std::mt19937 random(17);
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    const auto randomGrid = [&] {
        std::vector<BeatAnchor> anchors;
        std::uint64_t frame = 0;
        for (int i = below(12); i >= 0; --i) {
            frame += random() % 400'000;
            anchors.push_back({.frame = frame,
                               .bar = below(60),
                               .beat = 1 + below(5),
                               .beatsPerBar = 1 + below(13),
                               .isLost = below(6) == 0});
        }
        return BeatGrid(anchors);
    };
    for (int run = 0; run < 3000; ++run) {
        const BeatGrid grid = randomGrid();
        const auto frame = static_cast<std::uint64_t>(below(2'000'000));
        for (const BeatGrid &edited :
             {scaledGrid(grid, static_cast<BeatScale>(below(3))), shiftedGrid(grid, below(11) - 5),
              gridWithBars(grid, frame, below(15)),
              gridWithBeatAt(grid, frame, frame + static_cast<std::uint64_t>(below(20'000))),
              joinedGrid(grid, randomGrid())}) {
            EXPECT_EQ(BeatGrid(edited.anchors()), edited) << run;
            EXPECT_EQ(edited.isEmpty() && !grid.isEmpty(), false) << run;
            double last = -1.0;
            for (const GridBeat &beat : edited.beatsBetween(0, 300'000)) {
                EXPECT_GT(beat.frame, last) << run;
                EXPECT_GE(beat.beat, 1) << run;
                last = beat.frame;
            }
        }
    }
}

TEST(GridWithoutBeatsAround, LosesOnlyTheBeatsUpToWhereTheyWereLost)
{
    const auto at = [](std::uint64_t beats) { return 10'000 + beats * 22'050; };
    const BeatAnchor a{.frame = at(0), .bar = 1, .beat = 1};
    const BeatAnchor b{.frame = at(16), .bar = 5, .beat = 1, .isLost = true};
    const BeatAnchor c{.frame = at(32), .bar = 9, .beat = 1};
    const BeatAnchor d{.frame = at(48), .bar = 13, .beat = 1, .isLost = true};
    const BeatAnchor e{.frame = at(64), .bar = 17, .beat = 1};
    const BeatAnchor f{.frame = at(80), .bar = 21, .beat = 1};
    const BeatGrid grid({a, b, c, d, e, f});
    EXPECT_EQ(gridWithoutBeatsAround(grid, at(8)), BeatGrid({c, d, e, f}));
    EXPECT_EQ(gridWithoutBeatsAround(grid, at(40)), BeatGrid({a, b, e, f}));
    EXPECT_EQ(gridWithoutBeatsAround(grid, at(70)), BeatGrid({a, b, c, d}));
    EXPECT_FALSE(gridWithoutBeatsAround(grid, at(40)).isKnown(static_cast<double>(at(40))));
    EXPECT_EQ(gridWithoutBeatsAround(grid, at(24)), grid) << "lost there";
    EXPECT_EQ(gridWithoutBeatsAround(grid, at(90)), grid);
    EXPECT_TRUE(gridWithoutBeatsAround(steady(), at(8)).isEmpty());
}
