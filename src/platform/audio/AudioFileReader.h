#pragma once

#include "platform/audio/StreamFormat.h"
#include "platform/foundation/Status.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <memory>
#include <optional>

namespace lyrabox {

/// Reads one audio file and converts it to the client format while reading. Local files only: no
/// protocol but `file`, no playlist, image or network container. One object is used by one thread
/// at a time.
class AudioFileReader {
public:
    AudioFileReader();
    ~AudioFileReader();
    AudioFileReader(const AudioFileReader &) = delete;
    AudioFileReader &operator=(const AudioFileReader &) = delete;

    /// Opens the file at `path` (any bytes that the file system allows) and finds its first audio
    /// stream. fileNotFound, noPermission, unsupportedFileType (not audio), unsupportedDataFormat
    /// (no decoder), invalidFile (malformed) or notEnoughMemory on failure. With `Depth::Tags` only
    /// as much is read as tells that the file is audio and what its tags are; read() is then not
    /// available.
    enum class Depth { Tags, Samples };
    Status open(const QString &path, Depth depth = Depth::Samples);

    /// The file's own format: sample rate, channels and, where it has them, bits of its samples.
    Status fileDataFormat(AudioStreamBasicDescription &format) const;

    /// What read() delivers from here on: 32-bit float, non-interleaved; any sample rate, one or
    /// two channels.
    Status setClientDataFormat(const AudioStreamBasicDescription &format);

    /// Decodes up to `frames` frames into the buffers of `list`, and sets `frames` and each
    /// buffer's byte size to what was delivered; 0 frames is the end. Damaged frames are skipped,
    /// encoder delay and padding are left out. A status other than 0 means that nothing more can be
    /// read.
    Status read(std::uint32_t &frames, AudioBufferList &list);

    /// Frames in the client format as far as the container tells; none when it does not.
    std::optional<std::uint64_t> estimatedFrames() const;

    /// False where the estimate is a guess from the file's size, which whatever else lies in the
    /// file makes too large and a changing bit rate wrong either way.
    bool isEstimateSure() const;

    /// Frames in the client format, counted packet by packet without decoding; counting ends once
    /// they are `most` or more. None where packets do not tell how long they are. Reads the file
    /// anew: about a second for a gigabyte.
    std::optional<std::uint64_t> countedFrames(std::uint64_t most) const;

    /// The embedded artwork as the file stores it; empty when there is none or it is unreasonably
    /// large.
    QByteArray albumArtwork() const;

    /// The information dictionary, each key only when the file has it: "title", "artist", "album",
    /// "approximate duration in seconds" (decimal text).
    QMap<QString, QString> infoDictionary() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace lyrabox
