#include "practice/SharedPractice.h"

#include "practice/LabelTrack.h"
#include "practice/SongTime.h"

#include "platform/foundation/FileStamp.h"

#include <QFile>

#include <optional>
#include <utility>
#include <vector>

namespace lyrabox {

namespace {

using Problem = SharedPractice::Problem;

bool isEmpty(const PracticeRecord &record)
{
    return record.loops.empty() && record.markers.empty() && record.beats.grid.isEmpty();
}

SharedPractice refused(Problem problem)
{
    SharedPractice shared;
    shared.problem = problem;
    return shared;
}

/// A place that is moved, if it is still one.
std::optional<std::uint64_t> moved(std::uint64_t place, std::int64_t frames)
{
    const std::int64_t result = static_cast<std::int64_t>(place) + frames;
    if (result < 0 || result > static_cast<std::int64_t>(lastSongPlace))
        return std::nullopt;
    return static_cast<std::uint64_t>(result);
}

/// Where anchors are lost at the start, the first beat that is left becomes one.
BeatGrid movedGrid(const BeatGrid &grid, std::int64_t frames)
{
    std::vector<BeatAnchor> anchors;
    BeatAnchor lost;
    bool hasLost = false;
    for (BeatAnchor anchor : grid.anchors()) {
        const auto frame = moved(anchor.frame, frames);
        if (!frame) {
            hasLost = true;
            lost = anchor;
            continue;
        }
        if (anchors.empty() && hasLost) {
            const auto beats = grid.beatsBetween(static_cast<std::uint64_t>(-frames), anchor.frame);
            if (!beats.empty())
                anchors.push_back({.frame = static_cast<std::uint64_t>(beats.front().frame + 0.5) +
                                            static_cast<std::uint64_t>(frames),
                                   .bar = beats.front().bar,
                                   .beat = beats.front().beat,
                                   .beatsPerBar = lost.beatsPerBar,
                                   .isLost = lost.isLost});
        }
        anchor.frame = *frame;
        anchors.push_back(anchor);
    }
    return BeatGrid(std::move(anchors));
}

} // namespace

SharedPractice readShared(const QByteArray &text)
{
    if (text.size() > PracticeLimits::fileBytes)
        return refused(Problem::TooLarge);
    std::optional<PracticeReading> reading = readPractice(text);
    if (!reading)
        reading = readLabelTrack(text);
    if (!reading)
        return refused(Problem::Unknown);
    if (reading->isNewer)
        return refused(Problem::Newer);
    if (isEmpty(reading->record))
        return refused(Problem::Empty);
    SharedPractice shared;
    shared.record = std::move(reading->record);
    shared.isWhole = reading->isWhole;
    return shared;
}

SharedPractice loadShared(const QString &path)
{
    // Only a regular file: a pipe would block.
    const auto stamp = files::fileStamp(path);
    QFile file(path);
    if (!stamp)
        return refused(Problem::Unreadable);
    if (stamp->size > PracticeLimits::fileBytes)
        return refused(Problem::TooLarge);
    if (!file.open(QIODevice::ReadOnly))
        return refused(Problem::Unreadable);
    return readShared(file.read(PracticeLimits::fileBytes + 1));
}

PracticeRecord movedPractice(const PracticeRecord &record, std::int64_t frames)
{
    PracticeRecord result;
    for (PracticeLoop loop : record.loops) {
        const auto to = moved(loop.to, frames);
        if (!to || *to == 0)
            continue;
        loop.id = newPracticeId();
        loop.from = moved(loop.from, frames).value_or(0);
        loop.to = *to;
        result.loops.push_back(std::move(loop));
    }
    for (PracticeMarker marker : record.markers) {
        const auto at = moved(marker.at, frames);
        if (!at)
            continue;
        marker.id = newPracticeId();
        marker.at = *at;
        result.markers.push_back(std::move(marker));
    }
    result.beats.grid = movedGrid(record.beats.grid, frames);
    return result;
}

} // namespace lyrabox
