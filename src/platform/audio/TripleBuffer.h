#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <type_traits>

namespace lyrabox {

/// Hands whole values from one thread to another without a lock: a triple buffer. The writer is
/// never held up by the reader nor the reader by the writer, a value is never seen half written,
/// and of several values published between two looks only the newest is seen. One writing and one
/// reading thread at a time; where several threads write, the caller serialises them (a mutex that
/// the reader never takes will do).
template <typename T>
class TripleBuffer {
    static_assert(
        std::is_trivially_copyable_v<T>,
        "publish() copies on one thread what another reads: no owned memory, no hidden sharing");
    static_assert(std::atomic<std::uint8_t>::is_always_lock_free);

public:
    TripleBuffer() = default;
    TripleBuffer(const TripleBuffer &) = delete;
    TripleBuffer &operator=(const TripleBuffer &) = delete;

    /// Writing thread. What was published before and not yet taken is dropped.
    void publish(const T &value) noexcept
    {
        slots[writing] = value;
        writing = handover.exchange(static_cast<std::uint8_t>(writing | fresh),
                                    std::memory_order_acq_rel) &
                  slotMask;
    }

    /// Reading thread. The newest value when one was published since the last look, else null. It
    /// stays as it is until the next call. Wait-free: one load, and one exchange when there is
    /// something new.
    const T *takeNewest() noexcept
    {
        if ((handover.load(std::memory_order_relaxed) & fresh) == 0)
            return nullptr;
        reading = handover.exchange(reading, std::memory_order_acq_rel) & slotMask;
        return &slots[reading];
    }

private:
    static constexpr std::uint8_t slotMask = 3;
    static constexpr std::uint8_t fresh = 4;

    std::array<T, 3> slots{};
    std::uint8_t writing = 0; // the writer's own slot
    std::atomic<std::uint8_t> handover{
        1};                   // the slot between the two, with `fresh` while it holds news
    std::uint8_t reading = 2; // the reader's own slot
};

} // namespace lyrabox
