#include "platform/foundation/Files.h"

#include "platform/foundation/TextOrder.h"

#include <QCollatorSortKey>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::files {
namespace {

std::function<bool(const QString &)> &readabilityProbe()
{
    static std::function<bool(const QString &)> probe;
    return probe;
}

/// A path as the system's functions expect it; empty if it contains a null character.
QByteArray nativePath(const QString &path)
{
    return path.contains(QChar::Null) ? QByteArray() : QFile::encodeName(path);
}

bool isDirectoryEntry(int folder, const dirent &entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat attributes = {};
    return fstatat(folder, entry.d_name, &attributes, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISDIR(attributes.st_mode);
}

/// An entry with its sort key. In a large folder, comparing names without keys takes several times
/// as long.
struct ListedEntry {
    QCollatorSortKey key;
    QByteArray name;
    Entry entry;
};

bool comesBefore(const ListedEntry &a, const ListedEntry &b)
{
    const int order = a.key.compare(b.key);
    return order != 0 ? order < 0 : a.name < b.name;
}

/// The parent folder of "bin", or the build tree if the program is anywhere inside it.
QString installationDirectory()
{
    // The toolkit's own function would need an application object.
    const QString program = QFileInfo(QFile::symLinkTarget(u"/proc/self/exe"_s)).path();
    const QString buildTree = QStringLiteral(LYRABOX_BUILD_TREE);
    if (program == buildTree || program.startsWith(buildTree + u'/'))
        return buildTree;
    return QDir::cleanPath(program + u"/.."_s);
}

} // namespace

bool isPackageName(const QString &name)
{
    static constexpr std::array suffixes = {
        "app"_L1,       "appex"_L1,     "aupreset"_L1, "bundle"_L1,   "clap"_L1, "component"_L1,
        "framework"_L1, "gsproject"_L1, "kext"_L1,     "logicx"_L1,   "lv2"_L1,  "musiclibrary"_L1,
        "pkg"_L1,       "mpkg"_L1,      "plugin"_L1,   "prefpane"_L1, "rtfd"_L1, "photoslibrary"_L1,
        "tvlibrary"_L1, "vst"_L1,       "vst3"_L1,     "xcodeproj"_L1};
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot <= 0)
        return false;
    const QStringView suffix = QStringView(name).mid(dot + 1);
    return std::any_of(suffixes.begin(), suffixes.end(), [suffix](QLatin1StringView known) {
        return suffix.compare(known, Qt::CaseInsensitive) == 0;
    });
}

QString inodeText(const QString &path)
{
    const QByteArray native = nativePath(path);
    struct stat attributes = {};
    if (native.isEmpty() || stat(native.constData(), &attributes) != 0)
        return u"(null)"_s;
    return QString::number(attributes.st_ino);
}

QString inodeText(const QUrl &url)
{
    return inodeText(url.isLocalFile() ? url.toLocalFile() : QString());
}

std::vector<Entry> shallowEntries(const QString &directory, EntryKinds kinds)
{
    const QByteArray native = nativePath(directory);
    const std::unique_ptr<DIR, int (*)(DIR *)> folder(
        native.isEmpty() ? nullptr : opendir(native.constData()), closedir);
    if (!folder)
        return {};
    QString prefix = QDir::cleanPath(QDir(directory).absolutePath());
    if (!prefix.endsWith(u'/'))
        prefix += u'/';
    const QCollator collator = textCollator();
    std::vector<ListedEntry> listed;
    while (const dirent *const entry = readdir(folder.get())) {
        if (entry->d_name[0] == '.')
            continue;
        const bool isDirectory = isDirectoryEntry(dirfd(folder.get()), *entry);
        if (kinds == EntryKinds::Directories && !isDirectory)
            continue;
        // A name that is not valid UTF-8 changes here. The file is not found under the changed
        // name, and so it stays out of lists.
        const QString name = QFile::decodeName(entry->d_name);
        listed.push_back({collator.sortKey(name), entry->d_name,
                          Entry{prefix + name, isDirectory, isDirectory && isPackageName(name)}});
    }
    std::sort(listed.begin(), listed.end(), comesBefore);
    std::vector<Entry> entries;
    entries.reserve(listed.size());
    for (ListedEntry &entry : listed)
        entries.push_back(std::move(entry.entry));
    return entries;
}

bool isReadable(const QString &path)
{
    if (const auto &probe = readabilityProbe())
        return probe(path);
    const QByteArray native = nativePath(path);
    return !native.isEmpty() && access(native.constData(), R_OK) == 0;
}

void setReadabilityProbe(std::function<bool(const QString &path)> probe)
{
    readabilityProbe() = std::move(probe);
}

bool makeHardLink(const QString &path, const QString &secondName)
{
    const QByteArray native = nativePath(path);
    const QByteArray nativeSecond = nativePath(secondName);
    return !native.isEmpty() && !nativeSecond.isEmpty() &&
           link(native.constData(), nativeSecond.constData()) == 0;
}

QString resolvingSymbolicLinks(const QString &path)
{
    const QByteArray native = nativePath(path);
    for (qsizetype end = native.size(); end > 0; end = native.lastIndexOf('/', end - 1)) {
        const std::unique_ptr<char, decltype(&std::free)> existing(
            realpath(native.left(end).constData(), nullptr), std::free);
        if (!existing)
            continue;
        QByteArray rest = native.mid(end);
        while (rest.endsWith('/'))
            rest.chop(1);
        const QByteArray base = existing.get();
        return QFile::decodeName(base == "/" && !rest.isEmpty() ? rest : base + rest);
    }
    return path;
}

QStringList applicationSupportDirectories()
{
    const QString dataHome = QFile::decodeName(qgetenv("XDG_DATA_HOME"));
    if (dataHome.startsWith(u'/'))
        return {QDir::cleanPath(dataHome)};
    const QString home = QFile::decodeName(qgetenv("HOME"));
    if (home.startsWith(u'/'))
        return {QDir::cleanPath(home) + u"/.local/share"_s};
    return {};
}

QString sharedResourceDirectory()
{
    return installationDirectory() + u"/share/lyrabox"_s;
}

QString moduleDirectory()
{
    return installationDirectory() + u"/lib/lyrabox"_s;
}

} // namespace lyrabox::files
