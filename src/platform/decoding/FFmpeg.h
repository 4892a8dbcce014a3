#pragma once

// FFmpeg's headers, and owners for its objects. Only for the sources of this folder.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libavutil/version.h>
#include <libswresample/swresample.h>
}

#include <cstdint>
#include <memory>

namespace lyrabox::decoding {

/// Frees FFmpeg's objects, each kind with its own function.
struct AvDeleter {
    void operator()(AVFormatContext *context) const noexcept { avformat_close_input(&context); }
    void operator()(AVCodecContext *context) const noexcept { avcodec_free_context(&context); }
    void operator()(AVCodecParameters *object) const noexcept { avcodec_parameters_free(&object); }
    void operator()(AVFrame *frame) const noexcept { av_frame_free(&frame); }
    void operator()(AVPacket *packet) const noexcept { av_packet_free(&packet); }
    void operator()(AVBufferRef *buffer) const noexcept { av_buffer_unref(&buffer); }
    void operator()(SwrContext *context) const noexcept { swr_free(&context); }
    void operator()(AVIOContext *context) const noexcept
    {
        av_freep(&context->buffer);
        avio_context_free(&context);
    }
};

template <typename T>
using AvPointer = std::unique_ptr<T, AvDeleter>;

/// Duration of the frame's packet in units of the stream's time base. 0 if the packet states none.
inline std::int64_t frameDuration(const AVFrame &frame) noexcept
{
#if LIBAVUTIL_VERSION_INT >= AV_VERSION_INT(57, 30, 100)
    return frame.duration;
#else
    return frame.pkt_duration;
#endif
}

} // namespace lyrabox::decoding
