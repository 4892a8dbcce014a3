#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class QIODevice;

namespace lyrabox::files {

/// Writes the content of a new file to `file`, from start to end; the device cannot seek. Returns
/// false if the content cannot be produced. It need not check its writes: after one that fails the
/// device accepts nothing more, and the replacement fails.
using ContentWriter = std::function<bool(QIODevice &file)>;

/// Replaces the file at `path`, or creates it. Whatever happens during the call, even a kill or a
/// power failure, the file is afterwards either the old one or the complete new one. The content
/// goes to "PATH.new" in the same folder, is flushed to the disk and takes the file's place; then
/// the folder is flushed. A kill may leave a "PATH.new", which the next call overwrites. A symbolic
/// link stays a link and points to the new file. The new file has the permissions of the old one.
///
/// False, with the old file as it was, if any of this fails, if `path` names something other
/// than a file, or if the file may not be written. An exception of `write` is passed on, and the
/// old file stays as well. Blocks until the disk has the content. Any thread, one at a time for
/// each file.
bool replaceFile(const QString &path, const ContentWriter &write);

/// The same for content that is in memory.
bool replaceFile(const QString &path, const QByteArray &content);

/// Gives the file at `path` a second name, so that what it contains survives a replacement:
/// "PATH.MARK-N", with the first free N from 1. If the file has such a name already, does nothing.
/// Where the file system has no hard links, the file is renamed. False if that fails, too.
bool keepAside(const QString &path, const QString &mark);

} // namespace lyrabox::files
