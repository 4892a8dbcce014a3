#include "app/practice/BeatTaps.h"

#include <gtest/gtest.h>

using namespace lyrabox;

namespace {

constexpr std::uint64_t rate = 44'100;

/// Taps at so many beats a minute.
TapSeries tapped(int count, double tempo)
{
    TapSeries series;
    const double period = 60.0 / tempo;
    for (int tap = 0; tap < count; ++tap)
        series.tap(static_cast<std::uint64_t>((10.0 + tap * period) * rate), period);
    return series;
}

TapFault faultOf(const TapSeries &series)
{
    const auto fitted = series.fit();
    EXPECT_TRUE(std::holds_alternative<TapFault>(fitted));
    const auto *fault = std::get_if<TapFault>(&fitted);
    return fault != nullptr ? *fault : TapFault::TooFew;
}

TEST(TapSeries, IsCompleteWithEightTaps)
{
    EXPECT_FALSE(tapped(7, 120.0).isComplete());
    const TapSeries series = tapped(8, 120.0);
    EXPECT_TRUE(series.isComplete());
    EXPECT_NEAR(*series.tempo(), 120.0, 0.01);
    EXPECT_EQ(series.first(), 10 * rate);
}

TEST(TapSeries, SaysTheTempoSoFarFromFourTapsOn)
{
    EXPECT_FALSE(tapped(3, 120.0).tempo());
    EXPECT_NEAR(*tapped(4, 120.0).tempo(), 120.0, 0.01);
}

TEST(TapSeries, BeginsAnewAfterAPause)
{
    TapSeries series = tapped(6, 120.0);
    series.tap(40 * rate, TapSeries::pause + 0.1);
    EXPECT_EQ(series.count(), 1U);
    EXPECT_EQ(series.first(), 40 * rate);
}

TEST(TapSeries, OfTwentyAMinuteIsTooSlow)
{
    const TapSeries series = tapped(8, 20.0);
    ASSERT_TRUE(series.isComplete()) << "3 s are no pause";
    EXPECT_EQ(faultOf(series), TapFault::TooSlow);
}

TEST(TapSeries, OfSixHundredAMinuteIsTooFast)
{
    const TapSeries series = tapped(8, 600.0);
    ASSERT_TRUE(series.isComplete());
    EXPECT_EQ(faultOf(series), TapFault::TooFast);
}

TEST(TapSeries, CountsOnAfterTheTapsThatItUses)
{
    TapSeries series = tapped(16, 120.0);
    EXPECT_FALSE(series.isOpen());
    for (int tap = 0; tap < 4; ++tap) // A song that gets slower
        series.tap((18 + static_cast<std::uint64_t>(tap)) * rate, 1.0);
    EXPECT_EQ(series.count(), 20U);
    EXPECT_NEAR(*series.tempo(), 120.0, 0.01);
}

} // namespace
