#include "platform/analysis/TapFit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

using namespace lyrabox;

namespace {

constexpr double rate = 44100.0;
using Taps = std::vector<std::uint64_t>;

Taps evenTaps(double tempo, int count, double start = 100'000.0)
{
    Taps taps;
    for (int i = 0; i < count; ++i)
        taps.push_back(static_cast<std::uint64_t>(std::lround(start + i * 60.0 / tempo * rate)));
    return taps;
}

TappedBeats beatsOf(const Taps &taps)
{
    const auto fit = fitTaps(taps, rate);
    EXPECT_TRUE(std::holds_alternative<TappedBeats>(fit));
    const auto *beats = std::get_if<TappedBeats>(&fit);
    return beats != nullptr ? *beats : TappedBeats();
}

void expectFault(const Taps &taps, TapFault fault)
{
    const auto fit = fitTaps(taps, rate);
    ASSERT_TRUE(std::holds_alternative<TapFault>(fit));
    EXPECT_EQ(std::get<TapFault>(fit), fault);
}

} // namespace

TEST(TapFit, EvenTapsAreTheBeats)
{
    for (const double tempo : {25.5, 60.0, 120.0, 185.0, 315.0}) {
        const TappedBeats beats = beatsOf(evenTaps(tempo, 8));
        EXPECT_NEAR(beats.first, 100'000.0, 1.0) << tempo;
        EXPECT_NEAR(beats.period, 60.0 / tempo * rate, 0.5) << tempo;
        EXPECT_EQ(beats.before, 0) << tempo;
        EXPECT_EQ(beats.after, 7) << tempo;
    }
}

TEST(TapFit, EightTapsThatAreOffByFortyMillisecondsAreNearlyEven)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> late(-0.04 * rate, 0.04 * rate);
    for (int run = 0; run < 200; ++run) {
        const double tempo = 60.0 + run * 0.625;
        Taps taps = evenTaps(tempo, 8);
        for (std::uint64_t &tap : taps)
            tap = static_cast<std::uint64_t>(static_cast<double>(tap) + late(random));
        const TappedBeats beats = beatsOf(taps);
        EXPECT_NEAR(beats.period, 60.0 / tempo * rate, 0.012 * rate) << tempo;
        EXPECT_NEAR(beats.first, 100'000.0, 0.05 * rate) << tempo;
        EXPECT_EQ(beats.after, 7) << tempo;
    }
}

TEST(TapFit, BeatsThatWereLeftOutAreFilledIn)
{
    Taps taps = evenTaps(100.0, 12);
    taps.erase(taps.begin() + 7);
    taps.erase(taps.begin() + 2);
    const TappedBeats beats = beatsOf(taps);
    EXPECT_NEAR(beats.period, 26'460.0, 0.5);
    EXPECT_EQ(beats.after, 11);
}

TEST(TapFit, InALoopTheFirstTapStaysTheFirstBeat)
{
    Taps taps = evenTaps(120.0, 8);
    std::rotate(taps.begin(), taps.begin() + 5, taps.end()); // tapped at 5, 6, 7 and then at 0 to 4
    const TappedBeats beats = beatsOf(taps);
    EXPECT_NEAR(beats.first, 100'000.0 + 5 * 22'050.0, 1.0);
    EXPECT_EQ(beats.before, 5);
    EXPECT_EQ(beats.after, 2);
    EXPECT_NEAR(beats.frame(-5), 100'000.0, 1.0);
}

TEST(TapFit, TheSameBeatTappedInTwoPassesOfALoopCountsAsOne)
{
    Taps taps = evenTaps(120.0, 4);
    for (const std::uint64_t tap : evenTaps(120.0, 4))
        taps.push_back(tap + 1000);
    const TappedBeats beats = beatsOf(taps);
    EXPECT_NEAR(beats.period, 22'050.0, 1.0);
    EXPECT_NEAR(beats.first, 100'500.0, 1.0);
    EXPECT_EQ(beats.after, 3);
}

TEST(TapFit, FewerThanFourTapsAreTooFew)
{
    for (int count = 0; count < TapLimits::fewest; ++count)
        expectFault(evenTaps(120.0, count), TapFault::TooFew);
    expectFault(Taps(20, 50'000), TapFault::TooFew);
}

TEST(TapFit, TwentyBeatsAMinuteAreTooSlow)
{
    expectFault(evenTaps(20.0, 8), TapFault::TooSlow);
    expectFault(evenTaps(24.9, 8), TapFault::TooSlow);
}

TEST(TapFit, SixHundredBeatsAMinuteAreTooFast)
{
    expectFault(evenTaps(600.0, 16), TapFault::TooFast);
    expectFault(evenTaps(330.0, 16), TapFault::TooFast);
}

TEST(TapFit, TapsWithoutAnyBeatAreUneven)
{
    expectFault({0, 30'000, 45'000, 90'000, 107'000, 150'000, 161'000, 209'000}, TapFault::Uneven);
}
