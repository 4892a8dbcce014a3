#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <vector>

/// What the program asks of the file system, in one place, so that another desktop or a test can
/// answer.
namespace lyrabox::files {

/// The inode number of the file at `path` as decimal text, symbolic links followed; "(null)" when
/// the file's attributes cannot be read (also for an empty path).
QString inodeText(const QString &path);

/// The same for a file URL; "(null)" for a URL that is not a local file.
QString inodeText(const QUrl &url);

/// One entry of a folder.
struct Entry {
    QString path;     ///< absolute
    bool isDirectory; ///< of the entry itself: a link to a directory is none
    bool isPackage;   ///< a directory that the desktop shows as one document: isPackageName()
};

/// Whether a directory of this name is one document or program to its user. The file systems here
/// keep no such mark, so the suffix decides, in any case (".app", ".bundle", ".lv2", ".vst3" and
/// the like). A name that only begins with a dot has no suffix.
bool isPackageName(const QString &name);

/// Which entries of a folder are asked for.
enum class EntryKinds { All, Directories };

/// The entries of one folder by name, as a file manager sorts them: textCollator(), then the bytes
/// of the name. No descent, hidden entries skipped, errors ignored (what was read before one is
/// returned). Any thread.
std::vector<Entry> shallowEntries(const QString &directory, EntryKinds kinds = EntryKinds::All);

/// Whether the process may read the path (POSIX `access` with `R_OK`).
bool isReadable(const QString &path);

/// Replaces the answer of isReadable(), so that an unreadable folder can be tested by root, who may
/// read everything. An empty function restores the real one.
void setReadabilityProbe(std::function<bool(const QString &path)> probe);

/// Gives the file at `path` a second name on the same file system (a hard link): both then name the
/// same file. False, with nothing changed, where there is something at `secondName` or the file
/// system has no such names.
bool makeHardLink(const QString &path, const QString &secondName);

/// `path` with every symbolic link resolved as far as it exists; the rest is appended as it stands.
QString resolvingSymbolicLinks(const QString &path);

/// `$XDG_DATA_HOME`, default `~/.local/share`; none when neither is known. Only absolute paths
/// count.
QStringList applicationSupportDirectories();

/// The folder of resources that are not compiled in: `../share/lyrabox` seen from the installed
/// program's own folder; `share/lyrabox` of the build tree for a program started anywhere in that
/// tree.
QString sharedResourceDirectory();

/// The folder of modules that the program opens: `../lib/lyrabox` seen from the installed program's
/// own folder, `lib/lyrabox` of the build tree.
QString moduleDirectory();

} // namespace lyrabox::files
