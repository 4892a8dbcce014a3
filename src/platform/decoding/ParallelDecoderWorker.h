#pragma once

// What ParallelDecoder consists of. Included by its sources only.

#include "platform/decoding/ParallelDecoder.h"

#include <utility>

namespace lyrabox::decoding {

/// Packets that are decoded one after the other, and what comes of them.
struct ParallelDecoder::Stretch {
    std::vector<AvPointer<AVPacket>> packets; ///< on the way to a decoder
    std::size_t dropped = 0;                  ///< of the packets, those whose output is left out
    bool last = false;
    std::size_t decoded = 0; ///< packets; its decoder's

    // Guarded by the mutex.
    bool taken = false;
    bool finished = false;
    std::deque<AvPointer<AVFrame>> frames; ///< on the way to the reader
    std::size_t bytes = 0;                 ///< of these frames
    int failures = 0;
    bool outOfMemory = false;
};

/// One thread's decoder.
class ParallelDecoder::Worker {
public:
    static constexpr std::size_t batchFrames = 16; ///< decoded at once

    /// Without a context it opens one when it is needed.
    Worker(ParallelDecoder &owner, AvPointer<AVCodecContext> context);

    /// Decodes some frames of the stretch, from where it was left; false at its end.
    bool decode(Stretch &stretch);

    Batch &batch() { return m_batch; }

    /// What went wrong since this was last asked.
    int takeFailures() { return std::exchange(m_failures, 0); }
    bool takeOutOfMemory() { return std::exchange(m_outOfMemory, false); }

private:
    bool prepare();
    bool decodePackets(Stretch &stretch);
    int take(bool keep);
    AvPointer<AVFrame> emptyFrame();
    void note(int error);

    ParallelDecoder &m_owner;
    AvPointer<AVCodecContext> m_context;
    AvPointer<AVFrame> m_frame;
    Batch m_batch;
    int m_failures = 0;
    bool m_outOfMemory = false;
};

} // namespace lyrabox::decoding
