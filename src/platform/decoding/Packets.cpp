#include "platform/decoding/Packets.h"

#include <cmath>

namespace lyrabox::decoding {

namespace {

/// After this many failed reads in a row, the rest of the file is given up.
constexpr int maximumReadFailures = 64;

} // namespace

bool Packets::next(AVPacket &packet)
{
    int failuresInARow = 0;
    for (;;) {
        av_packet_unref(&packet);
        const int error = av_read_frame(m_container->context(), &packet);
        if (error == AVERROR_EOF)
            return false;
        if (error < 0) {
            ++m_failures;
            // Some demuxers recover after damaged data.
            if (error == AVERROR(EIO) || error == AVERROR(ENOMEM) ||
                ++failuresInARow >= maximumReadFailures)
                return false;
        } else if (packet.stream_index == m_container->stream()->index) {
            return true;
        }
    }
}

std::optional<std::uint64_t> countFrames(Container &container, double rate, std::uint64_t limit)
{
    Packets packets(container);
    const AvPointer<AVPacket> packet(av_packet_alloc());
    if (!packet)
        return std::nullopt;
    AVCodecParameters *parameters = container.stream()->codecpar;
    const double unit = av_q2d(container.stream()->time_base);
    double seconds = 0.0;
    while (packets.next(*packet)) {
        container.input().progress();
        if (packet->duration > 0) {
            seconds += static_cast<double>(packet->duration) * unit;
        } else {
            const int frames = av_get_audio_frame_duration2(parameters, packet->size);
            if (frames <= 0 || parameters->sample_rate <= 0)
                return std::nullopt;
            seconds += static_cast<double>(frames) / parameters->sample_rate;
        }
        if (seconds * rate >= static_cast<double>(limit))
            return limit;
    }
    return static_cast<std::uint64_t>(std::ceil(seconds * rate));
}

AvPointer<AVCodecContext> openCodec(const AVCodec *codec, const AVCodecParameters &parameters,
                                    AVRational timeBase, Status &result)
{
    AvPointer<AVCodecContext> context(avcodec_alloc_context3(codec));
    result = status::notEnoughMemory;
    if (!context || avcodec_parameters_to_context(context.get(), &parameters) < 0)
        return nullptr;
    context->pkt_timebase = timeBase;
    context->thread_count = 1;
    switch (avcodec_open2(context.get(), codec, nullptr)) {
    case 0:
        result = status::noError;
        return context;
    case AVERROR(ENOMEM):
        return nullptr;
    case AVERROR_PATCHWELCOME:
    case AVERROR(ENOSYS):
        result = status::unsupportedDataFormat;
        return nullptr;
    default:
        result = status::invalidFile;
        return nullptr;
    }
}

} // namespace lyrabox::decoding
