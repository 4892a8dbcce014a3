#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>

namespace lyrabox::decoding {

/// See SongReader::payloadHash(). Any thread.
///
/// The hash covers the codec, what a decoder must know besides the packets, and the bytes of the
/// packets in order. Where one packet ends and the next begins does not count: containers cut plain
/// samples as they like. Bytes that a container adds to its packets are left out (see
/// PayloadHash.cpp).
std::optional<QByteArray> payloadHash(const QString &path, const std::stop_token &stop);

/// The part of AAC's configuration that every container states in the same way.
struct AacCore {
    unsigned objectType = 0;
    unsigned rateIndex = 0;
    unsigned channels = 0;
    bool operator==(const AacCore &) const = default;
};

/// Reads the AudioSpecificConfig that MP4 and Matroska store (ISO 14496-3, 1.6.2.1). If it
/// announces spectral band replication, the result describes the codec below that. None if it is
/// too short.
std::optional<AacCore> aacCoreOfConfig(std::span<const std::uint8_t> config);

/// Size in bytes of the ADTS header that a packet begins with; 0 if there is none. Sets `core`.
std::size_t adtsHeaderBytes(std::span<const std::uint8_t> packet, AacCore &core);

} // namespace lyrabox::decoding
