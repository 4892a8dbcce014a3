#pragma once

#include <QString>

namespace lyrabox {

/// What the list of songs was built from, as far as it explains that there are none.
struct ListOrigin {
    enum class Kind { None, Playlist, Folder, Tree, Files };
    Kind kind = Kind::None;    ///< None: no list was chosen yet
    bool isReadable = true;    ///< of a folder
    qint64 foldersInside = 0;  ///< folders that a folder's own row can be opened to show
    bool isIncomplete = false; ///< the user stopped it before its end
};

/// What an empty table says instead of songs: why there are none, and what can be done. `songs` is
/// the number of songs in the list, which the search text may all hide.
QString emptyListText(const ListOrigin &origin, qint64 songs, const QString &searchText);

} // namespace lyrabox
