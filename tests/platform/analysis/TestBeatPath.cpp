#include "platform/analysis/BeatPath.h"

#include "platform/analysis/BeatHold.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace lyrabox;

namespace {

constexpr std::size_t steps = 6000;
constexpr float period = 87.3F;

/// A curve without onsets, as it is between those of music.
std::vector<float> quiet()
{
    return std::vector<float>(steps, -0.3F);
}

std::vector<float> constantPeriods()
{
    return std::vector<float>(steps, period);
}

/// Puts onsets a period apart on the steps from `from` up to `to`.
std::vector<std::size_t> addBeats(std::vector<float> &curve, double from, double to)
{
    std::vector<std::size_t> beats;
    for (double step = from; step < to; step += double{period}) {
        beats.push_back(static_cast<std::size_t>(std::lround(step)));
        curve[beats.back()] = 4.0F;
    }
    return beats;
}

std::vector<std::size_t> stepsOf(const BeatPath &path)
{
    std::vector<std::size_t> beats;
    for (const BeatPath::Beat &beat : path.beats)
        beats.push_back(beat.step);
    return beats;
}

BeatPath pathFrom(const std::vector<float> &curve, std::size_t step)
{
    return findBeatPath(curve, constantPeriods(), {step, step + 1}, {});
}

constexpr double firstBeat = 40.0;

} // namespace

TEST(BeatPath, LiesOnTheOnsets)
{
    std::vector<float> curve = quiet();
    const auto beats = addBeats(curve, firstBeat, steps);
    EXPECT_EQ(stepsOf(findBeatPath(curve, constantPeriods(), {20, 60}, {})), beats);
}

TEST(BeatPath, StaysOnTheBeatWhenThereAreMoreOnsetsBetween)
{
    std::vector<float> curve = quiet();
    addBeats(curve, firstBeat + double{period} / 2.0, steps);
    const auto beats = addBeats(curve, firstBeat, steps);
    for (const std::size_t beat : {10, 11, 12, 13})
        curve[beats[beat]] = -0.3F;
    EXPECT_EQ(stepsOf(pathFrom(curve, 40)).size(), beats.size());
    EXPECT_EQ(stepsOf(pathFrom(curve, 40)).back(), beats.back());
}

TEST(BeatPath, GoesOnThroughSilence)
{
    std::vector<float> curve = quiet();
    addBeats(curve, firstBeat, 2000.0);
    const double later = firstBeat + 40.0 * double{period};
    const auto beats = addBeats(curve, later, steps);
    const auto found = stepsOf(pathFrom(curve, 40));
    ASSERT_EQ(found.size(), 40 + beats.size());
    EXPECT_EQ(found[40], beats.front());
}

TEST(BeatPath, IsLessSureWhereThereAreNoOnsets)
{
    std::vector<float> curve = quiet();
    addBeats(curve, firstBeat, 2000.0);
    addBeats(curve, firstBeat + 40.0 * double{period}, steps);
    const BeatPath path = pathFrom(curve, 40);
    EXPECT_GT(path.beats[10].margin, 2.0F * path.beats[31].margin);
    EXPECT_GT(path.beats[50].margin, 2.0F * path.beats[31].margin);
}

TEST(BeatPath, WithoutAStartIsEmpty)
{
    const std::vector<float> curve = quiet();
    EXPECT_TRUE(findBeatPath(curve, constantPeriods(), {10, 10}, {}).beats.empty());
    EXPECT_TRUE(findBeatPath(curve, constantPeriods(), {steps, steps + 5}, {}).beats.empty());
    EXPECT_TRUE(findBeatPath({}, {}, {0, 1}, {}).beats.empty());
}

TEST(BeatPath, ThatStartsAtTheEndIsOneBeat)
{
    EXPECT_EQ(stepsOf(pathFrom(quiet(), steps - 1)), std::vector<std::size_t>{steps - 1});
}

TEST(BeatPath, EndsWhenItIsToStop)
{
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(findBeatPath(quiet(), constantPeriods(), {0, 10}, stop.get_token()).beats.empty());
}

TEST(BeatHold, HoldsWhereEveryBeatHasAnOnset)
{
    std::vector<float> curve = quiet();
    const auto beats = addBeats(curve, firstBeat, steps);
    const BeatHold hold = holdOf(pathFrom(curve, 40), curve, 8);
    EXPECT_EQ(hold.count, beats.size());
    EXPECT_FALSE(hold.isLost);
    EXPECT_EQ(*std::min_element(hold.holds.begin(), hold.holds.end()), 1.0F);
}

TEST(BeatHold, CountsThroughABreakAfterWhichTheBeatIsInTime)
{
    std::vector<float> curve = quiet();
    addBeats(curve, firstBeat, 2000.0);
    const auto beats = addBeats(curve, firstBeat + 40.0 * double{period}, steps);
    const BeatHold hold = holdOf(pathFrom(curve, 40), curve, 8);
    EXPECT_EQ(hold.count, 40 + beats.size());
    EXPECT_FALSE(hold.isLost);
    EXPECT_LT(hold.holds[31], 0.1F);
}

TEST(BeatHold, IsLostInABreakAfterWhichTheBeatIsElsewhere)
{
    for (const double shift : {0.25, 0.4, 0.5, 0.6, 0.75}) {
        std::vector<float> curve = quiet();
        const auto before = addBeats(curve, firstBeat, 2000.0);
        addBeats(curve, firstBeat + (40.0 + shift) * double{period}, steps);
        const BeatHold hold = holdOf(pathFrom(curve, 40), curve, 8);
        EXPECT_TRUE(hold.isLost) << shift;
        EXPECT_LE(hold.count, before.size()) << shift;
        EXPECT_GE(hold.count + 8, before.size()) << shift;
    }
}

TEST(BeatHold, EndsWithTheLastBeatThatSounds)
{
    std::vector<float> curve = quiet();
    const auto beats = addBeats(curve, firstBeat, 4000.0);
    const BeatHold hold = holdOf(pathFrom(curve, 40), curve, 8);
    EXPECT_EQ(hold.count, beats.size());
    EXPECT_FALSE(hold.isLost);
}

TEST(BeatHold, NeverLosesTheBeatsThatAreSure)
{
    const std::vector<float> curve(steps, 0.0F);
    EXPECT_EQ(holdOf(pathFrom(curve, 40), curve, 8).count, 8U);
    EXPECT_EQ(holdOf(pathFrom(curve, 40), curve, 1).count, 1U);
}
