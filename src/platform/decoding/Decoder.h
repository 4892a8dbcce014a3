#pragma once

#include "platform/decoding/ParallelDecoder.h"

#include <optional>

namespace lyrabox::decoding {

/// Decodes the chosen stream of a container from start to end. Skips damaged packets. One thread at
/// a time.
class Decoder {
public:
    /// Prepares decoding with up to `threads` threads. Several are used if decoding may start
    /// anywhere in the stream; they work ahead of the caller, and the result is the same. The
    /// container must outlive the decoder. Returns unsupportedDataFormat, invalidFile or
    /// notEnoughMemory on failure.
    Status open(Container &container, unsigned threads);

    /// Returns the next frame with sound in it, without encoder delay and padding. It stays valid
    /// until the next call. Null at the end, or if nothing more can be decoded.
    const AVFrame *next();

    /// After the end: noError, or why decoding stopped early (read error, no memory, or only
    /// damaged packets).
    Status status() const { return m_status; }

    /// Number of packets so far that could not be decoded.
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
    std::optional<ParallelDecoder> m_parallel; ///< Used instead of the context.
    AvPointer<AVPacket> m_packet;
    AvPointer<AVFrame> m_frame;   ///< The frame that next() returned last.
    AvPointer<AVFrame> m_waiting; ///< One frame ahead, to recognise the last one.
    bool m_hasWaiting = false;
    bool m_draining = false;
    bool m_ended = false;
    bool m_delivered = false;
    int m_failures = 0; ///< Since the last frame.
    int m_damaged = 0;
    std::int64_t m_remaining = INT64_MAX; ///< Frames still to come, if the tags state the length.
    Status m_status = status::noError;
};

} // namespace lyrabox::decoding
