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

TEST(Tears, AreFoundWithoutFalseAlarms)
{
    std::vector<float> samples(frames(1.0));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<float>(
            0.5 * std::sin(2.0 * std::numbers::pi * frequency / rate * static_cast<double>(i)));
    EXPECT_TRUE(tearsIn(samples, frequency).empty());
    std::fill_n(samples.begin() + 10'000, 100, 0.0F);
    samples.erase(samples.begin() + 30'000);
    EXPECT_EQ(tearsIn(samples, frequency).size(), 2U);
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
        const auto found = tearsIn(recorder->samples(from, from + frames(2.0)), frequency);
        underruns += static_cast<int>(found.size());
        isWhole = found.empty();
    }
    output.stop();
    RecordProperty("underruns", underruns);
    EXPECT_TRUE(isWhole) << underruns << " underruns in two minutes";
}

} // namespace
