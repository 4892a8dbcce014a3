#include "platform/analysis/OnsetStrength.h"

#include "platform/analysis/MadeSong.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace lyrabox;
using test::MadeSong;

namespace {

constexpr std::size_t frames = 2 * 44100;

std::vector<float> strengthsOf(const SongSamples &song)
{
    OnsetStrength onsets(song);
    std::vector<float> strengths(song.frames() / OnsetStrength::hop);
    std::generate(strengths.begin(), strengths.end(), [&] { return onsets.next(); });
    return strengths;
}

} // namespace

TEST(OnsetStrength, SilenceHasNone)
{
    const auto strengths = strengthsOf(MadeSong(frames).samples());
    EXPECT_EQ(*std::max_element(strengths.begin(), strengths.end()), 0.0F);
}

TEST(OnsetStrength, ASoundOutOfSilenceIsAllNewAndThenNotNewAtAll)
{
    MadeSong song(frames);
    song.addTone(100 * OnsetStrength::hop, 1000.0, 0.5);
    const auto strengths = strengthsOf(song.samples());
    const auto strongest = std::max_element(strengths.begin(), strengths.end());
    EXPECT_NEAR(static_cast<double>(strongest - strengths.begin()), 100.0, 2.0);
    EXPECT_GT(*strongest, 0.8F);
    EXPECT_LE(*strongest, 1.0F);
    EXPECT_LT(*std::max_element(strengths.begin() + 110, strengths.end() - 4), 0.001F);
}

TEST(OnsetStrength, TheLevelOfTheSongHardlyMatters)
{
    const auto strongest = [](double level) {
        MadeSong song(frames);
        song.addChord({300.0, 400.0}, 0.2 * level);
        song.addClick(40'000, static_cast<float>(0.5 * level));
        const auto strengths = strengthsOf(song.samples());
        return *std::max_element(strengths.begin() + 50, strengths.end());
    };
    EXPECT_NEAR(strongest(0.05), strongest(1.0), 0.25 * strongest(1.0));
}

TEST(OnsetStrength, ThePhaseBetweenTheChannelsDoesNotMatter)
{
    const auto strongest = [](double phase) {
        MadeSong song(frames);
        song.addTone(20'000, 1000.0, 0.5);
        for (std::size_t i = 20'000; i < frames; ++i) {
            const double time = static_cast<double>(i - 20'000) / test::songRate;
            song.right[i] =
                static_cast<float>(0.5 * std::sin(2.0 * std::numbers::pi * 1000.0 * time + phase));
        }
        const auto strengths = strengthsOf(song.samples());
        return *std::max_element(strengths.begin(), strengths.end() - 4);
    };
    const double quarter = std::numbers::pi / 2.0;
    EXPECT_NEAR(strongest(quarter), strongest(-quarter), 0.01);
    EXPECT_NEAR(strongest(quarter), strongest(0.0), 0.05);
}

TEST(OnsetStrength, TheBeatingOfLowTonesIsNotNew)
{
    MadeSong song(frames);
    song.addTone(0, 130.8, 0.2);
    song.addTone(0, 164.8, 0.2);
    const auto strengths = strengthsOf(song.samples());
    EXPECT_LT(*std::max_element(strengths.begin() + 20, strengths.end() - 5), 0.02F);
}

TEST(OnsetStrength, StepsAreTheSameAfterASeek)
{
    MadeSong song(frames);
    song.addNoise(0.1);
    song.addClick(30'000, 0.5F);
    const auto strengths = strengthsOf(song.samples());
    OnsetStrength onsets(song.samples());
    for (const std::size_t step : {200, 117, 0, 300}) {
        onsets.seek(step);
        for (std::size_t i = step; i < step + 10; ++i)
            EXPECT_EQ(onsets.next(), strengths[i]) << i;
    }
}

TEST(OnsetStrength, StepsBeyondTheEndAreSilent)
{
    MadeSong song(1000);
    song.addNoise(0.1);
    OnsetStrength onsets(song.samples());
    onsets.seek(20);
    EXPECT_EQ(onsets.next(), 0.0F);
}

TEST(OnsetStrength, OtherSampleRatesWork)
{
    for (const double rate : {1000.0, 8000.0, 192'000.0}) {
        MadeSong song(frames);
        song.addClick(100 * OnsetStrength::hop, 0.5F);
        const auto strengths = strengthsOf({song.left, song.right, rate});
        const auto strongest = std::max_element(strengths.begin(), strengths.end());
        EXPECT_NEAR(static_cast<double>(strongest - strengths.begin()), 100.0, 2.0) << rate;
    }
}

TEST(OnsetStrength, TheGrowthOfALoudSoundIsLargerThanThatOfASoftOne)
{
    const auto largest = [](double level) {
        MadeSong song(frames);
        song.addTone(20'000, 1000.0, level);
        OnsetStrength onsets(song.samples());
        float growth = 0.0F;
        for (int step = 0; step < 150; ++step) {
            onsets.next();
            growth = std::max(growth, onsets.growth());
        }
        return growth;
    };
    EXPECT_NEAR(largest(0.4), 2.0F * largest(0.1), 0.1F * largest(0.4)); // compressed by the root
}

TEST(OnsetStrength, TheLowGrowthIsThatOfLowSoundsOnly)
{
    const auto largest = [](double frequency) {
        MadeSong song(frames);
        song.addTone(20'000, frequency, 0.4);
        OnsetStrength onsets(song.samples());
        float growth = 0.0F;
        for (int step = 0; step < 76; ++step) // before the tone is there at its full level
            onsets.next();
        for (int step = 76; step < 150; ++step) {
            onsets.next();
            growth = std::max(growth, onsets.lowGrowth());
        }
        return growth;
    };
    EXPECT_GT(largest(80.0), 4.0F * largest(3000.0));
}
