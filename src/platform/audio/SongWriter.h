#pragma once

#include "platform/foundation/Status.h"

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>

namespace lyrabox {

namespace status {

constexpr Status missingEncoder = fourCharCode("enc?"); ///< nothing here writes the format
constexpr Status folderNotFound = fourCharCode("dir?"); ///< the folder of the new file is gone
constexpr Status notWritable = fourCharCode("wrt?");    ///< the file or its folder is read-only
constexpr Status nameTooLong = fourCharCode("nam?");    ///< the disk takes no name of this length
constexpr Status diskFull = fourCharCode("full");       ///< no space left on the disk
constexpr Status fileTooLarge = fourCharCode("big?");   ///< the disk takes no file of this size

} // namespace status

/// What a song can be written as.
enum class SongFormat : std::uint8_t {
    Flac,     ///< 24 bits, lossless
    Wav16,    ///< 16 bits, dithered
    Wav24,    ///< 24 bits
    WavFloat, ///< 32-bit float: the samples bit for bit
    Opus,     ///< 160 kbit/s at 48,000 Hz
    Mp3,      ///< variable bit rate of the best quality, about 245 kbit/s
    M4a,      ///< AAC at 256 kbit/s
};
constexpr std::array allSongFormats = {SongFormat::Flac,     SongFormat::Wav16, SongFormat::Wav24,
                                       SongFormat::WavFloat, SongFormat::Opus,  SongFormat::Mp3,
                                       SongFormat::M4a};

/// The suffix of a file's name, without the dot.
constexpr const char *suffixOf(SongFormat format)
{
    constexpr std::array<const char *, allSongFormats.size()> suffixes = {
        "flac", "wav", "wav", "wav", "opus", "mp3", "m4a"};
    return suffixes[static_cast<std::size_t>(format)];
}

/// What a new file says of itself.
struct SongDetails {
    QString title = {}; ///< empty: no such tag; the same for the others
    QString artist = {};
    QString album = {};
    /// About how many frames will be written. A WAV file of more than 4 GB needs another header.
    std::uint64_t frames = 0;
};

/// Writes one audio file: open(), write() as often as needed, finish(). Tests implement it with
/// writers that fail on demand. One thread at a time.
///
/// The file gets its name in finish(), complete. Until then there is no file at the path, or the
/// old one stays as it was, even if the process is killed. Without finish() nothing is left.
///
/// All functions return missingEncoder, folderNotFound, notWritable, nameTooLong, diskFull,
/// fileTooLarge, notEnoughMemory or unspecified on failure. After a failure only the destructor may
/// be called.
class SongWriter {
public:
    SongWriter() = default;
    SongWriter(const SongWriter &) = delete;
    SongWriter &operator=(const SongWriter &) = delete;
    virtual ~SongWriter() = default;

    /// Begins the file that will be at `path`, which is complete with its suffix. A file that is
    /// there already is replaced in the end; a link there stays a link.
    virtual Status open(const QString &path, SongFormat format, const SongDetails &details) = 0;

    /// Writes the next `frames` frames of both channels at 44,100 Hz. Full scale is 1.0. Integer
    /// formats clip what exceeds it.
    virtual Status write(const float *left, const float *right, std::uint32_t frames) = 0;

    /// Writes what the encoder still holds, flushes the file to the disk and gives it its name.
    virtual Status finish() = 0;
};

} // namespace lyrabox
