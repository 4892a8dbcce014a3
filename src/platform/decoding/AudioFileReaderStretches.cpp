#include "platform/decoding/AudioFileReaderStretches.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

namespace lyrabox {

namespace {

constexpr double shortestStretch = 1 << 16; ///< samples; below it the run-up weighs too much
constexpr double longestStretch = 1 << 20;
constexpr unsigned maximumThreads = 8;  ///< demuxing and converting keep pace with no more
constexpr std::size_t batchFrames = 16; ///< handed over at once, by a decoder or to the reader

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

struct AudioFileReaderStretches::Stretch {
    std::vector<AvPointer<AVPacket>> packets; ///< on the way to a decoder
    std::size_t dropped = 0;                  ///< of the packets, those whose output is left out
    bool last = false;

    // Guarded by the mutex.
    bool taken = false;
    bool finished = false;
    std::deque<AvPointer<AVFrame>> frames; ///< on the way to the reader
    int failures = 0;
    bool outOfMemory = false;
};

/// One thread's decoder.
class AudioFileReaderStretches::Worker {
public:
    /// Without a context it opens one when it is needed.
    Worker(AudioFileReaderStretches &owner, AvPointer<AVCodecContext> context)
        : m_owner(owner), m_context(std::move(context))
    {
        if (m_context)
            m_owner.m_pool->serve(*m_context);
    }

    void decode(Stretch &stretch)
    {
        m_failures = 0;
        m_outOfMemory = false;
        try {
            if (prepare())
                decodePackets(stretch);
        } catch (const std::bad_alloc &) {
            m_outOfMemory = true;
        }
        m_owner.finish(stretch, m_batch, m_failures, m_outOfMemory);
    }

private:
    bool prepare()
    {
        if (m_context) {
            if (m_owner.m_canStartAnywhere)
                avcodec_flush_buffers(m_context.get());
            return true;
        }
        Status opened = status::noError;
        m_context = openCodec(m_owner.m_codec, *m_owner.m_parameters, m_owner.m_timeBase, opened);
        if (m_context)
            m_owner.m_pool->serve(*m_context);
        else
            note(opened == status::notEnoughMemory ? AVERROR(ENOMEM) : AVERROR_INVALIDDATA);
        return m_context != nullptr;
    }

    void decodePackets(Stretch &stretch)
    {
        for (std::size_t i = 0; i < stretch.packets.size(); ++i) {
            const bool keep = i >= stretch.dropped;
            const int sent = avcodec_send_packet(m_context.get(), stretch.packets[i].get());
            stretch.packets[i].reset();
            const int taken = take(keep);
            if (keep) {
                note(sent);
                note(taken);
            }
            if (m_batch.size() >= batchFrames && !m_owner.deliver(stretch, m_batch))
                return;
        }
        if (stretch.last) {
            avcodec_send_packet(m_context.get(), nullptr);
            note(take(true));
        }
    }

    /// Everything that the decoder has ready; returns why there is no more.
    int take(bool keep)
    {
        for (;;) {
            if (!m_frame)
                m_frame = owned(av_frame_alloc());
            const int error = avcodec_receive_frame(m_context.get(), m_frame.get());
            if (error < 0)
                return error;
            if (keep && m_frame->nb_samples > 0)
                m_batch.push_back(std::move(m_frame));
        }
    }

    void note(int error)
    {
        if (error == 0 || error == AVERROR(EAGAIN) || error == AVERROR_EOF)
            return;
        ++m_failures;
        m_outOfMemory = m_outOfMemory || error == AVERROR(ENOMEM);
    }

