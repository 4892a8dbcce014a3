#include "practice/PracticeLog.h"

#include "practice/PracticeRecord.h"
#include "practice/SongTime.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

enum Column { Time, Song, Artist, Loop, From, To, Speed, Passes, Missed, Seconds, Columns };

constexpr std::array<QLatin1StringView, Columns> names{
    "time"_L1, "song"_L1,  "artist"_L1, "loop"_L1,   "from"_L1,
    "to"_L1,   "speed"_L1, "passes"_L1, "missed"_L1, "seconds"_L1};

QString oneLine(const QString &text)
{
    PracticeMarker cleaned{.name = text};
    clean(cleaned);
    return cleaned.name;
}

QByteArray quoted(const QString &text)
{
    QByteArray bytes = oneLine(text).toUtf8();
    bytes.replace('"', "\"\"");
    return '"' + bytes + '"';
}

/// The fields of a line. One object serves all lines, because a history has many.
class Fields {
public:
    /// Takes the line that begins at `at`. Leaves `at` behind its line break, which may not be
    /// within quotation marks: a mark that was forgotten must not swallow the rest of the file.
    void take(QByteArrayView text, qsizetype &at);

    qsizetype size() const { return static_cast<qsizetype>(m_fields.size()); }
    /// Without the white space around it; empty if there is no such field.
    QStringView at(qsizetype index) const
    {
        return index >= 0 && index < size() ? m_fields[static_cast<std::size_t>(index)].trimmed()
                                            : QStringView();
    }

private:
    QString m_line; ///< the fields without their marks, one after the other
    std::vector<QStringView> m_fields;
};

void Fields::take(QByteArrayView text, qsizetype &at)
{
    const qsizetype found = text.indexOf('\n', at);
    const qsizetype lineEnd = found < 0 ? text.size() : found;
    m_line = QString::fromUtf8(text.sliced(at, lineEnd - at));
    at = lineEnd + 1;
    m_fields.clear();
    QChar *const begin = m_line.data();
    const QChar *const end = begin + m_line.size();
    QChar *field = begin;
    QChar *to = begin; // the text without the marks is never longer than what was read
    bool isQuoted = false;
    for (const QChar *from = begin; from != end; ++from) {
        if (*from == u'"') {
            const bool isMark = isQuoted && from + 1 != end && from[1] == u'"';
            if (isMark)
                *to++ = *from++;
            else
                isQuoted = !isQuoted;
        } else if (*from == u',' && !isQuoted) {
            m_fields.emplace_back(field, to - field);
            field = to;
        } else if (*from != u'\r') {
            *to++ = *from;
        }
    }
    m_fields.emplace_back(field, to - field);
}

/// Where each column is.
using Places = std::array<qsizetype, Columns>;

Places normalPlaces()
{
    Places places{};
    for (std::size_t i = 0; i < places.size(); ++i)
        places[i] = static_cast<qsizetype>(i);
    return places;
}

/// Where the column of this name is; -1 if there is none.
qsizetype placeOf(Column column, const Fields &fields)
{
    for (qsizetype place = 0; place < fields.size(); ++place) {
        if (fields.at(place).compare(names[column], Qt::CaseInsensitive) == 0)
            return place;
    }
    return -1;
}

/// The columns of a header. None if the line is no header.
std::optional<Places> placesOf(const Fields &fields)
{
    if (placeOf(Time, fields) < 0 || placeOf(Speed, fields) < 0)
        return std::nullopt;
    Places places{};
    for (int column = 0; column < Columns; ++column)
        places[static_cast<std::size_t>(column)] = placeOf(static_cast<Column>(column), fields);
    return places;
}

int wholeNumber(QStringView text)
{
    const double number = text.toDouble();
    constexpr double most = 1e9;
    return number >= 0.0 && number <= most ? static_cast<int>(std::lround(number)) : 0;
}

/// The digits of `text` at `at` as a number; -1 if one of them is none.
int digitsAt(QStringView text, qsizetype at, qsizetype count)
{
    int number = 0;
    for (const QChar digit : text.sliced(at, count)) {
        if (digit < u'0' || digit > u'9')
            return -1;
        number = number * 10 + (digit.unicode() - u'0');
    }
    return number;
}

