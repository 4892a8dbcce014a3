#include "platform/audio/ChannelStage.h"

#include "support/TapedStream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace lyrabox::test {
namespace {

constexpr std::uint32_t slice = 128;

struct Heard {
    std::vector<float> left;
    std::vector<float> right;
};

double sine(std::int64_t frame, double hertz)
{
    return std::sin(2.0 * std::numbers::pi *
                    std::fmod(hertz / 44100.0 * static_cast<double>(frame), 1.0));
}

/// Different tones in both channels, and one in the middle.
std::pair<float, float> music(std::int64_t frame)
{
    const double middle = 0.3 * sine(frame, 700.0);
    return {static_cast<float>(middle + 0.3 * sine(frame, 431.0)),
            static_cast<float>(middle + 0.3 * sine(frame, 1303.0))};
}

/// A stage that plays a tape.
struct Stage {
    explicit Stage(TapedStream::Frames frames = &music) : tape(std::move(frames)) {}

    void pull(Heard &heard, std::size_t frames, std::uint32_t most = slice)
    {
        for (std::size_t done = 0; done < frames;) {
            const auto count =
                static_cast<std::uint32_t>(std::min<std::size_t>(most, frames - done));
            std::vector<float> left(count);
            std::vector<float> right(count);
            tape.next(left.data(), right.data(), count);
            if (stage.isOn()) {
                stage.process(left.data(), right.data(), count, tape);
                ++processed;
            }
            heard.left.insert(heard.left.end(), left.begin(), left.end());
            heard.right.insert(heard.right.end(), right.begin(), right.end());
            done += count;
        }
    }
    Heard pull(std::size_t frames, std::uint32_t most = slice)
    {
        Heard heard;
        pull(heard, frames, most);
        return heard;
    }

