#include "platform/decoding/PacketStore.h"

#include <cstring>
#include <new>

namespace lyrabox::decoding {

namespace {

constexpr std::size_t blockBytes = std::size_t{64} << 10;
constexpr std::size_t maxPacketBytes = blockBytes / 4;
constexpr std::size_t step = 64; ///< Packets start at multiples of this, a cache line.

} // namespace

PacketStore::PacketStore() : m_blocks(av_buffer_pool_init(blockBytes, nullptr))
{
    if (!m_blocks)
        throw std::bad_alloc();
}

PacketStore::~PacketStore()
{
    m_block.reset();
    av_buffer_pool_uninit(&m_blocks); // Remaining packets keep their blocks alive.
}

void PacketStore::take(AVPacket &packet)
{
    const auto size = static_cast<std::size_t>(packet.size);
    const std::size_t needed = (size + AV_INPUT_BUFFER_PADDING_SIZE + step - 1) / step * step;
    if (needed > maxPacketBytes)
        return;
    if (!m_block || m_used + needed > blockBytes) {
        m_block.reset(av_buffer_pool_get(m_blocks));
        m_used = 0;
        if (!m_block)
            throw std::bad_alloc();
    }
    AVBufferRef *block = av_buffer_ref(m_block.get());
    if (!block)
        throw std::bad_alloc();
    std::uint8_t *to = m_block->data + m_used;
    if (size > 0)
        std::memcpy(to, packet.data, size);
    std::memset(to + size, 0, needed - size);
    m_used += needed;
    av_buffer_unref(&packet.buf);
    packet.buf = block;
    packet.data = to;
}

} // namespace lyrabox::decoding
