#pragma once

#include "platform/audio/SincInterpolator.h"

#include <array>
#include <cstdint>

namespace lyrabox {

/// Shifts the pitch of a stretched stereo signal by reading it faster or slower, through a windowed
/// sinc. It replaces the stretching library's own resampler, whose delay and fractional position
/// differ from build to build; this one knows its position in the input exactly. Callback thread,
/// except allocate().
///
/// Written frames are numbered from 0. At a pitch of 1 the output equals the input bit for bit.
class TimePitchResampler {
public:
    /// Control side. Call it once, before everything else.
    void allocate();

    /// Drops the signal. The next frame is number 0 of the input and of the output. Silence comes
    /// before it.
    void reset() noexcept;

    /// `pitch` is a factor of frequency, 0.25 to 4.0. Right after reset() it applies at once.
    /// Otherwise it slides to the new value over slideFrames, because a jump in frequency is heard
    /// as a click. At a pitch of 1 the position then glides to the nearest whole frame over
    /// glideFrames.
    void setPitch(double pitch) noexcept;

    static constexpr std::uint32_t slideFrames = 512;
    static constexpr std::uint32_t glideFrames = 256;
    /// The most frames that one write() takes.
    static constexpr std::uint32_t maximumWrite = 1024;

    /// Appends up to maximumWrite frames of input. Call it only while isAvailable() is false.
    void write(const float *left, const float *right, std::uint32_t frames) noexcept;

    /// The number of the next frame to be written.
    std::int64_t written() const noexcept { return m_written; }

    /// Whether there is output. The last frames of the input yield output only when more are
    /// written, because the sinc reads to both sides.
    bool isAvailable() const noexcept;

    /// Writes up to `frames` frames of output and returns how many.
    std::uint32_t read(float *left, float *right, std::uint32_t frames) noexcept;

    /// The position in the input, in frames, of the next output frame.
    double position() const noexcept { return m_at; }

private:
    static constexpr std::uint32_t ringFrames = 4096;
    static constexpr int crossings = 32; ///< zero crossings of the sinc to each side
    static constexpr int tableSteps = 512;

    bool isDirect() const noexcept
    {
        return m_pitch == 1.0 && m_slideLeft == 0 && m_glideLeft == 0;
    }
    void setStep(double step) noexcept;
    void arrive() noexcept;
    void advance() noexcept;

    SincInterpolator m_interpolator;
    std::array<std::array<float, ringFrames>, 2> m_ring{};
    double m_pitch = 1.0; ///< as set
    double m_step = 1.0;  ///< input frames per output frame; on its way to m_pitch during a slide
    double m_slideStep = 0.0;
    std::uint32_t m_slideLeft = 0;
    double m_cutoff = 1.0; ///< of the sinc, as a share of half the sample rate
    double m_reach = 0.0;  ///< frames that are read to each side of the position
    double m_at = 0.0;     ///< the position in the input
    double m_glideStep = 0.0;
    std::uint32_t m_glideLeft = 0;
    std::int64_t m_written = 0;
};

} // namespace lyrabox
