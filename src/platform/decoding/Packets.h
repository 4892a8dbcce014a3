#pragma once

#include "platform/decoding/Container.h"

namespace lyrabox::decoding {

/// The packets of a container's chosen stream, in the order of the file.
class Packets {
public:
    Packets() = default;

    /// The container must outlive the packets.
    explicit Packets(Container &container) : m_container(&container) {}

    /// Fills `packet`; false at the end, or where the demuxer does not find its way any more.
    bool next(AVPacket &packet);

    /// Reads that failed and were passed over.
    int failures() const { return m_failures; }

private:
    Container *m_container = nullptr;
    int m_failures = 0;
};

/// A decoder that is ready for packets. Null, with `result` set to unsupportedDataFormat,
/// invalidFile or notEnoughMemory, on failure. Any thread.
AvPointer<AVCodecContext> openCodec(const AVCodec *codec, const AVCodecParameters &parameters,
                                    AVRational timeBase, Status &result);

/// How long the packets of a container that was just opened are together, in frames of `rate`; see
/// AudioFileReader::countedFrames().
std::optional<std::uint64_t> countFrames(Container &container, double rate, std::uint64_t most);

} // namespace lyrabox::decoding
