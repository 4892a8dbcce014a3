#include "practice/PracticeText.h"

#include "practice/AnchorText.h"
#include "practice/BeatGridText.h"
#include "practice/SongTime.h"
#include "practice/SoundText.h"
#include "practice/TrainerText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// A text as JSON. The toolkit writes only whole documents, which takes several times as long.
QByteArray quoted(const QString &text)
{
    static constexpr char hex[] = "0123456789abcdef";
    const QByteArray bytes = text.toUtf8();
    QByteArray result;
    result.reserve(bytes.size() + 2);
    result += '"';
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '"' || byte == '\\') {
            result += '\\';
            result += byte;
        } else if (byte == '\n') {
            result += "\\n";
        } else if (code < 0x20) {
            result += "\\u00";
            result += hex[code >> 4U];
            result += hex[code & 15U];
        } else {
            result += byte;
        }
    }
    return result + '"';
}

QByteArray valueText(const QJsonValue &value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

/// One object on one line.
class Line {
public:
    void add(const char *key, const QByteArray &value)
    {
        m_text += m_text.isEmpty() ? "\"" : ", \"";
        m_text += key;
        m_text += "\": ";
        m_text += value;
    }
    void add(const char *key, std::uint64_t time) { add(key, quoted(songTimeText(time))); }
    void addUnlessEmpty(const char *key, const QString &text)
    {
        if (!text.isEmpty())
            add(key, quoted(text));
    }
    void addIfSet(const char *key, const std::optional<int> &number)
    {
        if (number)
            add(key, QByteArray::number(*number));
    }
    void addAll(const QJsonObject &unknown)
    {
        for (auto entry = unknown.begin(); entry != unknown.end(); ++entry) {
            m_text += m_text.isEmpty() ? "" : ", ";
            m_text += quoted(entry.key()) + ": " + valueText(entry.value());
        }
    }
    QByteArray text() const { return '{' + m_text + '}'; }

private:
    QByteArray m_text;
};

QByteArray songText(const PracticeSong &song)
{
    Line line;
    line.addUnlessEmpty("title", song.title);
    line.addUnlessEmpty("artist", song.artist);
    if (song.length)
        line.add("length", *song.length);
    line.addUnlessEmpty("audio", song.audio);
    QJsonObject unknown = song.unknown;
    if (!song.anchors.empty()) {
        QByteArray anchors;
        for (const SongAnchor &anchor : song.anchors) {
            anchors += anchors.isEmpty() ? "[\n  " : ",\n  ";
            anchors += quoted(anchorText(anchor));
        }
        line.add("anchors", anchors + ']');
        unknown.remove("anchors"_L1);
    }
    line.addAll(unknown);
    return line.text();
}

QByteArray loopText(const PracticeLoop &loop)
{
    Line line;
    line.addUnlessEmpty("name", loop.name);
    line.add("from", loop.from);
    line.add("to", loop.to);
    line.add("colour", QByteArray::number(loop.colour));
    line.addUnlessEmpty("note", loop.note);
    line.addIfSet("speed", loop.speed);
    line.addIfSet("pitch", loop.pitch);
    if (loop.after != AfterLoop::Repeat) {
        line.add("times", QByteArray::number(loop.passes));
        line.add("then", loop.after == AfterLoop::GoOn       ? "\"on\""
                         : loop.after == AfterLoop::NextLoop ? "\"next\""
                                                             : "\"stop\"");
    }
    if (loop.trainer)
        line.add("trainer", valueText(trainerObject(*loop.trainer)));
    line.addAll(loop.unknown);
    return line.text();
}

QByteArray markerText(const PracticeMarker &marker)
{
    Line line;
    line.add("at", marker.at);
    line.addUnlessEmpty("name", marker.name);
    line.addAll(marker.unknown);
    return line.text();
}

/// One anchor a line.
QByteArray beatsText(const PracticeBeats &beats)
{
    Line line;
    if (!beats.grid.isEmpty()) {
        int bar = beats.grid.anchors().front().beatsPerBar;
        line.add("bar", QByteArray::number(bar));
        QByteArray anchors;
        for (const BeatAnchor &anchor : beats.grid.anchors()) {
            anchors += anchors.isEmpty() ? "[\n  " : ",\n  ";
            anchors += quoted(beatAnchorText(anchor, bar));
            bar = anchor.beatsPerBar;
        }
        line.add("anchors", anchors + ']');
    }
    line.addAll(beats.unknown);
    return line.text();
}

template <typename Entry>
QByteArray linesText(const std::vector<Entry> &entries, QByteArray (*text)(const Entry &))
{
    QByteArray result = "[";
    for (const Entry &entry : entries) {
        result += result.size() > 1 ? ",\n  " : "\n  ";
        result += text(entry);
    }
    return result + ']';
}

/// Bytes that the keys of an object and its quotation marks take at most, with all numbers.
constexpr qsizetype loopFrame = 220;
constexpr qsizetype markerFrame = 60;
constexpr qsizetype trainerFrame = 400;
constexpr qsizetype anchorFrame = 50;
constexpr qsizetype songAnchorFrame = 1420;

/// What a text takes at most: three bytes for each unit, or two for an escaped one.
qsizetype bound(const QString &text)
{
    return 3 * text.size();
}

bool mayBeLarge(const PracticeRecord &record)
{
    qsizetype bytes = 1400 + bound(record.song.title) + bound(record.song.artist);
    bytes += songAnchorFrame * static_cast<qsizetype>(record.song.anchors.size());
    bytes += anchorFrame * static_cast<qsizetype>(record.beats.grid.anchors().size());
    bool hasUnknown = !record.unknown.isEmpty() || !record.song.unknown.isEmpty() ||
                      !record.beats.unknown.isEmpty() || !record.sound.unknown.isEmpty();
    for (const PracticeLoop &loop : record.loops) {
        bytes += loopFrame + bound(loop.name) + bound(loop.note);
        bytes += loop.trainer ? trainerFrame : 0;
        hasUnknown = hasUnknown || !loop.unknown.isEmpty();
    }
    for (const PracticeMarker &marker : record.markers) {
        bytes += markerFrame + bound(marker.name);
        hasUnknown = hasUnknown || !marker.unknown.isEmpty();
    }
    return hasUnknown || bytes > PracticeLimits::fileBytes;
}

} // namespace

QByteArray practiceText(const PracticeRecord &record)
{
    QByteArray text = "{\"lyrabox practice\": " + QByteArray::number(practiceVersion) +
                      ",\n \"song\": " + songText(record.song);
    for (auto entry = record.unknown.begin(); entry != record.unknown.end(); ++entry)
        text += ",\n " + quoted(entry.key()) + ": " + valueText(entry.value());
    if (!record.beats.grid.isEmpty() || !record.beats.unknown.isEmpty())
        text += ",\n \"beats\": " + beatsText(record.beats);
    if (const QJsonObject sound = soundObject(record.sound); !sound.isEmpty())
        text += ",\n \"sound\": " + valueText(sound);
    text += ",\n \"markers\": " + linesText(record.markers, &markerText);
    text += ",\n \"loops\": " + linesText(record.loops, &loopText);
    return text + "}\n";
}

bool fitsIntoFile(const PracticeRecord &record)
{
    return !mayBeLarge(record) || practiceText(record).size() <= PracticeLimits::fileBytes;
}

} // namespace lyrabox
