#include "practice/PracticeLog.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace lyrabox {

std::vector<DaySpeed> bestSpeedByDay(const std::vector<PracticeLogLine> &lines,
                                     const PracticeLogLine &loop)
{
    std::map<QDate, double> best;
    for (const PracticeLogLine &line : lines) {
        if (!line.isSameLoop(loop) || line.passes <= line.missed)
            continue;
        double &speed = best[line.at.date()];
        speed = std::max(speed, line.speed);
    }
    std::vector<DaySpeed> days;
    for (const auto &[day, speed] : best)
        days.push_back({.day = day, .speed = speed});
    return days;
}

std::vector<WeekMinutes> minutesByWeek(const std::vector<PracticeLogLine> &lines)
{
    constexpr qint64 mostWeeks = 520;
    constexpr int week = 7;
    std::map<QDate, double> minutes;
    for (const PracticeLogLine &line : lines) {
        const QDate day = line.at.date();
        minutes[day.addDays(1 - day.dayOfWeek())] += line.seconds / 60.0;
    }
    std::vector<WeekMinutes> weeks;
    if (minutes.empty())
        return weeks;
    const QDate last = minutes.rbegin()->first;
    // A line with a wrong year must not give thousands of weeks.
    for (QDate monday = std::max(minutes.begin()->first, last.addDays(-week * (mostWeeks - 1)));
         monday <= last; monday = monday.addDays(week)) {
        const auto found = minutes.find(monday);
        weeks.push_back(
            {.monday = monday, .minutes = found == minutes.end() ? 0.0 : found->second});
    }
    return weeks;
}

std::vector<PracticeLogLine> lastTouched(const std::vector<PracticeLogLine> &lines)
{
    using Places = std::pair<std::uint64_t, std::uint64_t>;
    std::map<std::tuple<QString, QString, QString, Places>, PracticeLogLine> newest;
    for (const PracticeLogLine &line : lines) {
        const Places places = line.loop.isEmpty() ? Places{line.from, line.to} : Places{};
        auto [known, isNew] = newest.try_emplace({line.song, line.artist, line.loop, places}, line);
        if (!isNew && known->second.at <= line.at)
            known->second = line;
    }
    std::vector<PracticeLogLine> result;
    for (auto &entry : newest)
        result.push_back(std::move(entry.second));
    std::stable_sort(
        result.begin(), result.end(),
        [](const PracticeLogLine &a, const PracticeLogLine &b) { return a.at < b.at; });
    return result;
}

} // namespace lyrabox
