#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace lyrabox {

/// Shifts the pitch of a stretched signal: reads it faster or slower through a windowed sinc. Two
/// channels. The library's own resampler differs from build to build in delay and in what it keeps
/// between two places; of this one every place is known. Callback thread, except allocate().
///
/// Frames that are written count from 0. At a pitch of 1 the output is the input, bit for bit.
class TimePitchResampler {
public:
    void allocate();

    /// Forgets the signal. What comes next is frame 0 in both directions; silence was before it.
    void reset() noexcept;

    /// 0.25 to 4.0 as a factor of frequency, at once after a reset(). Otherwise it slides there
    /// over slideFrames, since a tone whose frequency jumps clicks. Then, at 1, the place glides to
    /// the nearest whole frame over glideFrames.
    void setPitch(double pitch) noexcept;

    static constexpr std::uint32_t slideFrames = 512;
    static constexpr std::uint32_t glideFrames = 256;
    static constexpr std::uint32_t maximumWrite = 1024; ///< while none is available()

    void write(const float *left, const float *right, std::uint32_t frames) noexcept;

    /// The number of the frame that is written next.
    std::int64_t written() const noexcept { return m_written; }

    /// Whether there is output. It stops reachFrames() short of the last frame written.
    bool isAvailable() const noexcept;

    /// Up to `frames` frames of output; returns how many.
    std::uint32_t read(float *left, float *right, std::uint32_t frames) noexcept;

    /// The place in the input to which the next output frame belongs.
    double position() const noexcept { return m_at; }

private:
    static constexpr std::uint32_t ringFrames = 4096;
    static constexpr int crossings = 32; ///< zero crossings of the sinc to each side
    static constexpr int tableSteps = 512;

    bool isDirect() const noexcept
    {
        return m_pitch == 1.0 && m_slideLeft == 0 && m_glideLeft == 0;
    }
    void interpolate(float &left, float &right) const noexcept;
    void setStep(double step) noexcept;
    void arrive() noexcept;
    void advance() noexcept;

    std::vector<float> m_kernel;
    std::array<std::array<float, ringFrames>, 2> m_ring{};
    double m_pitch = 1.0; ///< wanted
    double m_step = 1.0;  ///< from one output frame to the next; where it slides, not yet m_pitch
    double m_slideStep = 0.0;
    std::uint32_t m_slideLeft = 0;
    double m_cutoff = 1.0; ///< of the sinc, as a share of half the sample rate
    double m_reach = 0.0;  ///< frames to each side of the place that are read
    double m_at = 0.0;
    double m_glideStep = 0.0;
    std::uint32_t m_glideLeft = 0;
    std::int64_t m_written = 0;
};

} // namespace lyrabox
