#include "app/practice/HistoryScale.h"

#include <gmock/gmock.h>

using namespace lyrabox;
using historyScale::Axis;
using testing::ElementsAre;

namespace {

const QDate monday(2026, 11, 23);

std::vector<DaySpeed> speeds(std::initializer_list<double> values)
{
    std::vector<DaySpeed> days;
    for (const double value : values)
        days.push_back({monday.addDays(static_cast<qint64>(days.size())), value});
    return days;
}

TEST(TheHistorysScale, CoversAllSpeedsWithAtMostAsManySteps)
{
    EXPECT_EQ(historyScale::speedAxis(speeds({62.0, 98.0}), 8), (Axis{60.0, 100.0, 5.0}));
    EXPECT_EQ(historyScale::speedAxis(speeds({62.0, 98.0}), 4), (Axis{60.0, 100.0, 10.0}));
    EXPECT_EQ(historyScale::speedAxis(speeds({10.0, 200.0}), 4), (Axis{0.0, 200.0, 50.0}));
    EXPECT_EQ(historyScale::speedAxis(speeds({10.0, 200.0}), 1), (Axis{0.0, 200.0, 200.0}));
}

TEST(TheHistorysScale, ShowsASteadySpeedWithRoomBelow)
{
    EXPECT_EQ(historyScale::speedAxis(speeds({75.0}), 5), (Axis{55.0, 75.0, 5.0}));
    EXPECT_EQ(historyScale::speedAxis(speeds({10.0}), 5), (Axis{0.0, 20.0, 5.0}));
    EXPECT_EQ(historyScale::speedAxis({}, 5), (Axis{80.0, 100.0, 5.0}));
}

TEST(TheHistorysScale, CoversAllMinutesFromZeroOn)
{
    EXPECT_EQ(historyScale::minutesAxis({{monday, 52.0}}, 4), (Axis{0.0, 60.0, 15.0}));
    EXPECT_EQ(historyScale::minutesAxis({{monday, 3.0}}, 4), (Axis{0.0, 10.0, 5.0}));
    EXPECT_EQ(historyScale::minutesAxis({}, 4), (Axis{0.0, 10.0, 5.0}));
    const Axis week = historyScale::minutesAxis({{monday, 7.0 * 24 * 60}}, 4);
    EXPECT_GE(week.to, 7.0 * 24 * 60);
    EXPECT_LE(week.to, 4 * week.step);
}

TEST(TheHistorysScale, PutsValuesBetweenTheEndsOfTheAxis)
{
    const Axis axis{60.0, 100.0, 10.0};
    EXPECT_DOUBLE_EQ(axis.at(60.0), 0.0);
    EXPECT_DOUBLE_EQ(axis.at(70.0), 0.25);
    EXPECT_DOUBLE_EQ(axis.at(100.0), 1.0);
}

TEST(TheHistorysScale, NamesDaysAtEqualDistances)
{
    EXPECT_THAT(historyScale::namedDays(monday, monday.addDays(2), 3),
                ElementsAre(monday, monday.addDays(1), monday.addDays(2)));
    EXPECT_THAT(historyScale::namedDays(monday, monday.addDays(20), 3),
                ElementsAre(monday, monday.addDays(7), monday.addDays(14)));
    EXPECT_THAT(historyScale::namedDays(monday, monday, 3), ElementsAre(monday));
    EXPECT_THAT(historyScale::namedDays(monday, monday.addDays(-9), 3), ElementsAre(monday));
    for (const qint64 days : {400, 4000, 400000})
        EXPECT_LE(historyScale::namedDays(monday, monday.addDays(days), 5).size(), 5U) << days;
}

} // namespace
