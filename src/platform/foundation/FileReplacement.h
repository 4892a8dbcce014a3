#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class QIODevice;

namespace lyrabox::files {

/// Writes the content of a new file to `file`, from the start to the end; the device takes bytes
/// only in order. False if the content cannot be made. A write that fails need not be looked at:
/// the device then takes nothing more, and the replacement fails.
using ContentWriter = std::function<bool(QIODevice &file)>;

/// Replaces the file at `path`, or makes it. Whatever happens meanwhile, a kill or a power failure
/// included, the file is then the old one or the new one, whole. The content goes to "PATH.new" in
/// the same folder, is flushed to the disk and takes the file's place; then the folder is flushed.
/// A kill may leave a "PATH.new", which the next call overwrites. A symbolic link stays a link and
/// points to the new file. The new file has the permissions of the old one.
///
/// False, with the old file as it was, if any of this fails, if `path` names something else than a
/// file, or if the file may not be written. An exception of `write` is passed on, and the old file
/// stays as well. Blocks until the disk has the content. Any thread, one at a time for each file.
bool replaceFile(const QString &path, const ContentWriter &write);

/// The same for content that is in memory.
bool replaceFile(const QString &path, const QByteArray &content);

} // namespace lyrabox::files
