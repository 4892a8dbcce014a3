#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// Songs that are damaged, absurd, or other files in disguise.
namespace lyrabox::test {

struct HostileSong {
    QString name; ///< File name. Its extension is the claimed format.
    QByteArray bytes;
    qint64 length = 0; ///< File size; zeros follow the bytes. 0: the number of bytes.
};

using HostileSongs = std::vector<HostileSong>;

/// A short song of every container and codec that can be encoded here, with tags and, if the
/// container supports it, a picture.
const HostileSongs &soundSongs();

/// The first of them whose name begins with `extension`.
const QByteArray &soundBytes(QStringView extension);

/// Variants of `song`: cut off at every tenth of its length and early in its headers, with flipped
/// bytes, erased runs and exchanged pieces. Every call returns the same variants.
HostileSongs damaged(const HostileSong &song);

/// Songs with impossible lengths, rates, channels and counts.
HostileSongs absurdSongs();

/// Songs with tags of gigabytes, endless tags, and pictures that decode to a huge size.
HostileSongs bombs();

/// A way to fill a song with tags or tables.
struct OversizedSong {
    const char *name;
    QString file;                        ///< Name of the song's file.
    QByteArray (*make)(qsizetype bytes); ///< Makes the song, with about `bytes` bytes added.
    bool plays; ///< Whether it plays with a megabyte of them. Otherwise that depends on the
                ///< machine's speed.
};
const std::vector<OversizedSong> &oversizedSongs();

/// Songs with structures that contain themselves or never end.
HostileSongs endlessSongs();

/// Playlists, network sessions, image lists, and songs whose samples or pictures are in another
/// file: `secret`, which must not be read.
HostileSongs disguises(const QString &secret);

} // namespace lyrabox::test
