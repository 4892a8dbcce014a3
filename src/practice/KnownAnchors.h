#pragma once

#include "platform/analysis/SongAnchors.h"
#include "platform/foundation/FileStamp.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <stop_token>

namespace lyrabox {

/// A practice file that was made for another copy of a song.
struct KnownCopy {
    QString file;            ///< its name
    QString name;            ///< how the index knows it: its hash, or `file` without one
    std::int64_t offset = 0; ///< in frames: what its places must be moved by
};

/// The anchors of all practice files in a folder. A file is read again only if it has changed. One
/// thread at a time.
class KnownAnchors {
public:
    /// Looks for a file whose anchors are in the song, among those that `isWanted` accepts by
    /// their KnownCopy::name. Files without loops, markers and beats do not count. None if there is
    /// none, or if a stop is requested. Asks the disk.
    std::optional<KnownCopy> find(const QString &folder, SongPrint &song,
                                  const std::function<bool(const QString &name)> &isWanted,
                                  const std::stop_token &stop);

private:
    struct Known {
        files::FileStamp stamp;
        QString name;
        SongAnchors anchors; ///< empty if the file is not to be found
    };

    void update(const QString &folder, const std::stop_token &stop);

    std::map<QString, Known> m_known; ///< by the names of files
};

} // namespace lyrabox
