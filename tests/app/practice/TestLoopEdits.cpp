#include "app/practice/LoopEdits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::uint64_t rate = 44100;

TEST(KeptLoops, AreNumberedAndColouredInTurn)
{
    PracticeRecord record;
    for (int number = 1; number <= 9; ++number) {
        const PracticeLoop loop = loopEdits::keptLoop(record, {rate, 2 * rate});
        EXPECT_EQ(loop.name, u"Loop %1"_s.arg(number));
        EXPECT_EQ(loop.colour, number == 9 ? 1 : number);
        EXPECT_EQ(loop.from, rate);
        EXPECT_EQ(loop.to, 2 * rate);
        EXPECT_FALSE(loop.speed);
        record.loops.push_back(loop);
    }
    record.loops.erase(record.loops.begin() + 3); // a name is never given twice
    EXPECT_EQ(loopEdits::keptLoop(record, {rate, 2 * rate}).name, u"Loop 10"_s);
}

TEST(KeptLoops, AreCalledAfterTheMarkerThatTheyStartAt)
{
    PracticeRecord record;
    record.markers = {{.at = 10 * rate, .name = u"Verse"_s},
                      {.at = 10 * rate + rate / 10, .name = u"Fill"_s},
                      {.at = 20 * rate},
                      {.at = 30 * rate, .name = u"Bridge"_s}};
    const auto nameAt = [&](std::uint64_t frame) {
        return loopEdits::keptLoop(record, {frame, frame + rate}).name;
    };
    EXPECT_EQ(nameAt(10 * rate), u"Verse"_s);
    EXPECT_EQ(nameAt(10 * rate + rate / 11), u"Fill"_s) << "the nearest one";
    EXPECT_EQ(nameAt(30 * rate - rate / 4), u"Bridge"_s);
    EXPECT_EQ(nameAt(30 * rate - rate / 4 - 1), u"Loop 1"_s) << "too far away";
    EXPECT_EQ(nameAt(20 * rate), u"Loop 1"_s) << "a marker without a name";
}

constexpr std::uint64_t end = 60 * rate;
using loopHands::Grip;

LoopRange moved(LoopRange loop, Grip grip, int milliseconds)
{
    return loopEdits::moved(loop, grip, milliseconds, end);
}

TEST(MovedLoops, MoveByMilliseconds)
{
    const LoopRange loop{10 * rate, 20 * rate};
    EXPECT_EQ(moved(loop, Grip::Start, -10), (LoopRange{10 * rate - 441, 20 * rate}));
    EXPECT_EQ(moved(loop, Grip::Start, 100), (LoopRange{10 * rate + 4410, 20 * rate}));
    EXPECT_EQ(moved(loop, Grip::End, 1), (LoopRange{10 * rate, 20 * rate + 44}));
    EXPECT_EQ(moved(loop, Grip::End, -10), (LoopRange{10 * rate, 20 * rate - 441}));
    EXPECT_EQ(moved(loop, Grip::Whole, 10), (LoopRange{10 * rate + 441, 20 * rate + 441}));
    EXPECT_EQ(moved(loop, Grip::Whole, -1), (LoopRange{10 * rate - 44, 20 * rate - 44}));
}

TEST(MovedLoops, StayInTheSong)
{
    EXPECT_EQ(moved({100, rate}, Grip::Start, -10), (LoopRange{0, rate}));
    EXPECT_EQ(moved({rate, end - 100}, Grip::End, 10), (LoopRange{rate, end}));
    EXPECT_EQ(moved({rate, end - 100}, Grip::Whole, 10), (LoopRange{rate + 100, end}));
    EXPECT_EQ(moved({100, rate}, Grip::Whole, -10), (LoopRange{0, rate - 100}));
    const LoopRange beyond{rate, end + 1};
    for (const Grip grip : {Grip::Start, Grip::End, Grip::Whole})
        EXPECT_EQ(moved(beyond, grip, 10), beyond);
}

TEST(MovedLoops, KeepTheLeastLength)
{
    EXPECT_EQ(moved({rate, rate + 500}, Grip::Start, 10), (LoopRange{rate + 59, rate + 500}));
    EXPECT_EQ(moved({rate, rate + 500}, Grip::End, -10), (LoopRange{rate, rate + 441}));
    const LoopRange shorter{rate, rate + 20};
    EXPECT_EQ(moved(shorter, Grip::Start, 10), shorter);
    EXPECT_EQ(moved(shorter, Grip::End, -10), shorter);
    EXPECT_EQ(moved(shorter, Grip::End, 10), (LoopRange{rate, rate + 461}));
}

