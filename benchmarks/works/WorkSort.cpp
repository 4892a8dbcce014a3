// Sorts a new list by title and then by length. The peer is std::stable_sort with the comparisons
// of a collator.

#include "Work.h"
#include "WorkSongs.h"

#include "library/TrackSorting.h"
#include "library/TrackTableModel.h"
#include "platform/foundation/TextOrder.h"

#include <algorithm>
#include <optional>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

work::Cost sortOurs(const TrackRecordList &songs)
{
    std::optional<TrackTableModel> model;
    return work::measureRepeated(
        [&] {
            model.emplace();
            model->setContent(songs);
        },
        [&] {
            model->sortContent({{u"title"_s, true}});
            model->sortContent({{u"durationSeconds"_s, true}});
        });
}

work::Cost sortPeer(const TrackRecordList &songs)
{
    const QCollator collator = textCollator();
    TrackRecordList sorted;
    return work::measureRepeated(
        [&] { sorted = songs; },
        [&] {
            std::stable_sort(sorted.begin(), sorted.end(),
                             [&](const TrackRecordRef &a, const TrackRecordRef &b) {
                                 return collator.compare(*a->title, *b->title) < 0;
                             });
            std::stable_sort(sorted.begin(), sorted.end(),
                             [](const TrackRecordRef &a, const TrackRecordRef &b) {
                                 return a->durationValue() < b->durationValue();
                             });
        });
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    work::startApplication();
    const TrackRecordList songs = work::inventedSongs(std::stoul(arguments.argument));
    work::report((arguments.ours ? sortOurs : sortPeer)(songs), static_cast<double>(songs.size()));
    return EXIT_SUCCESS;
}
