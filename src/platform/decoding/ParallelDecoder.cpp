#include "platform/decoding/ParallelDecoder.h"

#include "platform/decoding/ParallelDecoderWorker.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <system_error>
#include <utility>

namespace lyrabox::decoding {

namespace {

constexpr double shortestStretch = 1 << 16; ///< samples; below it the run-up weighs too much
constexpr double longestStretch = 1 << 20;
constexpr unsigned maximumThreads = 8; ///< demuxing and converting keep pace with no more
/// Ready before the reader looks at it; to be woken takes as long as to decode a packet.
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
    case AV_CODEC_ID_MP3: // the bit reservoir goes back nine frames, the filter bank two
    case AV_CODEC_ID_VORBIS:
        return 12;
    case AV_CODEC_ID_OPUS: // its predictors fade slowly
        return 60;
    default:
        // Among them AAC: the noise that it substitutes comes from a generator whose state goes
        // back to the first packet.
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
    // A copy, because demuxing may change the stream's own while a stretch is decoded.
    if (!m_parameters ||
        avcodec_parameters_copy(m_parameters.get(), container.stream()->codecpar) < 0)
        throw std::bad_alloc();
    if (const auto runUp = runUpPackets(m_parameters->codec_id); runUp && threads > 1) {
        m_canStartAnywhere = true;
        m_runUp = static_cast<std::size_t>(*runUp);
        m_decoders = std::min(threads, maximumThreads);
    }
    divide(container, static_cast<double>(memory));
    // The reader's thread is one of them, where a decoder may start anywhere.
    const std::size_t workers = std::max<std::size_t>(1, m_decoders - 1);
    m_workers.reserve(workers);
    if (m_canStartAnywhere)
        m_reader = std::make_unique<Worker>(*this, std::move(context));
    while (m_workers.size() < workers)
        m_workers.push_back(std::make_unique<Worker>(*this, std::move(context)));
    try {
        m_threads.reserve(workers);
        for (const auto &worker : m_workers)
            m_threads.emplace_back([this, own = worker.get()] { run(*own); });
    } catch (const std::system_error &) {
        // As many as are to be had; with none, the reader's own thread decodes.
    }
    if (m_threads.empty() && !m_reader)
        m_reader = std::move(m_workers.front());
}

ParallelDecoder::~ParallelDecoder()
{
    {
        const std::lock_guard lock(m_mutex);
        m_closing = true;
    }
    m_work.notify_all();
    m_room.notify_all();
    m_threads.clear(); // joins
}

/// Sets the length of a stretch so that what waits fits into `memory`: a stretch for each decoder
/// that is ahead of the reader's, and what is handed over.
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
                                     shortestStretch, longestStretch);
    m_stretchSamples = static_cast<std::int64_t>(length);
    m_mostWaiting = static_cast<std::size_t>(length * frameBytes);
}

AvPointer<AVFrame> ParallelDecoder::next(AvPointer<AVFrame> spent)
{
    // A decoder's thread lets go of its buffers; done here, it would make both wait for the pool.
    if (spent)
        m_spent.push_back(std::move(spent));
    while (m_nextReady == m_ready.size()) {
        m_ready.clear();
        m_nextReady = 0;
        fill();
        if (m_stretches.empty())
            return nullptr;
        advance();
    }
    return std::move(m_ready[m_nextReady++]);
}

