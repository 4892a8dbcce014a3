#include "platform/audio/DenormalGuard.h"
#include "platform/audio/PulledEqualizer.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <random>

using namespace lyrabox;
using namespace lyrabox::equalizer;
using lyrabox::test::PulledEqualizer;

// Measures the equalizer's goals on its output. docs/sound-equalizer.md has the same figures.
namespace {

using Sliders = std::array<double, sliderCount>;

constexpr double sampleRate = 44100.0;
constexpr std::size_t responseFrames = 65536; // a 20 Hz section has died away by then

double decibels(double amplitude)
{
    return 20.0 * std::log10(std::max(amplitude, 1e-30));
}

// The stage uses the mirror image of its first frames as its past. After this much silence the past
// is silent, too.
constexpr std::size_t firstSound = 256;

float click(std::size_t frame, std::size_t)
{
    return frame == firstSound ? 1.0F : 0.0F;
}

float tone(std::size_t frame, std::size_t)
{
    return static_cast<float>(
        std::sin(2.0 * std::numbers::pi * 1000.0 * static_cast<double>(frame) / sampleRate));
}

// The level of an impulse response at `frequency`, which is the gain of a tone of this frequency.
double gainAt(const std::vector<float> &answer, double frequency)
{
    const std::complex<double> turn =
        std::polar(1.0, -2.0 * std::numbers::pi * frequency / sampleRate);
    std::complex<double> sum = 0.0;
    for (std::size_t i = answer.size(); i-- > 0;)
        sum = sum * turn + static_cast<double>(answer[i]);
    return decibels(std::abs(sum));
}

Sliders randomSliders(std::mt19937 &random)
{
    std::uniform_real_distribution<float> level(-12.0F, 12.0F);
    Sliders sliders{};
    for (double &slider : sliders)
        slider = level(random);
    return sliders;
}

// A high-pass that keeps frequencies beyond 6 kHz and removes those below 5.5 kHz by more than 100
// dB: a sinc in a Blackman-Harris window.
std::vector<double> beyondSixKilohertz()
{
    constexpr int length = 401;
    std::vector<double> filter(length);
    for (int i = 0; i < length; ++i) {
        const double t = i - (length - 1) / 2;
        const double angle = 2.0 * std::numbers::pi * i / (length - 1);
        const double window = 0.35875 - 0.48829 * std::cos(angle) +
                              0.14128 * std::cos(2.0 * angle) - 0.01168 * std::cos(3.0 * angle);
        const double cutoff = 2.0 * std::numbers::pi * 5800.0 / sampleRate;
        const double sinc = t == 0.0 ? cutoff : std::sin(cutoff * t) / t;
        filter[static_cast<std::size_t>(i)] =
            (t == 0.0 ? 1.0 : 0.0) - window * sinc / std::numbers::pi;
    }
    return filter;
}

// The highest sample beyond 6 kHz in dB of full scale. This is stricter than a spectrum, which
// averages.
double peakBeyondSixKilohertz(const std::vector<float> &signal)
{
    static const std::vector<double> filter = beyondSixKilohertz();
    double peak = 0.0;
    for (std::size_t i = 0; i + filter.size() <= signal.size(); ++i) {
        double sum = 0.0;
        for (std::size_t k = 0; k < filter.size(); ++k)
            sum += filter[k] * static_cast<double>(signal[i + k]);
        peak = std::max(peak, std::abs(sum));
    }
    return decibels(peak);
}

TEST(EqualizerSound, TheSoundHasTheDesignedResponse)
{
    std::mt19937 random(7);
    for (int setting = 0; setting < 8; ++setting) {
        PulledEqualizer pulled(click);
        Levels levels{};
        for (std::size_t i = 0; i < sectionCount; ++i) {
            levels[i] = std::uniform_real_distribution<float>(-12.0F, 12.0F)(random);
            pulled.unit.setParameter(static_cast<std::uint32_t>(i), levels[i]);
        }
        const auto heard = pulled.pull(2 * responseFrames);
        const Coefficients designed = solve(levels);
        for (double frequency = 20.0; frequency <= 20000.0; frequency *= std::exp2(0.25))
            EXPECT_NEAR(gainAt(heard[0], frequency), response(designed, frequency), 0.005)
                << frequency << " Hz";
    }
}

// A reference of the filter with higher precision than the stage has.
std::vector<long double> reference(const Coefficients &coefficients,
                                   const std::vector<float> &input)
{
    std::vector<long double> signal(input.begin(), input.end());
    for (long double &sample : signal)
        sample *= coefficients.gain;
    for (const Section &section : coefficients.sections) {
        const long double b0 = 1.0L + section.c0;
        const long double b1 = static_cast<long double>(section.a1) + section.c1;
        const long double b2 = static_cast<long double>(section.a2) + section.c2;
        std::array<long double, 4> before{}; // in, in, out, out
        for (long double &sample : signal) {
            const long double out = b0 * sample + b1 * before[0] + b2 * before[1] -
                                    section.a1 * before[2] - section.a2 * before[3];
            before = {sample, before[0], out, before[2]};
            sample = out;
        }
    }
    return signal;
}

TEST(EqualizerSound, ItsNoiseIsBelowTheResolutionOfAFloat)
{
    // A low tone on a constant. Single precision would fail here, because the poles are close to 0
    // Hz.
    std::vector<float> input(44100);
    for (std::size_t i = 0; i < input.size(); ++i)
        input[i] = i < firstSound ? 0.0F : 0.1F + 0.1F * tone(i * 3 / 100, 0);
    PulledEqualizer pulled([&](std::size_t frame, std::size_t) { return input[frame]; });
    Levels levels{};
    for (std::size_t i = 0; i < sliderCount; ++i) {
        levels[equalizerBandOfControl(i)] = i % 3 == 0 ? 12.0F : -8.0F;
        pulled.setSlider(i, levels[equalizerBandOfControl(i)]);
    }
    const auto heard = pulled.pull(input.size());
    const auto expected = reference(solve(levels), input);
    long double worst = 0.0L;
    for (std::size_t i = 0; i < input.size(); ++i)
        worst = std::max(worst, std::abs(heard[0][i] - expected[i]));
    // Half a step of a float between 0.5 and 1 is -150.5 dB.
    EXPECT_LE(decibels(static_cast<double>(worst)), -150.0);
    RecordProperty("worst_dB", std::to_string(decibels(static_cast<double>(worst))));
}

TEST(EqualizerSound, SlidersHaveTheirLevelsAtTheirCentres)
{
    std::mt19937 random(11);
    double worst = 0.0;
    for (int setting = 0; setting < 40; ++setting) {
        const Sliders sliders = randomSliders(random);
        PulledEqualizer pulled(click);
        for (std::size_t i = 0; i < sliderCount; ++i)
            pulled.setSlider(i, static_cast<float>(sliders[i]));
        const auto heard = pulled.pull(responseFrames);
        for (std::size_t i = 0; i < sliderCount; ++i)
            worst = std::max(
                worst, std::abs(gainAt(heard[1], centres[equalizerBandOfControl(i)]) - sliders[i]));
    }
    EXPECT_LE(worst, 0.02);
    RecordProperty("worst_dB", std::to_string(worst));
}

TEST(EqualizerSound, TwoThousandSettingsMeetTheSlidersAndTheCurveBetweenThem)
{
    std::mt19937 random(13);
    double worstAtCentre = 0.0;
    std::vector<double> worstBetween;
    for (int setting = 0; setting < 2000; ++setting) {
        const Sliders sliders = randomSliders(random);
        Levels levels{};
        for (std::size_t i = 0; i < sliderCount; ++i)
            levels[equalizerBandOfControl(i)] = static_cast<float>(sliders[i]);
        const Coefficients designed = solve(levels);
        for (std::size_t i = 0; i < sliderCount; ++i)
            worstAtCentre = std::max(
                worstAtCentre,
                std::abs(response(designed, centres[equalizerBandOfControl(i)]) - sliders[i]));
        double between = 0.0;
        for (double frequency = 20.0; frequency <= 20000.0; frequency *= std::exp2(1.0 / 12.0))
            between = std::max(
                between, std::abs(response(designed, frequency) - smoothCurve(sliders, frequency)));
        worstBetween.push_back(between);
    }
    std::sort(worstBetween.begin(), worstBetween.end());
    EXPECT_LE(worstAtCentre, 0.02);
    EXPECT_LE(worstBetween.back(), 1.4);
    EXPECT_LE(worstBetween[worstBetween.size() * 95 / 100], 1.0);
    RecordProperty("centre_dB", std::to_string(worstAtCentre));
    RecordProperty("between_dB", std::to_string(worstBetween.back()));
    RecordProperty("between_95_percent_dB",
                   std::to_string(worstBetween[worstBetween.size() * 95 / 100]));
}

TEST(EqualizerSound, TenEqualSlidersAreFlat)
{
    for (const float level : {-12.0F, -3.7F, 0.1F, 6.0F, 12.0F}) {
        PulledEqualizer pulled(click);
        pulled.setSliders(level);
        const auto heard = pulled.pull(8192);
        for (double frequency = 20.0; frequency <= 20000.0; frequency *= std::exp2(1.0 / 12.0))
            EXPECT_NEAR(gainAt(heard[0], frequency), level, 0.01) << frequency << " Hz";
        EXPECT_NEAR(gainAt(heard[0], 20000.0), level, 0.01);
    }
}

// Every kind of finite float: both zeros, subnormals, the smallest and the largest.
float anyBits(std::size_t frame, std::size_t channel)
{
    const auto mixed = static_cast<std::uint32_t>((frame * 2 + channel) * 2654435761U);
    const auto sample = std::bit_cast<float>(mixed ^ (mixed >> 15));
    if (frame % 7 == 0)
        return channel == 0 ? -0.0F : 0.0F;
    return std::isfinite(sample) ? sample : std::numeric_limits<float>::denorm_min();
}

TEST(EqualizerSound, ZeroLevelsPassTheInputBitForBit)
{
    for (const std::uint32_t framesPerPull : {128U, 1024U, 37U}) {
        PulledEqualizer pulled(anyBits);
        const auto heard = pulled.pull(100000, framesPerPull);
        std::size_t differing = 0;
        for (std::size_t i = 0; i < 100000; ++i)
            for (std::size_t channel = 0; channel < 2; ++channel)
                differing += std::bit_cast<std::uint32_t>(heard[channel][i]) !=
                             std::bit_cast<std::uint32_t>(anyBits(i, channel));
        EXPECT_EQ(differing, 0U);
    }
}

TEST(EqualizerSound, ReturningToZeroLevelsPassesTheInputBitForBitAgain)
{
    PulledEqualizer pulled(tone);
    for (std::size_t i = 0; i < sliderCount; ++i)
        pulled.setSlider(i, i % 2 == 0 ? 12.0F : -9.0F);
    pulled.pull(44100);
    pulled.setSliders(0.0F);
    pulled.pull(5 * 44100); // the sections' ringing dies away
    const std::size_t start = pulled.position;
    const auto heard = pulled.pull(44100);
    for (std::size_t i = 0; i < heard[0].size(); ++i)
        ASSERT_EQ(heard[0][i], tone(start + i, 0)) << i;
}

TEST(EqualizerSound, TheChannelsAreIndependent)
{
    PulledEqualizer pulled([](std::size_t frame, std::size_t channel) {
        return channel == 0 ? tone(frame, 0) : 0.0F;
    });
    for (std::size_t i = 0; i < sliderCount; ++i)
        pulled.setSlider(i, i % 2 == 0 ? 12.0F : -12.0F);
    const auto heard = pulled.pull(44100);
    EXPECT_EQ(heard[1], std::vector<float>(44100, 0.0F));
    EXPECT_NE(heard[0], std::vector<float>(44100, 0.0F));
}

TEST(EqualizerSound, TheSoundDoesNotDependOnTheSizeOfThePulls)
{
    const auto heardIn = [](std::uint32_t framesPerPull) {
        PulledEqualizer pulled(tone);
        pulled.setSliders(-6.0F);
        auto first = pulled.pull(1000, framesPerPull);
        for (std::size_t i = 0; i < sliderCount; ++i)
            pulled.setSlider(i, static_cast<float>(i));
        auto second = pulled.pull(3001, framesPerPull);
        first[0].insert(first[0].end(), second[0].begin(), second[0].end());
        return first[0];
    };
    const std::vector<float> reference = heardIn(128);
    for (const std::uint32_t framesPerPull : {1U, 7U, 1024U})
        EXPECT_EQ(heardIn(framesPerPull), reference) << framesPerPull;
}

// Drags a slider, or all ten, up and down while 1 kHz plays at full scale, with a new level in
// every pull. Returns the highest sample beyond 6 kHz.
double sweep(std::size_t slider, std::size_t count, std::size_t frames, std::uint32_t framesPerPull)
{
    PulledEqualizer pulled(tone);
    const auto set = [&](double level) {
        for (std::size_t i = 0; i < count; ++i)
            pulled.setSlider(slider + i, static_cast<float>(level));
    };
    set(-12.0);
    pulled.pull(44100);
    std::vector<float> heard;
    const auto append = [&](const std::vector<float> &more) {
        heard.insert(heard.end(), more.begin(), more.end());
    };
    for (std::size_t at = 0; at < frames; at += framesPerPull) {
        const double share = static_cast<double>(at) / static_cast<double>(frames);
        set(-12.0 * std::cos(2.0 * std::numbers::pi * share));
        append(pulled.pull(framesPerPull, framesPerPull)[0]);
    }
    append(pulled.pull(4410)[0]);
    return peakBeyondSixKilohertz(heard);
}

TEST(EqualizerSound, ASweptSliderLeavesNothingAboveMinus80DecibelsBeyondSixKilohertz)
{
    double worst = -300.0;
    for (std::size_t slider = 0; slider < sliderCount; ++slider) {
        for (const std::uint32_t framesPerPull :
             {128U, 735U}) { // every slice, and sixty times a second
            const double peak = sweep(slider, 1, 22050, framesPerPull);
            EXPECT_LE(peak, -80.0) << "slider " << slider << ", " << framesPerPull << " frames";
            worst = std::max(worst, peak);
        }
    }
    EXPECT_LE(sweep(0, sliderCount, 22050, 735), -80.0) << "all sliders together";
    RecordProperty("worst_dB", std::to_string(worst));
}

TEST(EqualizerSound, AJumpOfAllSlidersLeavesNothingAboveMinus80DecibelsBeyondSixKilohertz)
{
    PulledEqualizer pulled(tone);
    pulled.setSliders(-12.0F);
    pulled.pull(44100);
    std::vector<float> heard;
    for (int jump = 0; jump < 6; ++jump) {
        if (jump % 2 == 0)
            pulled.setSliders(12.0F);
        else
            for (std::size_t i = 0; i < sliderCount; ++i)
                pulled.setSlider(i, i % 2 == 0 ? 12.0F : -12.0F);
        const auto more = pulled.pull(8820);
        heard.insert(heard.end(), more[0].begin(), more[0].end());
    }
    const double peak = peakBeyondSixKilohertz(heard);
    EXPECT_LE(peak, -80.0);
    RecordProperty("peak_dB", std::to_string(peak));
}

TEST(EqualizerSound, ThirtySecondsOfRandomExtremesStayFiniteAndInBounds)
{
    std::mt19937 random(3);
    PulledEqualizer pulled([&](std::size_t frame, std::size_t) {
        // Full-scale square waves from 22 Hz on, which excite the resonances.
        return frame / (1 + (frame >> 12) % 1000) % 2 == 0 ? 1.0F : -1.0F;
    });
    const auto extreme = [&] { return random() % 2 == 0 ? 24.0F : -24.0F; };
    float loudest = 0.0F;
    bool isFinite = true;
    while (pulled.position < 30 * 44100) {
        if (random() % 2 == 0) {
            pulled.setSlider(random() % sliderCount, extreme());
        } else {
            for (std::uint32_t band = 0; band < sectionCount; ++band)
                if (random() % 4 == 0)
                    pulled.unit.setParameter(band, random() % 50 == 0 ? 1e30F : extreme());
        }
        const auto heard = pulled.pull(1 + random() % 2500, 512);
        for (const auto &channel : heard) {
            for (const float sample : channel) {
                isFinite = isFinite && std::isfinite(sample);
                loudest = std::max(loudest, std::abs(sample));
            }
        }
    }
    EXPECT_TRUE(isFinite);
    EXPECT_LT(decibels(static_cast<double>(loudest)), 70.0);
    RecordProperty("loudest_dB", std::to_string(decibels(static_cast<double>(loudest))));
}

TEST(EqualizerSound, SubnormalNumbersAreZeroOnlyDuringRendering)
{
    if (!DenormalGuard::isEffective)
        GTEST_SKIP() << "this processor has no such switch";
    volatile double smallest = std::numeric_limits<double>::min();
    volatile double halfInside = 1.0;
    PulledEqualizer pulled([&](std::size_t, std::size_t) {
        halfInside = smallest * 0.5;
        return 0.0F;
    });
    pulled.pull(1);
    EXPECT_EQ(halfInside, 0.0);
    EXPECT_NE(smallest * 0.5, 0.0);
}

} // namespace
