#pragma once

#include "platform/audio/StreamFormat.h"
#include "platform/foundation/FileStamp.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace lyrabox {

/// A song that is decoded into memory: 32-bit float samples, channel by channel. The engine shares
/// it as a pointer to const. A shared song never changes, so any thread may read it. A reader may
/// keep it while the engine loads another one.
///
/// The members that change the song are for the decoder, before the song is shared.
class DecodedSong {
public:
    /// An empty song. Only the first maximumChannels channels of `format` are used.
    explicit DecodedSong(const AudioStreamBasicDescription &format);
    ~DecodedSong();
    DecodedSong(const DecodedSong &) = delete;
    DecodedSong &operator=(const DecodedSong &) = delete;

    double sampleRate() const { return m_format.mSampleRate; }
    std::uint32_t channels() const { return m_channels; }
    /// Frames of each channel.
    std::uint64_t frames() const { return m_frames; }
    /// The samples of one channel. `index` is less than channels().
    std::span<const float> channel(std::uint32_t index) const;

    /// The memory of one channel.
    std::byte *data(std::uint32_t index) const { return m_data[index]; }
    /// Changes the size of every channel to `bytes`, and keeps the samples that fit. Returns false
    /// if there is not enough memory; some channels may then have the new size.
    bool resize(std::uint64_t bytes);
    void setFrames(std::uint64_t frames) { m_frames = frames; }

    /// The file as it was before it was decoded. None if it is not known.
    const std::optional<files::FileStamp> &file() const { return m_file; }
    void setFile(const std::optional<files::FileStamp> &file) { m_file = file; }

private:
    AudioStreamBasicDescription m_format;
    std::uint32_t m_channels;
    std::uint64_t m_frames = 0;
    std::optional<files::FileStamp> m_file;
    std::array<std::byte *, maximumChannels> m_data{};
};

} // namespace lyrabox
