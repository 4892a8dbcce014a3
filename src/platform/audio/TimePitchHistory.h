#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace lyrabox {

/// The last frames that a stage has pulled, in two channels. Frames are numbered from the last
/// clear() on, so two readers can read the same signal at different positions. Callback thread,
/// except allocate().
class TimePitchHistory {
public:
    static constexpr std::uint32_t capacity = 1U << 15U; ///< frames; a multiple of every slice

    using Channels = std::array<float *, 2>;

    /// Control side. Call it once, before everything else.
    void allocate();

    /// The next frame to be written becomes number 0. Every frame before it reads as silence.
    void clear() noexcept;

    /// Where the caller writes the frames from end() on. advance() then adds them. `count` divides
    /// `capacity` and is the same at every call.
    Channels writable() noexcept;
    void advance(std::uint32_t count) noexcept { m_end += count; }

    /// The number of the next frame to be written.
    std::int64_t end() const noexcept { return m_end; }

    /// `frame` is one of the last `capacity` frames before end(). It may be negative.
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
