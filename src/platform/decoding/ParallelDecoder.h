#pragma once

#include "platform/decoding/FramePool.h"
#include "platform/decoding/PacketStore.h"
#include "platform/decoding/Packets.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace lyrabox::decoding {

/// How many packets a decoder must be fed before its output no longer depends on where it started.
/// None if the output always depends on it, or if this is not known.
std::optional<int> runUpPackets(AVCodecID codec);

/// Decodes a stream ahead of its reader. The result is bit-identical to decoding frame by frame.
///
/// If decoding may start anywhere in the stream, several threads decode one segment of it each.
/// Every thread has its own decoder and first feeds it the packets before the segment (the run-up).
/// The reader's thread is one of them: with one more thread, two decoders would have to share a
/// processor. Otherwise a single decoder works in the background.
class ParallelDecoder {
public:
    /// Starts the threads. The container must outlive this object. `context` must be fresh;
    /// `threads` is at least 1. Data read and decoded ahead takes about `memory` bytes, whatever
    /// the number of threads. Throws std::bad_alloc.
    ParallelDecoder(Container &container, AvPointer<AVCodecContext> context, unsigned threads,
                    std::size_t memory = std::size_t{4} << 20);
    ~ParallelDecoder();
    ParallelDecoder(const ParallelDecoder &) = delete;
    ParallelDecoder &operator=(const ParallelDecoder &) = delete;

    /// Returns the next frame in file order, or null at the end. Frames must be freed before this
    /// object. `spent` is a frame that the caller no longer needs, or null; it is reused. Reader's
    /// thread only.
    AvPointer<AVFrame> next(AvPointer<AVFrame> spent = nullptr);

    /// Number of packets and reads so far that failed.
    int failures() const { return m_failures + m_packets.failures(); }

    bool outOfMemory() const { return m_outOfMemory; }

private:
    struct Segment;
    class Worker;
    using Frames = std::vector<AvPointer<AVFrame>>;
    struct Batch {
        Frames full;
        Frames empty; ///< To be filled next.
    };

    // Called by the reader's thread.
    void divide(Container &container, double memory);
    bool gather(Segment &segment);
    void fill();
    void advance();
    void fetch();

    // Called by any of the threads.
    void run(Worker &worker);
    std::shared_ptr<Segment> takeSegment();
    void deliver(Segment &segment, Batch &batch) noexcept;
    static void close(Segment &segment, Worker &worker);

    Packets m_packets;
    PacketStore m_store;
    AVRational m_timeBase{};
    const AVCodec *m_codec = nullptr;
    AvPointer<AVCodecParameters> m_parameters;
    std::unique_ptr<FramePool> m_pool; ///< Must be destroyed after all frames.
    bool m_canStartAnywhere = false;
    std::size_t m_decoders = 1;
    std::size_t m_runUp = 0;
    std::int64_t m_segmentSamples = 0;
    std::int64_t m_gatheredSegments = 0;
    std::size_t m_maxWaitingBytes = 0; ///< In bytes of frames.
    bool m_hasReadAll = false;         ///< The last packet was read.
    bool m_outOfMemory = false;
    int m_failures = 0;
    std::vector<AvPointer<AVPacket>> m_nextRunUp; ///< The run-up of the next segment.
    AvPointer<AVPacket>
        m_parameterChange; ///< The last packet that changed the decoder's parameters.
    Frames m_ready;
    Frames m_spent;
    std::unique_ptr<Worker>
        m_readerWorker; ///< Decodes on the reader's thread, if that thread decodes.
    std::shared_ptr<Segment> m_readerSegment; ///< The segment that it is decoding.
    std::size_t m_nextReady = 0;

    std::mutex m_mutex; ///< Guards everything below except m_workers and m_threads.
    std::condition_variable m_work;
    std::condition_variable m_room;
    std::condition_variable m_delivered;
    std::deque<std::shared_ptr<Segment>> m_segments; ///< The first one is the reader's.
    std::size_t m_waitingBytes = 0;
    int m_waitingForRoom = 0; ///< Number of threads.
    Frames m_empty;           ///< On the way back to the decoders.
    bool m_closing = false;
    std::vector<std::unique_ptr<Worker>> m_workers;
    std::vector<std::jthread> m_threads; ///< Joined before anything that they use is destroyed.
};

} // namespace lyrabox::decoding
