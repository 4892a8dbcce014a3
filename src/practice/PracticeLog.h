#pragma once

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

/// The history of what was practised: a table in a text file, to which lines are appended. People
/// and other programs may read it, and delete lines.
namespace lyrabox {

/// The name of the file in the folder of the practice files.
constexpr char16_t practiceLogName[] = u"History.csv";

/// One loop at one speed.
struct PracticeLogLine {
    QDateTime at = {}; ///< when it began, with the offset of the time zone; whole seconds
    QString song = {};
    QString artist = {};
    QString loop = {};      ///< its name; plain text of one line, as `song` and `artist`
    std::uint64_t from = 0; ///< place of the loop, in frames
    std::uint64_t to = 0;
    double speed = 100.0; ///< percent, above 0; the file has two decimals
    int passes = 0;       ///< that were played to their end
    int missed = 0;       ///< of these; at most `passes`
    int seconds = 0;      ///< that it lasted

    /// Whether both are about the same loop of the same song. Loops without a name are told apart
    /// by their places.
    bool isSameLoop(const PracticeLogLine &other) const
    {
        return song == other.song && artist == other.artist && loop == other.loop &&
               (!loop.isEmpty() || (from == other.from && to == other.to));
    }

    bool operator==(const PracticeLogLine &) const = default;
};

/// Brings texts and numbers to what the file can hold, so that a line equals the one that is read
/// again.
void clean(PracticeLogLine &line);

/// The largest file that is read as a whole. Of a larger one, so many bytes at its end are read.
constexpr qsizetype practiceLogBytes = 8'000'000;

/// The first line of the file, which names the columns.
QByteArray practiceLogHeader();

/// One line of the file, with its line break. Texts are cut to PracticeLimits::nameLength and lose
/// their control characters.
QByteArray practiceLogText(const PracticeLogLine &line);

/// What a file contains.
struct PracticeLogReading {
    std::vector<PracticeLogLine> lines; ///< in the order of the file
    std::size_t skipped = 0;            ///< lines that are not understood, without headers
};

/// Reads any bytes. Columns are found by their names in the header, in any order; without a header
/// they are those of practiceLogHeader(). Columns that are not known are ignored, and a line that
/// lacks a time, a speed or a place is skipped.
PracticeLogReading readPracticeLog(const QByteArray &text);

/// Appends to the file. Lines that cannot be written are kept and written with the next one. One
/// thread at a time; blocks as long as the disk does.
class PracticeLog {
public:
    /// More unwritten lines than this are dropped, the oldest first.
    static constexpr std::size_t maximumUnwritten = 1000;

    explicit PracticeLog(QString path);

    /// False if the line could not be written.
    bool add(const PracticeLogLine &line);

    /// Writes `line` in the place of `last`, which was added last. If the file does not end with
    /// `last` any more, because somebody has edited it, `last` stays and a line with the rest is
    /// added: the passes, misses and seconds that `line` has more. False as above.
    bool replaceLast(const PracticeLogLine &last, const PracticeLogLine &line);

    /// Tries again to write what could not be written. True if nothing is left.
    bool writeRest();

    std::size_t unwritten() const { return m_unwritten.size(); }

    /// The content of the file and the unwritten lines. A file that is missing, or that cannot be
    /// read, counts as empty.
    PracticeLogReading read() const;

    /// Removes the file and the unwritten lines. False if the file is still there.
    bool forget();

private:
    enum class Replaced { Yes, No, NotTheLast };
    Replaced replaceInFile(const QByteArray &last, const QByteArray &line) const;

    QString m_path;
    std::vector<PracticeLogLine> m_unwritten;
};

/// The best speed of a day: the highest one with a pass that was not missed.
struct DaySpeed {
    QDate day;
    double speed = 0.0; ///< percent

    bool operator==(const DaySpeed &) const = default;
};

/// The best speeds of the loop that `loop` is about, in the order of the days. Days without a pass
/// that was not missed are left out. A day is that of the place where the line was written.
std::vector<DaySpeed> bestSpeedByDay(const std::vector<PracticeLogLine> &lines,
                                     const PracticeLogLine &loop);

/// The practising time of a week.
struct WeekMinutes {
    QDate monday;
    double minutes = 0.0;

    bool operator==(const WeekMinutes &) const = default;
};

/// Every week from the first to the last one in the lines, those without practice with 0 minutes.
/// Of more than 520 weeks, the last 520.
std::vector<WeekMinutes> minutesByWeek(const std::vector<PracticeLogLine> &lines);

/// The last line of every loop, the one that was not touched for the longest time first.
std::vector<PracticeLogLine> lastTouched(const std::vector<PracticeLogLine> &lines);

} // namespace lyrabox
