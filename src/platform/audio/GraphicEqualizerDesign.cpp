#include "platform/audio/GraphicEqualizerDesign.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <numeric>
#include <utility>

namespace lyrabox::equalizer {
namespace {

constexpr double sampleRate = canonicalStreamFormat().mSampleRate;
constexpr double halfWidthOctaves = 1.0 / 3.0; // from the centre to a band edge
constexpr double edgeGainShare = 0.45; // gain at a band edge over gain at the centre, both in dB
constexpr double smallestGain = 0.01;  // dB; smaller gains use the section of this gain, scaled

// The solver looks at every centre, and at the geometric midpoint between each two.
constexpr std::size_t pointCount = 2 * sectionCount - 1;
constexpr double sliderWeight = 1.0;
constexpr double bandWeight = 0.04;
constexpr double midpointWeight = 0.01; // a larger one fits better between sliders, worse at them

constexpr double firstGain = 17.0; // dB; the first round uses the shapes of sections of this gain
constexpr int refinements = 2; // rounds with the shapes at the last gains; a third has no effect
constexpr double sectionGainLimit = 36.0; // dB

using SectionGains = std::array<double, sectionCount>;
using PointLevels = std::array<double, pointCount>;
// The effect of each section at each point, in dB per dB of the section's gain.
using Shapes = std::array<std::array<double, sectionCount>, pointCount>;

double fromDecibels(double level)
{
    return std::pow(10.0, level / 20.0);
}

double squared(double x)
{
    return x * x;
}

// The bilinear transform's image of a frequency, squared.
double warpedSquare(double frequency)
{
    return squared(std::tan(std::numbers::pi * frequency / sampleRate));
}

// (nyquist s^2 + zeros s + resonance) / (s^2 + poles s + resonance), where s is the variable of the
// bilinear transform.
struct Peak {
    double nyquist = 1.0;
    double zeros = 0.0;
    double poles = 0.0;
    double resonance = 0.0;

