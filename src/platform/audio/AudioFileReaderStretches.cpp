#include "platform/audio/AudioFileReaderStretches.h"

#include <algorithm>
#include <new>
#include <system_error>

namespace lyrabox {

namespace {

constexpr std::int64_t memoryForStretches = std::int64_t{6} << 20;
constexpr std::int64_t shortestStretch = std::int64_t{1}
                                         << 16; ///< samples; below it the run-up weighs too much
constexpr unsigned maximumThreads = 8;          ///< demuxing and converting keep pace with no more
constexpr std::int64_t longestStretch = std::int64_t{1} << 18;

bool changesParameters(const AVPacket &packet)
{
    return av_packet_get_side_data(&packet, AV_PKT_DATA_NEW_EXTRADATA, nullptr) ||
           av_packet_get_side_data(&packet, AV_PKT_DATA_PARAM_CHANGE, nullptr);
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

struct AudioFileReaderStretches::Work {
    std::shared_ptr<const AVCodecParameters> parameters;
    const AVCodec *codec = nullptr;
    AVRational timeBase{};
    AVCodecContext *context = nullptr; ///< null: a new one
    std::vector<AvPointer<AVPacket>> packets;
    std::size_t dropped = 0; ///< of the packets, those whose output is left out
    bool last = false;
};

struct AudioFileReaderStretches::Result {
    std::vector<AvPointer<AVFrame>> frames;
    int failures = 0;
    bool outOfMemory = false;
};

AudioFileReaderStretches::AudioFileReaderStretches(AudioFileReaderContainer &container,
                                                   AvPointer<AVCodecContext> context,
                                                   unsigned threads)
    : m_packets(container),
      m_timeBase(container.stream()->time_base),
      m_codec(container.decoder()),
      m_inFlight(1)
{
    // A copy, because demuxing may change the stream's own while a stretch is decoded.
    std::shared_ptr<AVCodecParameters> parameters(
        avcodec_parameters_alloc(),
        [](AVCodecParameters *object) { avcodec_parameters_free(&object); });
    if (!parameters || avcodec_parameters_copy(parameters.get(), container.stream()->codecpar) < 0)
        throw std::bad_alloc();
    const std::int64_t frameBytes =
        std::max(1, parameters->ch_layout.nb_channels) * std::int64_t{4};
    if (const auto runUp = runUpPackets(parameters->codec_id); runUp && threads > 1) {
        m_runUp = static_cast<std::size_t>(*runUp);
        m_inFlight = std::min(threads, maximumThreads);
    } else {
        m_context = std::move(context);
    }
    // One more than are in work is being handed out.
    const auto stretches = static_cast<std::int64_t>(m_inFlight + 1);
    m_stretchSamples =
        std::clamp(memoryForStretches / stretches / frameBytes, shortestStretch, longestStretch);
    m_parameters = std::move(parameters);
}

AudioFileReaderStretches::~AudioFileReaderStretches()
{
    m_working.clear(); // waits: what is in work uses the context
}

AvPointer<AVFrame> AudioFileReaderStretches::next()
{
    while (m_nextReady == m_ready.size()) {
        m_ready.clear();
        m_nextReady = 0;
        fill();
        if (m_working.empty())
            return nullptr;
        Result result = m_working.front().get();
        m_working.pop_front();
        m_ready = std::move(result.frames);
        m_failures += result.failures;
        m_outOfMemory = m_outOfMemory || result.outOfMemory;
        fill();
    }
    return std::move(m_ready[m_nextReady++]);
}

/// Keeps every thread at work.
void AudioFileReaderStretches::fill()
{
    while (m_working.size() < m_inFlight && !m_gathered) {
        auto work = std::make_shared<Work>();
        if (!gather(*work))
            return;
        const auto run = [work] { return decode(*work); };
        try {
            m_working.push_back(std::async(std::launch::async, run));
        } catch (const std::system_error &) {
            // No thread to be had: done when its turn comes.
            m_working.push_back(std::async(std::launch::deferred, run));
        }
    }
}

/// Takes the packets of the next stretch, with its run-up before them.
bool AudioFileReaderStretches::gather(Work &work)
{
    work.parameters = m_parameters;
    work.codec = m_codec;
    work.timeBase = m_timeBase;
    work.context = m_context.get();
    if (m_change)
        work.packets.push_back(owned(av_packet_clone(m_change.get())));
    for (auto &packet : m_before)
        work.packets.push_back(owned(av_packet_clone(packet.get())));
    work.dropped = work.packets.size();

    std::int64_t samples = 0;
    while (samples < m_stretchSamples) {
        auto packet = owned(av_packet_alloc());
        if (!m_packets.next(*packet)) {
            m_gathered = work.last = true;
            break;
        }
        if (!m_context && changesParameters(*packet))
            m_change = owned(av_packet_clone(packet.get()));
        const std::int64_t told =
            av_rescale_q(packet->duration, m_timeBase, {1, m_parameters->sample_rate});
        samples += told > 0 ? told : 1024;
        if (m_runUp > 0) {
            m_before.push_back(owned(av_packet_clone(packet.get())));
            if (m_before.size() > m_runUp)
                m_before.pop_front();
        }
        work.packets.push_back(std::move(packet));
    }
    return work.packets.size() > work.dropped || work.last;
}

/// On a thread of its own.
AudioFileReaderStretches::Result AudioFileReaderStretches::decode(const Work &work)
{
    if (work.context)
        return decodeWith(*work.context, work);
    Status opened = status::noError;
    const auto context = openCodec(work.codec, *work.parameters, work.timeBase, opened);
    if (context)
        return decodeWith(*context, work);
    return {.frames = {}, .failures = 1, .outOfMemory = opened == status::notEnoughMemory};
}

AudioFileReaderStretches::Result AudioFileReaderStretches::decodeWith(AVCodecContext &context,
                                                                      const Work &work)
{
    Result result;
    auto frame = owned(av_frame_alloc());
    const auto take = [&](bool keep) {
        for (;;) {
            const int error = avcodec_receive_frame(&context, frame.get());
            if (error < 0)
                return error;
            if (!keep || frame->nb_samples <= 0)
                continue;
            result.frames.push_back(std::move(frame));
            frame = owned(av_frame_alloc());
        }
    };
    const auto note = [&](int error) {
        if (error == 0 || error == AVERROR(EAGAIN) || error == AVERROR_EOF)
            return;
        ++result.failures;
        result.outOfMemory = result.outOfMemory || error == AVERROR(ENOMEM);
    };
    for (std::size_t i = 0; i < work.packets.size(); ++i) {
        const bool keep = i >= work.dropped;
        const int sent = avcodec_send_packet(&context, work.packets[i].get());
        const int taken = take(keep);
        if (keep) {
            note(sent);
            note(taken);
        }
    }
    if (work.last) {
        avcodec_send_packet(&context, nullptr);
        note(take(true));
    }
    return result;
}

} // namespace lyrabox