TEST(HalvedAndDoubledLoops, StayInTheSongAndKeepTheLeastLength)
{
    EXPECT_EQ(loopEdits::secondHalf({rate, 3 * rate}), (LoopRange{2 * rate, 3 * rate}));
    EXPECT_EQ(loopEdits::secondHalf({rate, rate + 881}), (LoopRange{rate, rate + 881}));
    EXPECT_EQ(loopEdits::twiceAsLong({rate, 3 * rate}, end), (LoopRange{rate, 5 * rate}));
    EXPECT_EQ(loopEdits::twiceAsLong({50 * rate, 58 * rate}, end), (LoopRange{50 * rate, end}));
    EXPECT_EQ(loopEdits::twiceAsLong({50 * rate, end}, end), (LoopRange{50 * rate, end}));
}

/// Clicks at every half second: the decaying sounds of a practice pad.
class TidyLoops : public testing::Test {
protected:
    TidyLoops() : samples(30 * rate)
    {
        for (std::uint64_t click = 0; click < samples.size(); click += interval) {
            for (std::uint64_t i = 0; i < interval && click + i < samples.size(); ++i) {
                const double time = static_cast<double>(i) / rate;
                samples[click + i] =
                    static_cast<float>(0.6 * std::exp(-30.0 * time) *
                                       std::sin(2.0 * std::numbers::pi * 1000.0 * time));
            }
        }
    }

    static double milliseconds(std::uint64_t place, std::uint64_t wanted)
    {
        return std::abs(static_cast<double>(place) - static_cast<double>(wanted)) * 1000.0 / rate;
    }

    static constexpr std::uint64_t interval = rate / 2;
    std::vector<float> samples;
    SongSamples song{samples, samples, double{rate}};
};

class TidiedLoops : public TidyLoops, public testing::WithParamInterface<int> {};

TEST_P(TidiedLoops, HaveTheirEndsAtTheClicksThatWereMarkedTooLate)
{
    const double speed = GetParam() / 100.0;
    const auto late = static_cast<std::uint64_t>(0.12 * speed * rate); // pressed 120 ms late
    for (std::uint64_t click = 2; click < 20; ++click) {
        const LoopRange meant{click * interval, (click + 8) * interval};
        const LoopRange tidy =
            loopEdits::tidied({meant.start + late, meant.end + late}, song, speed);
        EXPECT_LT(milliseconds(tidy.start, meant.start), 3.0) << "click " << click;
        EXPECT_LT(milliseconds(tidy.end, meant.end), 3.0) << "click " << click;
    }
}

INSTANTIATE_TEST_SUITE_P(Speeds, TidiedLoops, testing::Values(50, 75, 100),
                         [](const auto &speed) { return std::to_string(speed.param); });

TEST_F(TidyLoops, StayWhereThereIsNoAttack)
{
    const std::vector<float> silence(10 * rate);
    const SongSamples quiet{silence, silence, double{rate}};
    EXPECT_EQ(loopEdits::tidied({rate, 3 * rate}, quiet, 1.0), (LoopRange{rate, 3 * rate}));
}

TEST_F(TidyLoops, StayIfBothEndsWouldMeet)
{
    const LoopRange loop{2 * interval + 2000, 2 * interval + 4000};
    EXPECT_EQ(loopEdits::tidied(loop, song, 1.0), loop);
}

