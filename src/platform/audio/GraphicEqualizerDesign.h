#pragma once

#include "platform/audio/AudioUnit.h"

#include <array>
#include <span>

namespace lyrabox {

/// The mathematics of the graphic equalizer: from 31 levels in dB to the coefficients of 31
/// second-order sections. Pure functions, control side. Frequencies in Hz, levels and gains in dB,
/// designed for canonicalStreamFormat().
namespace equalizer {

constexpr std::size_t sectionCount = parameter::equalizerBands;
constexpr std::size_t sliderCount = 10;

/// The band that slider `i` (0 to 9, lowest first) drives.
constexpr std::size_t bandOfSlider(std::size_t i)
{
    return 3 * i + 2;
}

/// The preferred third-octave frequencies of ISO 266.
constexpr std::array<double, sectionCount> centres = {
    20,  25,   31.5, 40,   50,   63,   80,   100,  125,  160,  200,  250,   315,   400,   500,  630,
    800, 1000, 1250, 1600, 2000, 2500, 3150, 4000, 5000, 6300, 8000, 10000, 12500, 16000, 20000};

/// A level beyond this counts as this.
constexpr double levelLimit = 24.0;

using Levels = std::array<float, sectionCount>;

/// A second-order section H(z) = 1 + (c0 + c1/z + c2/z^2) / (1 + a1/z + a2/z^2): the difference to
/// a plain wire. At 0 dB every c is exactly zero, whatever the poles, and the section is that wire.
struct Section {
    double c0 = 0.0;
    double c1 = 0.0;
    double c2 = 0.0;
    double a1 = 0.0;
    double a2 = 0.0;
};

/// What the filter needs to run: a plain gain (factor) and the sections in cascade.
struct Coefficients {
    double gain = 1.0;
    std::array<Section, sectionCount> sections{};
};

/// The curve that the ten sliders describe, at `frequency`: a monotone cubic (PCHIP: Fritsch and
/// Butland's slopes) through the ten levels over log frequency, flat beyond the first and the last.
double smoothCurve(std::span<const double, sliderCount> sliders, double frequency);

/// A peaking section of `gain` dB at `centre`: 2/3 of an octave wide at 0.45 of its gain in dB, 0
/// dB at 0 Hz, and at half the sample rate the gain of the analogue peaking filter of the same
/// centre, width and gain (Orfanidis 1997, "Digital parametric equalizer design with prescribed
/// Nyquist-frequency gain"). Symmetric: -gain is its inverse.
Section peakingSection(double centre, double gain);

/// Coefficients for `levels`, each limited to +-levelLimit. The mean of the ten sliders becomes the
/// plain gain; the gains of the sections are solved so that their sum meets the smooth curve, plus
/// the level of each of the other 21 bands at its own centre. About a tenth of a millisecond.
Coefficients solve(const Levels &levels);

/// The gain in dB of the whole equalizer at `frequency`.
double response(const Coefficients &coefficients, double frequency);

} // namespace equalizer
} // namespace lyrabox
