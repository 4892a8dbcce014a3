#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace lyrabox::files {

/// The paths of all files in `directory` and in the folders below it. A folder's own files come
/// first, then those of its subfolders, one subfolder after the other. Within a folder the order is
/// that of shallowEntries(). A fully expanded tree of folders shows the files in this order, too.
///
/// The walk enters the folders that such a tree shows. It skips hidden folders, packages and links.
/// It also skips a folder that contains itself, which is possible with mounts, and the kernel's own
/// file systems (/proc, /sys), because they have no end. A folder that cannot be read counts as
/// empty.
///
/// `shouldContinue` is called before each folder with the number of files found so far. If it
/// returns false, the walk ends and returns the files found until then. Any thread; blocks.
QStringList filesOfTree(const QString &directory,
                        const std::function<bool(qint64 found)> &shouldContinue);

} // namespace lyrabox::files
