#pragma once

#include "platform/analysis/SampleShape.h"

#include <array>

namespace lyrabox {

/// Splits a song into bands and measures their energies. The low band lies below 200 Hz, the high
/// one above 2.5 kHz. Both are cut off by Butterworth filters of fourth order, so their energies
/// and that of the band between add up to the energy of the song.
///
/// Frames are given in the order of the song. After a gap, reset() and then give warmUpFrames
/// frames before those that matter. The energies are then the same as without the gap, up to
/// rounding.
class BandEnergies {
public:
    /// Both filters have forgotten what came before, at sample rates up to 96 kHz.
    static constexpr std::uint64_t warmUpFrames = 4096;

    /// The sums of the squares of both channels in a band.
    struct Energies {
        double low = 0.0;
        double high = 0.0;
    };

    /// Below a sample rate of 5.6 kHz the filters' frequencies are lowered to what the rate allows.
    explicit BandEnergies(double sampleRate);

    /// Measures frames that follow on the last ones. No sample may be damaged.
    Energies add(const SongSamples &samples);

    /// Continues as if only silence had come before.
    void reset();

private:
    /// Filters both channels at once: the low band in lanes 0 and 1, the high band in 2 and 3.
    struct Section {
        FourLanes gain{};   ///< of the newest and the oldest sample
        FourLanes middle{}; ///< of the sample between, in units of `gain`
        FourLanes a1{};
        FourLanes a2{};
        FourLanes s1{}; ///< the state
        FourLanes s2{};

        FourLanes filtered(FourLanes x);
    };

    void forgetFaintStates();

    std::array<Section, 2> m_sections;
};

} // namespace lyrabox
