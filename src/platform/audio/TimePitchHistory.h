#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace lyrabox {

/// The last frames that a stage pulled, addressed by their number since the last clear(), so that
/// two readers can stand at different places of the same signal. Two channels. Callback thread,
/// save allocate().
class TimePitchHistory {
public:
    static constexpr std::uint32_t capacity = 1U << 15U; ///< frames; a multiple of every slice

    using Channels = std::array<float *, 2>;

    void allocate();

    /// Frame 0 is the next one written; every frame before it reads as silence.
    void clear() noexcept;

    /// Where frames end() to end() + count - 1 belong; `count` divides `capacity` and is the same
    /// at every call.
    Channels writable() noexcept;
    void advance(std::uint32_t count) noexcept { m_end += count; }

    /// The number of the frame that is written next.
    std::int64_t end() const noexcept { return m_end; }

    /// `frame` lies within the last `capacity` frames before end(); it may be negative.
    float left(std::int64_t frame) const noexcept { return m_left[index(frame)]; }
    float right(std::int64_t frame) const noexcept { return m_right[index(frame)]; }
    void set(std::int64_t frame, float left, float right) noexcept
    {
        m_left[index(frame)] = left;
        m_right[index(frame)] = right;
    }

private:
    static std::size_t index(std::int64_t frame) noexcept
    {
        return static_cast<std::size_t>(frame) & (capacity - 1U);
    }

    std::vector<float> m_left;
    std::vector<float> m_right;
    std::int64_t m_end = 0;
};

} // namespace lyrabox
