#pragma once

#include "platform/decoding/FFmpeg.h"
#include "platform/decoding/Inspector.h"
#include "platform/foundation/Status.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <thread>
#include <utility>
#include <vector>

namespace lyrabox::decoding {

/// The bytes of one regular local file, as FFmpeg asks for them. What can be read is limited, so
/// that no file keeps a demuxer busy for ever: see progress().
class Input {
public:
    Input() = default;
    ~Input();
    Input(const Input &) = delete;
    Input &operator=(const Input &) = delete;

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

    /// FFmpeg sees zeros in place of these bytes. Before the first read.
    void blank(std::int64_t offset, std::int64_t length) { m_blanks.push_back({offset, length}); }

    /// Looks at everything that FFmpeg is to see. Before the first read.
    void setInspector(std::unique_ptr<Inspector> inspector) { m_inspector = std::move(inspector); }

    /// Tells that sound came out of what was read. Without it, the file ends after readLimit bytes.
    void progress() { m_sinceProgress = 0; }

    /// Called by this thread's reads once a piece of the file has come.
    void setWaitHook(std::function<void()> hook);

    /// From now on only the bytes read without progress() are limited, no longer the time.
    void endOpening() { m_isOpening = false; }

    /// Bytes that may be read without progress().
    void setReadLimit(std::int64_t bytes) { m_readLimit = bytes; }

    /// 0, or what made a read fail.
    Status error() const { return m_error; }

    AVIOContext *context() const { return m_context.get(); }

    /// Processor time in nanoseconds that opening may take: some demuxers take a time that grows
    /// with the square of the number of tags, and a file has room for millions.
    static constexpr std::int64_t openingLimit = 500'000'000;

    /// Junk between two frames of sound that is still read over; also what opening may read.
    static constexpr std::int64_t readLimit = std::int64_t{40} << 20;

    /// The same where FFmpeg keeps the junk in memory, three times, until the next frame.
    static constexpr std::int64_t keptReadLimit = std::int64_t{16} << 20;

private:
    bool isExhausted() const;
    void blankOut(std::span<std::uint8_t> bytes) const;
    std::int64_t lookThrough(std::span<std::uint8_t> bytes) const;
    static int readPacket(void *self, std::uint8_t *buffer, int size);
    static std::int64_t seek(void *self, std::int64_t offset, int whence);

    int m_descriptor = -1;
    std::int64_t m_size = 0;
    std::int64_t m_start = 0;
    std::int64_t m_position = 0;
    std::int64_t m_sinceProgress = 0;
    std::int64_t m_openingStart = 0;
    std::vector<std::pair<std::int64_t, std::int64_t>> m_blanks; ///< offset and length
    std::unique_ptr<Inspector> m_inspector;
    bool m_isOpening = true;
    std::int64_t m_readLimit = readLimit;
    std::function<void()> m_waitHook;
    std::thread::id m_waiting; ///< whose reads call it
    Status m_error = status::noError;
    AvPointer<AVIOContext> m_context;
};

} // namespace lyrabox::decoding
