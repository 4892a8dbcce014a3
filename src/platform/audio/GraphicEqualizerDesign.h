#pragma once

#include "platform/audio/AudioUnit.h"
#include "platform/audio/SoundRanges.h"

#include <array>
#include <span>

namespace lyrabox {

/// Computes the graphic equalizer's coefficients: 31 second-order sections from 31 levels. Pure
/// functions for the control side. Frequencies are in Hz, levels and gains in dB. The sample rate
/// is that of canonicalStreamFormat().
namespace equalizer {

constexpr std::size_t sectionCount = parameter::equalizerBands;
constexpr std::size_t sliderCount = equalizerControls;

/// The preferred third-octave frequencies of ISO 266.
constexpr std::array<double, sectionCount> centres = {
    20,  25,   31.5, 40,   50,   63,   80,   100,  125,  160,  200,  250,   315,   400,   500,  630,
    800, 1000, 1250, 1600, 2000, 2500, 3150, 4000, 5000, 6300, 8000, 10000, 12500, 16000, 20000};

/// Levels are clamped to ±levelLimit.
constexpr double levelLimit = 24.0;

using Levels = std::array<float, sectionCount>;

/// A second-order section H(z) = 1 + (c0 + c1/z + c2/z^2) / (1 + a1/z + a2/z^2). The fraction is
/// the difference from a plain wire. At 0 dB every c is exactly zero, and the section is that wire.
struct Section {
    double c0 = 0.0;
    double c1 = 0.0;
    double c2 = 0.0;
    double a1 = 0.0;
    double a2 = 0.0;
};

/// The coefficients of the whole filter: a plain gain, as a factor, and the sections in cascade.
struct Coefficients {
    double gain = 1.0;
    std::array<Section, sectionCount> sections{};
};

/// The value at `frequency` of the curve that the ten sliders describe: a monotone cubic through
/// their levels over log frequency (PCHIP, with the slopes of Fritsch and Butland 1984), and flat
/// below the first and above the last slider.
double smoothCurve(std::span<const double, sliderCount> sliders, double frequency);

/// A peaking section of `gain` dB at `centre`. It is 2/3 of an octave wide at 0.45 of its gain in
/// dB. Its gain is 0 dB at 0 Hz. At half the sample rate it has the gain of the analogue peaking
/// filter with the same centre, width and gain (Orfanidis 1997, "Digital parametric equalizer
/// design with prescribed Nyquist-frequency gain"). The section with -gain is its inverse.
Section peakingSection(double centre, double gain);

/// The coefficients for `levels`, each clamped to ±levelLimit. The mean of the ten sliders becomes
/// the plain gain. The gains of the sections are solved so that their sum meets the smooth curve,
/// plus the level of each of the other 21 bands at its own centre. Takes about 0.1 ms.
Coefficients solve(const Levels &levels);

/// The gain of the whole equalizer at `frequency`, in dB.
double response(const Coefficients &coefficients, double frequency);

} // namespace equalizer
} // namespace lyrabox
