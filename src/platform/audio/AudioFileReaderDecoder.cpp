#include "platform/audio/AudioFileReaderDecoder.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <utility>

namespace lyrabox {

namespace {

/// Packets and reads in a row that bring no sound before the rest of the file is given up.
constexpr int maximumFailures = 20000;

/// Reads in a row that fail outright.
constexpr int maximumReadFailures = 64;

} // namespace

Status AudioFileReaderDecoder::open(AudioFileReaderContainer &container)
{
    m_container = &container;
    m_context.reset(avcodec_alloc_context3(container.decoder()));
    m_packet.reset(av_packet_alloc());
    m_frame.reset(av_frame_alloc());
    m_waiting.reset(av_frame_alloc());
    if (!m_context || !m_packet || !m_frame || !m_waiting ||
        avcodec_parameters_to_context(m_context.get(), container.stream()->codecpar) < 0)
        return status::notEnoughMemory;
    m_context->pkt_timebase = container.stream()->time_base;
    m_context->thread_count = 1;
    switch (avcodec_open2(m_context.get(), container.decoder(), nullptr)) {
    case 0:
        findLength();
        return status::noError;
    case AVERROR(ENOMEM):
        return status::notEnoughMemory;
    case AVERROR_PATCHWELCOME:
    case AVERROR(ENOSYS):
        return status::unsupportedDataFormat;
    default:
        return status::invalidFile;
    }
}

const AVFrame *AudioFileReaderDecoder::next()
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

bool AudioFileReaderDecoder::receive()
{
    while (!m_ended) {
        const int error = avcodec_receive_frame(m_context.get(), m_waiting.get());
        if (error == 0) {
            if (m_waiting->nb_samples <= 0 || m_waiting->sample_rate <= 0 ||
                m_waiting->ch_layout.nb_channels <= 0) {
                ++m_failures;
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
        } else if (error == AVERROR(EAGAIN) && !m_draining) {
            if (!feed())
                continue;
        } else if (error == AVERROR_EOF || error == AVERROR(EAGAIN)) {
            m_ended = true;
        } else if (error == AVERROR(ENOMEM)) {
            m_status = status::notEnoughMemory;
            m_ended = true;
        } else {
            ++m_failures;
            ++m_damaged;
        }
        if (m_failures > maximumFailures)
            m_ended = true;
    }
    if (m_status == status::noError)
        m_status = m_container->input().error();
    if (m_status == status::noError && !m_delivered && m_failures > 0)
        m_status = status::invalidFile;
    return false;
}

/// Hands the decoder its next packet, or tells it that there are no more.
bool AudioFileReaderDecoder::feed()
{
    int readFailures = 0;
    while (m_failures <= maximumFailures) {
        const int error = av_read_frame(m_container->context(), m_packet.get());
        if (error < 0) {
            ++m_failures;
            // Some demuxers find their way again after a damaged place.
            if (error != AVERROR_EOF && error != AVERROR(EIO) &&
                ++readFailures < maximumReadFailures)
                continue;
            if (error == AVERROR_EOF)
                --m_failures;
            break;
        }
        const bool mine = m_packet->stream_index == m_container->stream()->index;
        const int sent = mine ? avcodec_send_packet(m_context.get(), m_packet.get()) : 0;
        av_packet_unref(m_packet.get());
        if (!mine)
            continue;
        if (sent == 0)
            return true;
        ++m_failures;
        ++m_damaged;
        if (sent == AVERROR(ENOMEM)) {
            m_status = status::notEnoughMemory;
            break;
        }
    }
    m_draining = true;
    avcodec_send_packet(m_context.get(), nullptr);
    return true;
}

/// Apple's encoders write reserved, delay, padding and length in hexadecimal; FFmpeg only takes the
/// delay from it.
void AudioFileReaderDecoder::findLength()
{
    const AVDictionaryEntry *gapless =
        av_dict_get(m_container->context()->metadata, "iTunSMPB", nullptr, 0);
    const auto seconds = m_container->duration();
    unsigned long long length = 0;
    if (!gapless || !seconds || std::sscanf(gapless->value, "%*x %*x %*x %llx", &length) != 1)
        return;
    // Padding is a fraction of a second; a length that differs by more is not this stream's.
    const int rate = m_container->stream()->codecpar->sample_rate;
    if (std::abs(static_cast<double>(length) - *seconds * rate) < rate)
        m_remaining = static_cast<std::int64_t>(length);
}

/// MP4 tells the padding after the last frame only by that packet's shorter duration.
void AudioFileReaderDecoder::trimLast()
{
    const std::string_view demuxer = m_container->context()->iformat->name;
    if (!demuxer.starts_with("mov") || m_frame->pkt_duration <= 0)
        return;
    const auto samples = av_rescale_q(m_frame->pkt_duration, m_context->pkt_timebase,
                                      AVRational{1, m_frame->sample_rate});
    if (samples > 0 && samples < m_frame->nb_samples)
        m_frame->nb_samples = static_cast<int>(samples);
}

} // namespace lyrabox
