#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace lyrabox {

/// One line of the kernel's mount table.
struct Mount {
    quint64 id = 0;          ///< the kernel's number of this mount
    QString path;            ///< the mount point
    QString fileSystem;      ///< "ext4", "fuse.sshfs"
    QString source;          ///< "/dev/sdb1", "server:/music"
    bool isReadOnly = false; ///< this mount or the file system itself

    friend bool operator==(const Mount &, const Mount &) = default;
};

/// The mounts of a table in the form of /proc/self/mountinfo, in its order. Malformed lines are
/// skipped. Of several mounts on one path the result holds only the last, which hides the others.
std::vector<Mount> parseAllMounts(const QByteArray &mountTable);

/// The same without the kernel's own file systems, which hold no files of the user.
std::vector<Mount> parseMounts(const QByteArray &mountTable);

/// What the desktop knows about mounts in addition to the kernel's table.
struct MountNotes {
    QString home;                   ///< the user's home folder
    QHash<QString, QString> labels; ///< labels of file systems by device path
    QHash<QString, QStringList>
        options; ///< by mount path: options for the desktop, such as "x-gvfs-hide"
};

/// The options in a table in the form of /run/mount/utab, by mount path.
QHash<QString, QStringList> parseMountOptions(const QByteArray &optionTable);

/// A mounted volume as the desktop's file manager lists it.
struct Volume {
    QString path;
    QString name;
    bool isReadOnly = false;

    friend bool operator==(const Volume &, const Volume &) = default;
};

/// The mounts that a file manager shows: mounts below /media, /run/media and /mnt, mounts below the
/// home folder that are not inside a hidden folder, and mounts with the option "x-gvfs-show". The
/// root file system and mounts with "x-gvfs-hide" are never shown. A volume's name is its
/// "x-gvfs-name"; without one it is the file system's label, and without a label the last component
/// of the path.
std::vector<Volume> shownVolumes(const std::vector<Mount> &mounts, const MountNotes &notes);

/// The volumes that are mounted now. Asks the kernel and the desktop's tables, but no disk. Any
/// thread.
std::vector<Volume> mountedVolumes();

/// Whether mounts were added or removed between two mount tables.
struct MountChange {
    bool isMounted = false;
    bool isUnmounted = false;
};
MountChange mountChange(const std::vector<Mount> &before, const std::vector<Mount> &after);

} // namespace lyrabox
