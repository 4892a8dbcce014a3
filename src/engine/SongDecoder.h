#pragma once

#include "engine/DecodedSong.h"
#include "platform/audio/SongReader.h"
#include "platform/audio/StreamFormat.h"
#include "platform/foundation/Status.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace lyrabox::engine {

/// The number of frames that are read at a time.
constexpr std::uint32_t framesPerRead = 8192;

/// Where a song's memory comes from, in bytes. The functions are called on the decoding thread.
struct SongMemory {
    /// How much a song that already holds `taken` bytes may still take.
    std::function<std::uint64_t(std::uint64_t taken)> room;
    /// Frees memory that the song may have instead. Returns whether it freed any. May be empty.
    std::function<bool()> makeRoom = {};
};

/// Decodes one file into memory. It knows nothing of the engine, so it works on any thread, one
/// thread at a time. One object for one file: open(), perhaps fits(), decode(), then the results.
class SongDecoder {
public:
    SongDecoder(std::unique_ptr<SongReader> reader, const AudioStreamBasicDescription &format,
                SongMemory memory);
    ~SongDecoder();
    SongDecoder(const SongDecoder &) = delete;
    SongDecoder &operator=(const SongDecoder &) = delete;

    /// See SongReader::setWaitHook(). Set it before open().
    void setWaitHook(std::function<void()> hook);
    /// After a stop request the calls return soon, with any result. Set it before open().
    void setStopToken(const std::stop_token &stop);

    /// Opens the file and sets the format. Returns the statuses of SongReader.
    Status open(const QString &path);

    /// The length in frames, if the container states it.
    std::optional<std::uint64_t> estimatedFrames() const { return m_reader->estimatedFrames(); }
    bool isEstimateSure() const { return m_reader->isEstimateSure(); }

    /// Whether the song takes at most `bytes`. If the container does not state the length, or if
    /// the stated one would not fit, the packets are counted. True if the length remains unknown.
    bool fits(std::uint64_t bytes) const;

    /// Reads until the end of the song or the first failure. Calls `advanced` with the number of
    /// decoded frames after every read. Returns notEnoughMemory if there is no room for the next
    /// read; song() is null then.
    Status decode(const std::function<void(std::uint64_t frames)> &advanced);

    /// The part of the song that was decoded, without unused memory except one byte per channel.
    std::shared_ptr<DecodedSong> song();

    QByteArray artwork() const { return m_reader->albumArtwork(); }

private:
    class GrowingSong;

    std::unique_ptr<SongReader> m_reader;
    AudioStreamBasicDescription m_format;
    SongMemory m_memory;
    std::stop_token m_stop;
    std::unique_ptr<GrowingSong> m_song;
};

/// The bytes of one frame of all channels, at least 1.
std::uint64_t bytesPerFrameOf(const AudioStreamBasicDescription &format);

} // namespace lyrabox::engine
