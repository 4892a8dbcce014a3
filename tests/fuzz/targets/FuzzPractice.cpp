#include "fuzz/targets/FuzzTargets.h"
#include "practice/BeatGridEdits.h"
#include "practice/PracticeEdits.h"
#include "practice/PracticeIndex.h"
#include "practice/PracticeLog.h"
#include "practice/PracticeText.h"
#include "practice/SongTime.h"
#include "practice/SoundText.h"
#include "practice/SpeedTrainer.h"
#include "practice/TrainerText.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace lyrabox::fuzz {

namespace {

void checkTrainer(const PracticeLoop &loop)
{
    if (!loop.trainer)
        return;
    TrainerSettings cleaned = *loop.trainer;
    clean(cleaned);
    require(cleaned == *loop.trainer, "the trainer's settings are valid");
    require(readTrainer(trainerObject(cleaned)).settings == cleaned, "they are written as read");
    const std::vector<int> speeds = ladderSpeeds(cleaned, 90.0);
    require(!speeds.empty() && std::is_sorted(speeds.begin(), speeds.end()), "a ladder goes up");
}

void checkSound(const PracticeSound &sound)
{
    PracticeSound cleaned = sound;
    clean(cleaned);
    require(cleaned == sound, "the sound's settings are valid");
    PracticeSound again;
    require(readSound(soundObject(sound), again) && again == sound, "they are written as read");
    require(!sound.tuning || !sound.tuning->isClear ||
                (sound.tuning->tuning.lowest <= sound.tuning->tuning.cents &&
                 sound.tuning->tuning.cents <= sound.tuning->tuning.highest),
            "a tuning lies within its range");
}

void checkLimits(const PracticeRecord &record)
{
    checkSound(record.sound);
    require(record.loops.size() <= PracticeLimits::loops, "loops keep their number");
    require(record.markers.size() <= PracticeLimits::markers, "markers keep their number");
    const BeatGrid &grid = record.beats.grid;
    require(BeatGrid(grid.anchors()) == grid, "anchors are valid and in order");
    if (!grid.isEmpty()) {
        const double middle = grid.frameOfBeats(1.5);
        require(std::abs(grid.frameOf(grid.placeAt(middle)) - middle) < 1.0, "beats have places");
    }
    for (const PracticeLoop &loop : record.loops) {
        require(loop.from < loop.to && loop.to <= lastSongPlace, "loops have an extent");
        require(loop.name.size() <= PracticeLimits::nameLength &&
                    loop.note.size() <= PracticeLimits::noteLength,
                "texts keep their limits");
        require(!loop.name.contains(u'\n') && loop.name.isValidUtf16(), "names are one line");
        require(loop.colour >= 1 && loop.colour <= PracticeLimits::colours, "colours are known");
        require(loop.passes >= 1 && loop.passes <= PracticeLimits::passes, "passes keep a limit");
        checkTrainer(loop);
    }
    require(std::is_sorted(record.markers.begin(), record.markers.end(),
                           [](const auto &a, const auto &b) { return a.at < b.at; }),
            "markers are in order");
}

void checkIndex(const QByteArray &bytes)
{
    const QByteArray text = PracticeIndex::fromText(bytes).text();
    require(PracticeIndex::fromText(text).text() == text, "an index is written as it was read");
}

void checkLog(const QByteArray &bytes)
{
    const std::vector<PracticeLogLine> lines = readPracticeLog(bytes).lines;
    QByteArray text = practiceLogHeader();
    for (const PracticeLogLine &line : lines)
        text += practiceLogText(line);
    const PracticeLogReading again = readPracticeLog(text);
    require(again.lines.size() == lines.size() && again.skipped == 0, "a line is read again");
    require(minutesByWeek(lines).size() <= 520, "weeks keep a limit");
    require(lastTouched(lines).size() <= lines.size(), "a loop has a line");
    for (const PracticeLogLine &line : lines)
        require(line.missed <= line.passes && line.speed > 0.0, "a line makes sense");
    if (!lines.empty())
        require(bestSpeedByDay(lines, lines.front()).size() <= lines.size(), "a day has a line");
}

void checkEdits(const PracticeRecord &record)
{
    PracticeHistory history(record);
    PracticeEdits edits;
    for (PracticeLoop loop : record.loops) {
        loop.name += u"x";
        ++loop.from;
        edits.emplace_back(PutLoop{loop});
    }
    for (const PracticeMarker &marker : record.markers)
        edits.emplace_back(RemoveMarker{marker.id});
    edits.emplace_back(PutBeats{shiftedGrid(scaledGrid(record.beats.grid, BeatScale::Double), 1)});
    edits.emplace_back(PutChannels{{.mode = ChannelMode::Swapped, .centre = 7}});
    const QByteArray before = practiceText(record);
    if (history.apply(edits) && history.canUndo())
        require(history.undo() || !fitsIntoFile(record), "an edit can be undone");
    require(practiceText(history.record()).size() == before.size(), "a step back is exact");
    require(editsThatMerge(record, record).empty(), "a record has all that it has");
}

} // namespace

void practice(Bytes bytes)
{
    const QByteArray given = byteArray(bytes);
    checkIndex(given);
    checkLog(given);
    const auto first = readPractice(given);
    if (!first)
        return;
    checkLimits(first->record);
    std::size_t kind = first->record.loops.size() * 31 + first->record.markers.size();
    kind = kind * 4 + (first->isNewer ? 2U : 0U) + (first->isWhole ? 1U : 0U);
    noteBehaviour(kind);
    const QByteArray written = practiceText(first->record);
    require(fitsIntoFile(first->record) == (written.size() <= PracticeLimits::fileBytes),
            "the size of a file is known");
    if (written.size() > PracticeLimits::fileBytes)
        return;
    const auto second = readPractice(written);
    require(second && !second->isNewer && second->isWhole, "what was written is read");
    checkLimits(second->record);
    require(second->record.loops.size() == first->record.loops.size() &&
                second->record.markers.size() == first->record.markers.size() &&
                second->record.beats.grid == first->record.beats.grid &&
                second->record.sound.channels == first->record.sound.channels &&
                second->record.sound.tuning == first->record.sound.tuning &&
                second->record.sound.keys == first->record.sound.keys,
            "what was written is all there");
    // The first time, numbers and texts that JSON cannot keep exactly may still change.
    const QByteArray again = practiceText(second->record);
    const auto third = readPractice(again);
    require(third && practiceText(third->record) == again, "what was read is written the same");
    checkEdits(second->record);
}

} // namespace lyrabox::fuzz
