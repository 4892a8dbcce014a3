#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace lyrabox {

/// One line of the kernel's mount table.
struct Mount {
    quint64 id = 0;          ///< the kernel's number of this mounting
    QString path;            ///< where it is mounted
    QString fileSystem;      ///< "ext4", "fuse.sshfs"
    QString source;          ///< "/dev/sdb1", "server:/music"
    bool isReadOnly = false; ///< this mounting or the file system under it

    friend bool operator==(const Mount &, const Mount &) = default;
};

/// The mounts of a table in the form of /proc/self/mountinfo, in its order, without malformed
/// lines. Of several mounts on one path only the last, which hides the others, counts.
std::vector<Mount> parseAllMounts(const QByteArray &mountTable);

/// Those of them that hold files of a user's: the kernel's own file systems are left out.
std::vector<Mount> parseMounts(const QByteArray &mountTable);

/// What the desktop says of mounts beyond the kernel's table.
struct MountNotes {
    QString home;                   ///< the user's home folder
    QHash<QString, QString> labels; ///< by device path
    QHash<QString, QStringList>
        options; ///< by mount path: those that only the desktop reads ("x-gvfs-hide")
};

/// The options of the table in the form of /run/mount/utab, by mount path.
QHash<QString, QStringList> parseMountOptions(const QByteArray &optionTable);

/// A mounted volume as the desktop's file manager lists it.
struct Volume {
    QString path;
    QString name;
    bool isReadOnly = false;

    friend bool operator==(const Volume &, const Volume &) = default;
};

/// The mounts that a file manager shows: those below /media, /run/media, /mnt and the home folder
/// (there, none inside a hidden folder), and those with the option "x-gvfs-show"; never one with
/// "x-gvfs-hide". The root file system is none of them. A volume's name is its "x-gvfs-name", else
/// its file system's label, else the last component of its path.
std::vector<Volume> shownVolumes(const std::vector<Mount> &mounts, const MountNotes &notes);

/// The volumes that are mounted now.
std::vector<Volume> mountedVolumes();

/// Whether one mount table has a mount that the other has not.
struct MountChange {
    bool isMounted = false;
    bool isUnmounted = false;
};
MountChange mountChange(const std::vector<Mount> &before, const std::vector<Mount> &after);

} // namespace lyrabox
