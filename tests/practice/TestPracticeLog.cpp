#include "practice/PracticeLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimeZone>

#include <gmock/gmock.h>

namespace lyrabox {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

QDateTime at(int year, int month, int day, int hour = 20, int offset = 3600)
{
    return {QDate(year, month, day), QTime(hour, 15, 2), QTimeZone(offset)};
}

PracticeLogLine sample()
{
    return {.at = at(2026, 11, 23),
            .song = u"Corner Shop, \"Blues\""_s,
            .artist = u"The Demo Band"_s,
            .loop = u"Turnaround"_s,
            .from = 546933,
            .to = 738150,
            .speed = 72.5,
            .passes = 7,
            .missed = 2,
            .seconds = 63};
}

class PracticeLogTest : public testing::Test {
protected:
    QString path() const { return m_folder.filePath(u"data/Practice/History.csv"_s); }

    QByteArray content() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QByteArray &text) const
    {
        QDir().mkpath(QFileInfo(path()).path());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    QTemporaryDir m_folder;
};

TEST_F(PracticeLogTest, AppendsALineForEachLoopAndSpeed)
{
    PracticeLog log(path());
    EXPECT_TRUE(log.add(sample()));
    PracticeLogLine second = sample();
    second.speed = 80.0;
    EXPECT_TRUE(PracticeLog(path()).add(second)); // the next start of the program
    EXPECT_EQ(content(), "time,song,artist,loop,from,to,speed,passes,missed,seconds\n"
                         "2026-11-23T20:15:02+01:00,\"Corner Shop, \"\"Blues\"\"\",\"The Demo "
                         "Band\",\"Turnaround\",0:12.40211,0:16.73810,72.5,7,2,63\n"
                         "2026-11-23T20:15:02+01:00,\"Corner Shop, \"\"Blues\"\"\",\"The Demo "
                         "Band\",\"Turnaround\",0:12.40211,0:16.73810,80,7,2,63\n");
    const PracticeLogReading reading = log.read();
    EXPECT_THAT(reading.lines, ElementsAre(sample(), second));
    EXPECT_EQ(reading.skipped, 0U);
}

TEST_F(PracticeLogTest, ReadsWhatPeopleAndSpreadsheetsHaveEdited)
{
    const PracticeLogReading reading =
        readPracticeLog("\xef\xbb\xbfTime,speed, loop ,from,to,mood\r\n"
                        "2026-11-23T20:15:02+01:00,75,Riff,0:01,0:02.5,good\r\n"
                        "\r\n"
                        "yesterday,75,Riff,0:01,0:02.5,good\r\n"
                        "2026-11-24T20:15:02Z,fast,Riff,0:01,0:02.5,\r\n"
                        "2026-11-24T20:15:02Z,nan,Riff,0:01,0:02.5,\r\n"
                        "2026-11-24T20:15:02Z,-3,Riff,0:01,0:02.5,\r\n"
                        "2026-11-24T20:15:02Z,75,Riff,here,there,\r\n"
                        "2026-11-24T20:15:02Z,75\r\n"
                        "2026-11-25T20:15:02,\"75\",\"forgotten mark,0:01,0:02.5\r\n"
                        "2026-11-26T20:15:02,80,\"Ri\"\"ff\",0:01,0:02.5");
    ASSERT_EQ(reading.lines.size(), 2U);
    EXPECT_EQ(reading.skipped, 7U);
    EXPECT_EQ(reading.lines[0].loop, u"Riff"_s) << "the header has its own order";
    EXPECT_EQ(reading.lines[0].from, 44100U);
    EXPECT_EQ(reading.lines[0].song, QString());
    EXPECT_EQ(reading.lines[1].loop, u"Ri\"ff"_s);
    EXPECT_EQ(reading.lines[1].speed, 80.0);
}

TEST_F(PracticeLogTest, ReadsTheTimeOfAnyZoneAndNoOther)
{
    const auto timeOf = [](const QByteArray &text) {
        const PracticeLogReading reading = readPracticeLog(text + ",s,a,l,0:01,0:02,75,1,0,9");
        return reading.lines.empty() ? QDateTime() : reading.lines.front().at;
    };
    const QDateTime noon(QDate(2026, 11, 23), QTime(12, 0), QTimeZone::utc());
    for (const char *text :
         {"2026-11-23T12:00:00Z", "2026-11-23T13:00:00+01:00", "2026-11-23T08:30:00-03:30",
          "2026-11-23T12:00:00+00:00", "2026-11-23T12:00:00.000Z", "2026-11-23 12:00:00Z"}) {
        EXPECT_EQ(timeOf(text), noon) << text;
    }
    EXPECT_EQ(timeOf("2026-11-24T01:00:00+13:00").date(), QDate(2026, 11, 24)) << "of its place";
    for (const char *text : {"2026-13-23T12:00:00Z", "2026-11-23T25:00:00+01:00",
                             "2026-11-23T12:00:00+0x:00", "2026-11-23T12:00:00+99:00"}) {
        EXPECT_FALSE(timeOf(text).isValid()) << text;
    }
}

TEST_F(PracticeLogTest, BringsOddNumbersIntoTheirRange)
{
    const auto read = [](const QByteArray &numbers) {
        return readPracticeLog("2026-11-23T20:15:02Z,s,a,l,0:01,0:02,75," + numbers).lines.at(0);
    };
    EXPECT_EQ(read("3,9,5").missed, 3);
    EXPECT_EQ(read("-3,0,1e300").passes, 0);
    EXPECT_EQ(read("-3,0,1e300").seconds, 0);
    EXPECT_EQ(read("").passes, 0);
}

TEST_F(PracticeLogTest, BeginsANewLineAfterOneThatWasCutOff)
{
    write(practiceLogHeader() + "2026-11-23T20:15");
    PracticeLog log(path());
    EXPECT_TRUE(log.add(sample()));
    const PracticeLogReading reading = log.read();
    EXPECT_THAT(reading.lines, ElementsAre(sample()));
    EXPECT_EQ(reading.skipped, 1U);
}

TEST_F(PracticeLogTest, TextsCannotBreakALine)
{
    PracticeLogLine odd = sample();
    odd.song = u"a\nb\"c\r\n"_s;
    odd.loop = QString(100'000, u'x');
    const PracticeLogReading reading = readPracticeLog(practiceLogText(odd));
    ASSERT_EQ(reading.lines.size(), 1U);
    EXPECT_EQ(reading.lines[0].song, u"a b\"c"_s);
    EXPECT_EQ(reading.lines[0].loop.size(), 200);
}

TEST_F(PracticeLogTest, KeepsLinesThatCannotBeWrittenAndWritesThemLater)
{
    ASSERT_TRUE(QDir().mkpath(path())); // a folder is in the way
    PracticeLog log(path());
    EXPECT_FALSE(log.add(sample()));
    EXPECT_FALSE(log.add(sample()));
    EXPECT_EQ(log.unwritten(), 2U);
    EXPECT_EQ(log.read().lines.size(), 2U);
    EXPECT_FALSE(log.writeRest());
    ASSERT_TRUE(QDir().rmdir(path()));
    EXPECT_TRUE(log.writeRest());
    EXPECT_EQ(log.unwritten(), 0U);
    EXPECT_EQ(PracticeLog(path()).read().lines.size(), 2U);
}

TEST_F(PracticeLogTest, ReplacesTheLineThatWasAddedLast)
{
    PracticeLog log(path());
    log.add(sample());
    log.add(sample());
    PracticeLogLine longer = sample();
    longer.passes = 12;
    PracticeLogLine shorter = longer;
    shorter.passes = 3;
    shorter.loop = u"T"_s;
    EXPECT_TRUE(log.replaceLast(sample(), longer));
    EXPECT_THAT(log.read().lines, ElementsAre(sample(), longer));
    EXPECT_TRUE(log.replaceLast(longer, shorter));
    EXPECT_THAT(log.read().lines, ElementsAre(sample(), shorter));
    EXPECT_EQ(content(),
              practiceLogHeader() + practiceLogText(sample()) + practiceLogText(shorter));
}

TEST_F(PracticeLogTest, AddsTheRestIfTheLastLineWasEdited)
{
    PracticeLog log(path());
    log.add(sample());
    PracticeLogLine edited = sample();
    edited.missed = 0;
    write(practiceLogHeader() + practiceLogText(edited));
    PracticeLogLine longer = sample();
    longer.passes += 4;
    longer.missed -= 1; // that was in the file
    longer.seconds += 30;
    EXPECT_TRUE(log.replaceLast(sample(), longer));
    PracticeLogLine rest = sample();
    rest.passes = 4;
    rest.missed = 0;
    rest.seconds = 30;
    EXPECT_THAT(log.read().lines, ElementsAre(edited, rest));
    write({});
    EXPECT_TRUE(log.replaceLast(longer, longer)) << "there is nothing to add";
    EXPECT_EQ(content(), "");
}

TEST_F(PracticeLogTest, ReplacesALineThatIsNotWrittenYet)
{
    ASSERT_TRUE(QDir().mkpath(path())); // a folder is in the way
    PracticeLog log(path());
    EXPECT_FALSE(log.add(sample()));
    PracticeLogLine longer = sample();
    longer.passes += 4;
    EXPECT_FALSE(log.replaceLast(sample(), longer));
    EXPECT_THAT(log.read().lines, ElementsAre(longer));
    ASSERT_TRUE(QDir().rmdir(path()));
    EXPECT_TRUE(log.replaceLast(longer, sample()));
    EXPECT_THAT(PracticeLog(path()).read().lines, ElementsAre(sample()));
}

TEST_F(PracticeLogTest, DropsTheOldestOfTooManyUnwrittenLines)
{
    ASSERT_TRUE(QDir().mkpath(path()));
    PracticeLog log(path());
    PracticeLogLine line = sample();
    for (std::size_t i = 0; i <= PracticeLog::maximumUnwritten; ++i) {
        line.seconds = static_cast<int>(i);
        log.add(line);
    }
    EXPECT_EQ(log.unwritten(), PracticeLog::maximumUnwritten);
    EXPECT_EQ(log.read().lines.front().seconds, 1);
}

TEST_F(PracticeLogTest, ReadsTheEndOfAFileThatIsTooLarge)
{
    const QByteArray line = practiceLogText(sample());
    QByteArray text = practiceLogHeader() + line.repeated(practiceLogBytes / line.size() + 1000);
    PracticeLogLine last = sample();
    last.passes = 8;
    text += practiceLogText(last);
    write(text);
    const PracticeLogReading reading = PracticeLog(path()).read();
    EXPECT_EQ(reading.lines.back(), last);
    EXPECT_EQ(reading.skipped, 0U);
    EXPECT_NEAR(static_cast<double>(reading.lines.size()),
                static_cast<double>(practiceLogBytes / line.size()), 2.0);
}

TEST_F(PracticeLogTest, ForgetsEverything)
{
    PracticeLog log(path());
    log.add(sample());
    EXPECT_TRUE(log.forget());
    EXPECT_FALSE(QFile::exists(path()));
    EXPECT_TRUE(log.read().lines.empty());
    EXPECT_TRUE(log.forget()) << "there is nothing to forget";
    ASSERT_TRUE(QDir().mkpath(path() + u"/inside"_s));
    EXPECT_FALSE(log.forget());
}

TEST(PracticeLogSummary, ShowsTheBestSpeedOfEachDay)
{
    std::vector<PracticeLogLine> lines;
    const auto add = [&lines](const QDateTime &when, double speed, int passes, int missed) {
        PracticeLogLine line = sample();
        line.at = when;
        line.speed = speed;
        line.passes = passes;
        line.missed = missed;
        lines.push_back(line);
    };
    add(at(2026, 11, 24), 70.0, 3, 0);
    add(at(2026, 11, 23), 60.0, 3, 0);
    add(at(2026, 11, 23), 65.0, 3, 2);
    add(at(2026, 11, 23), 80.0, 3, 3); // all missed
    add(at(2026, 11, 25), 90.0, 0, 0);
    add(at(2026, 11, 26, 0, 7200), 75.0, 1, 0); // the day before in Greenwich
    lines.push_back(lines.front());
    lines.back().loop = u"Other"_s;
    lines.back().speed = 200.0;
    EXPECT_THAT(bestSpeedByDay(lines, sample()), ElementsAre(DaySpeed{QDate(2026, 11, 23), 65.0},
                                                             DaySpeed{QDate(2026, 11, 24), 70.0},
                                                             DaySpeed{QDate(2026, 11, 26), 75.0}));
    EXPECT_TRUE(bestSpeedByDay({}, sample()).empty());
}

TEST(PracticeLogSummary, TellsLoopsWithoutANameApartByTheirPlaces)
{
    PracticeLogLine one = sample();
    one.loop.clear();
    PracticeLogLine other = one;
    other.from += 1000;
    EXPECT_EQ(bestSpeedByDay({one, other}, one).size(), 1U);
    EXPECT_EQ(lastTouched({one, other, one}).size(), 2U);
    EXPECT_FALSE(one.isSameLoop(other));
}

TEST(PracticeLogSummary, AddsUpTheMinutesOfEveryWeek)
{
    std::vector<PracticeLogLine> lines(4, sample());
    lines[0].at = at(2026, 11, 29); // a Sunday
    lines[1].at = at(2026, 11, 23); // the Monday before
    lines[2].at = at(2026, 12, 9);
    lines[3].at = at(2026, 12, 9);
    lines[0].seconds = 60;
    lines[1].seconds = 30;
    lines[2].seconds = 600;
    lines[3].seconds = 0;
    EXPECT_THAT(minutesByWeek(lines), ElementsAre(WeekMinutes{QDate(2026, 11, 23), 1.5},
                                                  WeekMinutes{QDate(2026, 11, 30), 0.0},
                                                  WeekMinutes{QDate(2026, 12, 7), 10.0}));
    lines[0].at = at(1, 1, 1);
    EXPECT_EQ(minutesByWeek(lines).size(), 520U);
    EXPECT_TRUE(minutesByWeek({}).empty());
}

TEST(PracticeLogSummary, ShowsWhatWasNotTouchedForLongFirst)
{
    std::vector<PracticeLogLine> lines(4, sample());
    lines[0].at = at(2026, 11, 25);
    lines[1].at = at(2026, 11, 20);
    lines[1].loop = u"Ending"_s;
    lines[2].at = at(2026, 11, 22);
    lines[3].at = at(2026, 11, 1);
    lines[3].artist = u"Another Band"_s;
    EXPECT_THAT(lastTouched(lines), ElementsAre(lines[3], lines[1], lines[0]));
}

} // namespace
} // namespace lyrabox