/// Takes what the first stretch has ready. Where that is not enough, decodes something, be it of a
/// later stretch; where nothing is left to decode, waits.
void ParallelDecoder::advance()
{
    std::unique_lock lock(m_mutex);
    std::move(m_spent.begin(), m_spent.end(), std::back_inserter(m_empty));
    m_spent.clear();
    const auto front = m_stretches.front();
    const auto isReady = [&] { return front->finished || front->bytes >= readerBytes; };
    if (m_reader && !m_own && !isReady() && (m_waitingBytes < m_mostWaiting || !front->taken))
        m_own = takeStretch();
    if (!isReady() && m_own && (m_own == front || m_waitingBytes < m_mostWaiting)) {
        lock.unlock();
        const auto own = m_own;
        const bool more = m_reader->decode(*own);
        lock.lock();
        hand(*own, m_reader->batch());
        if (!more) {
            close(*own, *m_reader);
            m_own.reset();
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

/// Makes frames of the first stretch ready for the reader. With the mutex held.
void ParallelDecoder::fetch()
{
    Stretch &front = *m_stretches.front();
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
        m_stretches.pop_front();
    }
}

/// Sees to it that every decoder has a stretch, and the first that is done finds another.
void ParallelDecoder::fill()
{
    while (!m_gathered && m_stretches.size() <= m_decoders) {
        auto stretch = std::make_shared<Stretch>();
        if (!gather(*stretch))
            return;
        {
            const std::lock_guard lock(m_mutex);
            m_stretches.push_back(std::move(stretch));
        }
        m_work.notify_one();
    }
}

/// Takes the packets of the next stretch, with its run-up before them.
bool ParallelDecoder::gather(Stretch &stretch)
{
    if (m_change)
        stretch.packets.push_back(owned(av_packet_clone(m_change.get())));
    const std::size_t first = stretch.packets.size();
    std::move(m_before.begin(), m_before.end(), std::back_inserter(stretch.packets));
    m_before.clear();
    stretch.dropped = stretch.packets.size();

    // The first ones are shorter, so that the decoders come to their ends one after the other.
    const auto decoders = static_cast<std::int64_t>(m_decoders);
    const std::int64_t wanted =
        m_stretchSamples * std::min(++m_gatheredStretches, decoders) / decoders;
    std::int64_t samples = 0;
    while (samples < wanted) {
        auto packet = owned(av_packet_alloc());
        if (!m_packets.next(*packet)) {
            m_gathered = stretch.last = true;
            break;
        }
        m_store.take(*packet);
        if (m_canStartAnywhere && changesParameters(*packet))
            m_change = owned(av_packet_clone(packet.get()));
        const std::int64_t told =
            av_rescale_q(packet->duration, m_timeBase, {1, m_parameters->sample_rate});
        samples += told > 0 ? told : 1024;
        stretch.packets.push_back(std::move(packet));
    }
    if (m_canStartAnywhere && !stretch.last) {
        const std::size_t most = std::min(m_runUp, stretch.packets.size() - first);
        for (auto packet = stretch.packets.end() - static_cast<std::ptrdiff_t>(most);
             packet != stretch.packets.end(); ++packet)
            m_before.push_back(owned(av_packet_clone(packet->get())));
    }
    return stretch.packets.size() > stretch.dropped || stretch.last;
}

/// The first stretch that nobody decodes, or none. With the mutex held.
std::shared_ptr<ParallelDecoder::Stretch> ParallelDecoder::takeStretch()
{
    const auto found = std::find_if(m_stretches.begin(), m_stretches.end(),
                                    [](const auto &each) { return !each->taken; });
    if (found == m_stretches.end())
        return nullptr;
    (*found)->taken = true;
    return *found;
}

/// On a thread of its own.
void ParallelDecoder::run(Worker &worker)
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        std::shared_ptr<Stretch> stretch;
        m_work.wait(lock, [&] { return m_closing || (stretch = takeStretch()) != nullptr; });
        for (bool more = true; more && !m_closing;) {
            lock.unlock();
            more = worker.decode(*stretch);
            lock.lock();
            // The stretch that the reader is at only waits for the reader, so that it never waits
            // for the others.
            ++m_waitingForRoom;
            m_room.wait(lock, [&] {
                return m_closing || m_waitingBytes < m_mostWaiting ||
                       (m_stretches.front() == stretch && stretch->bytes < readerBytes);
            });
            --m_waitingForRoom;
            hand(*stretch, worker.batch());
            if (!more)
                close(*stretch, worker);
            if (stretch->finished || stretch->bytes >= readerBytes)
                m_delivered.notify_one();
        }
        if (m_closing)
            return;
    }
}

/// Puts the frames of a batch into the stretch and gives it empty ones. With the mutex held.
void ParallelDecoder::hand(Stretch &stretch, Batch &batch) noexcept
{
    try {
        for (auto &frame : batch.full) {
            const std::size_t bytes = bytesOf(*frame);
            stretch.frames.push_back(std::move(frame));
            stretch.bytes += bytes;
            m_waitingBytes += bytes;
        }
        for (; !m_empty.empty() && batch.empty.size() < Worker::batchFrames; m_empty.pop_back())
            batch.empty.push_back(std::move(m_empty.back()));
    } catch (const std::bad_alloc &) {
        stretch.outOfMemory = true;
    }
    batch.full.clear();
}

/// With the mutex held.
void ParallelDecoder::close(Stretch &stretch, Worker &worker)
{
    stretch.finished = true;
    stretch.failures = worker.takeFailures();
    stretch.outOfMemory = worker.takeOutOfMemory() || stretch.outOfMemory;
}

} // namespace lyrabox::decoding
