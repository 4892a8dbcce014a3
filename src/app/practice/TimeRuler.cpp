#include "app/practice/TimeRuler.h"

#include <QLatin1Char>

#include <cmath>

namespace lyrabox::timeRuler {

namespace {

constexpr double leastDistance = 72.0; // points
constexpr double steps[] = {0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1,   0.2,   0.5,   1.0,
                            2.0,   5.0,   10.0,  15.0, 30.0, 60.0, 120.0, 300.0, 600.0, 1800.0};
constexpr double hour = 3600.0;

QString minutesAndSeconds(double seconds, int decimals)
{
    const double unit = std::pow(10.0, decimals);
    const auto units = static_cast<qint64>(std::llround(seconds * unit));
    const auto perMinute = static_cast<qint64>(60.0 * unit);
    const double rest = static_cast<double>(units % perMinute) / unit;
    const int digits = decimals > 0 ? decimals + 3 : 2;
    return QStringLiteral("%1:%2")
        .arg(units / perMinute)
        .arg(rest, digits, 'f', decimals, QLatin1Char('0'));
}

} // namespace

double step(double secondsPerPoint)
{
    for (const double seconds : steps) {
        if (seconds >= leastDistance * secondsPerPoint)
            return seconds;
    }
    return std::ceil(leastDistance * secondsPerPoint / hour) * hour;
}

QString text(double seconds, double step)
{
    const int decimals = step >= 1.0 ? 0 : static_cast<int>(std::ceil(-std::log10(step) - 1e-9));
    return minutesAndSeconds(seconds, decimals);
}

QString exactText(double seconds)
{
    return minutesAndSeconds(seconds, 3);
}

} // namespace lyrabox::timeRuler
