#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <type_traits>

namespace lyrabox {

/// Hands whole values from one thread to another without a lock. Neither thread ever waits for the
/// other, and the reader never sees a half-written value. If several values are published between
/// two reads, the reader sees only the newest. There may be one writing and one reading thread at a
/// time. Several writers must be serialised by the caller, for example with a mutex that the reader
/// never takes.
template <typename T>
class TripleBuffer {
    static_assert(std::is_trivially_copyable_v<T>,
                  "values are copied between threads, so they must not own or share memory");
    static_assert(std::atomic<std::uint8_t>::is_always_lock_free);

public:
    TripleBuffer() = default;
    TripleBuffer(const TripleBuffer &) = delete;
    TripleBuffer &operator=(const TripleBuffer &) = delete;

    /// Writing thread. Replaces a value that was not taken yet.
    void publish(const T &value) noexcept
    {
        m_slots[m_writing] = value;
        m_writing = m_handover.exchange(static_cast<std::uint8_t>(m_writing | fresh),
                                        std::memory_order_acq_rel) &
                    slotMask;
    }

    /// Reading thread. The newest value if one was published since the last call, otherwise null.
    /// The value does not change until the next call. Wait-free.
    const T *takeNewest() noexcept
    {
        if ((m_handover.load(std::memory_order_relaxed) & fresh) == 0)
            return nullptr;
        m_reading = m_handover.exchange(m_reading, std::memory_order_acq_rel) & slotMask;
        return &m_slots[m_reading];
    }

private:
    static constexpr std::uint8_t slotMask = 3;
    static constexpr std::uint8_t fresh = 4;

    std::array<T, 3> m_slots{};
    std::uint8_t m_writing = 0; ///< the writer's own slot
    std::uint8_t m_reading = 2; ///< the reader's own slot
    /// The slot between the two, with `fresh` set if it holds a new value.
    std::atomic<std::uint8_t> m_handover{1};
};

} // namespace lyrabox
