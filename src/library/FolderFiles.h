#pragma once

#include "platform/foundation/ProgressPacer.h"

#include <QString>
#include <QStringList>

namespace lyrabox {

/// The files that make up a folder's list.
struct FolderFiles {
    QStringList paths;
    qint64 foldersInside = 0; ///< Folders directly inside the folder. Not counted for a whole tree.
    bool isReadable = false;
};

/// Lists the files of a folder, or of the folder and everything below it, in listing order.
/// Stopping `progress` returns the files found so far.
///
/// A disk that may hang is read on a thread of its own. If `progress` is stopped or a signal asks
/// the program to end, that thread is abandoned and nothing is returned. Main thread; blocks.
FolderFiles findFolderFiles(const QString &path, bool inTree, ProgressPacer &progress);

} // namespace lyrabox
