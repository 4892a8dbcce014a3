#pragma once

#include "platform/decoding/FFmpeg.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace lyrabox::decoding {

/// Frame memory shared by several decoders. If each had its own, each would grow to the largest
/// number of frames that ever waited. The pool takes memory from the system in slabs, because a
/// thread's heap would need one system call per frame. It keeps the memory until it is destroyed;
/// all frames must be freed before that. Any thread.
class FramePool {
public:
    FramePool() = default;
    ~FramePool();
    FramePool(const FramePool &) = delete;
    FramePool &operator=(const FramePool &) = delete;

    /// Makes the decoder allocate its frames here. Call it before the first packet. The pool must
    /// outlive the decoder.
    void serve(AVCodecContext &context);

private:
    struct Free {
        void operator()(std::uint8_t *memory) const noexcept { std::free(memory); }
    };

    static int getBuffer(AVCodecContext *context, AVFrame *frame, int flags) noexcept;
    static AVBufferRef *allocate(void *self, std::size_t size) noexcept;
    AVBufferPool *poolFor(int bytes) noexcept;
    std::uint8_t *cut(std::size_t size) noexcept;

    std::mutex m_mutex;
    std::map<std::size_t, AVBufferPool *> m_pools; ///< Keyed by buffer size.
    std::vector<std::unique_ptr<std::uint8_t, Free>> m_slabs;
    std::uint8_t *m_next = nullptr; ///< Next free byte in the last slab.
    std::size_t m_left = 0;         ///< Free bytes in the last slab.
};

} // namespace lyrabox::decoding
