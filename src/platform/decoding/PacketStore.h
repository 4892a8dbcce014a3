#pragma once

#include "platform/decoding/FFmpeg.h"

#include <cstddef>

namespace lyrabox::decoding {

/// Holds the bytes of packets on their way from the demuxer's thread to a decoder's thread. The
/// demuxer allocates each packet. If another thread freed it, both would contend for one heap some
/// ten thousand times per song. Only one thread at a time may use the store. Its packets may be
/// used on any thread and may outlive it.
class PacketStore {
public:
    PacketStore();
    ~PacketStore();
    PacketStore(const PacketStore &) = delete;
    PacketStore &operator=(const PacketStore &) = delete;

    /// Moves the packet's bytes into the store. Leaves a packet as it is if it is larger than a
    /// quarter of a block (16 KiB). Throws std::bad_alloc.
    void take(AVPacket &packet);

private:
    AVBufferPool *m_blocks = nullptr;
    AvPointer<AVBufferRef> m_block; ///< The block that is being filled.
    std::size_t m_used = 0;         ///< Bytes used in it.
};

} // namespace lyrabox::decoding