    double decibels(double warped) const
    {
        const double above = squared(resonance - nyquist * warped) + squared(zeros) * warped;
        const double below = squared(resonance - warped) + squared(poles) * warped;
        return 10.0 * std::log10(above / below);
    }
};

// A boost. The three prescribed gains (centre, lower edge, half the sample rate) and the condition
// that the centre is the maximum are linear in the squares of `zeros` and `poles`, so no search for
// the digital bandwidth is needed.
Peak boost(double centre, double gain)
{
    const double peakGain = squared(fromDecibels(gain));
    const double edgeGain = squared(fromDecibels(edgeGainShare * gain));
    const double edgeRatio = std::exp2(halfWidthOctaves);

    // The analogue filter's squared gain at half the sample rate.
    const double angle = 2.0 * std::numbers::pi * centre / sampleRate;
    const double width = angle * (edgeRatio - 1.0 / edgeRatio);
    const double damping = squared(width) * (edgeGain - 1.0) / (peakGain - edgeGain);
    const double distance = squared(std::numbers::pi - squared(angle) / std::numbers::pi);
    const double nyquistGain = (distance + peakGain * damping) / (distance + damping);

    const double atCentre = warpedSquare(centre);
    const double atEdge = warpedSquare(centre / edgeRatio);
    Peak peak;
    peak.nyquist = std::sqrt(nyquistGain);
    peak.resonance = atCentre * std::sqrt((peakGain - nyquistGain) / (peakGain - 1.0));
    // Squared gain g at warped w: zeros^2 - g poles^2 = g * below(w) - above(w).
    const auto below = [&](double w) { return squared(peak.resonance - w) / w; };
    const auto above = [&](double w) { return squared(peak.resonance - peak.nyquist * w) / w; };
    const double edgeSide = edgeGain * below(atEdge) - above(atEdge);
    const double centreSide = peakGain * below(atCentre) - above(atCentre);
    const double polesSquare = (edgeSide - centreSide) / (peakGain - edgeGain);
    peak.poles = std::sqrt(polesSquare);
    peak.zeros = std::sqrt(centreSide + peakGain * polesSquare);
    return peak;
}

const std::array<double, pointCount> &points()
{
    static const auto table = [] {
        std::array<double, pointCount> frequencies{};
        for (std::size_t i = 0; i < pointCount; ++i)
            frequencies[i] = std::sqrt(centres[i / 2] * centres[(i + 1) / 2]);
        return frequencies;
    }();
    return table;
}

constexpr bool hasSlider(std::size_t band)
{
    return equalizerBandOfControl(band / 3) == band;
}

double weightOf(std::size_t point)
{
    if (point % 2 == 1)
        return midpointWeight;
    return hasSlider(point / 2) ? sliderWeight : bandWeight;
}

Shapes shapesAt(const SectionGains &gains)
{
    std::array<double, pointCount> warped{};
    std::transform(points().begin(), points().end(), warped.begin(), warpedSquare);
    Shapes shapes{};
    for (std::size_t section = 0; section < sectionCount; ++section) {
        // The shape of a cut is the shape of the boost that undoes it.
        const double gain = std::clamp(std::abs(gains[section]), smallestGain, sectionGainLimit);
        const Peak peak = boost(centres[section], gain);
        for (std::size_t point = 0; point < pointCount; ++point)
            shapes[point][section] = peak.decibels(warped[point]) / gain;
    }
    return shapes;
}

// The gains whose shapes add up to `target` with the least weighted squared error, by the normal
// equations and a Cholesky decomposition.
SectionGains leastSquares(const Shapes &shapes, const PointLevels &target)
{
    std::array<std::array<double, sectionCount>, sectionCount> matrix{};
    SectionGains side{};
    for (std::size_t point = 0; point < pointCount; ++point) {
        const auto &row = shapes[point];
        for (std::size_t i = 0; i < sectionCount; ++i) {
            const double weighted = weightOf(point) * row[i];
            side[i] += weighted * target[point];
            for (std::size_t j = 0; j <= i; ++j)
                matrix[i][j] += weighted * row[j];
        }
    }
    for (std::size_t i = 0; i < sectionCount; ++i) {
        for (std::size_t j = 0; j <= i; ++j) {
            double sum = matrix[i][j];
            for (std::size_t k = 0; k < j; ++k)
                sum -= matrix[i][k] * matrix[j][k];
            matrix[i][j] = i == j ? std::sqrt(sum) : sum / matrix[j][j];
        }
    }
    for (std::size_t i = 0; i < sectionCount; ++i) {
        for (std::size_t k = 0; k < i; ++k)
            side[i] -= matrix[i][k] * side[k];
        side[i] /= matrix[i][i];
    }
    for (std::size_t i = sectionCount; i-- > 0;) {
        for (std::size_t k = i + 1; k < sectionCount; ++k)
            side[i] -= matrix[k][i] * side[k];
        side[i] /= matrix[i][i];
    }
    return side;
}

} // namespace

double smoothCurve(std::span<const double, sliderCount> sliders, double frequency)
{
    std::array<double, sliderCount> x{};
    for (std::size_t i = 0; i < sliderCount; ++i)
        x[i] = std::log2(centres[equalizerBandOfControl(i)]);
    const double at = std::log2(frequency);
    if (at <= x.front())
        return sliders.front();
    if (at >= x.back())
        return sliders.back();

    const auto width = [&](std::size_t i) { return x[i + 1] - x[i]; };
    const auto secant = [&](std::size_t i) { return (sliders[i + 1] - sliders[i]) / width(i); };
    // The three-point slope at an end, limited so that the curve stays monotone. `near` is the
    // first interval, `next` the second.
    const auto endSlope = [&](std::size_t near, std::size_t next) {
        const double slope =
            ((2.0 * width(near) + width(next)) * secant(near) - width(near) * secant(next)) /
            (width(near) + width(next));
        if (slope * secant(near) <= 0.0)
            return 0.0;
        if (secant(near) * secant(next) < 0.0 && std::abs(slope) > 3.0 * std::abs(secant(near)))
            return 3.0 * secant(near);
        return slope;
    };
    const auto slope = [&](std::size_t i) {
        if (i == 0)
            return endSlope(0, 1);
        if (i == sliderCount - 1)
            return endSlope(sliderCount - 2, sliderCount - 3);
        const double before = secant(i - 1);
        const double after = secant(i);
        if (before * after <= 0.0)
            return 0.0;
        const double first = 2.0 * width(i) + width(i - 1);
        const double second = width(i) + 2.0 * width(i - 1);
        return (first + second) / (first / before + second / after);
    };

    const auto upper = std::upper_bound(x.begin(), x.end(), at);
    const auto i = static_cast<std::size_t>(upper - x.begin()) - 1;
    const double t = (at - x[i]) / width(i);
    const double rise = t * t * (3.0 - 2.0 * t);
    return sliders[i] + rise * (sliders[i + 1] - sliders[i]) +
           width(i) * t * (1.0 - t) * ((1.0 - t) * slope(i) - t * slope(i + 1));
}

Section peakingSection(double centre, double gain)
{
    const double size = std::clamp(std::abs(gain), smallestGain, sectionGainLimit);
    const double share = std::min(std::abs(gain) / smallestGain, 1.0);
    const Peak peak = boost(centre, size);
    const double excess = peak.nyquist - 1.0;
    const double spread = peak.zeros - peak.poles;
    // A cut is the boost with numerator and denominator exchanged.
    const bool isCut = gain < 0.0;
    const double lead = isCut ? peak.nyquist : 1.0;
    const double middle = isCut ? peak.zeros : peak.poles;
    const double scale = 1.0 / (lead + peak.resonance + middle);
    const double difference = (isCut ? -share : share) * scale;
    return {.c0 = difference * (excess + spread),
            .c1 = difference * -2.0 * excess,
            .c2 = difference * (excess - spread),
            .a1 = scale * -2.0 * (lead - peak.resonance),
            .a2 = scale * (lead + peak.resonance - middle)};
}

Coefficients solve(const Levels &levels)
{
    static const Shapes firstShapes = [] {
        SectionGains gains{};
        gains.fill(firstGain);
        return shapesAt(gains);
    }();

    std::array<double, sectionCount> extra{};
    std::transform(levels.begin(), levels.end(), extra.begin(),
                   [](float level) { return std::clamp<double>(level, -levelLimit, levelLimit); });
    std::array<double, sliderCount> sliders{};
    for (std::size_t i = 0; i < sliderCount; ++i)
        sliders[i] = std::exchange(extra[equalizerBandOfControl(i)], 0.0);
    const double mean = std::accumulate(sliders.begin(), sliders.end(), 0.0) / sliderCount;
    for (double &slider : sliders)
        slider -= mean;

    PointLevels target{};
    for (std::size_t i = 0; i < pointCount; ++i)
        target[i] = smoothCurve(sliders, points()[i]) + 0.5 * (extra[i / 2] + extra[(i + 1) / 2]);
    SectionGains gains = leastSquares(firstShapes, target);
    for (int round = 0; round < refinements; ++round)
        gains = leastSquares(shapesAt(gains), target);

    Coefficients coefficients;
    coefficients.gain = fromDecibels(mean);
    std::transform(centres.begin(), centres.end(), gains.begin(), coefficients.sections.begin(),
                   peakingSection);
    return coefficients;
}

double response(const Coefficients &coefficients, double frequency)
{
    const std::complex<double> delay =
        std::polar(1.0, -2.0 * std::numbers::pi * frequency / sampleRate);
    std::complex<double> product = coefficients.gain;
    for (const Section &section : coefficients.sections)
        product *= 1.0 + (section.c0 + delay * (section.c1 + delay * section.c2)) /
                             (1.0 + delay * (section.a1 + delay * section.a2));
    return 20.0 * std::log10(std::abs(product));
}

} // namespace lyrabox::equalizer
