#include "platform/decoding/ParallelDecoder.h"

#include "platform/decoding/ParallelDecoderWorker.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <system_error>
#include <utility>

namespace lyrabox::decoding {

namespace {

constexpr double minSegmentSamples = 1 << 16; ///< In samples. For anything shorter the run-up costs
                                              ///< too much.
constexpr double maxSegmentSamples = 1 << 20;
constexpr unsigned maximumThreads = 8; ///< Demuxing and converting cannot keep up with more.
/// The reader is woken for this many bytes. Waking it takes as long as decoding a packet.
constexpr std::size_t readerBytes = std::size_t{512} << 10;

bool changesParameters(const AVPacket &packet)
{
    return av_packet_get_side_data(&packet, AV_PKT_DATA_NEW_EXTRADATA, nullptr) ||
           av_packet_get_side_data(&packet, AV_PKT_DATA_PARAM_CHANGE, nullptr);
}

std::size_t bytesOf(const AVFrame &frame)
{
    std::size_t bytes = 0;
    for (const AVBufferRef *buffer : frame.buf)
        bytes += buffer ? buffer->size : 0;
    return bytes;
}

template <typename T>
AvPointer<T> owned(T *object)
{
    if (!object)
        throw std::bad_alloc();
    return AvPointer<T>(object);
}

} // namespace

std::optional<int> runUpPackets(AVCodecID codec)
{
    switch (codec) {
    case AV_CODEC_ID_FLAC:
    case AV_CODEC_ID_ALAC:
        return 0;
    case AV_CODEC_ID_MP3: // The bit reservoir reaches back nine frames, the filter bank two.
    case AV_CODEC_ID_VORBIS:
        return 12;
    case AV_CODEC_ID_OPUS: // Its predictors fade slowly.
        return 60;
    default:
        // This includes AAC: its noise substitution uses a generator whose state goes back to the
        // first packet.
        return std::nullopt;
    }
}

ParallelDecoder::ParallelDecoder(Container &container, AvPointer<AVCodecContext> context,
                                 unsigned threads, std::size_t memory)
    : m_packets(container),
      m_timeBase(container.stream()->time_base),
      m_codec(container.decoder()),
      m_parameters(avcodec_parameters_alloc()),
      m_pool(std::make_unique<FramePool>())
{
    // A copy, because demuxing may change the stream's parameters while a segment is decoded.
    if (!m_parameters ||
        avcodec_parameters_copy(m_parameters.get(), container.stream()->codecpar) < 0)
        throw std::bad_alloc();
    if (const auto runUp = runUpPackets(m_parameters->codec_id); runUp && threads > 1) {
        m_canStartAnywhere = true;
        m_runUp = static_cast<std::size_t>(*runUp);
        m_decoders = std::min(threads, maximumThreads);
    }
    divide(container, static_cast<double>(memory));
    // The reader's thread decodes as well if decoding may start anywhere.
    const std::size_t workers = std::max<std::size_t>(1, m_decoders - 1);
    m_workers.reserve(workers);
    if (m_canStartAnywhere)
        m_readerWorker = std::make_unique<Worker>(*this, std::move(context));
    while (m_workers.size() < workers)
        m_workers.push_back(std::make_unique<Worker>(*this, std::move(context)));
    try {
        m_threads.reserve(workers);
        for (const auto &worker : m_workers)
            m_threads.emplace_back([this, own = worker.get()] { run(*own); });
    } catch (const std::system_error &) {
        // Use the threads that could be started. If there are none, the reader's thread decodes.
    }
    if (m_threads.empty() && !m_readerWorker)
        m_readerWorker = std::move(m_workers.front());
}

ParallelDecoder::~ParallelDecoder()
{
    {
        const std::lock_guard lock(m_mutex);
        m_closing = true;
    }
    m_work.notify_all();
    m_room.notify_all();
    m_threads.clear(); // This joins them.
}

/// Sets the length of a segment so that everything waiting fits into `memory`: one segment for each
/// decoder ahead of the reader, and the frames being handed over.
void ParallelDecoder::divide(Container &container, double memory)
{
    const double seconds = container.duration().value_or(0.0);
    const double samples = seconds * std::max(1, m_parameters->sample_rate);
    const double packetBytes =
        samples > 0.0 ? static_cast<double>(container.input().size()) / samples : 1.0;
    const auto count = static_cast<double>(m_decoders);
    const double frameBytes =
        4.0 * std::max(1, m_parameters->ch_layout.nb_channels) * std::max(1.0, count - 1.0);
    const double length = std::clamp(memory / (frameBytes + packetBytes * (count + 1.0)),
                                     minSegmentSamples, maxSegmentSamples);
    m_segmentSamples = static_cast<std::int64_t>(length);
    m_maxWaitingBytes = static_cast<std::size_t>(length * frameBytes);
}

AvPointer<AVFrame> ParallelDecoder::next(AvPointer<AVFrame> spent)
{
    // A decoder's thread releases the buffers. Releasing them here would make both threads contend
    // for the pool.
    if (spent)
        m_spent.push_back(std::move(spent));
    while (m_nextReady == m_ready.size()) {
        m_ready.clear();
        m_nextReady = 0;
        fill();
        if (m_segments.empty())
            return nullptr;
        advance();
    }
    return std::move(m_ready[m_nextReady++]);
}

/// Takes the finished frames of the first segment. If there are not enough, decodes some frames,
/// possibly of a later segment. If nothing is left to decode, waits.
void ParallelDecoder::advance()
{
    std::unique_lock lock(m_mutex);
    std::move(m_spent.begin(), m_spent.end(), std::back_inserter(m_empty));
    m_spent.clear();
    const auto front = m_segments.front();
    const auto isReady = [&] { return front->finished || front->bytes >= readerBytes; };
    if (m_readerWorker && !m_readerSegment && !isReady() &&
        (m_waitingBytes < m_maxWaitingBytes || !front->taken))
        m_readerSegment = takeSegment();
    if (!isReady() && m_readerSegment &&
        (m_readerSegment == front || m_waitingBytes < m_maxWaitingBytes)) {
        lock.unlock();
        const auto own = m_readerSegment;
        const bool more = m_readerWorker->decode(*own);
        lock.lock();
        deliver(*own, m_readerWorker->batch());
        if (!more) {
            close(*own, *m_readerWorker);
            m_readerSegment.reset();
        }
        if (own != front)
            return;
    } else {
        m_delivered.wait(lock, isReady);
    }
    fetch();
    const bool isWaitedFor = m_waitingForRoom > 0;
    lock.unlock();
    if (isWaitedFor)
        m_room.notify_all();
}

/// Makes frames of the first segment ready for the reader. The mutex must be held.
void ParallelDecoder::fetch()
{
    Segment &front = *m_segments.front();
    for (std::size_t taken = 0; taken < readerBytes && !front.frames.empty();
         front.frames.pop_front()) {
        const std::size_t bytes = bytesOf(*front.frames.front());
        taken += bytes;
        front.bytes -= bytes;
        m_waitingBytes -= bytes;
        m_ready.push_back(std::move(front.frames.front()));
    }
    if (front.finished && front.frames.empty()) {
        m_failures += front.failures;
        m_outOfMemory = m_outOfMemory || front.outOfMemory;
        m_segments.pop_front();
    }
}

/// Keeps one segment queued for every decoder, and one more for the first that finishes.
void ParallelDecoder::fill()
{
    while (!m_hasReadAll && m_segments.size() <= m_decoders) {
        auto segment = std::make_shared<Segment>();
        if (!gather(*segment))
            return;
        {
            const std::lock_guard lock(m_mutex);
            m_segments.push_back(std::move(segment));
        }
        m_work.notify_one();
    }
}

/// Reads the packets of the next segment and puts its run-up before them.
bool ParallelDecoder::gather(Segment &segment)
{
    if (m_parameterChange)
        segment.packets.push_back(owned(av_packet_clone(m_parameterChange.get())));
    const std::size_t first = segment.packets.size();
    std::move(m_nextRunUp.begin(), m_nextRunUp.end(), std::back_inserter(segment.packets));
    m_nextRunUp.clear();
    segment.dropped = segment.packets.size();

    // The first segments are shorter, so that the decoders finish one after the other.
    const auto decoders = static_cast<std::int64_t>(m_decoders);
    const std::int64_t wanted =
        m_segmentSamples * std::min(++m_gatheredSegments, decoders) / decoders;
    std::int64_t samples = 0;
    while (samples < wanted) {
        auto packet = owned(av_packet_alloc());
        if (!m_packets.next(*packet)) {
            m_hasReadAll = segment.last = true;
            break;
        }
        m_store.take(*packet);
        if (m_canStartAnywhere && changesParameters(*packet))
            m_parameterChange = owned(av_packet_clone(packet.get()));
        const std::int64_t stated =
            av_rescale_q(packet->duration, m_timeBase, {1, m_parameters->sample_rate});
        samples += stated > 0 ? stated : 1024;
        segment.packets.push_back(std::move(packet));
    }
    if (m_canStartAnywhere && !segment.last) {
        const std::size_t runUpPacketCount = std::min(m_runUp, segment.packets.size() - first);
        for (auto packet = segment.packets.end() - static_cast<std::ptrdiff_t>(runUpPacketCount);
             packet != segment.packets.end(); ++packet)
            m_nextRunUp.push_back(owned(av_packet_clone(packet->get())));
    }
    return segment.packets.size() > segment.dropped || segment.last;
}

/// Returns the first segment that no thread has taken, or null. The mutex must be held.
std::shared_ptr<ParallelDecoder::Segment> ParallelDecoder::takeSegment()
{
    const auto found = std::find_if(m_segments.begin(), m_segments.end(),
                                    [](const auto &each) { return !each->taken; });
    if (found == m_segments.end())
        return nullptr;
    (*found)->taken = true;
    return *found;
}

/// The main function of a decoding thread.
void ParallelDecoder::run(Worker &worker)
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        std::shared_ptr<Segment> segment;
        m_work.wait(lock, [&] { return m_closing || (segment = takeSegment()) != nullptr; });
        for (bool more = true; more && !m_closing;) {
            lock.unlock();
            more = worker.decode(*segment);
            lock.lock();
            // The reader's current segment waits only for the reader, never for other segments.
            ++m_waitingForRoom;
            m_room.wait(lock, [&] {
                return m_closing || m_waitingBytes < m_maxWaitingBytes ||
                       (m_segments.front() == segment && segment->bytes < readerBytes);
            });
            --m_waitingForRoom;
            deliver(*segment, worker.batch());
            if (!more)
                close(*segment, worker);
            if (segment->finished || segment->bytes >= readerBytes)
                m_delivered.notify_one();
        }
        if (m_closing)
            return;
    }
}

/// Appends the frames of a batch to the segment and refills the batch with empty frames. The mutex
/// must be held.
void ParallelDecoder::deliver(Segment &segment, Batch &batch) noexcept
{
    try {
        for (auto &frame : batch.full) {
            const std::size_t bytes = bytesOf(*frame);
            segment.frames.push_back(std::move(frame));
            segment.bytes += bytes;
            m_waitingBytes += bytes;
        }
        for (; !m_empty.empty() && batch.empty.size() < Worker::batchFrames; m_empty.pop_back())
            batch.empty.push_back(std::move(m_empty.back()));
    } catch (const std::bad_alloc &) {
        segment.outOfMemory = true;
    }
    batch.full.clear();
}

/// The mutex must be held.
void ParallelDecoder::close(Segment &segment, Worker &worker)
{
    segment.finished = true;
    segment.failures = worker.takeFailures();
    segment.outOfMemory = worker.takeOutOfMemory() || segment.outOfMemory;
}

} // namespace lyrabox::decoding
