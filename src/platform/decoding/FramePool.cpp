#include "platform/decoding/FramePool.h"

#include <algorithm>
#include <new>
#include <utility>

namespace lyrabox::decoding {

namespace {

constexpr std::size_t slabBytes = std::size_t{256} << 10;
constexpr std::size_t step = 512; ///< Buffer sizes are multiples of this. It exceeds every required
                                  ///< alignment.

} // namespace

FramePool::~FramePool()
{
    for (auto &[size, pool] : m_pools)
        av_buffer_pool_uninit(&pool);
}

void FramePool::serve(AVCodecContext &context)
{
    context.opaque = this;
    if ((context.codec->capabilities & AV_CODEC_CAP_DR1) != 0)
        context.get_buffer2 = &getBuffer;
}

/// Implements AVCodecContext::get_buffer2: provides one buffer per plane.
int FramePool::getBuffer(AVCodecContext *context, AVFrame *frame, int flags) noexcept
{
    const auto format = static_cast<AVSampleFormat>(frame->format);
    const int channels = frame->ch_layout.nb_channels;
    const int planes = av_sample_fmt_is_planar(format) != 0 ? channels : 1;
    int bytes = 0;
    if (planes > AV_NUM_DATA_POINTERS ||
        av_samples_get_buffer_size(&bytes, channels, frame->nb_samples, format, 0) < 0)
        return avcodec_default_get_buffer2(context, frame, flags);
    AVBufferPool *pool = static_cast<FramePool *>(context->opaque)->poolFor(bytes);
    for (int plane = 0; plane < planes; ++plane) {
        frame->buf[plane] = pool ? av_buffer_pool_get(pool) : nullptr;
        if (!frame->buf[plane])
            return AVERROR(ENOMEM); // The frame's owner releases the other buffers.
        frame->data[plane] = frame->buf[plane]->data;
    }
    frame->linesize[0] = bytes;
    frame->extended_data = frame->data;
    return 0;
}

AVBufferPool *FramePool::poolFor(int bytes) noexcept
{
    const std::size_t size = (static_cast<std::size_t>(bytes) + step - 1) / step * step;
    try {
        const std::lock_guard lock(m_mutex);
        AVBufferPool *&pool = m_pools[size];
        if (!pool)
            pool = av_buffer_pool_init2(size, this, &allocate, nullptr);
        return pool;
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

AVBufferRef *FramePool::allocate(void *self, std::size_t size) noexcept
{
    const auto keep = [](void *, std::uint8_t *) {};
    std::uint8_t *memory = static_cast<FramePool *>(self)->cut(size);
    return memory ? av_buffer_create(memory, size, keep, nullptr, 0) : nullptr;
}

/// Cuts `size` bytes, a multiple of the step, off a slab.
std::uint8_t *FramePool::cut(std::size_t size) noexcept
{
    const std::lock_guard lock(m_mutex);
    if (m_left < size) {
        const std::size_t bytes = std::max(size, slabBytes);
        auto *memory = static_cast<std::uint8_t *>(std::aligned_alloc(step, bytes));
        if (!memory)
            return nullptr;
        std::unique_ptr<std::uint8_t, Free> slab(memory);
        try {
            m_slabs.push_back(std::move(slab));
        } catch (const std::bad_alloc &) {
            return nullptr;
        }
        m_next = memory;
        m_left = bytes;
    }
    m_left -= size;
    return std::exchange(m_next, m_next + size);
}

} // namespace lyrabox::decoding
