// Underruns: gaps in the sound because frames came too late.

#include "device/Fixtures.h"
#include "device/SineSource.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double frequency = 440.0;

/// The positions at which a sine is interrupted. In a sine, every sample follows from the two
/// before it. Interruptions within 50 ms count as one.
std::vector<std::size_t> tears(const std::vector<float> &samples)
{
    const double twoCosines = 2.0 * std::cos(2.0 * std::numbers::pi * frequency / rate);
    std::vector<std::size_t> found;
    for (std::size_t i = 2; i < samples.size(); ++i) {
        const double expected = twoCosines * samples[i - 1] - samples[i - 2];
        if (std::abs(samples[i] - expected) > 0.001 &&
            (found.empty() || i - found.back() > frames(0.05)))
            found.push_back(i);
    }
    return found;
}

TEST(Tears, AreFoundWithoutFalseAlarms)
{
    std::vector<float> samples(frames(1.0));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<float>(
            0.5 * std::sin(2.0 * std::numbers::pi * frequency / rate * static_cast<double>(i)));
    EXPECT_TRUE(tears(samples).empty());
    std::fill_n(samples.begin() + 10'000, 100, 0.0F);
    samples.erase(samples.begin() + 30'000);
    EXPECT_EQ(tears(samples).size(), 2U);
}

/// A busy machine may cause underruns. The test counts them and needs two seconds without one
/// within two minutes. With too short a latency there would be an underrun every few milliseconds.
TEST_F(CubebOutputOnServer, PlaysForTwoSecondsWithoutAnUnderrun)
{
#ifdef LYRABOX_IS_SLOW
    GTEST_SKIP() << "this build is slower than the sound";
#endif
    SineSource source(frequency);
    open(source);
    ASSERT_EQ(output.start(), status::noError);
    const auto begin = recorder->waitForSound(0);
    ASSERT_GE(begin, 0);
    std::size_t from = static_cast<std::size_t>(begin) + frames(0.5);
    int underruns = 0;
    bool isWhole = false;
    for (int part = 0; part < 60 && !isWhole; ++part, from += frames(2.0)) {
        ASSERT_TRUE(recorder->waitForSize(from + frames(2.0)));
        const auto found = tears(recorder->samples(from, from + frames(2.0)));
        underruns += static_cast<int>(found.size());
        isWhole = found.empty();
    }
    output.stop();
    RecordProperty("underruns", underruns);
    EXPECT_TRUE(isWhole) << underruns << " underruns in two minutes";
}

} // namespace
