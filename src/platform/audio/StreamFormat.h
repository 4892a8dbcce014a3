#pragma once

#include <array>
#include <cstdint>

namespace lyrabox {

/// Describes a stream of samples, in 40 bytes. The whole chain uses one format: linear 32-bit
/// float, native endian, non-interleaved. So "per frame" means per frame of one channel.
struct AudioStreamBasicDescription {
    double mSampleRate = 0.0;       ///< frames per second
    std::uint32_t mFormatID = 0;    ///< 'lpcm'
    std::uint32_t mFormatFlags = 0; ///< float, packed, non-interleaved
    std::uint32_t mBytesPerPacket = 0;
    std::uint32_t mFramesPerPacket = 0;
    std::uint32_t mBytesPerFrame = 0; ///< of one channel
    std::uint32_t mChannelsPerFrame = 0;
    std::uint32_t mBitsPerChannel = 0;
    std::uint32_t mReserved = 0;

    friend bool operator==(const AudioStreamBasicDescription &,
                           const AudioStreamBasicDescription &) = default;
};
static_assert(sizeof(AudioStreamBasicDescription) == 40);

/// 44,100 Hz, two channels of 32-bit float, non-interleaved.
constexpr AudioStreamBasicDescription canonicalStreamFormat()
{
    return {.mSampleRate = 44100.0,
            .mFormatID = 0x6c70636d, // 'lpcm'
            .mFormatFlags = 0x29,    // float (1), packed (8), non-interleaved (32)
            .mBytesPerPacket = 4,
            .mFramesPerPacket = 1,
            .mBytesPerFrame = 4,
            .mChannelsPerFrame = 2,
            .mBitsPerChannel = 32,
            .mReserved = 0};
}

constexpr std::uint32_t maximumChannels = 2;

/// The samples of one channel. The memory belongs to the caller that built the buffer list.
struct AudioBuffer {
    std::uint32_t mNumberChannels = 1;
    std::uint32_t mDataByteSize = 0;
    void *mData = nullptr;
};

/// The buffers of one pull, one per channel.
struct AudioBufferList {
    std::uint32_t mNumberBuffers = 0;
    std::array<AudioBuffer, maximumChannels> mBuffers{};
};

} // namespace lyrabox
