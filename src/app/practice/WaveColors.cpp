#include "app/practice/WaveColors.h"

namespace lyrabox::waveColors {

namespace {

// Music has less energy the higher the band. With these factors ordinary music shows all three.
constexpr double middleWeight = 1.6;
constexpr double highWeight = 4.0;
constexpr double paleness = 0.62;

int mixed(double a, double b, double c, int colorA, int colorB, int colorC)
{
    return qRound((a * colorA + b * colorB + c * colorC) / (a + b + c));
}

} // namespace

QColor hue(const PeakColumn &column)
{
    // The square makes the strongest band count most, so that hues stay apart.
    const auto weighed = [](float rms, double weight) {
        const double value = static_cast<double>(rms) * weight;
        return value * value;
    };
    const double a = weighed(column.low, 1.0);
    const double b = weighed(column.middle, middleWeight);
    const double c = weighed(column.high, highWeight);
    if (!column.hasBands || !(a + b + c > 0.0))
        return gray;
    return {mixed(a, b, c, low.red(), middle.red(), high.red()),
            mixed(a, b, c, low.green(), middle.green(), high.green()),
            mixed(a, b, c, low.blue(), middle.blue(), high.blue())};
}

QColor pale(const QColor &inner)
{
    const auto channel = [](int value, int paper) {
        return qRound(value + (paper - value) * paleness);
    };
    return {channel(inner.red(), background.red()), channel(inner.green(), background.green()),
            channel(inner.blue(), background.blue())};
}

} // namespace lyrabox::waveColors
