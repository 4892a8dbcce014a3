#pragma once

#include "practice/PracticeLog.h"

#include <QDate>

#include <vector>

/// How the plots of the history divide their axes. Pure functions, any thread.
namespace lyrabox::historyScale {

/// A range of values with lines at `from`, `from` + `step` and so on up to `to`.
struct Axis {
    double from = 0.0;
    double to = 1.0;
    double step = 1.0;

    /// The place of a value between 0.0 (at `from`) and 1.0.
    double at(double value) const { return (value - from) / (to - from); }

    bool operator==(const Axis &) const = default;
};

/// The axis of the speeds in percent. It covers at least 20 percent points and has at most
/// `mostSteps` steps, of 5, 10, 20, 50 or 100.
Axis speedAxis(const std::vector<DaySpeed> &days, int mostSteps);

/// The axis of the minutes, from 0 on. It covers at least ten minutes and has at most `mostSteps`
/// steps.
Axis minutesAxis(const std::vector<WeekMinutes> &weeks, int mostSteps);

/// Days that the axis of the time names, with equal distances: at most `most` of them, and `first`
/// always among them. If `last` is not after `first`, `first` alone.
std::vector<QDate> namedDays(QDate first, QDate last, int most);

} // namespace lyrabox::historyScale
