#include "fuzz/targets/FuzzTargets.h"
#include "practice/AnchorText.h"
#include "practice/LabelTrack.h"
#include "practice/PracticeEdits.h"
#include "practice/SharedPractice.h"
#include "practice/SongTime.h"

#include <QJsonArray>

#include <cstdint>
#include <limits>

namespace lyrabox::fuzz {

namespace {

void checkPlaces(const PracticeRecord &record)
{
    require(record.loops.size() <= PracticeLimits::loops, "loops keep their number");
    require(record.markers.size() <= PracticeLimits::markers, "markers keep their number");
    for (const PracticeLoop &loop : record.loops)
        require(loop.from < loop.to && loop.to <= lastSongPlace, "loops have an extent");
    for (const PracticeMarker &marker : record.markers)
        require(marker.at <= lastSongPlace, "markers have a place");
    require(BeatGrid(record.beats.grid.anchors()) == record.beats.grid, "beats are in order");
}

void checkLabels(const QByteArray &bytes)
{
    const auto first = readLabelTrack(bytes);
    if (!first)
        return;
    checkPlaces(first->record);
    const QByteArray text = labelTrackText(first->record);
    if (text.size() > PracticeLimits::fileBytes)
        return;
    const auto second = readLabelTrack(text);
    require(second && second->isWhole && labelTrackText(second->record) == text,
            "labels are written as they were read");
}

void checkAnchors(const SongAnchors &anchors)
{
    require(anchors.empty() || anchors.size() == anchorsOfSong, "anchors are three or none");
    QJsonArray texts;
    for (const SongAnchor &anchor : anchors)
        texts.append(anchorText(anchor));
    require(anchorsOf(texts) == anchors, "anchors are written as they were read");
}

void checkMerging(const PracticeRecord &record, std::int64_t offset)
{
    const PracticeRecord moved = movedPractice(record, offset);
    checkPlaces(moved);
    PracticeRecord own;
    const PracticeMerge merge = mergeOf(own, moved);
    require(merge.loops + merge.markers + merge.known + merge.left ==
                moved.loops.size() + moved.markers.size(),
            "everything is counted");
    if (!applyEdits(own, merge.edits))
        return; // too large for a file
    require(own.loops.size() == merge.loops && own.markers.size() == merge.markers,
            "what is counted is added");
    require(mergeOf(own, moved).edits.empty(), "nothing is added twice");
}

} // namespace

void sharing(Bytes bytes)
{
    const QByteArray given = byteArray(bytes);
    checkLabels(given);
    const SharedPractice shared = readShared(given);
    const PracticeRecord &record = shared.record;
    noteBehaviour(record.loops.size() * 31 + record.markers.size() * 8 +
                  static_cast<std::size_t>(shared.problem) + (shared.isWhole ? 100'000 : 0));
    if (shared.problem != SharedPractice::Problem::None)
        return;
    checkPlaces(record);
    checkAnchors(record.song.anchors);
    const std::int64_t first =
        record.loops.empty() ? 44'100 : static_cast<std::int64_t>(record.loops.front().to);
    for (const std::int64_t offset :
         {std::int64_t{0}, first, -first, static_cast<std::int64_t>(lastSongPlace),
          -static_cast<std::int64_t>(lastSongPlace)})
        checkMerging(record, offset);
}

} // namespace lyrabox::fuzz
