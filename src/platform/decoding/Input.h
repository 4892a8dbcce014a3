#pragma once

#include "platform/decoding/FFmpeg.h"
#include "platform/decoding/Inspector.h"
#include "platform/foundation/Status.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

namespace lyrabox::decoding {

/// One regular local file as FFmpeg's input. The amount of reading is limited, so that no file can
/// keep a demuxer busy forever; see progress(). One thread at a time.
class Input {
public:
    Input() = default;
    ~Input();
    Input(const Input &) = delete;
    Input &operator=(const Input &) = delete;

    /// Opens the file. Returns fileNotFound, noPermission, unsupportedFileType (a folder, pipe or
    /// device), notEnoughMemory or unspecified on failure.
    Status open(const QString &path);

    /// Copies bytes of the file, starting at `offset`, which counts from the end of the hidden
    /// start. Returns the number of bytes copied. Does not move FFmpeg's position.
    std::size_t peek(std::int64_t offset, std::span<std::uint8_t> bytes) const;

    /// Number of bytes that FFmpeg sees.
    std::int64_t size() const { return m_size - m_start; }

    /// Hides the first `bytes` bytes of the file from FFmpeg. Call it before the first read.
    void hideStart(std::int64_t bytes) { m_start = bytes; }

    /// Makes FFmpeg see zeros instead of these bytes. Call it before the first read.
    void blank(std::int64_t offset, std::int64_t length) { m_blanks.push_back({offset, length}); }

    /// Sets the inspector that checks everything FFmpeg is about to see. Call it before the first
    /// read.
    void setInspector(std::unique_ptr<Inspector> inspector) { m_inspector = std::move(inspector); }

    /// Reports that the data read so far contained sound. Without this call the file seems to end
    /// after the read limit.
    void progress() { m_sinceProgress = 0; }

    /// Sets a function that is called after each block read by the thread that sets it.
    void setWaitHook(std::function<void()> hook);

    /// Lets the file end at once when a stop is requested. Call it before open().
    void setStop(std::stop_token stop) { m_stop = std::move(stop); }

    /// Ends the time limit on opening. From now on only bytes read without progress() are limited.
    void endOpening() { m_isOpening = false; }

    /// Sets how many bytes may be read without progress().
    void setReadLimit(std::int64_t bytes) { m_readLimit = bytes; }

    /// noError, or why a read failed.
    Status error() const { return m_error; }

    AVIOContext *context() const { return m_context.get(); }

    /// Processor time in nanoseconds that opening may take. In some demuxers the time is quadratic
    /// in the number of tags, and a file has room for millions of them.
    static constexpr std::int64_t openingLimit = 500'000'000;

    /// How many bytes of junk between two frames of sound are skipped. It also limits how much is
    /// read while opening.
    static constexpr std::int64_t readLimit = std::int64_t{40} << 20;

    /// The same limit for demuxers that keep three copies of the junk in memory until the next
    /// frame.
    static constexpr std::int64_t keptReadLimit = std::int64_t{16} << 20;

private:
    bool isExhausted() const;
    void blankOut(std::span<std::uint8_t> bytes) const;
    std::int64_t filter(std::span<std::uint8_t> bytes) const;
    static int readPacket(void *self, std::uint8_t *buffer, int size);
    static std::int64_t seek(void *self, std::int64_t offset, int whence);

    int m_descriptor = -1;
    std::int64_t m_size = 0;
    std::int64_t m_start = 0;
    std::int64_t m_position = 0;
    std::int64_t m_sinceProgress = 0;
    std::int64_t m_openingStart = 0;
    std::vector<std::pair<std::int64_t, std::int64_t>> m_blanks; ///< Offset and length.
    std::unique_ptr<Inspector> m_inspector;
    bool m_isOpening = true;
    std::int64_t m_readLimit = readLimit;
    std::function<void()> m_waitHook;
    std::thread::id m_waiting; ///< The thread whose reads call the hook.
    std::stop_token m_stop;
    Status m_error = status::noError;
    AvPointer<AVIOContext> m_context;
};

} // namespace lyrabox::decoding
