#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace lyrabox {

class TimePitchHistory;

/// What is heard after a jump until the stretcher, which has to read ahead, is ready: the song from
/// frame 0 of a history on, at any speed and pitch, made in the time domain. Stretches of the song
/// are joined where they are most alike (WSOLA), and the result is resampled by the pitch. Costs a
/// tenth of what a stretcher does, needs no lead-in, and is right to within a few milliseconds;
/// good for a twentieth of a second. Callback thread, save allocate().
class QuickStretcher {
public:
    void allocate();

    /// `speed` 0.1 to 2.0, `pitch` 0.25 to 4.0 as a factor of frequency.
    void start(double speed, double pitch) noexcept;

    /// The next `frames` frames read the history up to here at most.
    std::int64_t reach(std::uint32_t frames) const noexcept;

    void render(const TimePitchHistory &song, float *left, float *right,
                std::uint32_t frames) noexcept;

private:
    static constexpr std::uint32_t ringFrames = 256;
    static constexpr std::int64_t searched = 320; ///< to both sides: a period of 69 Hz
    static constexpr std::int64_t crossings = 8;  ///< zero crossings of the kernel to each side
    static constexpr std::int64_t kernelSteps = 128;

    std::int64_t kernelReach() const noexcept;
    std::int64_t bestStart(const TimePitchHistory &song, std::int64_t ideal) const noexcept;
    std::int64_t nextStart(const TimePitchHistory &song) const noexcept;
    static std::int64_t attackBetween(const TimePitchHistory &song, std::int64_t first,
                                      std::int64_t last) noexcept;
    void stretchUpTo(const TimePitchHistory &song, std::int64_t end) noexcept;
    void interpolate(double at, float &left, float &right) const noexcept;

    std::vector<float> m_kernel;
    std::array<std::array<float, ringFrames>, 2> m_ring{}; ///< stretched, not yet resampled

    double m_songStep = 1.0; ///< song frames for a stretched one
    double m_pitch = 1.0;
    std::int64_t m_piece = 320;    ///< stretched frames from one joint to the next
    std::int64_t m_overlap = 240;  ///< of which as many are a crossfade
    std::int64_t m_delivered = 0;  ///< frames
    std::int64_t m_end = 0;        ///< stretched frames made
    std::int64_t m_pieceStart = 0; ///< in stretched frames
    std::int64_t m_current = 0;    ///< the song frame at m_pieceStart
    std::int64_t m_previous = 0;   ///< where the piece before would be at m_pieceStart
};

} // namespace lyrabox
