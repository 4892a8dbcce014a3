#pragma once

#include "platform/audio/AudioFileReaderPackets.h"

#include <cstdint>
#include <deque>
#include <future>
#include <memory>
#include <optional>
#include <vector>

namespace lyrabox {

/// How many packets a decoder must be fed before its output no longer depends on where it started;
/// none for a stream whose output always may, or of which that is not known.
std::optional<int> runUpPackets(AVCodecID codec);

/// Decodes a stream ahead of its reader, a stretch of a few seconds at a time, to the same bits as
/// a decoder that is asked frame by frame. With a run-up, several stretches are decoded at once,
/// each by a decoder of its own that is first fed the packets before the stretch; without one, a
/// single decoder works beside the reader. Stretches that are ready or in work take about six
/// megabytes.
class AudioFileReaderStretches {
public:
    /// The container must outlive this object. `context` has decoded nothing yet; `threads` is at
    /// least 1.
    AudioFileReaderStretches(AudioFileReaderContainer &container, AvPointer<AVCodecContext> context,
                             unsigned threads);
    ~AudioFileReaderStretches();
    AudioFileReaderStretches(const AudioFileReaderStretches &) = delete;
    AudioFileReaderStretches &operator=(const AudioFileReaderStretches &) = delete;

    /// The next frame in the order of the file; null at the end.
    AvPointer<AVFrame> next();

    /// Packets and reads so far that failed.
    int failures() const { return m_failures + m_packets.failures(); }

    bool outOfMemory() const { return m_outOfMemory; }

private:
    struct Work;
    struct Result;

    static Result decode(const Work &work);
    static Result decodeWith(AVCodecContext &context, const Work &work);
    bool gather(Work &work);
    void fill();

    AudioFileReaderPackets m_packets;
    AVRational m_timeBase{};
    AvPointer<AVCodecContext> m_context; ///< where one decoder does it all
    std::shared_ptr<const AVCodecParameters> m_parameters;
    const AVCodec *m_codec = nullptr;
    std::size_t m_runUp = 0;
    std::size_t m_inFlight = 0; ///< stretches in work at once
    std::int64_t m_stretchSamples = 0;
    bool m_gathered = false; ///< the last packet was read
    bool m_outOfMemory = false;
    int m_failures = 0;
    std::deque<AvPointer<AVPacket>> m_before; ///< the run-up of the next stretch
    AvPointer<AVPacket> m_change; ///< the last one that changed the decoder's parameters
    std::vector<AvPointer<AVFrame>> m_ready;
    std::size_t m_nextReady = 0;
    std::deque<std::future<Result>> m_working;
};

} // namespace lyrabox
