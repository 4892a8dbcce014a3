#pragma once

#include "platform/audio/AudioFileReaderFFmpeg.h"
#include "platform/foundation/Status.h"

#include <QString>

#include <cstdint>
#include <span>

namespace lyrabox {

/// The bytes of one regular local file, as FFmpeg asks for them. What can be read is limited, so
/// that no file keeps a demuxer busy for ever: see progress().
class AudioFileReaderInput {
public:
    AudioFileReaderInput() = default;
    ~AudioFileReaderInput();
    AudioFileReaderInput(const AudioFileReaderInput &) = delete;
    AudioFileReaderInput &operator=(const AudioFileReaderInput &) = delete;

    /// fileNotFound, noPermission, unsupportedFileType (a folder, a pipe, a device),
    /// notEnoughMemory or unspecified on failure.
    Status open(const QString &path);

    /// Copies bytes that start at `offset` of the file, past the hidden start; returns how many
    /// there were.
    std::size_t peek(std::int64_t offset, std::span<std::uint8_t> bytes) const;

    /// Bytes that FFmpeg sees.
    std::int64_t size() const { return m_size - m_start; }

    /// Hides the first `bytes` of the file from FFmpeg. Before the first read.
    void hideStart(std::int64_t bytes) { m_start = bytes; }

    /// Tells that sound came out of what was read. Without it, the file ends after readLimit bytes.
    void progress() { m_sinceProgress = 0; }

    /// 0, or what made a read fail.
    Status error() const { return m_error; }

    AVIOContext *context() const { return m_context.get(); }

    /// Junk between two frames of sound that is still read over; also what opening may read.
    static constexpr std::int64_t readLimit = std::int64_t{40} << 20;

private:
    static int readPacket(void *self, std::uint8_t *buffer, int size);
    static std::int64_t seek(void *self, std::int64_t offset, int whence);

    int m_descriptor = -1;
    std::int64_t m_size = 0;
    std::int64_t m_start = 0;
    std::int64_t m_position = 0;
    std::int64_t m_sinceProgress = 0;
    Status m_error = status::noError;
    AvPointer<AVIOContext> m_context;
};

} // namespace lyrabox
