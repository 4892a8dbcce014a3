#pragma once

#include <QString>

namespace lyrabox {

/// Where the list of songs comes from, as far as it explains why the list is empty.
struct ListOrigin {
    enum class Kind { None, Playlist, Folder, Tree, Files };
    Kind kind = Kind::None;    ///< None: no list has been chosen yet.
    bool isReadable = true;    ///< Of the folder.
    qint64 foldersInside = 0;  ///< Folders that can be shown by expanding the folder's row.
    bool isIncomplete = false; ///< The user stopped the list before its end.
};

/// Text for an empty table: why there are no songs and what the user can do. `songs` is the number
/// of songs in the list; if it is not 0, `searchText` hides them all. Main thread.
QString emptyListText(const ListOrigin &origin, qint64 songs, const QString &searchText);

} // namespace lyrabox
