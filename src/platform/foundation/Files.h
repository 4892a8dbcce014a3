#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <vector>

/// The program's queries to the file system, in one place so that they can be ported to another
/// desktop and replaced by tests.
namespace lyrabox::files {

/// The inode number of the file at `path` as decimal text. Symbolic links are followed. "(null)" if
/// the file's attributes cannot be read, or if the path is empty. Any thread.
QString inodeText(const QString &path);

/// The same for a file URL; "(null)" if the URL is not a local file.
QString inodeText(const QUrl &url);

/// One entry of a folder.
struct Entry {
    QString path;     ///< absolute
    bool isDirectory; ///< false for a link to a directory
    bool isPackage;   ///< a directory that the desktop shows as one document, see isPackageName()
};

/// Whether users see a directory of this name as one document or program. Linux file systems have
/// no mark for this, so the suffix decides, without regard to case (".app", ".bundle", ".lv2",
/// ".vst3" and the like). A dot at the beginning of the name does not start a suffix.
bool isPackageName(const QString &name);

/// Which entries of a folder the caller wants.
enum class EntryKinds { All, Directories };

/// The entries of one folder, without those of its subfolders and without hidden ones. They are
/// sorted as in a file manager: by textCollator(), and names that it considers equal by their
/// bytes. After an error the result holds the entries read before it. Any thread; blocks.
std::vector<Entry> shallowEntries(const QString &directory, EntryKinds kinds = EntryKinds::All);

/// Whether the process may read the path (POSIX `access` with `R_OK`).
bool isReadable(const QString &path);

/// For tests: replaces the answer of isReadable(), because root may read everything. An empty
/// function restores the real answer.
void setReadabilityProbe(std::function<bool(const QString &path)> probe);

/// Gives the file at `path` a second name on the same file system (a hard link). False if something
/// is at `secondName` already or the file system has no hard links; nothing is changed then.
bool makeHardLink(const QString &path, const QString &secondName);

/// Resolves every symbolic link in the part of `path` that exists, and appends the rest unchanged.
QString resolvingSymbolicLinks(const QString &path);

/// The folders for the data of applications, the preferred one first: `$XDG_DATA_HOME`, by default
/// `~/.local/share`. Empty if neither is an absolute path.
QStringList applicationSupportDirectories();

/// The folder of resources that are not compiled into the program: `../share/lyrabox` relative to
/// the folder of the installed program, or `share/lyrabox` of the build tree if the program is
/// anywhere inside that tree.
QString sharedResourceDirectory();

/// The folder of the modules that the program opens: `../lib/lyrabox` relative to the folder of the
/// installed program, or `lib/lyrabox` of the build tree.
QString moduleDirectory();

} // namespace lyrabox::files
