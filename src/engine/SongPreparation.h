#pragma once

#include "engine/DecodedSong.h"
#include "platform/audio/SongReader.h"
#include "platform/audio/StreamFormat.h"
#include "platform/foundation/FileStamp.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace lyrabox::engine {

/// A song that was decoded in advance, and the file that it was decoded from.
struct PreparedSong {
    std::shared_ptr<DecodedSong> song;
    QByteArray artwork;
    AudioStreamBasicDescription format;
    files::FileIdentity file;

    /// The memory that the song takes.
    std::uint64_t bytes() const;
};

/// Longer songs are never decoded in advance.
constexpr double longestPreparedSeconds = 3600.0;

/// All songs that are decoded in advance together take at most this part of the memory that is
/// available or that they hold themselves.
constexpr std::uint64_t preparedShareOfMemory = 4;

/// What songs decoded in advance take, counted on all threads.
struct PreparationCount {
    std::atomic<std::uint64_t> bytes{0}; ///< of songs that are being decoded
    std::atomic<int> threads{0};         ///< that decode one; more than one only if a disk blocks
};

/// The order to decode one song in advance. It owns everything that the decoding uses.
struct SongPreparation {
    QString path;
    AudioStreamBasicDescription format;
    SongReaderFactory makeReader;
    std::function<std::uint64_t()> availableMemory;
    std::uint64_t heldBytes = 0; ///< by songs that are ready already
    std::shared_ptr<PreparationCount> count = std::make_shared<PreparationCount>();
};

/// While disks block that many decodings, no other one begins.
constexpr int mostBlockedPreparations = 2;

/// Like files::fileIdentity(), but none as well if the disk does not answer within two seconds.
std::optional<files::FileIdentity> identityOf(const QString &path);

/// Decodes the song, with the same reader and the same reads as loadAudioFile(). None if it was not
/// decoded completely and without a fault, if it is too long or too large, if its file changed
/// meanwhile, or if a stop was requested through `stop`.
///
/// Blocks. After a stop request it returns within a few milliseconds. If a disk blocks the
/// decoding, it returns within `patience` and leaves the decoding to its thread. Any thread.
std::optional<PreparedSong>
prepareSong(const SongPreparation &order, const std::stop_token &stop,
            std::chrono::milliseconds patience = std::chrono::milliseconds(250));

} // namespace lyrabox::engine
