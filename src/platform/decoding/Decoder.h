#pragma once

#include "platform/decoding/ParallelDecoder.h"

#include <optional>

namespace lyrabox::decoding {

/// Decodes the chosen stream of a container from its start to its end. What is damaged is skipped.
class Decoder {
public:
    /// The container must outlive the decoder. Streams whose decoders can start anywhere are
    /// decoded by up to `threads` threads ahead of the caller; the result is the same.
    /// unsupportedDataFormat, invalidFile or notEnoughMemory on failure.
    Status open(Container &container, unsigned threads);

    /// The next frame with sound in it, without encoder delay and padding, valid until the next
    /// call; null at the end, or where nothing decodable comes any more.
    const AVFrame *next();

    /// After the end: 0, or why there was no more (a read error, no memory, or nothing but damage).
    Status status() const { return m_status; }

    /// Packets so far that could not be decoded.
    int damagedPackets() const;

private:
    bool receive();
    bool receiveAhead();
    bool receiveNow();
    void feed();
    void findLength();
    void trimLast();

    Container *m_container = nullptr;
    Packets m_packets;
    AvPointer<AVCodecContext> m_context;
    std::optional<ParallelDecoder> m_stretches; ///< instead of the context
    AvPointer<AVPacket> m_packet;
    AvPointer<AVFrame> m_frame; ///< what next() returned last
    AvPointer<AVFrame>
        m_waiting; ///< the one after it: whether a frame is the last one is known a frame later
    bool m_hasWaiting = false;
    bool m_draining = false;
    bool m_ended = false;
    bool m_delivered = false;
    int m_failures = 0; ///< since the last frame
    int m_damaged = 0;
    std::int64_t m_remaining = INT64_MAX; ///< frames still to come, where the tags tell
    Status m_status = status::noError;
};

} // namespace lyrabox::decoding
