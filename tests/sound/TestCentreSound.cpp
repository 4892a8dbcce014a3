// The centre on made mixes whose parts are known.

#include "platform/audio/ChannelStage.h"
#include "sound/TimePitchSignals.h"
#include "support/TapedStream.h"
#include "support/pieces/StereoMix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <map>
#include <memory>
#include <numbers>
#include <vector>

namespace lyrabox::test {
namespace {

/// Each mix is made once.
const StereoMix &mixOf(unsigned seed)
{
    static std::map<unsigned, StereoMix> mixes;
    const auto found = mixes.find(seed);
    return found != mixes.end() ? found->second
                                : mixes.emplace(seed, makeStereoMix(seed, 10.0)).first->second;
}

/// The part through the stage that the engine plays through.
StereoPart through(const StereoPart &part, const ChannelTools &tools)
{
    constexpr std::uint32_t slice = 128;
    TapedStream tape([&part](std::int64_t frame) {
        const bool isInside = frame >= 0 && static_cast<std::size_t>(frame) < part.frames();
        const auto index = static_cast<std::size_t>(frame);
        return isInside ? std::pair{part.left[index], part.right[index]} : std::pair{0.0F, 0.0F};
    });
    ChannelStage stage;
    stage.set(tools);
    StereoPart heard = part;
    for (std::size_t done = 0; done < part.frames(); done += slice) {
        const auto count =
            static_cast<std::uint32_t>(std::min<std::size_t>(slice, part.frames() - done));
        float *const left = heard.left.data() + done;
        float *const right = heard.right.data() + done;
        tape.next(left, right, count);
        if (stage.isOn())
            stage.process(left, right, count, tape);
    }
    return heard;
}

StereoPart withoutMiddle(const StereoPart &part)
{
    return through(part, {.centre = -100});
}

StereoPart onlyMiddle(const StereoPart &part)
{
    return through(part, {.centre = 100});
}

double change(const StereoPart &heard, const StereoPart &part)
{
    return levelOf(heard) - levelOf(part);
}

StereoPart sum(StereoPart a, const StereoPart &b)
{
    a += b;
    return a;
}

/// A part's share of what is heard, as an amplitude: the projection.
double shareOf(const std::vector<float> &part, const std::vector<float> &heard)
{
    double product = 0.0;
    double power = 0.0;
    for (std::size_t i = 4410; i + 4410 < part.size(); ++i) {
        product += static_cast<double>(part[i]) * heard[i];
        power += static_cast<double>(part[i]) * part[i];
    }
    return product / power;
}

/// The part below 150 Hz: a windowed sinc of 4,095 taps.
StereoPart lowEnd(const StereoPart &part)
{
    constexpr int half = 2047;
    constexpr double cut = 2.0 * 150.0 / 44100.0;
    std::vector<float> taps;
    for (int i = -half; i <= half; ++i) {
        const double x = std::numbers::pi * cut * i;
        const double window = 0.5 + 0.5 * std::cos(std::numbers::pi * i / (half + 1));
        taps.push_back(static_cast<float>((i == 0 ? cut : cut * std::sin(x) / x) * window));
    }
    const auto filtered = [&taps](const std::vector<float> &samples) {
        std::vector<float> low;
        // Every 20th frame is enough for what is left.
        for (std::size_t at = 0; at + taps.size() <= samples.size(); at += 20) {
            float value = 0.0F;
            for (std::size_t i = 0; i < taps.size(); ++i)
                value += taps[i] * samples[at + i];
            low.push_back(value);
        }
        return low;
    };
    return {filtered(part.left), filtered(part.right)};
}

void tell(const std::string &what, double value)
{
    std::cout << "measured: " << what << ' ' << std::round(100.0 * value) / 100.0 << " dB\n";
}

class CentreSound : public testing::TestWithParam<unsigned> {
protected:
    const StereoMix &mix = mixOf(GetParam());
};

TEST_P(CentreSound, WithoutTheMiddleHasNoVoice)
{
    const double dry = change(withoutMiddle(mix.voice), mix.voice);
    tell("the dry voice without the middle", dry);
    EXPECT_LT(dry, -40.0);
    const StereoPart wet = sum(mix.voice, mix.room);
    const double withRoom = change(withoutMiddle(wet), wet);
    tell("the voice with its room", withRoom);
    EXPECT_LT(withRoom, -11.0);
    StereoPart aside = mix.voice;
    std::ranges::for_each(aside.right, [](float &sample) { sample *= 0.8913F; }); // -1 dB
    const double panned = change(withoutMiddle(aside), aside);
    tell("the voice 1 dB to the left", panned);
    EXPECT_LT(panned, -20.0);
}

TEST_P(CentreSound, WithoutTheMiddleTakesTheVoiceOutOfTheMix)
{
    // A tenth of the amplitude: the projection also finds what is alike by chance.
    const StereoPart heard = withoutMiddle(mix.whole());
    EXPECT_LT(std::abs(shareOf(mix.voice.left, heard.left)), 0.1);
    EXPECT_LT(std::abs(shareOf(mix.voice.right, heard.right)), 0.1);
}

TEST_P(CentreSound, WithoutTheMiddleLeavesTheRest)
{
    const double rest = distortionRatio(withoutMiddle(mix.whole()), mix.rest());
    tell("the rest without the middle", rest);
    EXPECT_GT(rest, 7.0);
}

TEST_P(CentreSound, WithoutTheMiddleLeavesBassKickAndWhatIsOnOneSide)
{
    for (const StereoPart *part : {&mix.bass, &mix.kick}) {
        const StereoPart low = lowEnd(*part);
        EXPECT_NEAR(change(lowEnd(withoutMiddle(*part)), low), 0.0, 0.5);
        EXPECT_GT(distortionRatio(lowEnd(withoutMiddle(*part)), low), 20.0);
    }
    for (const StereoPart *part : {&mix.guitar, &mix.shaker})
        EXPECT_NEAR(change(withoutMiddle(*part), *part), 0.0, 0.5);
}

TEST_P(CentreSound, WithoutTheMiddleStaysStereo)
{
    const StereoPart heard = withoutMiddle(mix.whole());
    EXPECT_GT(shareOf(mix.keys.right, heard.right), 0.4);
    EXPECT_GT(shareOf(mix.organ.left, heard.left), 0.4);
    // A part that is half way to a side stays there, with its phase.
    const StereoPart keys = withoutMiddle(mix.keys);
    EXPECT_GT(shareOf(mix.keys.left, keys.left), 0.7);
    EXPECT_GT(shareOf(mix.keys.right, keys.right), 0.7);
}

TEST_P(CentreSound, OnlyTheMiddleIsTheVoice)
{
    const double voice = distortionRatio(onlyMiddle(mix.whole()), mix.voice);
    tell("the voice alone", voice);
    const StereoPart rest = mix.rest();
    const double others = change(onlyMiddle(rest), rest);
    tell("the rest of it", others);
    EXPECT_GT(voice, 9.0); // at least 10 in the mean of all, see below
    EXPECT_LT(others, -11.0);
}

INSTANTIATE_TEST_SUITE_P(Mixes, CentreSound, testing::Values(1U, 2U, 3U, 4U));

TEST(CentreSoundOfAllMixes, OnlyTheMiddleIsTheVoiceByTenDecibels)
{
    double total = 0.0;
    for (const unsigned seed : {1U, 2U, 3U, 4U}) {
        const StereoMix &mix = mixOf(seed);
        total += distortionRatio(onlyMiddle(mix.whole()), mix.voice) / 4.0;
    }
    tell("the voice alone, mean of four mixes", total);
    EXPECT_GT(total, 10.0);
}

TEST(CentreOfASteadyTone, MakesNoOtherTones)
{
    StereoPart tone{std::vector<float>(2 * 44100), std::vector<float>(2 * 44100)};
    const double pan = std::numbers::pi / 8.0; // half left
    for (std::size_t i = 0; i < tone.frames(); ++i) {
        const double value =
            0.5 * std::sin(2.0 * std::numbers::pi *
                           std::fmod(987.6 / 44100.0 * static_cast<double>(i), 1.0));
        tone.left[i] = static_cast<float>(value * std::cos(pan));
        tone.right[i] = static_cast<float>(value * std::sin(pan));
    }
    for (const int centre : {-100, -50, 50}) {
        const StereoPart heard = through(tone, {.centre = centre});
        const std::size_t first = 44100;
        const std::size_t length = 22050;
        const double own = std::abs(partialAt(heard.left, first, length, 987.6));
        double worst = 0.0;
        for (double hertz = 20.0; hertz < 4000.0; hertz += 1.7) {
            if (std::abs(hertz - 987.6) > 30.0)
                worst = std::max(worst, std::abs(partialAt(heard.left, first, length, hertz)));
        }
        tell("the loudest other tone at centre " + std::to_string(centre), inDecibels(worst / own));
        EXPECT_LT(inDecibels(worst / own), -50.0);
    }
}

} // namespace
} // namespace lyrabox::test
