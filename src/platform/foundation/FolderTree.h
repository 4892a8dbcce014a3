#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace lyrabox::files {

/// The files of `directory` and of all folders below it: first those of a folder itself, then those
/// of its subfolders, one after the other, each in the order of shallowEntries(). That is the order
/// in which a tree of folders shows them when everything is expanded.
///
/// The walk enters the folders that such a tree shows: no hidden ones, no packages, no links. It
/// also leaves out a folder that contains itself, which a mount can bring about, and the kernel's
/// own file systems (/proc, /sys), whose files never end. A folder that cannot be read has no
/// files.
///
/// `goOn` is called before each folder with the number of files found so far. When it returns false
/// the walk ends, and what was found until then is returned. Any thread; blocks.
QStringList filesOfTree(const QString &directory, const std::function<bool(qint64 found)> &goOn);

} // namespace lyrabox::files
