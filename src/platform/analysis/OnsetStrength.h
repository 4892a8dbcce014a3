#pragma once

#include "platform/analysis/FourierTransform.h"
#include "platform/analysis/SongSamples.h"

#include <array>
#include <cstdint>
#include <vector>

namespace lyrabox {

/// Measures how much of a song's sound is new, in steps of `hop` frames: the flux of the spectrum.
///
/// The spectrum's magnitudes are compressed by the square root, so that soft notes count beside
/// loud ones. Each is compared with the strongest that it and its neighbours had in the 12 to 41 ms
/// before, so that neither a vibrato nor the beating of low tones is new. What has grown is new.
/// The strength is its share of the whole: 0.0 for a sound that stays or fades, 1.0 for a sound out
/// of silence. Sound below about -80 dB of full scale counts as silence.
///
/// Steps are counted from the start of the song: step n is heard in the `window` frames about the
/// frame n * hop. All times are those at 44.1 kHz. An object belongs to one thread at a time.
class OnsetStrength {
public:
    static constexpr std::uint64_t hop = 256;
    static constexpr std::size_t window = 1024;

    /// Measures `song`, which must live as long as this object.
    explicit OnsetStrength(const SongSamples &song);

    /// Starts over: the next step is `step`.
    void seek(std::uint64_t step);

    /// The strength of the next step. Steps beyond the end of the song are silent.
    float next();

    /// What was new in the step that next() has measured last, without regard to the rest: the mean
    /// growth of the compressed magnitudes. A loud note counts more than a soft one.
    float growth() const { return m_growth; }

    /// The same of the sound below 200 Hz alone.
    float lowGrowth() const { return m_lowGrowth; }

private:
    /// Compressed magnitudes, one per band.
    using Levels = std::vector<float>;

    static constexpr std::int64_t shortestLag =
        2; ///< in steps; at a lag of 1 the windows overlap most
    static constexpr std::int64_t longestLag = 7;

    /// Measures the levels of a step and keeps them.
    void measure(std::int64_t step);

    /// The place of the levels of a step, until `longestLag` steps later.
    Levels &levelsOf(std::int64_t step)
    {
        return m_levels[static_cast<std::size_t>(step + longestLag) % m_levels.size()];
    }

    const SongSamples m_song;
    FourierTransform m_transform{window};
    std::vector<float> m_hann;
    std::vector<float> m_real;
    std::vector<float> m_imaginary;
    std::vector<std::size_t> m_bandBegins; ///< in bins; the last one ends the last band
    std::array<Levels, longestLag + 1> m_levels;
    Levels m_strongest;     ///< of the steps that the next one is compared with
    std::size_t m_lowBands; ///< the first so many bands are below 200 Hz
    std::int64_t m_step = 0;
    float m_growth = 0.0F;
    float m_lowGrowth = 0.0F;
};

} // namespace lyrabox
