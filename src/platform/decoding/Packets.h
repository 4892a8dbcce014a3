#pragma once

#include "platform/decoding/Container.h"

namespace lyrabox::decoding {

/// Reads the packets of a container's chosen stream in file order. One thread at a time.
class Packets {
public:
    Packets() = default;

    /// The container must outlive the packets.
    explicit Packets(Container &container) : m_container(&container) {}

    /// Reads the next packet. Returns false at the end, or if the demuxer cannot recover from
    /// damage.
    bool next(AVPacket &packet);

    /// Number of failed reads that were skipped.
    int failures() const { return m_failures; }

private:
    Container *m_container = nullptr;
    int m_failures = 0;
};

/// Opens a decoder. On failure returns null and sets `result` to unsupportedDataFormat, invalidFile
/// or notEnoughMemory. Any thread.
AvPointer<AVCodecContext> openCodec(const AVCodec *codec, const AVCodecParameters &parameters,
                                    AVRational timeBase, Status &result);

/// Adds up the durations of all packets of a container that was just opened, in frames of `rate`
/// hertz. Stops at `limit`. See SongReader::countedFrames().
std::optional<std::uint64_t> countFrames(Container &container, double rate, std::uint64_t limit);

} // namespace lyrabox::decoding
