#pragma once

#include "platform/audio/CentreFilter.h"

#include <array>
#include <cstdint>

namespace lyrabox {

/// The frames of a stream about the slice that is processed.
class StreamAround {
public:
    virtual ~StreamAround() = default;

    /// Writes the frames that will follow the slice, as far as is known. Callback thread.
    virtual void readAhead(float *left, float *right, std::uint32_t frames) noexcept = 0;

    /// Writes the frames before the slice, as if the song had been played up to it. Callback
    /// thread.
    virtual void readBefore(float *left, float *right, std::uint32_t frames) noexcept = 0;

protected:
    StreamAround() = default;
    StreamAround(const StreamAround &) = default;
    StreamAround &operator=(const StreamAround &) = default;
};

/// Runs a CentreFilter over a stream without any delay: its windows reach into the frames that will
/// follow. If others follow in the end, because of a jump that nobody could know of, the windows
/// that overlap the jump are filtered anew, and what is heard goes over without a step.
///
/// It begins and ends over `glide` frames. A change of the settings glides over one window.
///
/// The constructor allocates; nothing else does. All other members belong to the callback thread.
class CentreStream {
public:
    static constexpr std::uint32_t glide = 256;

    CentreStream();

    /// Forgets what was heard. The next slice is filtered at once, without a glide.
    void seek() noexcept;

    /// Whether process() changes the slice even if it is not wanted any more.
    bool isRunning() const noexcept { return m_glided > 0; }

    /// Filters the slice in place. `tools` are valid.
    void process(const ChannelTools &tools, float *left, float *right, std::uint32_t frames,
                 StreamAround &stream) noexcept;

    /// How many windows have been filtered. For tests.
    std::uint64_t windows() const noexcept { return m_windows; }

private:
    static constexpr std::size_t window = CentreFilter::window;
    static constexpr std::size_t hop = CentreFilter::hop;
    static constexpr std::size_t past = window - hop; ///< frames that older windows share

    /// The part of a slice that is left.
    struct Slice {
        float *left;
        float *right;
        std::size_t frames;
    };

    void beginHop(const Slice &slice, StreamAround &stream) noexcept;
    void readWindow(const Slice &slice, StreamAround &stream) noexcept;
    bool isAsExpected(const Slice &slice, std::size_t frames) const noexcept;
    void addWindow(std::size_t begin) noexcept;
    void write(const Slice &slice, std::size_t frames, bool isWanted) noexcept;

    /// One channel of the sound about the hop. The hop begins at frame `past` of `frames`.
    struct Channel {
        std::array<float, past + window> frames{}; ///< the frames that the windows have seen
        std::array<float, window> next{};          ///< the newest frames from the hop on
        std::array<float, window> sum{};           ///< of the filtered windows, from the hop on
        float before = 0.0F; ///< the filtered frame before the hop, by the windows in `sum`
        float last = 0.0F;   ///< the filtered frame that was written last
        float step = 0.0F;   ///< what is left of it fades away
    };

    CentreFilter m_filter;
    Channel m_left;
    Channel m_right;
    std::size_t m_at = 0;       ///< frames of the hop that have been written
    std::size_t m_stepDone = 0; ///< frames over which the step has faded
    std::uint32_t m_glided = 0; ///< 0: the sound as it was; `glide`: the filtered one
    bool m_hasPast = false;     ///< the windows before the hop are known
    bool m_isFirst = false;     ///< nothing was heard since the seek
    std::uint64_t m_windows = 0;
};

} // namespace lyrabox