    AudioFileReaderStretches &m_owner;
    AvPointer<AVCodecContext> m_context;
    AvPointer<AVFrame> m_frame;
    Frames m_batch;
    int m_failures = 0;
    bool m_outOfMemory = false;
};

AudioFileReaderStretches::AudioFileReaderStretches(AudioFileReaderContainer &container,
                                                   AvPointer<AVCodecContext> context,
                                                   unsigned threads, std::size_t memory)
    : m_packets(container),
      m_timeBase(container.stream()->time_base),
      m_codec(container.decoder()),
      m_parameters(avcodec_parameters_alloc()),
      m_pool(std::make_unique<AudioFileReaderFramePool>())
{
    // A copy, because demuxing may change the stream's own while a stretch is decoded.
    if (!m_parameters ||
        avcodec_parameters_copy(m_parameters.get(), container.stream()->codecpar) < 0)
        throw std::bad_alloc();
    std::size_t workers = 1;
    if (const auto runUp = runUpPackets(m_parameters->codec_id); runUp && threads > 1) {
        m_canStartAnywhere = true;
        m_runUp = static_cast<std::size_t>(*runUp);
        workers = std::min(threads, maximumThreads);
    }
    divide(container, workers, static_cast<double>(memory));
    m_workers.reserve(workers);
    m_workers.push_back(std::make_unique<Worker>(*this, std::move(context)));
    while (m_workers.size() < workers)
        m_workers.push_back(std::make_unique<Worker>(*this, nullptr));
    try {
        m_threads.reserve(workers);
        for (const auto &worker : m_workers)
            m_threads.emplace_back([this, own = worker.get()] { run(*own); });
    } catch (const std::system_error &) {
        // As many as are to be had; with none, the reader's own thread decodes.
    }
}

AudioFileReaderStretches::~AudioFileReaderStretches()
{
    {
        const std::lock_guard lock(m_mutex);
        m_closing = true;
    }
    m_work.notify_all();
    m_room.notify_all();
    m_threads.clear(); // joins
}

/// Sets the length of a stretch so that what waits fits into `memory`. Decoders that work ahead of
/// the reader's stretch, each a part of a stretch behind the one before it, hold half of one on
/// average.
void AudioFileReaderStretches::divide(AudioFileReaderContainer &container, std::size_t workers,
                                      double memory)
{
    const double seconds = container.duration().value_or(0.0);
    const double samples = seconds * std::max(1, m_parameters->sample_rate);
    const double packetBytes =
        samples > 0.0 ? static_cast<double>(container.input().size()) / samples : 1.0;
    const auto count = static_cast<double>(workers);
    const double frameBytes =
        4.0 * std::max(1, m_parameters->ch_layout.nb_channels) * std::max(1.0, count - 1.0) / 2.0;
    const double length = std::clamp(memory / (frameBytes + packetBytes * (count + 1.0)),
                                     shortestStretch, longestStretch);
    m_stretchSamples = static_cast<std::int64_t>(length);
    m_mostWaiting = static_cast<std::size_t>(length * frameBytes);
}

AvPointer<AVFrame> AudioFileReaderStretches::next()
{
    while (m_nextReady == m_ready.size()) {
        m_ready.clear();
        m_nextReady = 0;
        fill();
        if (m_stretches.empty())
            return nullptr;
        if (m_threads.empty())
            m_workers.front()->decode(*m_stretches.front());
        fetch();
    }
    return std::move(m_ready[m_nextReady++]);
}

/// Waits for frames of the first stretch, or for its end.
void AudioFileReaderStretches::fetch()
{
    std::unique_lock lock(m_mutex);
    const auto stretch = m_stretches.front();
    m_delivered.wait(lock, [&] { return stretch->finished || !stretch->frames.empty(); });
    for (; m_ready.size() < batchFrames && !stretch->frames.empty(); stretch->frames.pop_front()) {
        m_waitingBytes -= bytesOf(*stretch->frames.front());
        m_ready.push_back(std::move(stretch->frames.front()));
    }
    if (stretch->finished && stretch->frames.empty()) {
        m_failures += stretch->failures;
        m_outOfMemory = m_outOfMemory || stretch->outOfMemory;
        m_stretches.pop_front();
    }
    lock.unlock();
    m_room.notify_all();
}

/// Sees to it that every decoder has a stretch, and the first that is done finds another.
void AudioFileReaderStretches::fill()
{
    while (!m_gathered && m_stretches.size() <= m_workers.size()) {
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
bool AudioFileReaderStretches::gather(Stretch &stretch)
{
    if (m_change)
        stretch.packets.push_back(owned(av_packet_clone(m_change.get())));
    for (auto &packet : m_before)
        stretch.packets.push_back(owned(av_packet_clone(packet.get())));
    stretch.dropped = stretch.packets.size();

    // The first ones are shorter, so that the decoders come to their ends one after the other.
    const auto workers = static_cast<std::int64_t>(m_workers.size());
    const std::int64_t wanted =
        m_stretchSamples * std::min(++m_gatheredStretches, workers) / workers;
    std::int64_t samples = 0;
    while (samples < wanted) {
        auto packet = owned(av_packet_alloc());
        if (!m_packets.next(*packet)) {
            m_gathered = stretch.last = true;
            break;
        }
        if (m_canStartAnywhere && changesParameters(*packet))
            m_change = owned(av_packet_clone(packet.get()));
        const std::int64_t told =
            av_rescale_q(packet->duration, m_timeBase, {1, m_parameters->sample_rate});
        samples += told > 0 ? told : 1024;
        if (m_runUp > 0) {
            m_before.push_back(owned(av_packet_clone(packet.get())));
            if (m_before.size() > m_runUp)
                m_before.pop_front();
        }
        stretch.packets.push_back(std::move(packet));
    }
    return stretch.packets.size() > stretch.dropped || stretch.last;
}

/// On a thread of its own.
void AudioFileReaderStretches::run(Worker &worker)
{
    for (;;) {
        std::shared_ptr<Stretch> stretch;
        {
            std::unique_lock lock(m_mutex);
            const auto find = [&] {
                return std::find_if(m_stretches.begin(), m_stretches.end(),
                                    [](const auto &each) { return !each->taken; });
            };
            m_work.wait(lock, [&] { return m_closing || find() != m_stretches.end(); });
            if (m_closing)
                return;
            stretch = *find();
            stretch->taken = true;
        }
        worker.decode(*stretch);
    }
}

/// Hands `frames` over as soon as there is room; false when nobody wants them any more. The
/// stretch that the reader is at only waits for the reader, so that it never waits for the others.
bool AudioFileReaderStretches::deliver(Stretch &stretch, Frames &frames)
{
    {
        std::unique_lock lock(m_mutex);
        m_room.wait(lock, [&] {
            return m_closing || m_threads.empty() || m_waitingBytes < m_mostWaiting ||
                   (m_stretches.front().get() == &stretch && stretch.frames.empty());
        });
        if (m_closing)
            return false;
        for (auto &frame : frames) {
            const std::size_t bytes = bytesOf(*frame);
            stretch.frames.push_back(std::move(frame));
            m_waitingBytes += bytes;
        }
    }
    frames.clear();
    m_delivered.notify_one();
    return true;
}

void AudioFileReaderStretches::finish(Stretch &stretch, Frames &frames, int failures,
                                      bool outOfMemory)
{
    try {
        if (!frames.empty())
            deliver(stretch, frames);
    } catch (const std::bad_alloc &) {
        outOfMemory = true;
    }
    frames.clear();
    {
        const std::lock_guard lock(m_mutex);
        stretch.finished = true;
        stretch.failures = failures;
        stretch.outOfMemory = outOfMemory;
    }
    m_delivered.notify_one();
}

} // namespace lyrabox
