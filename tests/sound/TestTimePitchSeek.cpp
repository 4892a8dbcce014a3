// The sound of the time/pitch stage right after a reset, and its cost.

#include "sound/Player.h"
#include "sound/TimePitchSignals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

namespace lyrabox::test {
namespace {

constexpr double sampleRate = 44100.0;
constexpr double tau = 2.0 * std::numbers::pi;

StereoFrame kilohertz(std::int64_t frame)
{
    const double phase = std::fmod(tau * 1000.0 / sampleRate * static_cast<double>(frame), tau);
    return {static_cast<float>(0.5 * std::sin(phase)),
            static_cast<float>(0.5 * std::sin(phase + 1.0))};
}

TEST(TimePitchSeek, StartsWithoutAClickInTheNextBuffer)
{
    for (const float rate : {0.5F, 0.75F, 1.25F, 2.0F}) {
        StageUnderTest test(kilohertz, rate, 0.0F);
        test.pull(8192);
        test.seek(1'000'011); // the tone is near its peak here
        const Stereo output = test.pull(8192);
        std::vector<float> fromSilence(1024, 0.0F);
        fromSilence.insert(fromSilence.end(), output.left.begin(), output.left.end());
        const double click = inDecibels(highBandPeak(fromSilence) / 0.5);
        const double first = inDecibels(std::abs(partialAt(output.left, 256, 768, 1000.0)) / 0.5);
        std::printf("[ measured ] %3.0f %%: start after a seek %.1f dB beyond 6 kHz, level within "
                    "the first buffer %.1f dB\n",
                    100.0 * static_cast<double>(rate), click, first);
        EXPECT_LT(click, -60.0) << rate;
        EXPECT_GT(first, -3.0) << rate;
    }
}

struct Setting {
    float rate;
    float cents;
};

void PrintTo(const Setting &setting, std::ostream *stream)
{
    *stream << setting.rate * 100.0F << " %, " << setting.cents << " cents";
}

class AfterASeek : public testing::TestWithParam<Setting> {
protected:
    static void report(const char *what, double least, double most)
    {
        std::printf("[ measured ] %3.0f %% %+5.0f cents: %s %.2f to %.2f\n",
                    static_cast<double>(GetParam().rate) * 100.0,
                    static_cast<double>(GetParam().cents), what, least, most);
    }
};

TEST_P(AfterASeek, AttacksComeOnceAndInTime)
{
    // Every song has one click, each a little farther from the target of the seek.
    const double rate = static_cast<double>(GetParam().rate);
    double leastEnergy = 1e9;
    double maxEnergy = 0.0;
    double earliest = 1e9;
    double latest = -1e9;
    for (int i = 0; i < 24; ++i) {
        const double at = 350.0 + 200.0 * i * rate;
        const auto first = static_cast<std::int64_t>(at);
        StageUnderTest test(
            [first](std::int64_t frame) {
                const auto since = static_cast<double>(frame - first);
                if (since < 0.0 || since >= 200.0)
                    return StereoFrame{};
                const auto value = static_cast<float>(0.7 * std::exp(-since / 40.0) *
                                                      std::sin(tau * 3000.0 / sampleRate * since));
                return StereoFrame{value, value};
            },
            GetParam().rate, GetParam().cents);
        const Stereo output = test.pull(12'000, 384);
        const Burst burst = burstBetween(output.left, 0, output.size(), 0.8);
        const double energy = burst.energy / 2.45;
        const double late = burst.centre - (at + 21.0) / rate;
        leastEnergy = std::min(leastEnergy, energy);
        maxEnergy = std::max(maxEnergy, energy);
        earliest = std::min(earliest, late / 44.1);
        latest = std::max(latest, late / 44.1);
    }
    report("attacks after a seek: energy", leastEnergy, maxEnergy);
    report("attacks after a seek: late by ms", earliest, latest);
    EXPECT_GT(leastEnergy, 0.05) << "an attack is missing";
    EXPECT_GT(earliest, -15.0);
    EXPECT_LT(latest, 15.0);
}

TEST_P(AfterASeek, TheLevelIsSteady)
{
    double least = 1e9;
    double most = -1e9;
    for (int i = 0; i < 12; ++i) {
        StageUnderTest test(
            [](std::int64_t frame) {
                double sum = 0.0;
                for (const double hertz : {110.0, 138.59, 164.81, 220.0, 277.18, 329.63, 440.0,
                                           659.26, 880.0, 1318.5, 2637.0})
                    sum += 0.08 *
                           std::sin(std::fmod(tau * hertz / sampleRate * static_cast<double>(frame),
                                              tau) +
                                    hertz);
                return StereoFrame{static_cast<float>(sum), static_cast<float>(sum)};
            },
            GetParam().rate, GetParam().cents);
        test.pull(128);
        test.seek(100'003 * i);
        const Stereo output = test.pull(30'000, 384);
        const auto power = [&output](std::size_t first, std::size_t last) {
            double squares = 0.0;
            for (std::size_t frame = first; frame < last; ++frame)
                squares += static_cast<double>(output.left[frame]) *
                           static_cast<double>(output.left[frame]);
            return squares / static_cast<double>(last - first);
        };
        const double steady = power(8'000, 30'000);
        constexpr std::size_t window = 1323;
        for (std::size_t first = 220; first < 4500; first += 100) {
            const double level = 10.0 * std::log10(power(first, first + window) / steady);
            least = std::min(least, level);
            most = std::max(most, level);
        }
    }
    report("level after a seek in 30 ms, dB", least, most);
    EXPECT_GT(least, -4.0);
    EXPECT_LT(most, 3.0);
}

// The cost of a callback is counted in hops, not in time, so a busy machine makes no difference. A
// hop takes about 0.6 ms on a core of 2.6 GHz. Everything else together takes less than one hop.
class CallbackCost : public testing::TestWithParam<Setting> {
protected:
    /// Pulls callbacks of `frames` frames and calls `change` every half second.
    template <typename Change>
    static std::uint64_t maxHops(Player &player, std::uint32_t frames, Change change)
    {
        std::uint64_t most = 0;
        std::vector<float> interleaved(2 * std::size_t{frames});
        for (int i = 0; i < 4; ++i) {
            change(i);
            for (std::uint32_t played = 0; played < 22050; played += frames) {
                const std::uint64_t before = player.timePitch().hops();
                player.output().pull(interleaved.data(), frames);
                most = std::max(most, player.timePitch().hops() - before);
            }
        }
        return most;
    }

    static std::uint64_t hopsInHalf(std::uint32_t frames)
    {
        return static_cast<std::uint64_t>(0.5 * frames / sampleRate / 0.0006);
    }

    static void apply()
    {
        engine::setPlaybackRate(GetParam().rate);
        engine::setPitchCents(GetParam().cents);
    }

    static float song(std::uint32_t channel, std::uint64_t frame)
    {
        return noiseAt(static_cast<std::int64_t>(frame), channel, 0.3F);
    }
};

TEST_P(CallbackCost, IsBelowHalfOfAnyBufferAfterASeek)
{
    for (const std::uint32_t frames : {256U, 384U, 1024U}) {
        Player player(song, 400'000);
        apply();
        engine::setOutputRunning(true);
        const std::uint64_t most = maxHops(player, frames, [](int i) {
            engine::seekToFrame(10'000 + 30'000 * static_cast<std::uint64_t>(i));
        });
        std::printf("[ measured ] %3.0f %% %+5.0f cents: a seek, at most %d hops in %u frames\n",
                    static_cast<double>(GetParam().rate) * 100.0,
                    static_cast<double>(GetParam().cents), static_cast<int>(most), frames);
        EXPECT_GE(most, 1U);
        EXPECT_LE(most, hopsInHalf(frames)) << frames;
    }
}

TEST_P(CallbackCost, IsBelowHalfOfAnyBufferWhenTheSpeedLeavesNormal)
{
    for (const std::uint32_t frames : {256U, 384U, 1024U}) {
        Player player(song, 400'000);
        engine::setOutputRunning(true);
        const std::uint64_t most = maxHops(player, frames, [](int i) {
            engine::setPlaybackRate(1.0F);
            engine::setPitchCents(0.0F);
            if (i % 2 == 0) {
                engine::seekToFrame(40'000);
            } else {
                apply();
            }
        });
        EXPECT_GE(most, 1U);
        EXPECT_LE(most, hopsInHalf(frames)) << frames;
    }
}

INSTANTIATE_TEST_SUITE_P(Settings, CallbackCost,
                         testing::Values(Setting{0.1F, 0.0F}, Setting{0.5F, 0.0F},
                                         Setting{1.25F, 0.0F}, Setting{2.0F, 0.0F},
                                         Setting{2.0F, -1200.0F}, Setting{2.0F, -2400.0F},
                                         Setting{1.0F, 2400.0F}));

INSTANTIATE_TEST_SUITE_P(Settings, AfterASeek,
                         testing::Values(Setting{0.5F, 0.0F}, Setting{0.75F, 0.0F},
                                         Setting{1.25F, 0.0F}, Setting{2.0F, 0.0F},
                                         Setting{1.0F, 300.0F}, Setting{1.0F, -1200.0F},
                                         Setting{1.0F, 1200.0F}));

} // namespace
} // namespace lyrabox::test
