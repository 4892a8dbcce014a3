#include "app/practice/BarText.h"

#include "app/practice/BeatMarks.h"

#include <QCoreApplication>

#include <cmath>

namespace lyrabox::barText {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::BarText)
};

/// Lengths that differ by less from a whole number of beats are one.
constexpr double wholeTolerance = 0.08;

/// The shortest text with at most one decimal.
QString numberText(double number)
{
    QString text = QString::number(number, 'f', 1);
    if (text.endsWith(QStringLiteral(".0")))
        text.chop(2);
    return text;
}

QString barsText(long long bars)
{
    return bars == 1 ? Text::tr("1 bar") : Text::tr("%1 bars").arg(bars);
}

QString beatsText(double beats)
{
    const QString number = numberText(beats);
    return number == QStringLiteral("1") ? Text::tr("1 beat") : Text::tr("%1 beats").arg(number);
}

} // namespace

QString place(const BeatGrid &grid, std::uint64_t frame)
{
    if (!beatMarks::isShown(grid, static_cast<double>(frame)))
        return {};
    // A little behind the beat, so that rounding does not give the end of the one before.
    constexpr double little = 0.01;
    const double beats = std::round(grid.beatsAt(static_cast<double>(frame)));
    const BarPlace found = grid.placeAt(grid.frameOfBeats(beats + little));
    if (found.bar < 0)
        return {};
    return QStringLiteral("%1.%2").arg(found.bar).arg(static_cast<int>(found.beat));
}

QString places(const BeatGrid &grid, LoopRange loop)
{
    const QString start = place(grid, loop.start);
    const QString end = place(grid, loop.end);
    if (start.isEmpty() || end.isEmpty())
        return {};
    return QStringLiteral("%1–%2").arg(start, end);
}

QString length(const BeatGrid &grid, LoopRange loop)
{
    const auto start = static_cast<double>(loop.start);
    const auto end = static_cast<double>(loop.end);
    if (!beatMarks::isShown(grid, start) || !beatMarks::isShown(grid, end))
        return {};
    const double beats = grid.beatsAt(end) - grid.beatsAt(start);
    const double whole = std::round(beats);
    if (whole < 1.0 || std::abs(beats - whole) > wholeTolerance)
        return beatsText(beats);
    const int bar = beatMarks::beatsPerBarAt(grid, loop.start);
    const bool hasOneLength = bar == beatMarks::beatsPerBarAt(grid, loop.end - 1);
    if (hasOneLength && std::fmod(whole, bar) == 0.0)
        return barsText(std::llround(whole / bar));
    return beatsText(whole);
}

QString tempo(double tempo)
{
    return numberText(tempo);
}

} // namespace lyrabox::barText
