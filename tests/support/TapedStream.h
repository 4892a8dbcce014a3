#pragma once

#include "platform/audio/CentreStream.h"

#include <cstdint>
#include <functional>
#include <tuple>
#include <utility>

namespace lyrabox::test {

/// A stream for a stage that reads ahead: frames of two channels, by their numbers.
class TapedStream final : public StreamAround {
public:
    using Frames = std::function<std::pair<float, float>(std::int64_t frame)>;

    explicit TapedStream(Frames frames) : m_frames(std::move(frames)) {}

    /// Writes the next slice. What is read about it then is what lies about it.
    void next(float *left, float *right, std::uint32_t frames)
    {
        m_begin = m_end;
        m_end += frames;
        copy(left, right, frames, m_begin);
    }

    void readAhead(float *left, float *right, std::uint32_t frames) noexcept override
    {
        copy(left, right, frames, m_end);
    }
    void readBefore(float *left, float *right, std::uint32_t frames) noexcept override
    {
        copy(left, right, frames, m_begin - frames);
    }

    /// What follows the slice from now on.
    void setFrames(Frames frames) { m_frames = std::move(frames); }
    std::int64_t position() const { return m_end; }

private:
    void copy(float *left, float *right, std::uint32_t frames, std::int64_t from) const
    {
        for (std::uint32_t i = 0; i < frames; ++i)
            std::tie(left[i], right[i]) = m_frames(from + i);
    }

    Frames m_frames;
    std::int64_t m_begin = 0;
    std::int64_t m_end = 0;
};

} // namespace lyrabox::test
