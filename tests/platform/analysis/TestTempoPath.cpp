#include "platform/analysis/TempoPath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace lyrabox;

namespace {

constexpr double stepsPerSecond = 172.265625;
constexpr std::size_t steps = 10'000; // 58 s

/// A curve with a peak at the beats of a tempo that changes from `begin` to `end` beats a minute.
std::vector<float> curveOf(double begin, double end)
{
    std::vector<float> curve(steps, -0.3F);
    double step = 20.0;
    while (step + 2.0 < steps) {
        const auto at = static_cast<std::size_t>(std::lround(step));
        curve[at] = 4.0F;
        curve[at - 1] = curve[at + 1] = 2.0F;
        const double tempo = begin + (end - begin) * step / static_cast<double>(steps);
        step += 60.0 / tempo * stepsPerSecond;
    }
    return curve;
}

double tempoAt(const std::vector<float> &path, std::size_t step)
{
    return 60.0 * stepsPerSecond / static_cast<double>(path.at(step));
}

TempoHint hintOf(double tempo)
{
    return {.period = 60.0 / tempo * stepsPerSecond, .from = 100.0, .to = 600.0};
}

} // namespace

TEST(TempoPath, StaysAtASteadyTempo)
{
    for (const double tempo : {52.0, 60.0, 97.0, 120.0, 185.0}) {
        const auto path =
            tempoPath(curveOf(tempo, tempo), stepsPerSecond, hintOf(tempo * 1.01), {});
        ASSERT_EQ(path.size(), steps);
        for (std::size_t step = 0; step < steps; step += 500)
            EXPECT_NEAR(tempoAt(path, step), tempo, 0.01 * tempo) << step;
    }
}

TEST(TempoPath, FollowsASongThatBecomesFaster)
{
    const auto path = tempoPath(curveOf(80.0, 125.0), stepsPerSecond, hintOf(82.0), {});
    EXPECT_NEAR(tempoAt(path, 5000), 102.5, 2.0);
    EXPECT_NEAR(tempoAt(path, 9000), 120.5, 3.0);
}

TEST(TempoPath, TheHintDecidesBetweenATempoAndItsHalf)
{
    const auto curve = curveOf(150.0, 150.0);
    for (const double tempo : {75.0, 150.0})
        EXPECT_NEAR(tempoAt(tempoPath(curve, stepsPerSecond, hintOf(tempo), {}), 5000), tempo, 1.5);
}

TEST(TempoPath, WithoutAHintTheTempoIsNeitherVerySlowNorVeryFast)
{
    for (const double tempo : {70.0, 98.0, 126.0, 150.0})
        EXPECT_NEAR(
            tempoAt(tempoPath(curveOf(tempo, tempo), stepsPerSecond, std::nullopt, {}), 5000),
            tempo, 0.01 * tempo);
    EXPECT_NEAR(tempoAt(tempoPath(curveOf(240.0, 240.0), stepsPerSecond, std::nullopt, {}), 5000),
                120.0, 2.0);
}

TEST(TempoPath, InSilenceTheTempoIsThatOfTheHint)
{
    const auto path = tempoPath(std::vector<float>(steps, 0.0F), stepsPerSecond, hintOf(111.0), {});
    EXPECT_NEAR(tempoAt(path, 300), 111.0, 1.2);
    EXPECT_NEAR(tempoAt(path, 9000), 111.0, 1.2);
}

TEST(TempoPath, OfNothingIsEmpty)
{
    EXPECT_TRUE(tempoPath({}, stepsPerSecond, hintOf(100.0), {}).empty());
    EXPECT_TRUE(tempoPath({}, stepsPerSecond, std::nullopt, {}).empty());
}

TEST(TempoPath, EndsWhenItIsToStop)
{
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(
        tempoPath(curveOf(90.0, 90.0), stepsPerSecond, hintOf(90.0), stop.get_token()).empty());
}
