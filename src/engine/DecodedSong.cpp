#include "engine/DecodedSong.h"

#include "platform/foundation/Machine.h"

#include <algorithm>
#include <cstdlib>

namespace lyrabox {

namespace {

constexpr std::uint64_t smallestLarge = 4U << 20; // the allocator gives such blocks their own pages

} // namespace

DecodedSong::DecodedSong(const AudioStreamBasicDescription &format)
    : m_format(format), m_channels(std::min(format.mChannelsPerFrame, maximumChannels))
{
    for (std::uint32_t i = 0; i < m_channels; ++i)
        m_data[i] = static_cast<std::byte *>(std::calloc(1, 1));
}

DecodedSong::~DecodedSong()
{
    for (std::byte *data : m_data)
        std::free(data);
}

std::span<const float> DecodedSong::channel(std::uint32_t index) const
{
    return {reinterpret_cast<const float *>(m_data[index]), static_cast<std::size_t>(m_frames)};
}

bool DecodedSong::resize(std::uint64_t bytes)
{
    for (std::uint32_t i = 0; i < m_channels; ++i) {
        void *resized = std::realloc(m_data[i], bytes);
        if (!resized)
            return false;
        m_data[i] = static_cast<std::byte *>(resized);
        if (bytes >= smallestLarge)
            expectToBeFilled(resized, bytes);
    }
    return true;
}

} // namespace lyrabox
