#pragma once

#include "platform/analysis/FourierTransform.h"
#include "platform/audio/ChannelTools.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace lyrabox {

/// Takes what was mixed into the middle out of a stereo sound, or leaves only that, window by
/// window. The sum of the filtered windows, one every `hop` frames, is the filtered sound.
///
/// What is the same in both channels is the middle. So in each frequency of a window:
/// - Without the middle: the difference of the channels, in which the middle is 0. Each channel
///   gets as much of it as it had of the whole, so the parts stay where they were.
/// - Only the middle: a mean of the channels, as far as the channels are alike.
///
/// The constructor allocates; nothing else does. An object belongs to one thread at a time.
class CentreFilter {
public:
    static constexpr std::size_t window = 2048;
    static constexpr std::size_t hop = 512;

    CentreFilter();

    /// Uses `centre`, `centreFrom` and `centreUpTo` for windows at 44,100 Hz. They are valid.
    void set(const ChannelTools &tools) noexcept;

    /// Filters the window of both channels; each has `window` samples, all of them finite.
    void filter(const float *left, const float *right) noexcept;

    /// The filtered window, to be added to the others.
    std::span<const float> left() const { return m_real; }
    std::span<const float> right() const { return m_imaginary; }

private:
    static constexpr std::size_t bins = window / 2 + 1;
    using Bins = std::array<float, bins>;

    void separate() noexcept;
    void removeMiddle() noexcept;
    void keepMiddle() noexcept;
    void join() noexcept;

    FourierTransform m_transform{window};
    std::vector<float> m_real;      ///< the left channel, before and behind the transforms
    std::vector<float> m_imaginary; ///< the right channel
    std::vector<float> m_hann;
    ChannelTools m_tools;
    Bins m_middle{}; ///< from 0 to 1: how much of each frequency can be the middle
    // The spectra of both channels.
    Bins m_leftReal{}, m_leftImaginary{}, m_rightReal{}, m_rightImaginary{};
    // The powers of half their sum and of half their difference.
    Bins m_sum{}, m_difference{};
};

} // namespace lyrabox