/// A time as practiceLogText() writes it, "2026-11-23T20:15:02+01:00" or with a Z at the end.
/// Invalid for any other text.
QDateTime usualTime(QStringView text)
{
    constexpr QLatin1StringView form("0000-00-00T00:00:00+00:00");
    constexpr qsizetype withoutZone = 19;
    const bool isGreenwich = text.size() == withoutZone + 1 && text.back() == u'Z';
    if (text.size() != form.size() && !isGreenwich)
        return {};
    for (qsizetype i = 0; i < (isGreenwich ? withoutZone : form.size()); ++i) {
        const bool isSign = form[i] == u'+' && (text[i] == u'+' || text[i] == u'-');
        if (form[i] != u'0' && text[i] != form[i] && !isSign)
            return {};
    }
    const QDate date(digitsAt(text, 0, 4), digitsAt(text, 5, 2), digitsAt(text, 8, 2));
    const QTime time(digitsAt(text, 11, 2), digitsAt(text, 14, 2), digitsAt(text, 17, 2));
    const int hours = isGreenwich ? 0 : digitsAt(text, 20, 2);
    const int minutes = isGreenwich ? 0 : digitsAt(text, 23, 2);
    constexpr int mostHours = 14;
    if (!date.isValid() || date.year() < 1 || !time.isValid() || hours < 0 || hours > mostHours ||
        minutes < 0 || minutes >= 60)
        return {};
    const int offset = (hours * 60 + minutes) * 60;
    return {date, time, Qt::OffsetFromUTC, text[withoutZone] == u'-' ? -offset : offset};
}

/// The toolkit reads every form of such times, but takes long.
QDateTime timeOf(QStringView text)
{
    const QDateTime usual = usualTime(text);
    return usual.isValid() ? usual : QDateTime::fromString(text.toString(), Qt::ISODate);
}

/// Texts as they were in the file, and as one line. Most lines have the texts of others, so this
/// saves time and memory.
using Texts = QHash<QString, QString>;

QString knownText(QStringView field, Texts &texts)
{
    const QString asRead = field.toString();
    auto text = texts.find(asRead);
    if (text == texts.end())
        text = texts.insert(asRead, oneLine(asRead));
    return *text;
}

std::optional<PracticeLogLine> lineOf(const Fields &fields, const Places &places, Texts &texts)
{
    const auto field = [&](Column column) { return fields.at(places[column]); };
    PracticeLogLine line;
    line.at = timeOf(field(Time));
    line.speed = field(Speed).toDouble();
    const auto from = framesOfSongTime(field(From));
    const auto to = framesOfSongTime(field(To));
    const bool isSpeed = line.speed > 0.0 && line.speed <= 1000.0; // false for NaN
    if (!line.at.isValid() || !isSpeed || !from || !to)
        return std::nullopt;
    line.song = knownText(field(Song), texts);
    line.artist = knownText(field(Artist), texts);
    line.loop = knownText(field(Loop), texts);
    line.from = *from;
    line.to = *to;
    line.passes = wholeNumber(field(Passes));
    line.missed = std::min(wholeNumber(field(Missed)), line.passes);
    line.seconds = wholeNumber(field(Seconds));
    return line;
}

bool isEmptyLine(const Fields &fields)
{
    return fields.size() == 1 && fields.at(0).isEmpty();
}

/// The last bytes of a file that is too large, from the first whole line on.
QByteArray lastBytes(QFile &file)
{
    const qint64 size = file.size();
    if (size <= practiceLogBytes)
        return file.read(practiceLogBytes);
    if (!file.seek(size - practiceLogBytes))
        return {};
    const QByteArray bytes = file.read(practiceLogBytes);
    return bytes.sliced(bytes.indexOf('\n') + 1);
}

} // namespace

QByteArray practiceLogHeader()
{
    QByteArray header;
    for (const QLatin1StringView name : names)
        header += (header.isEmpty() ? "" : ",") + QByteArray(name.data(), name.size());
    return header + '\n';
}

void clean(PracticeLogLine &line)
{
    for (QString *text : {&line.song, &line.artist, &line.loop})
        *text = oneLine(*text);
    line.at = line.at.toOffsetFromUtc(line.at.offsetFromUtc());
    line.at = line.at.addMSecs(-line.at.time().msec());
    line.speed = std::round(line.speed * 100.0) / 100.0;
    line.passes = std::max(line.passes, 0);
    line.missed = std::clamp(line.missed, 0, line.passes);
    line.seconds = std::max(line.seconds, 0);
}

