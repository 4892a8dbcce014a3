#pragma once

// The parts of ParallelDecoder. Only for its own sources.

#include "platform/decoding/ParallelDecoder.h"

#include <utility>

namespace lyrabox::decoding {

/// A run of packets that one decoder decodes in order, and the resulting frames.
struct ParallelDecoder::Segment {
    std::vector<AvPointer<AVPacket>> packets; ///< On the way to a decoder.
    std::size_t dropped = 0;                  ///< Number of leading packets whose output is
                                              ///< dropped.
    bool last = false;
    std::size_t decoded = 0; ///< Number of packets. Only its decoder's thread uses it.

    // Guarded by the mutex.
    bool taken = false;
    bool finished = false;
    std::deque<AvPointer<AVFrame>> frames; ///< On the way to the reader.
    std::size_t bytes = 0;                 ///< Total size of these frames.
    int failures = 0;
    bool outOfMemory = false;
};

/// The decoder of one thread.
class ParallelDecoder::Worker {
public:
    static constexpr std::size_t batchFrames = 16; ///< Number of frames decoded at once.

    /// If `context` is null, a decoder is opened when it is needed.
    Worker(ParallelDecoder &owner, AvPointer<AVCodecContext> context);

    /// Decodes some frames of the segment from where the last call stopped. Returns false at its
    /// end.
    bool decode(Segment &segment);

    Batch &batch() { return m_batch; }

    /// Both return the failures since the last call, and reset them.
    int takeFailures() { return std::exchange(m_failures, 0); }
    bool takeOutOfMemory() { return std::exchange(m_outOfMemory, false); }

private:
    enum class Output { Kept, Dropped };

    bool prepare();
    bool decodePackets(Segment &segment);
    int receiveFrames(Output output);
    AvPointer<AVFrame> emptyFrame();
    void countFailure(int error);

    ParallelDecoder &m_owner;
    AvPointer<AVCodecContext> m_context;
    AvPointer<AVFrame> m_frame;
    Batch m_batch;
    int m_failures = 0;
    bool m_outOfMemory = false;
};

} // namespace lyrabox::decoding
