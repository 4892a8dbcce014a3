#include "platform/decoding/Decoder.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <utility>

namespace lyrabox::decoding {

namespace {

/// After this many packets and reads in a row without sound, the rest of the file is given up.
constexpr int maximumFailures = 20000;

/// In seconds. A shorter song is decoded before several threads are up and running.
constexpr double minSecondsForThreads = 10.0;

} // namespace

Status Decoder::open(Container &container, unsigned threads)
{
    m_container = &container;
    m_packets = Packets(container);
    m_packet.reset(av_packet_alloc());
    m_frame.reset(av_frame_alloc());
    m_waiting.reset(av_frame_alloc());
    if (!m_packet || !m_frame || !m_waiting)
        return status::notEnoughMemory;
    const AVStream &stream = *container.stream();
    Status result = status::noError;
    m_context = openCodec(container.decoder(), *stream.codecpar, stream.time_base, result);
    if (!m_context)
        return result;
    findLength();
    // Decoding uncompressed samples is too cheap to be worth a thread.
    const bool isCompressed = av_get_exact_bits_per_sample(stream.codecpar->codec_id) == 0;
    if (threads > 1 && isCompressed && container.duration().value_or(0.0) >= minSecondsForThreads)
        m_parallel.emplace(container, std::move(m_context), threads);
    return status::noError;
}

int Decoder::damagedPackets() const
{
    return m_parallel ? m_parallel->failures() : m_damaged;
}

const AVFrame *Decoder::next()
{
    if (!m_hasWaiting && !m_ended)
        m_hasWaiting = receive();
    if (!m_hasWaiting)
        return nullptr;
    std::swap(m_frame, m_waiting);
    m_hasWaiting = receive();
    if (!m_hasWaiting)
        trimLast();
    return m_frame.get();
}

/// Puts the next frame that belongs to the song into m_waiting.
bool Decoder::receive()
{
    while (!m_ended) {
        if (!(m_parallel ? receiveAhead() : receiveNow()))
            break;
        if (m_waiting->nb_samples <= 0 || m_waiting->sample_rate < minimumFileRate ||
            m_waiting->ch_layout.nb_channels <= 0) {
            m_ended = ++m_failures > maximumFailures;
            continue;
        }
        m_delivered = true;
        m_failures = 0;
        m_container->input().progress();
        m_waiting->nb_samples =
            static_cast<int>(std::min<std::int64_t>(m_waiting->nb_samples, m_remaining));
        m_remaining -= m_waiting->nb_samples;
        if (m_waiting->nb_samples > 0)
            return true;
    }
    m_ended = true;
    if (m_status == status::noError)
        m_status = m_container->input().error();
    if (m_status == status::noError && !m_delivered && damagedPackets() > 0)
        m_status = status::invalidFile;
    return false;
}

bool Decoder::receiveAhead()
{
    m_waiting = m_parallel->next(std::move(m_waiting));
    if (!m_waiting && m_parallel->outOfMemory())
        m_status = status::notEnoughMemory;
    return m_waiting != nullptr;
}

bool Decoder::receiveNow()
{
    while (m_failures <= maximumFailures) {
        const int error = avcodec_receive_frame(m_context.get(), m_waiting.get());
        if (error == 0)
            return true;
        if (error == AVERROR(ENOMEM)) {
            m_status = status::notEnoughMemory;
            return false;
        }
        if (error == AVERROR_EOF || (error == AVERROR(EAGAIN) && m_draining))
            return false;
        if (error == AVERROR(EAGAIN)) {
            feed();
        } else {
            ++m_failures;
            ++m_damaged;
        }
    }
    return false;
}

/// Sends the decoder its next packet, or the end of the stream.
void Decoder::feed()
{
    if (!m_packets.next(*m_packet)) {
        m_draining = true;
        m_damaged += m_packets.failures();
        avcodec_send_packet(m_context.get(), nullptr);
        return;
    }
    if (avcodec_send_packet(m_context.get(), m_packet.get()) < 0) {
        ++m_failures;
        ++m_damaged;
    }
}

/// Apple's encoders write reserved, delay, padding and length as hexadecimal numbers. FFmpeg uses
/// only the delay.
void Decoder::findLength()
{
    const AVDictionaryEntry *gapless =
        av_dict_get(m_container->context()->metadata, "iTunSMPB", nullptr, 0);
    const auto seconds = m_container->duration();
    unsigned long long length = 0;
    if (!gapless || !seconds || std::sscanf(gapless->value, "%*x %*x %*x %llx", &length) != 1)
        return;
    // Padding is a fraction of a second. If the length differs by more, it belongs to another
    // stream.
    const int rate = m_container->stream()->codecpar->sample_rate;
    if (std::abs(static_cast<double>(length) - *seconds * rate) < rate)
        m_remaining = static_cast<std::int64_t>(length);
}

/// In MP4 the only sign of padding after the last frame is that packet's shorter duration.
void Decoder::trimLast()
{
    const std::string_view demuxer = m_container->context()->iformat->name;
    const std::int64_t duration = frameDuration(*m_frame);
    if (!demuxer.starts_with("mov") || duration <= 0)
        return;
    const auto samples = av_rescale_q(duration, m_container->stream()->time_base,
                                      AVRational{1, m_frame->sample_rate});
    if (samples > 0 && samples < m_frame->nb_samples)
        m_frame->nb_samples = static_cast<int>(samples);
}

} // namespace lyrabox::decoding
