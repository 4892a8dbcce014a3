#include "app/practice/HistoryScale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace lyrabox::historyScale {

namespace {

constexpr double leastSpeeds = 20.0; // percent points
constexpr double leastMinutes = 10.0;
constexpr std::array speedSteps{5.0, 10.0, 20.0, 50.0, 100.0, 200.0, 500.0};
constexpr std::array minuteSteps{5.0, 10.0, 15.0, 30.0, 60.0, 120.0, 300.0, 600.0, 1200.0, 3000.0};
// A day, then weeks.
constexpr std::array dayDistances{1, 2, 7, 14, 28, 56, 91, 182, 364, 728, 1820};

/// The finest axis over a range that has few enough steps.
template <std::size_t size>
Axis axisOver(double from, double to, const std::array<double, size> &steps, int mostSteps)
{
    Axis axis;
    for (const double step : steps) {
        axis = {.from = std::floor(from / step) * step,
                .to = std::ceil(to / step) * step,
                .step = step};
        if (axis.to - axis.from <= mostSteps * step)
            break;
    }
    return axis;
}

} // namespace

Axis speedAxis(const std::vector<DaySpeed> &days, int mostSteps)
{
    double from = 80.0;
    double to = 100.0;
    if (!days.empty()) {
        const auto [low, high] = std::ranges::minmax_element(days, {}, &DaySpeed::speed);
        const double missing = std::max(0.0, leastSpeeds - (high->speed - low->speed));
        // Room below rather than above: speeds go up.
        from = std::max(0.0, low->speed - missing);
        to = std::max(high->speed, from + leastSpeeds);
    }
    return axisOver(from, to, speedSteps, mostSteps);
}

Axis minutesAxis(const std::vector<WeekMinutes> &weeks, int mostSteps)
{
    double most = leastMinutes;
    for (const WeekMinutes &week : weeks)
        most = std::max(most, week.minutes);
    return axisOver(0.0, most, minuteSteps, mostSteps);
}

std::vector<QDate> namedDays(QDate first, QDate last, int most)
{
    const qint64 days = std::max<qint64>(0, first.daysTo(last));
    const auto isEnough = [&](qint64 distance) { return days / distance < most; };
    const auto usual = std::ranges::find_if(dayDistances, isEnough);
    const qint64 distance = usual != dayDistances.end() ? *usual : days / std::max(most, 1) + 1;
    std::vector<QDate> named;
    for (qint64 day = 0; day <= days; day += distance)
        named.push_back(first.addDays(day));
    return named;
}

} // namespace lyrabox::historyScale