QByteArray practiceLogText(const PracticeLogLine &line)
{
    const QDateTime at = line.at.toOffsetFromUtc(line.at.offsetFromUtc());
    QByteArray text = at.toString(Qt::ISODate).toUtf8();
    for (const QString &part : {line.song, line.artist, line.loop})
        text += ',' + quoted(part);
    text += ',' + songTimeText(line.from).toUtf8() + ',' + songTimeText(line.to).toUtf8();
    text += ',' + QByteArray::number(std::round(line.speed * 100.0) / 100.0);
    for (const int number : {line.passes, line.missed, line.seconds})
        text += ',' + QByteArray::number(number);
    return text + '\n';
}

PracticeLogReading readPracticeLog(const QByteArray &text)
{
    PracticeLogReading reading;
    Places places = normalPlaces();
    Texts texts;
    Fields fields;
    const QByteArray mark("\xef\xbb\xbf"); // that some editors put at the beginning
    for (qsizetype at = text.startsWith(mark) ? mark.size() : 0; at < text.size();) {
        fields.take(text, at);
        if (const auto header = placesOf(fields))
            places = *header;
        else if (auto line = lineOf(fields, places, texts))
            reading.lines.push_back(std::move(*line));
        else if (!isEmptyLine(fields))
            ++reading.skipped;
    }
    return reading;
}

PracticeLog::PracticeLog(QString path) : m_path(std::move(path)) {}

bool PracticeLog::add(const PracticeLogLine &line)
{
    m_unwritten.push_back(line);
    if (m_unwritten.size() > maximumUnwritten)
        m_unwritten.erase(m_unwritten.begin());
    return writeRest();
}

bool PracticeLog::replaceLast(const PracticeLogLine &last, const PracticeLogLine &line)
{
    if (!m_unwritten.empty() && m_unwritten.back() == last) {
        m_unwritten.back() = line;
        return writeRest();
    }
    Replaced replaced = Replaced::NotTheLast;
    if (m_unwritten.empty())
        replaced = replaceInFile(practiceLogText(last), practiceLogText(line));
    if (replaced == Replaced::Yes)
        return true;
    PracticeLogLine rest = line;
    rest.passes -= last.passes;
    rest.missed -= last.missed;
    rest.seconds -= last.seconds;
    clean(rest);
    const bool isMore = rest.passes > 0 || rest.seconds > 0;
    return isMore ? add(rest) : replaced != Replaced::No;
}

PracticeLog::Replaced PracticeLog::replaceInFile(const QByteArray &last,
                                                 const QByteArray &line) const
{
    const QFileInfo info(m_path);
    if (!info.exists())
        return Replaced::NotTheLast;
    QFile file(m_path);
    // Opening a pipe would block.
    if (!info.isFile() || !file.open(QIODevice::ReadWrite))
        return Replaced::No;
    const qint64 size = file.size();
    const qint64 from = size - last.size();
    if (from < 0 || !file.seek(from) || file.read(last.size()) != last)
        return Replaced::NotTheLast;
    if (!file.seek(from))
        return Replaced::No;
    if (file.write(line) == line.size() && file.flush() && file.resize(from + line.size()))
        return Replaced::Yes;
    file.seek(from); // a full disk: the old line stays
    file.write(last);
    file.flush();
    file.resize(size);
    return Replaced::No;
}

bool PracticeLog::writeRest()
{
    if (m_unwritten.empty())
        return true;
    // Opening a pipe would block.
    if (const QFileInfo info(m_path); info.exists() && !info.isFile())
        return false;
    QDir().mkpath(QFileInfo(m_path).path());
    QFile file(m_path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Append))
        return false;
    QByteArray text;
    const qint64 before = file.size();
    if (before == 0)
        text += practiceLogHeader();
    // The last line of a file that was edited may have no end.
    else if (!file.seek(before - 1) || file.read(1) != "\n")
        text += '\n';
    for (const PracticeLogLine &line : m_unwritten)
        text += practiceLogText(line);
    if (file.write(text) != text.size() || !file.flush()) {
        file.resize(before); // a full disk: no half line stays
        return false;
    }
    m_unwritten.clear();
    return true;
}

PracticeLogReading PracticeLog::read() const
{
    PracticeLogReading reading;
    QFile file(m_path);
    if (QFileInfo(m_path).isFile() && file.open(QIODevice::ReadOnly))
        reading = readPracticeLog(lastBytes(file));
    reading.lines.insert(reading.lines.end(), m_unwritten.begin(), m_unwritten.end());
    return reading;
}

bool PracticeLog::forget()
{
    m_unwritten.clear();
    return !QFileInfo::exists(m_path) || QFile::remove(m_path);
}

} // namespace lyrabox
