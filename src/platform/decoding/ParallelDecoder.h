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

/// How many packets a decoder must be fed before its output no longer depends on where it started;
/// none for a stream whose output always may, or of which that is not known.
std::optional<int> runUpPackets(AVCodecID codec);

/// Decodes a stream ahead of its reader to the same bits as a decoder that is asked frame by frame.
/// Where a decoder may start anywhere, several stretches are decoded at once, each by a thread's
/// own decoder that is first fed the packets before the stretch, and the reader's thread is one of
/// them: with a thread more than there are processors, two decoders would share one while the
/// reader kept another from being idle for long enough to take its share. Elsewhere a single
/// decoder works beside the reader. What is decoded or demuxed ahead takes about five megabytes,
/// however many threads there are.
class ParallelDecoder {
public:
    /// The container must outlive this object. `context` has decoded nothing yet; `threads` is at
    /// least 1. What is read and decoded ahead takes about `memory` bytes, however many threads
    /// there are. Throws std::bad_alloc.
    ParallelDecoder(Container &container, AvPointer<AVCodecContext> context, unsigned threads,
                    std::size_t memory = std::size_t{4} << 20);
    ~ParallelDecoder();
    ParallelDecoder(const ParallelDecoder &) = delete;
    ParallelDecoder &operator=(const ParallelDecoder &) = delete;

    /// The next frame in the order of the file; null at the end. It goes before this object does.
    /// `spent` is one that is done with, or null; it will be filled again.
    AvPointer<AVFrame> next(AvPointer<AVFrame> spent = nullptr);

    /// Packets and reads so far that failed.
    int failures() const { return m_failures + m_packets.failures(); }

    bool outOfMemory() const { return m_outOfMemory; }

private:
    struct Stretch;
    class Worker;
    using Frames = std::vector<AvPointer<AVFrame>>;
    struct Batch {
        Frames full;
        Frames empty; ///< to be filled next
    };

    // The reader's thread.
    void divide(Container &container, double memory);
    bool gather(Stretch &stretch);
    void fill();
    void advance();
    void fetch();

    // Any of the threads.
    void run(Worker &worker);
    std::shared_ptr<Stretch> takeStretch();
    void hand(Stretch &stretch, Batch &batch) noexcept;
    static void close(Stretch &stretch, Worker &worker);

    Packets m_packets;
    PacketStore m_store;
    AVRational m_timeBase{};
    const AVCodec *m_codec = nullptr;
    AvPointer<AVCodecParameters> m_parameters;
    std::unique_ptr<FramePool> m_pool; ///< goes after all frames
    bool m_canStartAnywhere = false;
    std::size_t m_decoders = 1;
    std::size_t m_runUp = 0;
    std::int64_t m_stretchSamples = 0;
    std::int64_t m_gatheredStretches = 0;
    std::size_t m_mostWaiting = 0; ///< bytes of frames
    bool m_gathered = false;       ///< the last packet was read
    bool m_outOfMemory = false;
    int m_failures = 0;
    std::vector<AvPointer<AVPacket>> m_before; ///< the run-up of the next stretch
    AvPointer<AVPacket> m_change; ///< the last one that changed the decoder's parameters
    Frames m_ready;
    Frames m_spent;
    std::unique_ptr<Worker> m_reader; ///< what the reader's thread decodes with, if it does
    std::shared_ptr<Stretch> m_own;   ///< the one that it is decoding
    std::size_t m_nextReady = 0;

    std::mutex m_mutex; ///< guards what follows, but for the workers and threads
    std::condition_variable m_work;
    std::condition_variable m_room;
    std::condition_variable m_delivered;
    std::deque<std::shared_ptr<Stretch>> m_stretches; ///< the first one is the reader's
    std::size_t m_waitingBytes = 0;
    int m_waitingForRoom = 0; ///< threads
    Frames m_empty;           ///< on the way back to the decoders
    bool m_closing = false;
    std::vector<std::unique_ptr<Worker>> m_workers;
    std::vector<std::jthread> m_threads; ///< joined before anything that they use goes
};

} // namespace lyrabox::decoding
