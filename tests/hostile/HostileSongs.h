#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// Songs that are damaged, absurd or something else in disguise.
namespace lyrabox::test {

struct HostileSong {
    QString name; ///< of the file, with the extension that it goes by
    QByteArray bytes;
    qint64 length = 0; ///< of the file, which is empty from the end of the bytes on; 0: theirs
};

using HostileSongs = std::vector<HostileSong>;

/// A short song of every container and codec that can be made here, with tags and, where there is
/// room for it, a picture.
const HostileSongs &soundSongs();

/// The first of them whose name begins so.
const QByteArray &soundBytes(QStringView extension);

/// `song` cut off at every tenth and early in its headers, with bytes flipped, runs wiped out and
/// pieces exchanged, the same on every call.
HostileSongs damaged(const HostileSong &song);

/// Lengths, rates, channels and counts that no file has.
HostileSongs absurdSongs();

/// Tags of gigabytes, tags without end, pictures that explode.
HostileSongs bombs();

/// A way to fill a song with tags or tables.
struct Crowd {
    const char *name;
    QString file;                        ///< of the song
    QByteArray (*make)(qsizetype bytes); ///< the song with about so many bytes more
    bool plays; ///< with a megabyte of them; otherwise it is a matter of the machine's speed
};
const std::vector<Crowd> &crowds();

/// Structures that hold themselves or never end.
HostileSongs endlessSongs();

/// Playlists, network sessions, lists of pictures and songs whose samples or pictures lie
/// elsewhere: at `secret`, a file that must not be read.
HostileSongs disguises(const QString &secret);

} // namespace lyrabox::test
