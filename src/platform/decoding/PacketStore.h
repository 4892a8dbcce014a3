#pragma once

#include "platform/decoding/FFmpeg.h"

#include <cstddef>

namespace lyrabox::decoding {

/// Where packets lie on their way from the demuxer's thread to a decoder's. The demuxer allocates
/// the bytes of each packet; freed by another thread, they would make both wait for one heap, some
/// ten thousand times a song. One thread at a time; the packets may go on any, and after the store.
class PacketStore {
public:
    PacketStore();
    ~PacketStore();
    PacketStore(const PacketStore &) = delete;
    PacketStore &operator=(const PacketStore &) = delete;

    /// Moves the packet's bytes in here. A packet too large for that stays as it is. Throws
    /// std::bad_alloc.
    void take(AVPacket &packet);

private:
    AVBufferPool *m_blocks = nullptr;
    AvPointer<AVBufferRef> m_block; ///< the one that is being filled
    std::size_t m_used = 0;         ///< bytes of it
};

} // namespace lyrabox::decoding
