#include "practice/PracticeRecord.h"

#include "platform/audio/SoundRanges.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <tuple>

namespace lyrabox {

namespace {

/// The text without control characters and halves of surrogate pairs, at most `length` units long.
/// Line breaks stay if `keepsLines`.
QString cleanText(const QString &text, qsizetype length, bool keepsLines)
{
    QString result;
    // White space is reduced below, so look at more than will be kept, but never at megabytes.
    const qsizetype looked = std::min(text.size(), 8 * length);
    result.reserve(looked);
    for (qsizetype i = 0; i < looked; ++i) {
        const QChar unit = text[i];
        if (unit.isHighSurrogate() && i + 1 < looked && text[i + 1].isLowSurrogate()) {
            result += unit;
            result += text[++i];
        } else if (unit.isSurrogate()) {
            result += QChar(QChar::ReplacementCharacter);
        } else if (keepsLines && unit == u'\n') {
            result += unit;
        } else if (unit.category() == QChar::Other_Control || unit == QChar(QChar::LineSeparator) ||
                   unit == QChar(QChar::ParagraphSeparator)) {
            result += u' ';
        } else {
            result += unit;
        }
    }
    result = keepsLines ? result.trimmed() : result.simplified();
    if (result.size() > length) {
        result.truncate(result[length - 1].isHighSurrogate() ? length - 1 : length);
        result = result.trimmed();
    }
    return result;
}

int within(int value, const ValueRange &range)
{
    return std::clamp(value, static_cast<int>(range.minimum), static_cast<int>(range.maximum));
}

template <typename Entry>
const Entry *entryOf(const std::vector<Entry> &entries, PracticeId id)
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [id](const Entry &entry) { return entry.id == id; });
    return found == entries.end() ? nullptr : &*found;
}

} // namespace

PracticeId newPracticeId()
{
    static std::atomic<PracticeId> last = 0;
    return ++last;
}

const PracticeLoop *PracticeRecord::loop(PracticeId id) const
{
    return entryOf(loops, id);
}

const PracticeMarker *PracticeRecord::marker(PracticeId id) const
{
    return entryOf(markers, id);
}

void clean(PracticeLoop &loop)
{
    loop.name = cleanText(loop.name, PracticeLimits::nameLength, false);
    loop.note = cleanText(loop.note, PracticeLimits::noteLength, true);
    loop.colour = std::clamp(loop.colour, 1, PracticeLimits::colours);
    loop.passes =
        loop.after == AfterLoop::Repeat ? 1 : std::clamp(loop.passes, 1, PracticeLimits::passes);
    if (loop.speed)
        loop.speed = within(*loop.speed, speedRange);
    if (loop.pitch)
        loop.pitch = within(*loop.pitch, pitchRange);
    if (loop.trainer)
        clean(*loop.trainer);
}

void clean(PracticeMarker &marker)
{
    marker.name = cleanText(marker.name, PracticeLimits::nameLength, false);
}

void clean(PracticeSong &song)
{
    for (QString *text : {&song.title, &song.artist, &song.audio})
        *text = cleanText(*text, PracticeLimits::nameLength, false);
}

void clean(PracticeSound &sound)
{
    sound.channels = cleanChannelTools(sound.channels);
    if (!sound.tuning)
        return;
    if (!sound.tuning->isClear)
        sound.tuning->tuning = {};
    SongTuning &tuning = sound.tuning->tuning;
    const auto rounded = [](double cents, double least, double most) {
        const double tenths = std::round(10.0 * std::clamp(cents, least, most)) / 10.0;
        return tenths == 0.0 ? 0.0 : tenths; // there is no -0
    };
    tuning.cents = rounded(tuning.cents, -50.0, 50.0);
    tuning.lowest = rounded(tuning.lowest, -1200.0, tuning.cents);
    tuning.highest = rounded(tuning.highest, tuning.cents, 1200.0);
}

void sortByPlace(PracticeRecord &record)
{
    std::stable_sort(record.loops.begin(), record.loops.end(),
                     [](const PracticeLoop &a, const PracticeLoop &b) {
                         return std::tie(a.from, a.to) < std::tie(b.from, b.to);
                     });
    std::stable_sort(record.markers.begin(), record.markers.end(),
                     [](const PracticeMarker &a, const PracticeMarker &b) { return a.at < b.at; });
}

} // namespace lyrabox
