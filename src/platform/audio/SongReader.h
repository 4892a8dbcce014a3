#pragma once

#include "platform/audio/StreamFormat.h"
#include "platform/foundation/Status.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace lyrabox {

/// Reads one audio file and converts it to the client format while reading. This is the interface
/// of the decoders; tests implement it with readers that fail on demand. One thread at a time may
/// use an object.
class SongReader {
public:
    /// How far a file is opened. Tags: it is recognised as audio, and its tags are read. Samples:
    /// it can also be decoded.
    enum class Depth { Tags, Samples };

    SongReader() = default;
    SongReader(const SongReader &) = delete;
    SongReader &operator=(const SongReader &) = delete;
    virtual ~SongReader() = default;

    /// open() and read() call `hook` while they wait for the file, whenever a piece of it has
    /// arrived. That is many times a second, so the hook must be cheap. It runs on the thread that
    /// called open() or read(). Set it before open(). A reader that never waits never calls it.
    virtual void setWaitHook(std::function<void()> /*hook*/) {}

    /// Once a stop is requested through `stop`, on any thread, open() and read() read no more of
    /// the file and so return soon, with any result. The caller throws the song away. Set it before
    /// open(). A reader that never takes long may ignore it.
    virtual void setStopToken(std::stop_token /*stop*/) {}

    /// Opens the file at `path`, which may hold any bytes that the file system allows, and finds
    /// the first audio stream. Returns fileNotFound, noPermission, unsupportedFileType (not audio),
    /// unsupportedDataFormat (no decoder), invalidFile (malformed), notEnoughMemory or
    /// missingDecoder on failure. After Depth::Tags read() must not be called.
    virtual Status open(const QString &path, Depth depth) = 0;

    /// Writes the file's own format: the sample rate, the channels and, if known, the bits per
    /// sample.
    virtual Status fileDataFormat(AudioStreamBasicDescription &format) const = 0;

    /// Sets the format that read() delivers: 32-bit float, non-interleaved, one or two channels, at
    /// any sample rate.
    virtual Status setClientDataFormat(const AudioStreamBasicDescription &format) = 0;

    /// Decodes up to `frames` frames into the buffers of `list`. Sets `frames` and each buffer's
    /// byte size to the result; 0 frames mean the end. Damaged frames, encoder delay and padding
    /// are skipped. After a status other than 0 nothing more can be read.
    virtual Status read(std::uint32_t &frames, AudioBufferList &list) = 0;

    /// The length in frames of the client format, if the container states it.
    virtual std::optional<std::uint64_t> estimatedFrames() const = 0;

    /// False if the estimate is guessed from the file's size. Other data in the file makes the
    /// guess too large, and a changing bit rate makes it wrong either way.
    virtual bool isEstimateSure() const { return true; }

    /// The length in frames of the client format, counted packet by packet without decoding.
    /// Counting stops at `enough` frames. Nothing if packets do not state their length. Reads the
    /// file again, which takes about a second per gigabyte.
    virtual std::optional<std::uint64_t> countedFrames(std::uint64_t /*enough*/) const
    {
        return std::nullopt;
    }

    /// A hash of the encoded sound of the file at `path`, 40 hexadecimal digits. It stays the same
    /// if the song is moved or copied, if its tags and artwork change, and if another container
    /// takes up its packets unchanged. Nothing if there is no sound, if the file cannot be read to
    /// its end, or after a request to stop, which takes effect within a few milliseconds. Reads the
    /// file from start to end without decoding it, which takes one to two seconds per gigabyte if
    /// the file is in memory. Needs no open(), and leaves an opened file as it is.
    virtual std::optional<QByteArray> payloadHash(const QString & /*path*/,
                                                  const std::stop_token & /*stop*/) const
    {
        return std::nullopt;
    }

    /// The embedded artwork as the file stores it. Empty if there is none, or if it is unreasonably
    /// large.
    virtual QByteArray albumArtwork() const = 0;

    /// The file's tags. Possible keys: "title", "artist", "album" and "approximate duration in
    /// seconds" (decimal text). A key is missing if the file does not have it.
    virtual QMap<QString, QString> infoDictionary() const { return {}; }
};

using SongReaderFactory = std::function<std::unique_ptr<SongReader>()>;

} // namespace lyrabox
