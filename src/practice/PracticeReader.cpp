#include "practice/PracticeText.h"

#include "practice/AnchorText.h"
#include "practice/BeatGridText.h"
#include "practice/SongTime.h"
#include "practice/SoundText.h"
#include "practice/TrainerText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// One object of the file. Every key that is taken leaves it; the rest is what this version does
/// not know.
class Keys {
public:
    Keys(QJsonObject object, bool &isWhole) : m_object(std::move(object)), m_isWhole(isWhole) {}

    QJsonValue take(QLatin1StringView key) { return m_object.take(key); }

    QString text(QLatin1StringView key)
    {
        const QJsonValue value = take(key);
        m_isWhole = m_isWhole && (value.isString() || value.isUndefined());
        return value.toString();
    }

    /// A whole number; none if there is no number. The caller brings it within its limits.
    std::optional<int> number(QLatin1StringView key)
    {
        const QJsonValue value = take(key);
        if (value.isUndefined())
            return std::nullopt;
        const double number = value.toDouble(std::nan(""));
        const bool fits = std::abs(number) <= std::numeric_limits<int>::max();
        if (!value.isDouble() || !fits || std::round(number) != number)
            m_isWhole = false;
        if (!value.isDouble() || !fits)
            return std::nullopt;
        return static_cast<int>(std::lround(number));
    }

    std::optional<std::uint64_t> time(QLatin1StringView key)
    {
        return framesOfSongTime(take(key).toString());
    }

    QJsonObject rest() { return std::exchange(m_object, {}); }

private:
    QJsonObject m_object;
    bool &m_isWhole;
};

void readAfter(Keys &keys, PracticeLoop &loop, bool &isWhole)
{
    const std::optional<int> passes = keys.number("times"_L1);
    const QString then = keys.text("then"_L1);
    if (then == "on"_L1)
        loop.after = AfterLoop::GoOn;
    else if (then == "next"_L1)
        loop.after = AfterLoop::NextLoop;
    else if (then == "stop"_L1)
        loop.after = AfterLoop::Stop;
    else
        isWhole = isWhole && then.isEmpty() && !passes;
    loop.passes = passes.value_or(1);
}

std::optional<TrainerSettings> readTrainerOf(const QJsonValue &value, bool &isWhole)
{
    if (!value.isObject()) {
        isWhole = isWhole && value.isUndefined();
        return std::nullopt;
    }
    const TrainerReading reading = readTrainer(value.toObject());
    isWhole = isWhole && reading.isWhole;
    return reading.settings;
}

std::optional<PracticeLoop> readLoop(Keys keys, bool &isWhole)
{
    const auto from = keys.time("from"_L1);
    const auto to = keys.time("to"_L1);
    if (!from || !to || *to <= *from)
        return std::nullopt;
    PracticeLoop loop{.name = keys.text("name"_L1), .from = *from, .to = *to};
    loop.colour = keys.number("colour"_L1).value_or(1);
    loop.note = keys.text("note"_L1);
    loop.speed = keys.number("speed"_L1);
    loop.pitch = keys.number("pitch"_L1);
    readAfter(keys, loop, isWhole);
    loop.trainer = readTrainerOf(keys.take("trainer"_L1), isWhole);
    loop.unknown = keys.rest();
    const PracticeLoop asFound = loop;
    clean(loop);
    isWhole = isWhole && loop == asFound;
    return loop;
}

std::optional<PracticeMarker> readMarker(Keys keys, bool &isWhole)
{
    const auto at = keys.time("at"_L1);
    if (!at)
        return std::nullopt;
    PracticeMarker marker{.at = *at, .name = keys.text("name"_L1)};
    marker.unknown = keys.rest();
    const PracticeMarker asFound = marker;
    clean(marker);
    isWhole = isWhole && marker == asFound;
    return marker;
}

/// Reads the elements of an array with `read`, up to a limit, and leaves out those that are no
/// valid entries.
template <typename Entry, typename Read>
void readAll(const QJsonValue &array, std::size_t limit, bool &isWhole, std::vector<Entry> &entries,
             Read read)
{
    if (!array.isArray()) {
        isWhole = isWhole && array.isUndefined();
        return;
    }
    for (const QJsonValue &value : array.toArray()) {
        if (entries.size() == limit) {
            isWhole = false;
            return;
        }
        std::optional<Entry> entry;
        if (value.isObject())
            entry = read(Keys(value.toObject(), isWhole), isWhole);
        if (entry)
            entries.push_back(std::move(*entry));
        else
            isWhole = false;
    }
}

/// A length of bars that is not valid becomes the nearest one.
void readBeats(const QJsonValue &value, PracticeBeats &beats, bool &isWhole)
{
    if (!value.isObject()) {
        isWhole = isWhole && value.isUndefined();
        return;
    }
    Keys keys(value.toObject(), isWhole);
    const int asFound = keys.number("bar"_L1).value_or(BeatAnchor().beatsPerBar);
    const int bar = std::clamp(asFound, BeatGrid::shortestBar, BeatGrid::longestBar);
    const QJsonValue anchors = keys.take("anchors"_L1);
    isWhole = isWhole && bar == asFound && (anchors.isArray() || anchors.isUndefined());
    std::vector<QString> texts;
    for (const QJsonValue &anchor : anchors.toArray()) {
        if (texts.size() > BeatGrid::mostAnchors)
            break; // so that the grid leaves one out
        texts.push_back(anchor.toString());
    }
    beats.grid = beatGridOf(texts, bar, isWhole);
    beats.unknown = keys.rest();
}

void readSong(const QJsonValue &value, PracticeSong &song, bool &isWhole)
{
    if (!value.isObject()) {
        isWhole = isWhole && value.isUndefined();
        return;
    }
    Keys keys(value.toObject(), isWhole);
    song.title = keys.text("title"_L1);
    song.artist = keys.text("artist"_L1);
    song.audio = keys.text("audio"_L1);
    const QString length = keys.text("length"_L1);
    song.length = framesOfSongTime(length);
    isWhole = isWhole && (length.isEmpty() || song.length);
    const QJsonValue anchors = keys.take("anchors"_L1);
    song.anchors = anchorsOf(anchors);
    song.unknown = keys.rest();
    // Anchors of another kind stay as they are.
    if (song.anchors.empty() && !anchors.isUndefined())
        song.unknown.insert("anchors"_L1, anchors);
    clean(song);
}

} // namespace

std::optional<PracticeReading> readPractice(const QByteArray &text)
{
    if (text.size() > PracticeLimits::fileBytes)
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        return std::nullopt;
    PracticeReading reading;
    Keys keys(document.object(), reading.isWhole);
    const double version = keys.take("lyrabox practice"_L1).toDouble(0.0);
    if (!(version >= practiceVersion))
        return std::nullopt;
    reading.isNewer = version > practiceVersion;
    PracticeRecord &record = reading.record;
    readSong(keys.take("song"_L1), record.song, reading.isWhole);
    readBeats(keys.take("beats"_L1), record.beats, reading.isWhole);
    reading.isWhole = readSound(keys.take("sound"_L1), record.sound) && reading.isWhole;
    readAll(keys.take("loops"_L1), PracticeLimits::loops, reading.isWhole, record.loops, &readLoop);
    readAll(keys.take("markers"_L1), PracticeLimits::markers, reading.isWhole, record.markers,
            &readMarker);
    record.unknown = keys.rest();
    sortByPlace(record);
    return reading;
}

} // namespace lyrabox
