#pragma once

#include "platform/audio/SongReader.h"

#include <QString>

#include <stop_token>

/// Which song is it? A song is known by the hash of its encoded sound (SongReader::payloadHash()),
/// which every copy of it shares. Runs on a background thread.
namespace lyrabox {

/// The result of identifySong().
struct SongIdentity {
    QString audio; ///< the hash; empty if the file could not be read or the work was stopped
    QString file;  ///< the name of the practice file with this hash; empty if there is none
};

/// Hashes the song at `path` and looks for its practice file in `folder`. A stop request ends it
/// within a few milliseconds; on a network's disk within 50 ms, even if that does not answer.
SongIdentity identifySong(const SongReaderFactory &makeReader, const QString &path,
                          const QString &folder, const std::stop_token &stop);

/// The name of the practice file of the song with this hash; empty if there is none. Names that end
/// with the first digits of another hash are not opened.
QString practiceFileOf(const QString &audio, const QString &folder, const std::stop_token &stop);

} // namespace lyrabox
