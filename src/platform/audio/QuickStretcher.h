#pragma once

#include "platform/audio/SincInterpolator.h"

#include <array>
#include <cstdint>

namespace lyrabox {

class TimePitchHistory;

/// A simple time-domain stretcher, which plays after a seek until TimePitchStretcher is ready. It
/// starts at frame 0 of a history and plays at any speed and pitch. It joins pieces of the song
/// where they are most similar (WSOLA: Verhelst and Roelands 1993) and resamples the result by the
/// pitch. It costs a tenth of the real stretcher, needs no lead-in, and its timing is accurate to a
/// few milliseconds. Its sound is good enough for a twentieth of a second. Callback thread, except
/// allocate().
class QuickStretcher {
public:
    void allocate();

    /// Starts at frame 0 of the history. `speed` is 0.1 to 2.0. `pitch` is a factor of frequency,
    /// 0.25 to 4.0.
    void start(double speed, double pitch) noexcept;

    /// The frame number up to which render() needs the history for the next `frames` frames.
    std::int64_t reach(std::uint32_t frames) const noexcept;

    /// Writes the next `frames` frames. `song` holds every frame before reach(frames).
    void render(const TimePitchHistory &song, float *left, float *right,
                std::uint32_t frames) noexcept;

private:
    static constexpr std::uint32_t ringFrames = 256;
    static constexpr std::int64_t searched =
        320;                            ///< frames to each side; together a period of 69 Hz
    static constexpr int crossings = 8; ///< zero crossings of the kernel to each side
    static constexpr int kernelSteps = 128;

    std::int64_t kernelReach() const noexcept;
    std::int64_t bestStart(const TimePitchHistory &song, std::int64_t ideal) const noexcept;
    std::int64_t nextStart(const TimePitchHistory &song) const noexcept;
    static std::int64_t attackBetween(const TimePitchHistory &song, std::int64_t first,
                                      std::int64_t last) noexcept;
    void stretchUpTo(const TimePitchHistory &song, std::int64_t end) noexcept;

    SincInterpolator m_interpolator;
    std::array<std::array<float, ringFrames>, 2> m_ring{}; ///< stretched, not yet resampled

    double m_songStep = 1.0; ///< song frames per stretched frame
    double m_pitch = 1.0;
    std::int64_t m_piece = 320;    ///< stretched frames from one joint to the next
    std::int64_t m_overlap = 240;  ///< crossfaded frames at the start of each piece
    std::int64_t m_delivered = 0;  ///< frames that were rendered
    std::int64_t m_end = 0;        ///< the next stretched frame
    std::int64_t m_pieceStart = 0; ///< the stretched frame at which the current piece starts
    std::int64_t m_current = 0;    ///< the song frame there
    std::int64_t m_previous = 0;   ///< the song frame there if the last piece continued
};

} // namespace lyrabox
