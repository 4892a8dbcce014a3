#include "app/practice/WaveColors.h"

#include "platform/ui/Theme.h"
#include "practice/PracticeRecord.h"

#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace lyrabox;

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

PeakColumn column(float low, float middle, float high)
{
    return {-0.5F, 0.5F, 0.2F, low, middle, high, true, true};
}

TEST(WaveColors, EveryWaveStandsOutFromItsBackground)
{
    using namespace waveColors;
    for (const QColor &color : {low, middle, high, gray, loop})
        EXPECT_GE(contrast(color, background), 3.0) << color.name().toStdString();
    for (const QColor &color : {low, middle, high, loop})
        EXPECT_GE(contrast(color, loopBackground), 3.0) << color.name().toStdString();
}

TEST(WaveColors, BrightnessAloneTellsTheBandsApart)
{
    const double bass = luminance(waveColors::hue(column(0.3F, 0.01F, 0.001F)));
    const double voice = luminance(waveColors::hue(column(0.01F, 0.2F, 0.005F)));
    const double cymbal = luminance(waveColors::hue(column(0.001F, 0.01F, 0.2F)));
    EXPECT_LT(bass + 0.05, voice);
    EXPECT_LT(voice + 0.05, cymbal);
}

TEST(WaveColors, AColumnWithoutBandsIsGray)
{
    PeakColumn unmeasured = column(0.3F, 0.2F, 0.1F);
    unmeasured.hasBands = false;
    EXPECT_EQ(waveColors::hue(unmeasured), waveColors::gray);
    EXPECT_EQ(waveColors::hue(column(0.0F, 0.0F, 0.0F)), waveColors::gray);
}

TEST(WaveColors, LoopsStandOutAndTheirNamesAreReadable)
{
    using namespace waveColors;
    QSet<QString> names;
    for (int number = 1; number <= PracticeLimits::colours; ++number) {
        const QColor color = loopColor(number);
        EXPECT_GE(contrast(color, Theme::sidebar), 3.0) << number;
        EXPECT_GE(contrast(background, color), 4.0) << number;
        EXPECT_GE(contrast(Theme::text, quiet(color)), 4.5) << number;
        names.insert(loopColorName(number));
    }
    EXPECT_EQ(names.size(), PracticeLimits::colours);
    EXPECT_EQ(loopColor(1), loop);
    EXPECT_EQ(loopColor(0), loopColor(1));
    EXPECT_EQ(loopColor(99), loopColor(PracticeLimits::colours));
    EXPECT_GE(contrast(marker, Theme::sidebar), 4.5);
}

} // namespace
