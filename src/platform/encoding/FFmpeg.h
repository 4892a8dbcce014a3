#pragma once

// FFmpeg's headers, and owners for its objects. Only for the sources of this folder.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

#include <memory>

namespace lyrabox::encoding {

/// Frees FFmpeg's objects, each kind with its own function.
struct AvDeleter {
    void operator()(AVFormatContext *context) const noexcept { avformat_free_context(context); }
    void operator()(AVCodecContext *context) const noexcept { avcodec_free_context(&context); }
    void operator()(AVFrame *frame) const noexcept { av_frame_free(&frame); }
    void operator()(AVPacket *packet) const noexcept { av_packet_free(&packet); }
    void operator()(SwrContext *context) const noexcept { swr_free(&context); }
    void operator()(AVIOContext *context) const noexcept
    {
        av_freep(&context->buffer);
        avio_context_free(&context);
    }
};

template <typename T>
using AvPointer = std::unique_ptr<T, AvDeleter>;

} // namespace lyrabox::encoding
