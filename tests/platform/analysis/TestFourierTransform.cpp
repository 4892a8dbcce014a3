#include "platform/analysis/FourierTransform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>

using namespace lyrabox;

namespace {

using Signal = std::vector<std::complex<double>>;

Signal randomSignal(std::size_t length)
{
    std::mt19937 random(static_cast<unsigned>(length));
    std::uniform_real_distribution<float> values(-1.0F, 1.0F);
    Signal signal(length);
    for (auto &value : signal) {
        const float real = values(random);
        value = {real, values(random)};
    }
    return signal;
}

/// The sum of the definition.
Signal slowTransform(const Signal &signal)
{
    Signal result(signal.size());
    const double step = -2.0 * std::numbers::pi / static_cast<double>(signal.size());
    for (std::size_t k = 0; k < signal.size(); ++k) {
        for (std::size_t n = 0; n < signal.size(); ++n)
            result[k] +=
                signal[n] * std::polar(1.0, step * static_cast<double>(n * k % signal.size()));
    }
    return result;
}

Signal fastTransform(FourierTransform &transform, const Signal &signal)
{
    std::vector<float> real;
    std::vector<float> imaginary;
    for (const auto &value : signal) {
        real.push_back(static_cast<float>(value.real()));
        imaginary.push_back(static_cast<float>(value.imag()));
    }
    transform.transform(real, imaginary);
    Signal result;
    for (std::size_t i = 0; i < signal.size(); ++i)
        result.emplace_back(real[i], imaginary[i]);
    return result;
}

double distance(const Signal &a, const Signal &b)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        largest = std::max(largest, std::abs(a[i] - b[i]));
    return largest;
}

} // namespace

TEST(FourierTransform, IsTheSumOfItsDefinitionForEveryLength)
{
    for (std::size_t length = 1; length <= 2048; length *= 2) {
        FourierTransform transform(length);
        const Signal signal = randomSignal(length);
        EXPECT_LT(distance(fastTransform(transform, signal), slowTransform(signal)),
                  2e-6 * std::sqrt(static_cast<double>(length) * 10.0))
            << length;
    }
}

TEST(FourierTransform, GivesTheSameResultEveryTime)
{
    FourierTransform transform(512);
    const Signal signal = randomSignal(512);
    const Signal first = fastTransform(transform, signal);
    EXPECT_EQ(fastTransform(transform, signal), first);
}

TEST(FourierTransform, AToneLiesInItsBin)
{
    constexpr std::size_t length = 1024;
    Signal tone(length);
    for (std::size_t n = 0; n < length; ++n)
        tone[n] = std::polar(1.0, 2.0 * std::numbers::pi * 37.0 * static_cast<double>(n) / length);
    FourierTransform transform(length);
    const Signal spectrum = fastTransform(transform, tone);
    for (std::size_t k = 0; k < length; ++k)
        EXPECT_NEAR(std::abs(spectrum[k]), k == 37 ? 1024.0 : 0.0, 1e-3) << k;
}

TEST(FourierTransform, TwoRealSignalsInOneGiveTheSumOfTheirPowers)
{
    constexpr std::size_t length = 256;
    const Signal both = randomSignal(length);
    Signal first;
    Signal second;
    for (const auto &value : both) {
        first.emplace_back(value.real());
        second.emplace_back(value.imag());
    }
    const Signal firstSpectrum = slowTransform(first);
    const Signal secondSpectrum = slowTransform(second);
    FourierTransform transform(length);
    const Signal spectrum = fastTransform(transform, both);
    for (std::size_t k = 0; k <= length / 2; ++k) {
        const double sum =
            (std::norm(spectrum[k]) + std::norm(spectrum[(length - k) % length])) / 2.0;
        EXPECT_NEAR(sum, std::norm(firstSpectrum[k]) + std::norm(secondSpectrum[k]), 1e-3) << k;
    }
}
