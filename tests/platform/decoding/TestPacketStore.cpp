#include "platform/decoding/PacketStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::decoding;

namespace {

AvPointer<AVPacket> packetOf(int size, int value)
{
    AvPointer<AVPacket> packet(av_packet_alloc());
    EXPECT_EQ(av_new_packet(packet.get(), size), 0);
    std::memset(packet->data, value, static_cast<std::size_t>(size));
    packet->pts = 1000 + value;
    return packet;
}

bool holds(const AVPacket &packet, int size, int value)
{
    const std::uint8_t *data = packet.data;
    return packet.size == size && packet.pts == 1000 + value &&
           std::all_of(data, data + size, [&](std::uint8_t byte) { return byte == value; }) &&
           std::all_of(data + size, data + size + AV_INPUT_BUFFER_PADDING_SIZE,
                       [](std::uint8_t byte) { return byte == 0; });
}

TEST(PacketStore, KeepsPacketsOfAllSizesAndPadsThemWithZeros)
{
    std::vector<AvPointer<AVPacket>> packets;
    {
        PacketStore store;
        for (int i = 0; i < 200; ++i) {
            packets.push_back(packetOf(i * 97 % 9001, i));
            store.take(*packets.back());
        }
    }
    for (int i = 0; i < 200; ++i)
        EXPECT_TRUE(holds(*packets[static_cast<std::size_t>(i)], i * 97 % 9001, i)) << i;
}

TEST(PacketStore, PutsManyPacketsIntoOneAllocation)
{
    PacketStore store;
    std::vector<AvPointer<AVPacket>> packets;
    std::set<const AVBuffer *> allocations;
    for (int i = 0; i < 200; ++i) {
        packets.push_back(packetOf(1000, i));
        store.take(*packets.back());
        allocations.insert(packets.back()->buf->buffer);
    }
    EXPECT_LE(allocations.size(), 5U);
}

TEST(PacketStore, ReusesTheMemoryOfFreedPackets)
{
    PacketStore store;
    std::vector<const std::uint8_t *> seen;
    int fresh = 0;
    for (int i = 0; i < 400; ++i) {
        auto packet = packetOf(1000, i % 200);
        store.take(*packet);
        const std::uint8_t *block = packet->buf->data;
        if (std::find(seen.begin(), seen.end(), block) == seen.end()) {
            seen.push_back(block);
            ++fresh;
        }
        EXPECT_TRUE(holds(*packet, 1000, i % 200)) << i;
    }
    EXPECT_LE(fresh, 2);
}

TEST(PacketStore, DoesNotMoveAVeryLargePacket)
{
    PacketStore store;
    const auto packet = packetOf(1 << 20, 7);
    const std::uint8_t *data = packet->data;
    store.take(*packet);
    EXPECT_EQ(packet->data, data);
    EXPECT_TRUE(holds(*packet, 1 << 20, 7));
}

} // namespace
