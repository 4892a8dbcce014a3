#pragma once

#include "engine/TrackRecord.h"
#include "platform/foundation/MusicLibrary.h"
#include "platform/foundation/ProgressPacer.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <optional>
#include <vector>

namespace lyrabox {

/// What a list needs to know of an audio file. The file itself is closed again.
struct OpenedAudioFile {
    QMap<QString, QString> information; ///< as SongReader::infoDictionary() gives it
    QString inode;                      ///< decimal text, or "(null)"
};

/// Opens the file at `path` as far as its tags; none when it is no audio. Called on several threads
/// at once.
using AudioFileOpener = std::function<std::optional<OpenedAudioFile>(const QString &path)>;

/// The opener that asks the decoder. Only regular files are opened, so that a pipe cannot hold up a
/// list.
std::optional<OpenedAudioFile> openAudioFile(const QString &path);

/// Opens `paths` with a thread per processor, or on the calling thread where there is none to be
/// had, and returns the results in the order of `paths`. When `progress` is stopped only the first
/// ones are opened, and the result is as short; a file that is not opened 3 s later is left to its
/// thread, which so may outlive the call. What `opener` holds must allow for that. Blocks; the hook
/// runs on the calling thread.
std::vector<std::optional<OpenedAudioFile>>
openAudioFiles(const QStringList &paths, const AudioFileOpener &opener, ProgressPacer &progress);

/// Location, title, artist, album and length of the file at `url`: each by the file's tag, else the
/// file name, nothing or 0 s.
void fillFromFile(TrackRecord &record, const QMap<QString, QString> &information, const QUrl &url);

/// The same keys of a track of the music library; null stands for one that the library does not
/// have.
void fillFromLibrary(TrackRecord &record, const MusicTrack *track);

} // namespace lyrabox
