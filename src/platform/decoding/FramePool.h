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

/// The memory of the frames of several decoders: each decoder's own would grow to the most that
/// ever waited. It is taken from the system in slabs, because a thread's heap grows by a system
/// call per frame, and kept until the pool goes; all frames must have gone by then. Any thread.
class FramePool {
public:
    FramePool() = default;
    ~FramePool();
    FramePool(const FramePool &) = delete;
    FramePool &operator=(const FramePool &) = delete;

    /// Makes the decoder take its frames from here. Before its first packet.
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
    std::map<std::size_t, AVBufferPool *> m_pools; ///< by the size of their buffers
    std::vector<std::unique_ptr<std::uint8_t, Free>> m_slabs;
    std::uint8_t *m_next = nullptr; ///< in the last slab
    std::size_t m_left = 0;         ///< bytes of it
};

} // namespace lyrabox::decoding
