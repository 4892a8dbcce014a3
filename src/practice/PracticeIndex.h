#pragma once

#include "platform/foundation/FileStamp.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace lyrabox {

/// The name of the index in the folder of the practice files.
inline const QString practiceIndexName = QStringLiteral("Index.json");

/// Which practice file belongs to which song file, and which songs are no copies of each other. The
/// first is known by the file's device, inode, size and time of
/// change. It only saves time: whatever it lacks is found by the hash of the sound. One thread at a
/// time.
class PracticeIndex {
public:
    /// Reads any bytes. What is no valid entry is left out.
    static PracticeIndex fromText(const QByteArray &text);

    /// Reads the index in a folder; empty if there is none.
    static PracticeIndex inFolder(const QString &folder);

    /// Sorted; one line for each song.
    QByteArray text() const;

    /// The name of the practice file of a song; none if the index does not know this state of it.
    std::optional<QString> fileOf(const files::FileStamp &song) const;

    /// Notes a song's practice file in place of what was known of the same device and inode. False
    /// if nothing changed.
    bool put(const files::FileStamp &song, const QString &file);

    /// Whether the user has said that a song is no copy of another one. Both are any names.
    bool isRefused(const QString &song, const QString &copy) const;
    /// All that the song is no copy of.
    std::set<QString> refusedCopies(const QString &song) const;
    /// Notes that. False if it is known, or if there are too many songs.
    bool refuse(const QString &song, const QString &copy);

private:
    struct Entry {
        files::FileStamp song;
        QString file;
    };
    std::map<std::pair<std::uint64_t, std::uint64_t>, Entry> m_entries; ///< by device and inode
    std::set<std::pair<QString, QString>> m_refused;                    ///< song and copy
};

} // namespace lyrabox
