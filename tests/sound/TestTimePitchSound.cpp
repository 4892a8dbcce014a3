// Measures the sound of the real time/pitch stage.

#include "TimePitchSignals.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <utility>

namespace lyrabox::test {
namespace {

constexpr double sampleRate = 44100.0;
constexpr double tau = 2.0 * std::numbers::pi;

struct Setting {
    float rate;
    float cents;
    double timing; ///< milliseconds

    double scale() const { return std::exp2(static_cast<double>(cents) / 1200.0); }
};

std::ostream &operator<<(std::ostream &out, const Setting &setting)
{
    return out << setting.rate * 100.0F << " percent " << setting.cents << " cents";
}

void report(const Setting &setting, const char *what, double value, const char *unit)
{
    std::printf("[ measured ] %3.0f %% %+4.0f cents: %s %.4g %s\n",
                static_cast<double>(setting.rate) * 100.0, static_cast<double>(setting.cents), what,
                value, unit);
}

float sine(double hertz, std::int64_t frame, double phase = 0.0)
{
    return static_cast<float>(
        std::sin(std::fmod(tau * hertz / sampleRate * static_cast<double>(frame), tau) + phase));
}

class TimePitchSound : public testing::TestWithParam<Setting> {};

constexpr std::array<double, 3> bassTriad{110.0, 138.59, 164.81};
constexpr std::array<double, 8> midPartials{220.0,  277.18, 329.63, 440.0,
                                            659.26, 880.0,  1318.5, 2637.0};

StereoFrame chord(std::int64_t frame)
{
    float sum = noiseAt(frame, 0, 1e-4F);
    for (const double hertz : bassTriad)
        sum += 0.08F * sine(hertz, frame, hertz);
    for (const double hertz : midPartials)
        sum += 0.08F * sine(hertz, frame, hertz);
    return {sum, sum};
}

TEST_P(TimePitchSound, KeepsSteadyPartialsSteady)
{
    const Setting setting = GetParam();
    StageUnderTest test(chord, setting.rate, setting.cents);
    const Stereo output = test.pull(4 * 44100);
    double worstMid = 0.0;
    for (const double hertz : midPartials)
        worstMid = std::max(worstMid, modulationOf(output.left, 44100, hertz * setting.scale()));
    double worstBass = 0.0;
    for (const double hertz : bassTriad)
        worstBass = std::max(worstBass, modulationOf(output.left, 44100, hertz * setting.scale()));
    report(setting, "modulation of mid partials", 100.0 * worstMid, "%");
    report(setting, "modulation of the bass triad", 100.0 * worstBass, "%");
    EXPECT_LE(worstMid, 0.01);
    EXPECT_LE(worstBass, 0.12);
}

TEST_P(TimePitchSound, PlaysTonesInTune)
{
    constexpr std::array<double, 8> tones{55.0, 110.0, 220.0, 440.0, 880.0, 1760.0, 3520.0, 7000.0};
    const Setting setting = GetParam();
    StageUnderTest test(
        [&](std::int64_t frame) {
            float sum = 0.0F;
            for (const double hertz : tones)
                sum += 0.1F * sine(hertz, frame);
            return StereoFrame{sum, sum};
        },
        setting.rate, setting.cents);
    const Stereo output = test.pull(4 * 44100);
    double worst = 0.0;
    for (const double hertz : tones) {
        const double wanted = hertz * setting.scale();
        const double cents = 1200.0 * std::log2(frequencyNear(output.left, 22050, wanted) / wanted);
        worst = std::max(worst, std::abs(cents));
    }
    report(setting, "tuning", worst, "cents");
    EXPECT_LE(worst, 0.1);
}

TEST_P(TimePitchSound, KeepsClicksWholeAndInTime)
{
    constexpr std::int64_t distance = 13230; // 0.3 s
    constexpr std::int64_t firstClick = 9000;
    constexpr int clicks = 16;
    const auto click = [](std::int64_t i) {
        return i < 0 || i >= 200
                   ? 0.0F
                   : static_cast<float>(
                         0.7 * std::exp(-static_cast<double>(i) / 40.0) *
                         std::sin(tau * 3000.0 / sampleRate * static_cast<double>(i)));
    };
    const Setting setting = GetParam();
    StageUnderTest test(
        [&](std::int64_t frame) {
            const std::int64_t since = frame - firstClick;
            const float value =
                since >= 0 && since / distance < clicks ? click(since % distance) : 0.0F;
            return StereoFrame{value, value};
        },
        setting.rate, setting.cents);
    const double rate = static_cast<double>(setting.rate);
    const Stereo output =
        test.pull(static_cast<std::size_t>((firstClick + clicks * distance) / rate));

    // The centre of a click's energy.
    std::vector<float> alone(200);
    for (std::int64_t i = 0; i < 200; ++i)
        alone[static_cast<std::size_t>(i)] = click(i);
    const Burst original = burstBetween(alone, 0, alone.size());

    double worstTiming = 0.0;
    double worstSpan = 0.0;
    for (int i = 0; i < clicks; ++i) {
        const double start = static_cast<double>(firstClick + i * distance);
        const double wanted = (start + original.centre) / rate;
        const double half = 0.5 * static_cast<double>(distance) / rate;
        const auto first = static_cast<std::size_t>(wanted - std::min(half, wanted));
        const auto last = std::min(output.size(), static_cast<std::size_t>(wanted + half));
        const Burst burst = burstBetween(output.left, first, last);
        worstTiming = std::max(worstTiming, std::abs(burst.centre - wanted) / 44.1);
        worstSpan = std::max(worstSpan, burst.span / 44.1);
        EXPECT_GT(burst.energy, 0.3 * original.energy) << "click " << i << " is missing";
        // A doubled click shows as a large width.
    }
    report(setting, "click timing", worstTiming, "ms");
    report(setting, "click width", worstSpan, "ms");
    EXPECT_LE(worstTiming, setting.timing);
    EXPECT_LE(worstSpan, 2.5);
}

TEST_P(TimePitchSound, KeepsTheStereoImage)
{
    const Setting setting = GetParam();
    StageUnderTest noise(
        [](std::int64_t frame) {
            const float common = noiseAt(frame, 1, 0.4F);
            return StereoFrame{common, 0.8F * common + 0.6F * noiseAt(frame, 2, 0.4F)};
        },
        setting.rate, setting.cents);
    const Stereo noiseOutput = noise.pull(4 * 44100);
    const double similar = correlation(noiseOutput.left, noiseOutput.right, 22050, 4 * 44100);
    report(setting, "stereo correlation of 0.80", similar, "");
    EXPECT_NEAR(similar, 0.80, 0.03);

    StageUnderTest tones(
        [](std::int64_t frame) {
            float others = 0.0F;
            for (const double hertz : {220.0, 329.63, 523.25, 2093.0, 3951.0})
                others += 0.08F * sine(hertz, frame);
            return StereoFrame{others + 0.2F * sine(1000.0, frame),
                               0.5F * others + 0.2F * sine(1000.0, frame, -tau / 6.0)};
        },
        setting.rate, setting.cents);
    const Stereo toneOutput = tones.pull(4 * 44100);
    const std::size_t length = 3 * 44100;
    const auto left = partialAt(toneOutput.left, 22050, length, 1000.0 * setting.scale());
    const auto right = partialAt(toneOutput.right, 22050, length, 1000.0 * setting.scale());
    const double off = std::arg(left / right) * 360.0 / tau - 60.0;
    report(setting, "phase between left and right off by", off, "degrees");
    EXPECT_NEAR(off, 0.0, 2.0);
}

INSTANTIATE_TEST_SUITE_P(Settings, TimePitchSound,
                         testing::Values(Setting{0.5F, 0.0F, 8.0}, Setting{0.75F, 0.0F, 3.0},
                                         Setting{1.25F, 0.0F, 3.0}, Setting{1.0F, 300.0F, 3.0}));

/// The number of samples that equal the song from `frame` on.
std::size_t identicalFrom(const Stereo &output, std::size_t at, const SignalSource::Signal &song,
                          std::int64_t frame)
{
    std::size_t count = 0;
    while (at + count < output.size()) {
        const StereoFrame wanted = song(frame + static_cast<std::int64_t>(count));
        if (output.left[at + count] != wanted.left || output.right[at + count] != wanted.right)
            break;
        ++count;
    }
    return count;
}

std::vector<float> leftOf(const SignalSource::Signal &song, std::int64_t frame, std::size_t count)
{
    std::vector<float> result(count);
    for (std::size_t i = 0; i < count; ++i)
        result[i] = song(frame + static_cast<std::int64_t>(i)).left;
    return result;
}

std::vector<float> part(const std::vector<float> &signal, std::size_t first, std::size_t count)
{
    return {signal.begin() + static_cast<std::ptrdiff_t>(first),
            signal.begin() + static_cast<std::ptrdiff_t>(first + count)};
}

StereoFrame wideBandSong(std::int64_t frame)
{
    // Noise below about 5 kHz with a chord in it.
    float noise = 0.0F;
    for (std::int64_t i = 0; i < 8; ++i)
        noise += noiseAt(frame + i, 3, 0.05F);
    return {0.5F * chord(frame).left + noise, 0.5F * chord(frame).right - 0.3F * noise};
}

TEST(TimePitchTransition, LeavesTheSourceWithoutSkippingOrRepeating)
{
    StageUnderTest test(wideBandSong, 1.0F, 0.0F);
    test.pull(50 * 1024);
    test.set(0.6F, 0.0F);
    constexpr std::size_t passing = TimePitch::startFrames;
    constexpr std::size_t all = passing + TimePitch::crossfadeFrames;
    const Stereo output = test.pull(all);
    // Until the end of the crossfade the song plays at its own speed, from either side.
    EXPECT_GE(identicalFrom(output, 0, wideBandSong, 50 * 1024), passing);
    const std::vector<float> wanted = leftOf(wideBandSong, 50 * 1024, all);
    const double similar = correlation(output.left, wanted, passing, all);
    const double lateHalf = correlation(output.left, wanted, (passing + all) / 2, all);
    std::printf("[ measured ] leaving: likeness to the song %.4f, second half %.4f\n", similar,
                lateHalf);
    EXPECT_GT(similar, 0.98);
    EXPECT_GT(lateHalf, 0.97);
}

TEST(TimePitchTransition, ReturnsToTheSourceWithoutSkippingOrRepeating)
{
    // The engine's delay must not depend on what happened before.
    for (const auto &[setting, seeks] :
         {std::pair{Setting{0.6F, 0.0F, 0.0}, 0}, std::pair{Setting{1.5F, 0.0F, 0.0}, 1},
          std::pair{Setting{1.0F, -500.0F, 0.0}, 0}, std::pair{Setting{1.0F, 2400.0F, 0.0}, 1},
          std::pair{Setting{0.8F, -2400.0F, 0.0}, 2}}) {
        StageUnderTest test(wideBandSong, setting.rate, setting.cents);
        for (int i = 0; i < seeks; ++i) {
            test.pull(2048);
            test.seek(10000 * i);
        }
        const std::vector<float> earlier = test.pull(22050).left;
        test.set(1.0F, 0.0F);
        const Stereo output = test.pull(44100);
        const std::int64_t end =
            test.source.position - static_cast<std::int64_t>(test.stage->latencyFrames());
        // The place where the song's own frames begin, found without asking the stage.
        const auto songFrame = [&](std::size_t at) {
            return end - static_cast<std::int64_t>(output.size() - at);
        };
        const auto isSong = [&](std::size_t at) {
            const StereoFrame wanted = wideBandSong(songFrame(at));
            return output.left[at] == wanted.left && output.right[at] == wanted.right;
        };
        std::size_t passing = output.size();
        while (passing > 0 && isSong(passing - 1))
            --passing;
        EXPECT_LT(passing, output.size()) << setting;
        EXPECT_LE(passing, TimePitch::settleFrames + TimePitch::crossfadeFrames) << setting;
        // Then the part before it.
        std::vector<float> all = earlier;
        all.insert(all.end(), output.left.begin(), output.left.end());
        constexpr std::size_t before = TimePitch::crossfadeFrames + 2048;
        const std::vector<float> wanted =
            leftOf(wideBandSong, songFrame(passing) - static_cast<std::int64_t>(before), before);
        const std::vector<float> heard = part(all, earlier.size() + passing - before, before);
        const double settled = correlation(heard, wanted, 0, 2048);
        const double fading = correlation(heard, wanted, 2048, before);
        report(setting, "returning: likeness to the song before the crossfade", settled, "");
        report(setting, "returning: likeness to the song within the crossfade", fading, "");
        EXPECT_GT(settled, 0.95) << setting;
        EXPECT_GT(fading, 0.97) << setting;
    }
}

StereoFrame kilohertz(std::int64_t frame)
{
    return {0.5F * sine(1000.0, frame), 0.5F * sine(1000.0, frame, 1.0)};
}

TEST(TimePitchTransition, ChangesWithoutAClick)
{
    StageUnderTest test(kilohertz, 1.0F, 0.0F);
    Stereo all;
    const auto play = [&](std::size_t frames) {
        const Stereo output = test.pull(frames);
        all.left.insert(all.left.end(), output.left.begin(), output.left.end());
    };
    play(4096);
    test.set(0.75F, 0.0F);
    play(13230);
    for (int cents = 100; cents <= 500; cents += 100) {
        test.set(0.75F, static_cast<float>(cents));
        play(6615);
    }
    test.set(1.25F, 0.0F);
    play(13230);
    test.set(1.0F, 0.0F);
    play(44100);
    const double click = inDecibels(highBandPeak(all.left) / 0.5);
    std::printf("[ measured ] changes of speed and pitch under a tone: %.1f dB beyond 6 kHz\n",
                click);
    EXPECT_LT(click, -60.0);
}

TEST(TimePitchDrift, KeepsToSongTime)
{
    // A constant difference is not a drift. The growth in five seconds, times 120, is the drift in
    // ten minutes.
    for (const Setting setting :
         {Setting{0.5F, 0.0F, 0.0}, Setting{0.75F, 0.0F, 0.0}, Setting{1.25F, 0.0F, 0.0},
          Setting{1.0F, 300.0F, 0.0}, Setting{0.93F, -137.0F, 0.0}}) {
        StageUnderTest test(chord, setting.rate, setting.cents);
        std::int64_t delivered = TimePitch::startFrames + TimePitch::handoverFrames;
        test.pull(static_cast<std::size_t>(delivered));
        const auto meanOffset = [&] {
            double sum = 0.0;
            for (int i = 0; i < 441; ++i) {
                test.pull(100, 100);
                delivered += 100;
                sum += static_cast<double>(test.source.position) - test.stage->latencyFrames() -
                       static_cast<double>(delivered) * static_cast<double>(setting.rate);
            }
            return sum / 441.0;
        };
        const double start = meanOffset();
        EXPECT_LT(std::abs(start), 0.01 * sampleRate) << setting;
        test.pull(4 * 44100);
        delivered += 4 * 44100;
        const double growth = meanOffset() - start;
        report(setting, "drift over ten minutes", std::abs(growth) * 120.0 / 44.1, "ms");
        EXPECT_LT(std::abs(growth) * 120.0 / 44.1, 1.0) << setting;
    }
}

} // namespace
} // namespace lyrabox::test
