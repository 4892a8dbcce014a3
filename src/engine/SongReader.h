#pragma once

#include "platform/audio/StreamFormat.h"
#include "platform/foundation/Status.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace lyrabox::engine {

/// What the engine asks of whatever decodes a song; see AudioFileReader for the meaning of each
/// call. The program decodes with AudioFileReader; a test puts a reader that fails on demand in its
/// place.
class SongReader {
public:
    SongReader() = default;
    SongReader(const SongReader &) = delete;
    SongReader &operator=(const SongReader &) = delete;
    virtual ~SongReader() = default;

    virtual Status open(const QString &path) = 0;
    virtual Status fileDataFormat(AudioStreamBasicDescription &format) const = 0;
    virtual Status setClientDataFormat(const AudioStreamBasicDescription &format) = 0;
    virtual Status read(std::uint32_t &frames, AudioBufferList &list) = 0;
    virtual std::optional<std::uint64_t> estimatedFrames() const = 0;
    virtual bool isEstimateSure() const { return true; }
    virtual std::optional<std::uint64_t> countedFrames(std::uint64_t /*most*/) const
    {
        return std::nullopt;
    }
    virtual QByteArray albumArtwork() const = 0;
};

using SongReaderFactory = std::function<std::unique_ptr<SongReader>()>;

/// A reader of audio files.
std::unique_ptr<SongReader> audioFileSongReader();

} // namespace lyrabox::engine
