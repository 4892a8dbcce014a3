#include "practice/LabelTrack.h"

#include "practice/SongTime.h"

#include <QList>
#include <QString>

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

namespace lyrabox {

namespace {

constexpr std::uint64_t microseconds = 1'000'000;

/// A place that may lie before the song.
std::optional<std::int64_t> framesOfSeconds(QStringView text)
{
    constexpr qsizetype mostDigits = 7;
    constexpr std::int64_t mostUnits = 1'000'000'000; // later decimals make no difference
    text = text.trimmed();
    const bool isNegative = text.startsWith(u'-');
    if (isNegative || text.startsWith(u'+'))
        text = text.sliced(1);
    std::int64_t seconds = 0;
    std::int64_t fraction = 0;
    std::int64_t unit = 1;
    qsizetype digits = 0;
    bool isFraction = false;
    for (const QChar each : text) {
        if (!isFraction && (each == u'.' || each == u',')) {
            isFraction = true;
            continue;
        }
        if (each < u'0' || each > u'9')
            return std::nullopt;
        const int digit = each.unicode() - u'0';
        ++digits;
        if (!isFraction) {
            if (digits > mostDigits)
                return std::nullopt;
            seconds = 10 * seconds + digit;
        } else if (unit < mostUnits) {
            fraction = 10 * fraction + digit;
            unit *= 10;
        }
    }
    if (digits == 0)
        return std::nullopt;
    constexpr auto rate = static_cast<std::int64_t>(practiceRate);
    const std::int64_t frames = seconds * rate + (fraction * rate + unit / 2) / unit;
    return isNegative ? -frames : frames;
}

QByteArray secondsText(std::uint64_t frames)
{
    const std::uint64_t inSecond =
        (frames % practiceRate * microseconds + practiceRate / 2) / practiceRate;
    return QByteArray::number(frames / practiceRate + inSecond / microseconds) + '.' +
           QByteArray::number(inSecond % microseconds).rightJustified(6, '0');
}

/// Reads one line into the record. False if it is no label, or if there is no room for it.
bool readLabel(QStringView line, PracticeRecord &record)
{
    const qsizetype tab = line.indexOf(u'\t');
    if (tab < 0)
        return false;
    const QStringView rest = line.sliced(tab + 1);
    const qsizetype second = rest.indexOf(u'\t');
    const auto start = framesOfSeconds(line.first(tab));
    const auto end = framesOfSeconds(second < 0 ? rest : rest.first(second));
    if (!start || !end)
        return false;
    const auto [from, to] = std::minmax(*start, *end);
    if (to < 0 || to > static_cast<std::int64_t>(lastSongPlace) || (from < 0 && to == 0))
        return false;
    const QString name = second < 0 ? QString() : rest.sliced(second + 1).toString();
    const auto first = static_cast<std::uint64_t>(std::max<std::int64_t>(0, from));
    const auto last = static_cast<std::uint64_t>(to);
    if (first == last) {
        if (record.markers.size() == PracticeLimits::markers)
            return false;
        PracticeMarker &marker = record.markers.emplace_back();
        marker.at = first;
        marker.name = name;
        clean(marker);
        return true;
    }
    if (record.loops.size() == PracticeLimits::loops)
        return false;
    PracticeLoop &loop = record.loops.emplace_back();
    loop.name = name;
    loop.from = first;
    loop.to = last;
    clean(loop);
    return true;
}

} // namespace

std::optional<PracticeReading> readLabelTrack(const QByteArray &text)
{
    if (text.size() > PracticeLimits::fileBytes)
        return std::nullopt;
    QString lines = QString::fromUtf8(text); // without a byte order mark
    lines.replace(u'\r', u'\n');
    PracticeReading reading;
    for (const QStringView line : QStringView(lines).tokenize(u'\n')) {
        if (line.startsWith(u'\\') || line.trimmed().isEmpty())
            continue;
        if (!readLabel(line, reading.record))
            reading.isWhole = false;
    }
    PracticeRecord &record = reading.record;
    if (record.loops.empty() && record.markers.empty())
        return std::nullopt;
    sortByPlace(record);
    int colour = 0;
    for (PracticeLoop &loop : record.loops)
        loop.colour = colour++ % PracticeLimits::colours + 1;
    return reading;
}

QByteArray labelTrackText(const PracticeRecord &record)
{
    struct Label {
        std::uint64_t from;
        std::uint64_t to;
        const QString *name;
    };
    std::vector<Label> labels;
    labels.reserve(record.markers.size() + record.loops.size());
    for (const PracticeMarker &marker : record.markers)
        labels.push_back({marker.at, marker.at, &marker.name});
    for (const PracticeLoop &loop : record.loops)
        labels.push_back({loop.from, loop.to, &loop.name});
    std::ranges::stable_sort(labels, [](const Label &a, const Label &b) {
        return std::tie(a.from, a.to) < std::tie(b.from, b.to);
    });
    QByteArray text;
    for (const Label &label : labels)
        text += secondsText(label.from) + '\t' + secondsText(label.to) + '\t' +
                label.name->toUtf8() + '\n';
    return text;
}

} // namespace lyrabox
