#include "platform/audio/GraphicEqualizerDesign.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace lyrabox;
using namespace lyrabox::equalizer;

namespace {

using Sliders = std::array<double, sliderCount>;

double sliderCentre(std::size_t i)
{
    return centres[equalizerBandOfControl(i)];
}

Coefficients only(const Section &section)
{
    Coefficients coefficients;
    coefficients.sections[0] = section;
    return coefficients;
}

TEST(EqualizerGrid, TheTenSlidersAreOnOctaveCentres)
{
    const std::array<double, sliderCount> octaves = {31.5, 63,   125,  250,  500,
                                                     1000, 2000, 4000, 8000, 16000};
    for (std::size_t i = 0; i < sliderCount; ++i)
        EXPECT_EQ(sliderCentre(i), octaves[i]);
}

TEST(SmoothCurve, PassesThroughEverySlider)
{
    const Sliders sliders = {-12, 12, 3, 3, -5, 0, 7, -7, 1, 12};
    for (std::size_t i = 0; i < sliderCount; ++i)
        EXPECT_NEAR(smoothCurve(sliders, sliderCentre(i)), sliders[i], 1e-12);
}

TEST(SmoothCurve, IsFlatBeyondTheFirstAndTheLastSlider)
{
    const Sliders sliders = {-12, 12, 3, 3, -5, 0, 7, -7, 1, 12};
    EXPECT_EQ(smoothCurve(sliders, 5.0), -12.0);
    EXPECT_EQ(smoothCurve(sliders, 31.0), -12.0);
    EXPECT_EQ(smoothCurve(sliders, 16001.0), 12.0);
    EXPECT_EQ(smoothCurve(sliders, 22050.0), 12.0);
}

TEST(SmoothCurve, StaysBetweenTheTwoNearestSliders)
{
    const Sliders sliders = {-12, 12, 3, 3, -5, 0, 7, 7.5, 11, 12};
    for (std::size_t i = 0; i + 1 < sliderCount; ++i) {
        const auto [low, high] = std::minmax(sliders[i], sliders[i + 1]);
        for (double share = 0.0; share < 1.0; share += 0.01) {
            const double frequency =
                sliderCentre(i) * std::pow(sliderCentre(i + 1) / sliderCentre(i), share);
            const double level = smoothCurve(sliders, frequency);
            EXPECT_GE(level, low - 1e-9);
            EXPECT_LE(level, high + 1e-9);
        }
    }
}

TEST(SmoothCurve, HasNoKinkAtASlider)
{
    const Sliders sliders = {0, 2, 6, 7, 9, 4, 3, -2, -3, -9};
    const double octave = 1e-4;
    for (std::size_t i = 1; i + 1 < sliderCount; ++i) {
        const double at = smoothCurve(sliders, sliderCentre(i));
        const double before = smoothCurve(sliders, sliderCentre(i) * std::exp2(-octave));
        const double after = smoothCurve(sliders, sliderCentre(i) * std::exp2(octave));
        EXPECT_NEAR((at - before) / octave, (after - at) / octave, 0.02);
    }
}

TEST(PeakingSection, HasThePrescribedGainsAtCentreLowerEdgeAndZeroHertz)
{
    for (const double centre : centres) {
        for (const double gain : {-24.0, -6.0, 0.5, 12.0, 24.0}) {
            const Coefficients coefficients = only(peakingSection(centre, gain));
            EXPECT_NEAR(response(coefficients, centre), gain, 1e-6) << centre << " Hz";
            EXPECT_NEAR(response(coefficients, centre * std::exp2(-1.0 / 3.0)), 0.45 * gain, 1e-6)
                << centre << " Hz";
            EXPECT_NEAR(response(coefficients, centre * 1e-4), 0.0, 1e-4) << centre << " Hz";
        }
    }
}

TEST(PeakingSection, HasTheAnalogueFiltersGainAtHalfTheSampleRate)
{
    // (s^2 + G A s + w^2) / (s^2 + A s + w^2) at 16 kHz with 12 dB. Its edges are a third of an
    // octave away.
    const double peak = std::pow(10.0, 12.0 / 10.0);
    const double edge = std::pow(10.0, 0.45 * 12.0 / 10.0);
    const double width = 16000.0 * (std::exp2(1.0 / 3.0) - std::exp2(-1.0 / 3.0));
    const double damping = width * width * (edge - 1.0) / (peak - edge);
    const double distance = std::pow((22050.0 * 22050.0 - 16000.0 * 16000.0) / 22050.0, 2.0);
    const double expected = 10.0 * std::log10((distance + peak * damping) / (distance + damping));
    EXPECT_GT(expected, 1.0);
    EXPECT_NEAR(response(only(peakingSection(16000.0, 12.0)), 22050.0), expected, 1e-6);
}

TEST(PeakingSection, ACutInvertsTheBoost)
{
    for (const double centre : {20.0, 1000.0, 20000.0}) {
        Coefficients both = only(peakingSection(centre, 9.0));
        both.sections[1] = peakingSection(centre, -9.0);
        for (const double frequency : centres)
            EXPECT_NEAR(response(both, frequency), 0.0, 1e-9);
    }
}

TEST(PeakingSection, IsStableAtEveryGain)
{
    for (const double centre : centres) {
        for (double gain = -40.0; gain <= 40.0; gain += 0.25) {
            const Section section = peakingSection(centre, gain);
            EXPECT_LT(std::abs(section.a2), 1.0) << centre << " Hz, " << gain << " dB";
            EXPECT_LT(std::abs(section.a1), 1.0 + section.a2) << centre << " Hz, " << gain << " dB";
        }
    }
}

TEST(PeakingSection, IsContinuousAroundZeroDecibels)
{
    for (const double centre : centres) {
        const Section flat = peakingSection(centre, 0.0);
        EXPECT_EQ(flat.c0, 0.0);
        EXPECT_EQ(flat.c1, 0.0);
        EXPECT_EQ(flat.c2, 0.0);
        EXPECT_NE(flat.a2, 0.0);
        for (const double gain : {-0.02, -0.005, 0.005, 0.02}) {
            const Section near = peakingSection(centre, gain);
            EXPECT_NEAR(near.a1, flat.a1, 0.005);
            EXPECT_NEAR(near.a2, flat.a2, 0.005);
            EXPECT_NEAR(response(only(near), centre), gain, 1e-4);
        }
    }
}

TEST(EqualizerSolve, AllZeroLevelsGiveAWire)
{
    const Coefficients coefficients = solve({});
    EXPECT_EQ(coefficients.gain, 1.0);
    for (const Section &section : coefficients.sections) {
        EXPECT_EQ(section.c0, 0.0);
        EXPECT_EQ(section.c1, 0.0);
        EXPECT_EQ(section.c2, 0.0);
    }
}

TEST(EqualizerSolve, TheSlidersMeanBecomesThePlainGain)
{
    Levels levels{};
    for (std::size_t i = 0; i < sliderCount; ++i)
        levels[equalizerBandOfControl(i)] = i < 5 ? 12.0F : 0.0F;
    EXPECT_NEAR(20.0 * std::log10(solve(levels).gain), 6.0, 1e-12);
}

TEST(EqualizerSolve, ABandWithoutASliderAddsItsLevelAtItsCentre)
{
    for (std::size_t band = 0; band < sectionCount; ++band) {
        if (band % 3 == 2)
            continue;
        for (const float level : {-12.0F, 12.0F}) {
            Levels levels{};
            levels[band] = level;
            const Coefficients coefficients = solve(levels);
            EXPECT_NEAR(response(coefficients, centres[band]), level, 0.1) << "band " << band;
            for (std::size_t i = 0; i < sliderCount; ++i)
                EXPECT_NEAR(response(coefficients, sliderCentre(i)), 0.0, 0.1) << "band " << band;
        }
    }
}

TEST(EqualizerSolve, BandsWithoutASliderAddToTheSlidersCurve)
{
    Levels levels{};
    for (std::size_t i = 0; i < sliderCount; ++i)
        levels[equalizerBandOfControl(i)] = 5.0F;
    levels[18] = -4.0F;
    const Coefficients coefficients = solve(levels);
    EXPECT_NEAR(response(coefficients, centres[18]), 1.0, 0.1);
    EXPECT_NEAR(response(coefficients, 100.0), 5.0, 0.1);
}

TEST(EqualizerSolve, LevelsAreClampedToTheLimit)
{
    Levels wild{};
    Levels limited{};
    for (std::size_t i = 0; i < sectionCount; ++i) {
        wild[i] = i % 2 == 0 ? 1e30F : -25.0F;
        limited[i] = i % 2 == 0 ? 24.0F : -24.0F;
    }
    const Coefficients fromWild = solve(wild);
    const Coefficients fromLimited = solve(limited);
    EXPECT_EQ(fromWild.gain, fromLimited.gain);
    for (std::size_t i = 0; i < sectionCount; ++i)
        EXPECT_EQ(fromWild.sections[i].c0, fromLimited.sections[i].c0);
}

} // namespace
