#include "platform/foundation/Volumes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int octalDigit(char c)
{
    return c >= '0' && c <= '7' ? c - '0' : -1;
}

/// Decodes a field of the kernel's table, in which spaces and backslashes are written as a
/// backslash and three octal digits.
QString unescapedField(const QByteArray &field)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size()) {
            const int high = octalDigit(field[i + 1]);
            const int middle = octalDigit(field[i + 2]);
            const int low = octalDigit(field[i + 3]);
            if (high >= 0 && high <= 3 && middle >= 0 && low >= 0) {
                bytes += static_cast<char>(high * 64 + middle * 8 + low);
                i += 3;
                continue;
            }
        }
        bytes += field[i];
    }
    return QFile::decodeName(bytes);
}

/// Decodes a file name in /dev/disk/by-label, in which special characters are written as "\x" and
/// two hexadecimal digits.
QString unescapedLabel(const QString &name)
{
    const QByteArray escaped = name.toUtf8();
    QByteArray bytes;
    for (qsizetype i = 0; i < escaped.size(); ++i) {
        bool isCode = false;
        if (escaped.mid(i, 2) == "\\x") {
            const int code = escaped.mid(i + 2, 2).toInt(&isCode, 16);
            if (isCode)
                bytes += static_cast<char>(code);
        }
        if (isCode)
            i += 3;
        else
            bytes += escaped[i];
    }
    return QString::fromUtf8(bytes);
}

bool isKernelFileSystem(const QString &type)
{
    static constexpr std::array types = {
        "autofs"_L1,       "binfmt_misc"_L1, "bpf"_L1,         "cgroup"_L1,
        "cgroup2"_L1,      "configfs"_L1,    "debugfs"_L1,     "devpts"_L1,
        "devtmpfs"_L1,     "efivarfs"_L1,    "fusectl"_L1,     "hugetlbfs"_L1,
        "mqueue"_L1,       "nsfs"_L1,        "overlay"_L1,     "proc"_L1,
        "pstore"_L1,       "ramfs"_L1,       "rpc_pipefs"_L1,  "securityfs"_L1,
        "selinuxfs"_L1,    "squashfs"_L1,    "sysfs"_L1,       "tmpfs"_L1,
        "tracefs"_L1,      "fuse.lxcfs"_L1,  "fuse.portal"_L1, "fuse.gvfsd-fuse"_L1,
        "fuse.snapfuse"_L1};
    return std::find(types.begin(), types.end(), type) != types.end();
}

bool isBelow(const QString &path, const QString &folder)
{
    return !folder.isEmpty() && folder != "/"_L1 && path.startsWith(folder + u'/');
}

bool isShown(const Mount &mount, const MountNotes &notes)
{
    const QStringList options = notes.options.value(mount.path);
    if (options.contains("x-gvfs-hide"_L1) || mount.path == "/"_L1)
        return false;
    if (options.contains("x-gvfs-show"_L1))
        return true;
    if (isBelow(mount.path, u"/media"_s) || isBelow(mount.path, u"/run/media"_s) ||
        isBelow(mount.path, u"/mnt"_s))
        return true;
    return isBelow(mount.path, notes.home) && !mount.path.mid(notes.home.size()).contains("/."_L1);
}

QString volumeName(const Mount &mount, const MountNotes &notes)
{
    constexpr auto nameOption = "x-gvfs-name="_L1;
    for (const QString &option : notes.options.value(mount.path)) {
        if (option.startsWith(nameOption) && option.size() > nameOption.size())
            return QUrl::fromPercentEncoding(option.mid(nameOption.size()).toUtf8());
    }
    const QString label = notes.labels.value(mount.source);
    return label.isEmpty() ? QFileInfo(mount.path).fileName() : label;
}

QHash<QString, QString> deviceLabels()
{
    QHash<QString, QString> labels;
    const QDir folder(u"/dev/disk/by-label"_s);
    for (const QFileInfo &entry : folder.entryInfoList(QDir::Files | QDir::System))
        labels.insert(entry.canonicalFilePath(), unescapedLabel(entry.fileName()));
    return labels;
}

std::optional<Mount> parseLine(const QByteArray &line)
{
    // id parent device root PATH OPTIONS tag... - TYPE SOURCE OPTIONS
    const QList<QByteArray> fields = line.simplified().split(' ');
    const qsizetype separator = fields.indexOf("-", 6);
    bool isNumber = false;
    Mount mount;
    mount.id = fields.value(0).toULongLong(&isNumber);
    if (!isNumber || separator < 0 || separator + 3 >= fields.size())
        return std::nullopt;
    mount.path = unescapedField(fields[4]);
    mount.fileSystem = unescapedField(fields[separator + 1]);
    mount.source = unescapedField(fields[separator + 2]);
    mount.isReadOnly =
        fields[5].split(',').contains("ro") || fields[separator + 3].split(',').contains("ro");
    return mount;
}

} // namespace

std::vector<Mount> parseAllMounts(const QByteArray &mountTable)
{
    std::vector<Mount> mounts;
    for (const QByteArray &line : mountTable.split('\n')) {
        const std::optional<Mount> mount = parseLine(line);
        if (!mount)
            continue;
        std::erase_if(mounts,
                      [&mount](const Mount &earlier) { return earlier.path == mount->path; });
        mounts.push_back(*mount);
    }
    return mounts;
}

std::vector<Mount> parseMounts(const QByteArray &mountTable)
{
    std::vector<Mount> mounts = parseAllMounts(mountTable);
    std::erase_if(mounts, [](const Mount &mount) { return isKernelFileSystem(mount.fileSystem); });
    return mounts;
}

QHash<QString, QStringList> parseMountOptions(const QByteArray &optionTable)
{
    QHash<QString, QStringList> options;
    for (const QByteArray &line : optionTable.split('\n')) {
        QString path;
        QStringList found;
        for (const QByteArray &field : line.simplified().split(' ')) {
            if (field.startsWith("TARGET="))
                path = unescapedField(field.mid(7));
            else if (field.startsWith("OPTS="))
                found = unescapedField(field.mid(5)).split(u',', Qt::SkipEmptyParts);
        }
        if (!path.isEmpty())
            options.insert(path, found);
    }
    return options;
}

std::vector<Volume> shownVolumes(const std::vector<Mount> &mounts, const MountNotes &notes)
{
    std::vector<Volume> volumes;
    for (const Mount &mount : mounts) {
        if (isShown(mount, notes))
            volumes.push_back({mount.path, volumeName(mount, notes), mount.isReadOnly});
    }
    return volumes;
}

std::vector<Volume> mountedVolumes()
{
    const MountNotes notes{QDir::homePath(), deviceLabels(),
                           parseMountOptions(contentOf(u"/run/mount/utab"_s))};
    return shownVolumes(parseMounts(contentOf(u"/proc/self/mountinfo"_s)), notes);
}

MountChange mountChange(const std::vector<Mount> &before, const std::vector<Mount> &after)
{
    const auto hasOther = [](const std::vector<Mount> &some, const std::vector<Mount> &others) {
        return std::any_of(some.begin(), some.end(), [&others](const Mount &mount) {
            return std::find(others.begin(), others.end(), mount) == others.end();
        });
    };
    return {hasOther(after, before), hasOther(before, after)};
}

} // namespace lyrabox
