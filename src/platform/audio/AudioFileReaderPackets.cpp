#include "platform/audio/AudioFileReaderPackets.h"

namespace lyrabox {

namespace {

/// Reads in a row that fail before the rest of the file is given up.
constexpr int maximumReadFailures = 64;

} // namespace

bool AudioFileReaderPackets::next(AVPacket &packet)
{
    int failuresInARow = 0;
    for (;;) {
        av_packet_unref(&packet);
        const int error = av_read_frame(m_container->context(), &packet);
        if (error == AVERROR_EOF)
            return false;
        if (error < 0) {
            ++m_failures;
            // Some demuxers find their way again after a damaged place.
            if (error == AVERROR(EIO) || error == AVERROR(ENOMEM) ||
                ++failuresInARow >= maximumReadFailures)
                return false;
        } else if (packet.stream_index == m_container->stream()->index) {
            return true;
        }
    }
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

} // namespace lyrabox