    TapedStream tape;
    ChannelStage stage;
    int processed = 0;
};

/// The largest difference between neighbours.
double largestStep(const std::vector<float> &samples)
{
    double step = 0.0;
    for (std::size_t i = 1; i < samples.size(); ++i)
        step = std::max(step, std::abs(static_cast<double>(samples[i]) - samples[i - 1]));
    return step;
}

TEST(ChannelStage, LeavesEverySampleAsItIsAndDoesNotRunWhileTheToolsAreNeutral)
{
    Stage stage;
    stage.pull(1000);
    stage.stage.set({.centreFrom = 300});
    stage.pull(1000);
    EXPECT_EQ(stage.processed, 0);
    stage.stage.set({.mode = ChannelMode::Swapped, .balance = 30, .centre = -70});
    stage.pull(10'000);
    EXPECT_GT(stage.processed, 0);
    stage.stage.set({});
    stage.pull(2 * ChannelStage::glide);
    stage.processed = 0;
    const std::int64_t begin = stage.tape.position();
    const Heard heard = stage.pull(10'000);
    EXPECT_EQ(stage.processed, 0);
    for (std::size_t i = 0; i < heard.left.size(); ++i) {
        const auto [left, right] = music(begin + static_cast<std::int64_t>(i));
        ASSERT_EQ(heard.left[i], left);
        ASSERT_EQ(heard.right[i], right);
    }
}

TEST(ChannelStage, GivesEachLoudspeakerItsChannels)
{
    const auto last = [](const ChannelTools &tools) {
        Stage stage([](std::int64_t) { return std::pair{0.5F, 0.25F}; });
        stage.pull(1);
        stage.stage.set(tools);
        const Heard heard = stage.pull(1000);
        return std::pair{heard.left.back(), heard.right.back()};
    };
    using Pair = std::pair<float, float>;
    EXPECT_EQ(last({.mode = ChannelMode::Mono}), (Pair{0.375F, 0.375F}));
    EXPECT_EQ(last({.mode = ChannelMode::Left}), (Pair{0.5F, 0.5F}));
    EXPECT_EQ(last({.mode = ChannelMode::Right}), (Pair{0.25F, 0.25F}));
    EXPECT_EQ(last({.mode = ChannelMode::Swapped}), (Pair{0.25F, 0.5F}));
    EXPECT_EQ(last({.balance = -100}), (Pair{0.5F, 0.0F}));
    EXPECT_EQ(last({.balance = 100}), (Pair{0.0F, 0.25F}));
    EXPECT_EQ(last({.balance = 50}), (Pair{0.25F, 0.25F}));
    EXPECT_EQ(last({.mode = ChannelMode::Swapped, .balance = 50}), (Pair{0.125F, 0.5F}));
}

TEST(ChannelStage, MakesNoStepWhenAToolChangesInTheMiddleOfAGlide)
{
    Stage stage([](std::int64_t) { return std::pair{0.5F, -0.5F}; });
    Heard heard = stage.pull(slice);
    for (const ChannelMode mode : {ChannelMode::Swapped, ChannelMode::Left, ChannelMode::Both}) {
        stage.stage.set({.mode = mode, .centre = mode == ChannelMode::Left ? -60 : 0});
        stage.pull(heard, slice);
    }
    stage.pull(heard, 1000);
    // The steepest part of a glide from -0.5 to 0.5 in 256 frames.
    EXPECT_LT(largestStep(heard.left), 1.9 / 256);
    EXPECT_LT(largestStep(heard.right), 1.9 / 256);
    EXPECT_EQ(heard.left.back(), 0.5F);
}

TEST(ChannelStage, HasItsValuesAtOnceAfterASeek)
{
    Stage stage;
    stage.pull(1000);
    stage.stage.set({.mode = ChannelMode::Left, .centre = -100});
    stage.stage.seek();
    const Heard heard = stage.pull(4000);
    // The middle tone is 700 Hz; on the left is 431 Hz alone.
    double error = 0.0;
    for (std::size_t i = 0; i < heard.left.size(); ++i) {
        const double wanted = 0.3 * sine(1000 + static_cast<std::int64_t>(i), 431.0);
        error = std::max(error, std::abs(heard.left[i] - wanted));
        ASSERT_EQ(heard.left[i], heard.right[i]);
    }
    EXPECT_LT(error, 0.01);
}

TEST(ChannelStage, BringsNumbersWithinTheirRanges)
{
    ChannelStage stage;
    stage.set({.balance = 1000, .centre = -1000, .centreFrom = -5, .centreUpTo = 1'000'000});
    EXPECT_EQ(stage.tools(), (ChannelTools{.mode = ChannelMode::Both,
                                           .balance = 100,
                                           .centre = -100,
                                           .centreFrom = 0,
                                           .centreUpTo = 20'000}));
}

TEST(ChannelStage, GlidesWhenTheCentreIsSwitchedOnAndOffAndMoved)
{
    Stage stage;
    Heard heard = stage.pull(1000);
    for (const int centre : {-100, 100, 0, -50, 0}) {
        stage.stage.set({.centre = centre});
        stage.pull(heard, 5000);
    }
    // 1,303 Hz at 0.3, and the two others together.
    const double steepest = 2.0 * std::numbers::pi / 44100.0 * 0.3 * (431.0 + 700.0 + 1303.0);
    EXPECT_LT(largestStep(heard.left), steepest + 0.02);
    EXPECT_LT(largestStep(heard.right), steepest + 0.02);
}

/// CentreStream alone.
class CentreStreamTest : public testing::Test {
protected:
    CentreStreamTest() { stream.seek(); }

    Heard pull(std::size_t frames, std::uint32_t most = slice)
    {
        Heard heard;
        for (std::size_t done = 0; done < frames;) {
            const auto count =
                static_cast<std::uint32_t>(std::min<std::size_t>(most, frames - done));
            std::vector<float> left(count);
            std::vector<float> right(count);
            tape.next(left.data(), right.data(), count);
            stream.process(tools, left.data(), right.data(), count, tape);
            heard.left.insert(heard.left.end(), left.begin(), left.end());
            heard.right.insert(heard.right.end(), right.begin(), right.end());
            done += count;
        }
        return heard;
    }

    ChannelTools tools{.centre = -100};
    CentreStream stream;
    TapedStream tape{&music};
};

TEST_F(CentreStreamTest, DoesNotDependOnTheLengthsOfTheSlices)
{
    const Heard even = pull(20'000);
    std::mt19937 random(1);
    CentreStream other;
    other.seek();
    TapedStream otherTape{&music};
    std::size_t done = 0;
    while (done < 20'000) {
        const auto count =
            static_cast<std::uint32_t>(std::min<std::size_t>(20'000 - done, 1 + random() % 5000));
        std::vector<float> left(count);
        std::vector<float> right(count);
        otherTape.next(left.data(), right.data(), count);
        other.process(tools, left.data(), right.data(), count, otherTape);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_EQ(left[i], even.left[done + i]) << done + i;
            ASSERT_EQ(right[i], even.right[done + i]) << done + i;
        }
        done += count;
    }
}

TEST_F(CentreStreamTest, AddsNoDelayToWhatItLeaves)
{
    // Noise on the left only is no middle, so it stays as it is, from the first frame on.
    std::mt19937 random(1);
    std::vector<float> noise(30'000);
    for (float &sample : noise)
        sample = std::uniform_real_distribution<float>(-0.5F, 0.5F)(random);
    tape.setFrames([&noise](std::int64_t frame) {
        const bool isInside = frame >= 0 && frame < std::ssize(noise);
        return std::pair{isInside ? noise[static_cast<std::size_t>(frame)] : 0.0F, 0.0F};
    });
    const Heard heard = pull(noise.size());
    for (std::size_t i = 0; i < noise.size(); ++i) {
        ASSERT_NEAR(heard.left[i], noise[i], 1.0e-5) << i;
        ASSERT_NEAR(heard.right[i], 0.0, 1.0e-5) << i;
    }
}

TEST_F(CentreStreamTest, FiltersOneWindowEvery512FramesAndFourAfterASeek)
{
    pull(slice);
    EXPECT_EQ(stream.windows(), 4U);
    std::uint64_t before = stream.windows();
    for (int i = 0; i < 1000; ++i) {
        pull(slice);
        ASSERT_LE(stream.windows() - before, 1U);
        before = stream.windows();
    }
    EXPECT_EQ(before, 4U + 1000U * slice / 512U);
    stream.seek();
    pull(slice);
    EXPECT_EQ(stream.windows() - before, 4U);
}

TEST_F(CentreStreamTest, FiltersAnewIfOtherFramesFollowThanItRead)
{
    pull(1000);
    const std::uint64_t before = stream.windows();
    tape.setFrames([](std::int64_t frame) { return music(frame - 300); });
    pull(slice);
    EXPECT_EQ(stream.windows() - before, 4U) << "one slice is enough for it";
    pull(100 * slice);
    EXPECT_EQ(stream.windows() - before, 4U + 100U * slice / 512U);
}

TEST_F(CentreStreamTest, GoesOnWithoutAStepIfOtherFramesFollowThanItRead)
{
    // The tones on the sides go on; only what is in the middle is another from now on. Nobody
    // could know of it.
    const auto withMiddle = [](double level, double hertz) {
        return [level, hertz](std::int64_t frame) {
            const double middle = level * sine(frame, hertz);
            return std::pair{static_cast<float>(middle + 0.2 * sine(frame, 400.0)),
                             static_cast<float>(middle + 0.2 * sine(frame, 450.0))};
        };
    };
    for (const std::size_t frames : {4000U, 4100U, 5000U}) {
        tape.setFrames(withMiddle(0.4, 441.0));
        stream.seek();
        Heard heard = pull(frames);
        tape.setFrames(withMiddle(0.0, 441.0));
        const Heard after = pull(4000);
        const float last = heard.left.back();
        const double steepest = 2.0 * std::numbers::pi * 450.0 / 44100.0 * 0.3;
        EXPECT_LT(std::abs(after.left.front() - last), steepest);
    }
}

TEST_F(CentreStreamTest, DoesNotSpreadADamagedSample)
{
    tape.setFrames([](std::int64_t frame) {
        auto [left, right] = music(frame);
        if (frame == 5000)
            left = std::numeric_limits<float>::quiet_NaN();
        if (frame == 6000)
            right = std::numeric_limits<float>::infinity();
        return std::pair{left, right};
    });
    const Heard heard = pull(12'000);
    for (std::size_t i = 0; i < heard.left.size(); ++i) {
        ASSERT_TRUE(std::isfinite(heard.left[i])) << i;
        ASSERT_LT(std::abs(heard.right[i]), 2.0F) << i;
    }
}

TEST_F(CentreStreamTest, LeavesSilenceSilent)
{
    tape.setFrames([](std::int64_t) { return std::pair{0.0F, 0.0F}; });
    for (const int centre : {-100, -1, 1, 100}) {
        tools.centre = centre;
        stream.seek();
        for (const float sample : pull(5000).left)
            ASSERT_EQ(sample, 0.0F);
    }
}

TEST_F(CentreStreamTest, LeavesASteadyToneSteadyWhereverItIs)
{
    for (const int centre : {-100, -50, 50, 100}) {
        tools.centre = centre;
        tape.setFrames([](std::int64_t frame) {
            const double value = sine(frame, 987.65);
            return std::pair{static_cast<float>(0.46 * value), static_cast<float>(0.19 * value)};
        });
        stream.seek();
        const Heard heard = pull(30'000);
        // In windows of 4,096 frames with a smooth edge, all energy lies at the tone.
        double worst = 0.0;
        for (std::size_t begin = 4096; begin + 8192 < heard.left.size(); begin += 4096) {
            // What is left without the tone, fitted by least squares.
            double cs = 0.0, sn = 0.0, all = 0.0;
            constexpr std::size_t length = 7144; // about 160 periods
            for (std::size_t i = 0; i < length; ++i) {
                const double phase =
                    2.0 * std::numbers::pi * 987.65 / 44100.0 * static_cast<double>(i);
                cs += heard.left[begin + i] * std::cos(phase);
                sn += heard.left[begin + i] * std::sin(phase);
            }
            const double a = 2.0 * cs / length;
            const double b = 2.0 * sn / length;
            for (std::size_t i = 0; i < length; ++i) {
                const double phase =
                    2.0 * std::numbers::pi * 987.65 / 44100.0 * static_cast<double>(i);
                const double left =
                    heard.left[begin + i] - a * std::cos(phase) - b * std::sin(phase);
                all += left * left;
            }
            worst = std::max(worst, std::sqrt(2.0 * all / length));
        }
        EXPECT_LT(worst, 0.46 * 0.003) << centre; // -50 dB of the tone, all components together
    }
}

} // namespace
} // namespace lyrabox::test
