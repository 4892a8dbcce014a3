#include "platform/analysis/LinearPrediction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

using namespace lyrabox;

namespace {

constexpr std::size_t order = LinearPrediction::order;

/// The root mean square of the errors at all samples but the first ones.
double rmsOfErrors(const LinearPrediction &prediction, const std::vector<double> &samples)
{
    std::vector<double> errors(samples.size() - order);
    prediction.errors(samples, errors);
    double squares = 0.0;
    for (const double error : errors)
        squares += error * error;
    return std::sqrt(squares / static_cast<double>(errors.size()));
}

std::vector<double> noise(std::size_t count)
{
    std::mt19937 random(1);
    std::normal_distribution<double> values(0.0, 0.1);
    std::vector<double> samples(count);
    for (double &sample : samples)
        sample = values(random);
    return samples;
}

} // namespace

TEST(LinearPrediction, TonesArePredicted)
{
    std::vector<double> tones(2000);
    for (std::size_t i = 0; i < tones.size(); ++i)
        tones[i] = 0.5 * std::sin(0.02 * static_cast<double>(i)) +
                   0.3 * std::sin(0.7 * static_cast<double>(i));
    EXPECT_LT(rmsOfErrors(LinearPrediction(tones), tones), 0.001);
}

TEST(LinearPrediction, NoiseIsNotPredicted)
{
    const auto samples = noise(4000);
    EXPECT_NEAR(rmsOfErrors(LinearPrediction(samples), samples), 0.1, 0.005);
}

TEST(LinearPrediction, OfColouredNoiseThePartThatIsNewRemains)
{
    auto samples = noise(4000);
    for (std::size_t i = 1; i < samples.size(); ++i)
        samples[i] += 0.95 * samples[i - 1];
    EXPECT_NEAR(rmsOfErrors(LinearPrediction(samples), samples), 0.1, 0.005);
}

TEST(LinearPrediction, FromSilenceEverythingIsNew)
{
    const LinearPrediction prediction(std::vector<double>(1000));
    const auto samples = noise(order + 50);
    std::vector<double> errors(50);
    prediction.errors(samples, errors);
    for (std::size_t i = 0; i < errors.size(); ++i)
        EXPECT_NEAR(errors[i], samples[order + i], 1e-12);
}

TEST(LinearPrediction, ASoundThatBeginsIsAnErrorAtItsFirstSample)
{
    std::vector<double> tone(3000);
    for (std::size_t i = 0; i < tone.size(); ++i)
        tone[i] = std::sin(0.1 * static_cast<double>(i));
    const LinearPrediction prediction(std::span<const double>(tone).first(2000));
    tone[2500] += 0.01;
    std::vector<double> errors(tone.size() - order);
    prediction.errors(tone, errors);
    EXPECT_NEAR(errors[2500 - order], 0.01, 0.001);
    EXPECT_LT(std::abs(errors[2499 - order]), 0.001);
}
