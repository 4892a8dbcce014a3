#include "fuzz/targets/FuzzTargets.h"
#include "practice/LabelTrack.h"
#include "practice/SongTime.h"

namespace lyrabox::fuzz {

namespace {

void checkLabels(const QByteArray &bytes)
{
    const auto first = readLabelTrack(bytes);
    if (!first)
        return;
    const PracticeRecord &record = first->record;
    noteBehaviour(record.loops.size() * 31 + record.markers.size() * 2 + (first->isWhole ? 1 : 0));
    require(record.loops.size() <= PracticeLimits::loops, "loops keep their number");
    require(record.markers.size() <= PracticeLimits::markers, "markers keep their number");
    for (const PracticeLoop &loop : record.loops)
        require(loop.from < loop.to && loop.to <= lastSongPlace, "loops have an extent");
    for (const PracticeMarker &marker : record.markers)
        require(marker.at <= lastSongPlace, "markers have a place");
    const QByteArray text = labelTrackText(record);
    if (text.size() > PracticeLimits::fileBytes)
        return;
    const auto second = readLabelTrack(text);
    require(second && second->isWhole && labelTrackText(second->record) == text,
            "labels are written as they were read");
}

} // namespace

void sharing(Bytes bytes)
{
    checkLabels(byteArray(bytes));
}

} // namespace lyrabox::fuzz
