#include "platform/audio/GraphicEqualizer.h"
#include "platform/audio/PulledEqualizer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <thread>

using namespace lyrabox;
using lyrabox::test::PulledEqualizer;

namespace {

float ones(std::size_t, std::size_t)
{
    return 1.0F;
}

float click(std::size_t frame, std::size_t)
{
    return frame == 0 ? 1.0F : 0.0F;
}

TEST(GraphicEqualizer, AdoptsTheCanonicalFormat)
{
    const AudioStreamBasicDescription format = GraphicEqualizer().streamFormat();
    EXPECT_EQ(format.mSampleRate, 44100.0);
    EXPECT_EQ(format.mChannelsPerFrame, 2U);
    EXPECT_EQ(format.mBytesPerFrame, 4U);
}

TEST(GraphicEqualizer, ParametersStartAtZeroAndReadBackAsSet)
{
    GraphicEqualizer unit;
    ASSERT_EQ(unit.initialize(), 0);
    for (std::uint32_t id = 0; id <= 31; ++id) {
        EXPECT_EQ(unit.parameter(id), 0.0F);
        const float level = static_cast<float>(id) - 15.5F;
        EXPECT_EQ(unit.setParameter(id, level), 0);
        EXPECT_EQ(unit.parameter(id), level);
    }
    EXPECT_EQ(unit.setParameter(2, 99.0F), 0);
    EXPECT_EQ(unit.parameter(2), 99.0F) << "only the sound is clamped";
}

TEST(GraphicEqualizer, RefusesParametersItDoesNotHave)
{
    GraphicEqualizer unit;
    EXPECT_EQ(unit.setParameter(32, 0.0F), status::invalidParameter);
    EXPECT_EQ(unit.setParameter(0xffffffffU, 0.0F), status::invalidParameter);
    EXPECT_EQ(unit.parameter(32), 0.0F);
}

TEST(GraphicEqualizer, RefusesValuesThatAreNotFiniteAndKeepsTheOldOne)
{
    GraphicEqualizer unit;
    for (const std::uint32_t id : {0U, 17U, 31U}) {
        ASSERT_EQ(unit.setParameter(id, 3.0F), 0);
        for (const float value : {std::nanf(""), std::numeric_limits<float>::infinity(),
                                  -std::numeric_limits<float>::infinity()}) {
            EXPECT_EQ(unit.setParameter(id, value), status::invalidParameter);
            EXPECT_EQ(unit.parameter(id), 3.0F);
        }
    }
}

TEST(GraphicEqualizer, Parameter31HasNoEffectOnTheSound)
{
    PulledEqualizer pulled(ones);
    pulled.pull(128);
    ASSERT_EQ(pulled.unit.setParameter(parameter::equalizerFixed, 12.0F), 0);
    const auto heard = pulled.pull(2000);
    for (const float sample : heard[0])
        EXPECT_EQ(sample, 1.0F);
}

TEST(GraphicEqualizer, PullsExactlyTheFramesItIsAskedFor)
{
    PulledEqualizer pulled(
        [](std::size_t frame, std::size_t) { return static_cast<float>(frame); });
    for (const std::uint32_t frames : {1U, 128U, 3U, 1024U}) {
        const std::size_t before = pulled.position;
        const auto heard = pulled.pull(frames, frames);
        EXPECT_EQ(pulled.position, before + frames);
        EXPECT_EQ(heard[0].front(), static_cast<float>(before));
        EXPECT_EQ(heard[1].back(), static_cast<float>(before + frames - 1));
    }
}

void expectSilenceFrom(GraphicEqualizer &unit)
{
    std::vector<float> left(64, 0.7F);
    std::vector<float> right(64, 0.7F);
    AudioBufferList list;
    list.mNumberBuffers = 2;
    list.mBuffers[0] = {1, 256, left.data()};
    list.mBuffers[1] = {1, 256, right.data()};
    unit.render(64, list);
    EXPECT_EQ(left, std::vector<float>(64, 0.0F));
    EXPECT_EQ(right, std::vector<float>(64, 0.0F));
}

TEST(GraphicEqualizer, IsSilentWithoutACallback)
{
    GraphicEqualizer unit;
    unit.initialize();
    expectSilenceFrom(unit);
}

TEST(GraphicEqualizer, IsSilentWhenTheCallbackLeavesTheBuffersUntouched)
{
    GraphicEqualizer unit;
    unit.initialize();
    unit.setRenderCallback(
        [](void *, std::uint32_t, AudioBufferList &) noexcept -> Status { return 0; }, nullptr);
    expectSilenceFrom(unit);
}

TEST(GraphicEqualizer, IsSilentWhenTheCallbackFillsTheBuffersButReportsAStatus)
{
    PulledEqualizer pulled(ones);
    pulled.callbackStatus = status::unspecified;
    for (const auto &channel : pulled.pull(300))
        EXPECT_EQ(channel, std::vector<float>(300, 0.0F));
}

TEST(GraphicEqualizer, FiltersASingleBuffer)
{
    GraphicEqualizer mono;
    mono.initialize();
    mono.setParameter(17, 9.0F);
    mono.setRenderCallback(
        [](void *, std::uint32_t, AudioBufferList &ioData) noexcept -> Status {
            *static_cast<float *>(ioData.mBuffers[0].mData) = 1.0F;
            return 0;
        },
        nullptr);
    std::vector<float> samples(600);
    AudioBufferList list;
    list.mNumberBuffers = 1;
    list.mBuffers[0] = {1, 2400, samples.data()};
    mono.render(600, list);

    PulledEqualizer stereo(click);
    stereo.unit.setParameter(17, 9.0F);
    EXPECT_EQ(samples, stereo.pull(600)[0]);
}

TEST(GraphicEqualizer, StartsAtItsLevelsWithoutARamp)
{
    PulledEqualizer pulled(ones);
    pulled.setSliders(6.0F);
    EXPECT_NEAR(pulled.pull(1)[0].front(), std::pow(10.0, 0.3), 1e-6);
}

TEST(GraphicEqualizer, AChangeDuringPlaybackIsARamp)
{
    PulledEqualizer pulled(ones);
    pulled.pull(128);
    pulled.setSliders(6.0F);
    const auto heard = pulled.pull(1000)[0];
    EXPECT_NEAR(heard.front(), 1.0F, 0.001);
    EXPECT_NEAR(heard.back(), std::pow(10.0, 0.3), 1e-6);
}

TEST(GraphicEqualizer, ResetDropsTheSignalAndKeepsTheParameters)
{
    PulledEqualizer pulled(click);
    pulled.unit.setParameter(2, 12.0F);
    EXPECT_NE(pulled.pull(100)[0].back(), 0.0F);
    pulled.unit.reset();
    EXPECT_EQ(pulled.pull(100)[0], std::vector<float>(100, 0.0F));
    EXPECT_EQ(pulled.unit.parameter(2), 12.0F);
}

TEST(GraphicEqualizer, ResetEndsARamp)
{
    PulledEqualizer pulled(ones);
    pulled.pull(128);
    pulled.setSliders(6.0F);
    EXPECT_LT(pulled.pull(128)[0].back(), 1.5F);
    pulled.unit.reset();
    EXPECT_NEAR(pulled.pull(1)[0].front(), std::pow(10.0, 0.3), 1e-6);
}

TEST(GraphicEqualizer, LevelsSetBeforeAResetApplyAfterIt)
{
    PulledEqualizer pulled(ones);
    pulled.pull(128);
    pulled.setSliders(6.0F);
    pulled.unit.reset();
    EXPECT_NEAR(pulled.pull(1)[0].front(), std::pow(10.0, 0.3), 1e-6);
}

TEST(GraphicEqualizer, AnotherThreadMaySetLevelsAndResetDuringRendering)
{
    PulledEqualizer pulled(ones);
    std::atomic<bool> isDone{false};
    std::thread control([&] {
        for (int i = 0; i < 200; ++i) {
            pulled.setSlider(static_cast<std::size_t>(i % 10), static_cast<float>(i % 25) - 12.0F);
            if (i % 50 == 49)
                pulled.unit.reset();
        }
        pulled.setSliders(6.0F);
        isDone = true;
    });
    bool isFinite = true;
    while (!isDone) {
        const auto heard = pulled.pull(128);
        for (const float sample : heard[0])
            isFinite = isFinite && std::isfinite(sample);
    }
    control.join();
    EXPECT_TRUE(isFinite);
    EXPECT_NEAR(pulled.pull(44100)[0].back(), std::pow(10.0, 0.3), 1e-5);
}

} // namespace
