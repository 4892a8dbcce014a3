#pragma once

#include "platform/foundation/ProgressPacer.h"

#include <QString>
#include <QStringList>

namespace lyrabox {

/// What a folder's list is made of.
struct FolderFiles {
    QStringList paths;
    qint64 foldersInside = 0; ///< those beside the files; not counted in a tree
    bool isReadable = false;
};

/// The files of a folder itself or, with `inTree`, of everything below it as well, in the order in
/// which they are listed. What was found so far when `progress` is stopped.
///
/// A disk that may hang is asked on a thread that is left behind when `progress` is stopped or a
/// signal asks the program to end; nothing has been found then. Main thread; blocks.
FolderFiles findFolderFiles(const QString &path, bool inTree, ProgressPacer &progress);

} // namespace lyrabox
