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

namespace lyrabox {

/// Reads one audio file and converts it to the client format while reading. What the program asks
/// of whatever decodes a song; a test puts a reader that fails on demand in its place. One object
/// is used by one thread at a time.
class SongReader {
public:
    /// How far a file is opened: far enough to know that it is audio and what its tags are, or to
    /// be decoded.
    enum class Depth { Tags, Samples };

    SongReader() = default;
    SongReader(const SongReader &) = delete;
    SongReader &operator=(const SongReader &) = delete;
    virtual ~SongReader() = default;

    /// `hook` is called while open() and read() wait for the file, on the thread that called them,
    /// each time when a piece of it has come: many times a second, so it must be cheap. Before
    /// open(). A reader that never waits never calls it.
    virtual void setWaitHook(std::function<void()> /*hook*/) {}

    /// Opens the file at `path` (any bytes that the file system allows) and finds its first audio
    /// stream. fileNotFound, noPermission, unsupportedFileType (not audio), unsupportedDataFormat
    /// (no decoder), invalidFile (malformed), notEnoughMemory or missingDecoder on failure. With
    /// `Depth::Tags` read() is not available.
    virtual Status open(const QString &path, Depth depth) = 0;

    /// The file's own format: sample rate, channels and, where it has them, bits of its samples.
    virtual Status fileDataFormat(AudioStreamBasicDescription &format) const = 0;

    /// What read() delivers from here on: 32-bit float, non-interleaved; any sample rate, one or
    /// two channels.
    virtual Status setClientDataFormat(const AudioStreamBasicDescription &format) = 0;

    /// Decodes up to `frames` frames into the buffers of `list`, and sets `frames` and each
    /// buffer's byte size to what was delivered; 0 frames is the end. Damaged frames are skipped,
    /// encoder delay and padding are left out. A status other than 0 means that nothing more can be
    /// read.
    virtual Status read(std::uint32_t &frames, AudioBufferList &list) = 0;

    /// Frames in the client format as far as the container tells; none when it does not.
    virtual std::optional<std::uint64_t> estimatedFrames() const = 0;

    /// False where the estimate is a guess from the file's size, which whatever else lies in the
    /// file makes too large and a changing bit rate wrong either way.
    virtual bool isEstimateSure() const { return true; }

    /// Frames in the client format, counted packet by packet without decoding; counting ends once
    /// they are `most` or more. None where packets do not tell how long they are. Reads the file
    /// anew: about a second for a gigabyte.
    virtual std::optional<std::uint64_t> countedFrames(std::uint64_t /*most*/) const
    {
        return std::nullopt;
    }

    /// The embedded artwork as the file stores it; empty when there is none or it is unreasonably
    /// large.
    virtual QByteArray albumArtwork() const = 0;

    /// The information dictionary, each key only when the file has it: "title", "artist", "album",
    /// "approximate duration in seconds" (decimal text).
    virtual QMap<QString, QString> infoDictionary() const { return {}; }
};

using SongReaderFactory = std::function<std::unique_ptr<SongReader>()>;

} // namespace lyrabox