TEST(Neighbours, AreTheLoopsNextToTheOneThatIsCalledUp)
{
    PracticeRecord record;
    record.loops = {{.from = rate, .to = 9 * rate},
                    {.from = 5 * rate, .to = end + 1}, // beyond the song
                    {.from = 6 * rate, .to = 7 * rate},
                    {.from = 6 * rate, .to = 8 * rate}};
    const auto neighbour = [&](std::optional<PracticeId> calledUp, std::uint64_t position,
                               bool isNext) {
        const auto id = loopEdits::neighbourLoop(record, calledUp, position, end, isNext);
        for (int index = 0; id && index < 4; ++index) {
            if (record.loops[static_cast<std::size_t>(index)].id == *id)
                return index;
        }
        return -1;
    };
    EXPECT_EQ(neighbour(record.loops[0].id, 0, true), 2) << "the gray one is skipped";
    EXPECT_EQ(neighbour(record.loops[2].id, 0, true), 3);
    EXPECT_EQ(neighbour(record.loops[3].id, 0, true), -1);
    EXPECT_EQ(neighbour(record.loops[3].id, 0, false), 2);
    EXPECT_EQ(neighbour(record.loops[2].id, 0, false), 0);
    EXPECT_EQ(neighbour(record.loops[0].id, 0, false), -1);

    EXPECT_EQ(neighbour({}, 0, true), 0);
    EXPECT_EQ(neighbour({}, 0, false), -1);
    EXPECT_EQ(neighbour({}, rate, true), 2);
    EXPECT_EQ(neighbour({}, 20 * rate, false), 3);
    EXPECT_EQ(neighbour({}, 6 * rate - 1, false), 0);
}

TEST(Neighbours, AreTheMarkersAroundThePosition)
{
    PracticeRecord record;
    record.markers = {{.at = 10 * rate}, {.at = 20 * rate}, {.at = end}};
    const auto neighbour = [&](std::uint64_t position, bool isNext) {
        const auto id = loopEdits::neighbourMarker(record, position, end, rate, isNext);
        const auto *marker = id ? record.marker(*id) : nullptr;
        return marker != nullptr ? marker->at : 0;
    };
    EXPECT_EQ(neighbour(0, true), 10 * rate);
    EXPECT_EQ(neighbour(10 * rate, true), 20 * rate);
    EXPECT_EQ(neighbour(20 * rate, true), 0U) << "the last one is beyond the song";
    EXPECT_EQ(neighbour(30 * rate, false), 20 * rate);
    EXPECT_EQ(neighbour(21 * rate, false), 10 * rate) << "pressed twice";
    EXPECT_EQ(neighbour(11 * rate, false), 0U);
}

/// Beats at 120 a minute; at second 20 they become half as fast.
BeatGrid slowing()
{
    return BeatGrid({{.frame = 0, .bar = 1, .beat = 1},
                     {.frame = 20 * rate, .bar = 11, .beat = 1},
                     {.frame = 60 * rate, .bar = 21, .beat = 1}});
}

LoopRange movedByBeats(LoopRange loop, Grip grip, int beats)
{
    return loopEdits::movedByBeats(loop, grip, beats, slowing(), end);
}

TEST(MovedLoops, MoveByABeatOfTheTempoThatIsThere)
{
    const LoopRange loop{19 * rate, 20 * rate};
    constexpr std::uint64_t half = rate / 2;
    EXPECT_EQ(movedByBeats(loop, Grip::Start, -1), (LoopRange{19 * rate - half, 20 * rate}));
    EXPECT_EQ(movedByBeats(loop, Grip::Start, 1), (LoopRange{19 * rate + half, 20 * rate}));
    EXPECT_EQ(movedByBeats(loop, Grip::End, -1), (LoopRange{19 * rate, 20 * rate - half}));
    EXPECT_EQ(movedByBeats(loop, Grip::End, 1), (LoopRange{19 * rate, 21 * rate}));
    EXPECT_EQ(movedByBeats(loop, Grip::Whole, 1), (LoopRange{19 * rate + half, 21 * rate}))
        << "it keeps its two beats";
    const LoopRange between{10 * rate + 100, 12 * rate + 100};
    EXPECT_EQ(movedByBeats(between, Grip::Whole, 1),
              (LoopRange{10 * rate + half + 100, 12 * rate + half + 100}));
}

TEST(MovedLoops, MovedByBeatsStayWithinTheSong)
{
    const LoopRange first{100, 2 * rate};
    EXPECT_EQ(movedByBeats(first, Grip::Start, -1).start, 0U);
    EXPECT_EQ(movedByBeats(first, Grip::Whole, -1), first);
    const LoopRange last{58 * rate, end - 100};
    EXPECT_EQ(movedByBeats(last, Grip::End, 1).end, end);
    EXPECT_EQ(movedByBeats(last, Grip::Whole, 1), last);
    const LoopRange brief{10 * rate, 10 * rate + rate / 10};
    EXPECT_EQ(movedByBeats(brief, Grip::Start, 1).start, brief.end - 441);
    EXPECT_EQ(movedByBeats(brief, Grip::End, -1).end, brief.start + 441);
}

} // namespace
