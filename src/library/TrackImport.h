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

/// The data of an audio file that a list needs. The file is closed again.
struct OpenedAudioFile {
    QMap<QString, QString> information; ///< From SongReader::infoDictionary().
    QString inode;                      ///< Decimal text, or "(null)", see docs/kept-on-purpose.md.
};

/// Opens the file at `path` to read its tags. None if it is not an audio file. Must be callable
/// from several threads at once.
using AudioFileOpener = std::function<std::optional<OpenedAudioFile>(const QString &path)>;

/// The usual opener; it uses the decoder. It opens regular files only, so that a pipe cannot block
/// a list. Any thread.
std::optional<OpenedAudioFile> openAudioFile(const QString &path);

/// Opens `paths` with one thread per processor and returns the results in the same order. If the
/// system cannot start a thread, the calling thread opens them.
///
/// Once `progress` is stopped, no further files are opened, and the result is shorter. A file that
/// is still not open 3 s later is left to its thread. That thread may outlive the call, so `opener`
/// must own everything it uses. Blocks. The progress hook runs on the calling thread.
std::vector<std::optional<OpenedAudioFile>>
openAudioFiles(const QStringList &paths, const AudioFileOpener &opener, ProgressPacer &progress);

/// Sets location, title, artist, album and length from a file's tags. A missing title becomes the
/// file name, other missing texts become empty, a missing length becomes 0 s.
void fillFromFile(TrackRecord &record, const QMap<QString, QString> &information, const QUrl &url);

/// Sets the same fields from a track of the music library. Null means that the library does not
/// contain the track.
void fillFromLibrary(TrackRecord &record, const MusicTrack *track);

} // namespace lyrabox
