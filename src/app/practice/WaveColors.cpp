#include "app/practice/WaveColors.h"

#include "practice/PracticeRecord.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstddef>

namespace lyrabox::waveColors {

namespace {

// Music has less energy the higher the band. With these factors ordinary music shows all three.
constexpr double middleWeight = 1.6;
constexpr double highWeight = 4.0;
constexpr double paleness = 0.62;
constexpr double quietness = 0.72;

struct NamedColor {
    QColor color;
    const char *name;
};

constexpr std::array<NamedColor, PracticeLimits::colours> loopColors{{
    {loop, QT_TRANSLATE_NOOP("lyrabox::LoopColors", "Violet")},
    {{0xA8, 0x45, 0x66}, QT_TRANSLATE_NOOP("lyrabox::LoopColors", "Red")},
    {{0x96, 0x5C, 0x3C}, QT_TRANSLATE_NOOP("lyrabox::LoopColors", "Brown")},
    {{0x77, 0x75, 0x2C}, QT_TRANSLATE_NOOP("lyrabox::LoopColors", "Olive")},
    {{0x3C, 0x83, 0x55}, QT_TRANSLATE_NOOP("lyrabox::LoopColors", "Green")},
    {{0x28, 0x7F, 0x85}, QT_TRANSLATE_NOOP("lyrabox::LoopColors", "Teal")},
    {{0x46, 0x70, 0xB0}, QT_TRANSLATE_NOOP("lyrabox::LoopColors", "Blue")},
    {{0x67, 0x73, 0x7D}, QT_TRANSLATE_NOOP("lyrabox::LoopColors", "Gray")},
}};

const NamedColor &loopEntry(int number)
{
    return loopColors[static_cast<std::size_t>(std::clamp(number, 1, PracticeLimits::colours) - 1)];
}

QColor mixedWithPaper(const QColor &color, double paper)
{
    const auto channel = [paper](int value, int white) {
        return qRound(value + (white - value) * paper);
    };
    return {channel(color.red(), background.red()), channel(color.green(), background.green()),
            channel(color.blue(), background.blue())};
}

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
    return mixedWithPaper(inner, paleness);
}

QColor loopColor(int number)
{
    return loopEntry(number).color;
}

QString loopColorName(int number)
{
    return QCoreApplication::translate("lyrabox::LoopColors", loopEntry(number).name);
}

QColor quiet(const QColor &color)
{
    return mixedWithPaper(color, quietness);
}

} // namespace lyrabox::waveColors
