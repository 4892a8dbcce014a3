#pragma once

#include <QByteArray>
#include <QString>

namespace lyrabox::files {

/// Replaces the file at `path`, or makes it: whatever happens meanwhile, a kill or a power failure
/// included, it is then the old one or the new one, whole. The content goes to "PATH.new" beside it
/// (the one that a kill may leave is overwritten next time), is flushed to the disk and takes the
/// file's place; the folder is flushed as well. A symbolic link stays one, and so do the
/// permissions. False, with the old file as it was, when any of this fails, when there is something
/// else than a file, or a file that may not be written.
bool replaceFile(const QString &path, const QByteArray &content);

} // namespace lyrabox::files
