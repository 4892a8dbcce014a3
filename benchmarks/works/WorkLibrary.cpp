// From the music library to the tree of playlists, and from its first playlist to the table. The
// peer is libplist, reading the same file.

#include "Work.h"
#include "WorkLists.h"

#include "sources/LB_PlaylistSourceController.h"

#include <plist/plist.h>

#include <cstdint>
#include <fstream>

using namespace lyrabox;

namespace {

void readOurs(const std::string &file)
{
    work::TrackTable list;
    SourceTreeView tree;
    LB_PlaylistSourceController playlists;
    list.tracks.setLibraryLocator([&] { return readMusicLibrary(QString::fromStdString(file)); });
    playlists.setTracks(&list.tracks);
    playlists.setPlaylistOutlineView(&tree);
    const work::Cost cost = work::measure([&] {
        playlists.setup();
        playlists.restoreSelection();
        list.paint();
    });
    work::report(cost, static_cast<double>(list.tracks.trackCount()));
}

void readPeer(const std::string &file)
{
    plist_t root = nullptr;
    const work::Cost cost = work::measure([&] {
        std::ifstream stream(file, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &root);
    });
    if (!root)
        work::fail("libplist did not read the library");
    work::report(cost, plist_dict_get_size(plist_dict_get_item(root, "Tracks")));
    plist_free(root);
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    if (arguments.ours) {
        work::startApplication();
        readOurs(arguments.argument);
    } else {
        readPeer(arguments.argument);
    }
    return EXIT_SUCCESS;
}
