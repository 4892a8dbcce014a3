// What the stage says of the frames that it holds, while its settings change.

#include "platform/audio/TimePitch.h"
#include "support/SoundSource.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace lyrabox {
namespace {

class Noise final : public test::SoundSource {
public:
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        for (std::uint32_t i = 0; i < frames; ++i, ++position) {
            m_random = m_random * 1664525U + 1013904223U;
            for (std::uint32_t channel = 0; channel < ioData.mNumberBuffers; ++channel)
                static_cast<float *>(ioData.mBuffers[channel].mData)[i] =
                    static_cast<float>(m_random >> 8U) / 16777216.0F - 0.5F;
        }
    }
    std::int64_t position = 0;

private:
    std::uint32_t m_random = 1;
};

class TimePitchAccount : public testing::Test {
protected:
    TimePitchAccount()
    {
        stage.initialize();
        stage.connect(&song);
        pull(128);
    }

    void set(float rate, float cents)
    {
        stage.setParameter(parameter::rate, rate);
        stage.setParameter(parameter::pitch, cents);
    }

    void pull(std::uint32_t frames)
    {
        std::vector<float> left(frames);
        std::vector<float> right(frames);
        AudioBufferList list;
        list.mNumberBuffers = 2;
        list.mBuffers[0] = {1, frames * 4, left.data()};
        list.mBuffers[1] = {1, frames * 4, right.data()};
        stage.render(frames, list);
    }

    double place() const { return static_cast<double>(song.position) - stage.account().held; }

    Noise song;
    TimePitch stage;
};

TEST_F(TimePitchAccount, ThePlaceAdvancesEvenlyThroughChangesOfTheSpeed)
{
    constexpr std::uint32_t block = 128;
    constexpr double slack = 90.0; // frames, 2 ms
    double before = place();
    double last = 1.0;
    for (const float rate : {0.5F, 1.25F, 0.6F, 2.0F, 1.0F, 0.75F, 1.5F}) {
        set(rate, 0.0F);
        const auto speed = static_cast<double>(rate);
        for (int i = 0; i < 300; ++i) {
            pull(block);
            const double after = place();
            EXPECT_GT(after - before, block * std::min(last, speed) - slack)
                << "to " << rate << ", block " << i;
            EXPECT_LT(after - before, block * std::max(last, speed) + slack)
                << "to " << rate << ", block " << i;
            before = after;
        }
        last = speed;
    }
}

TEST_F(TimePitchAccount, CountsAResetWhenItIsCarriedOut)
{
    set(0.75F, 0.0F);
    for (int i = 0; i < 100; ++i)
        pull(128);
    const TimePitchUnit::Account before = stage.account();
    EXPECT_GT(before.held, 1000.0);
    stage.reset();
    EXPECT_EQ(stage.latencyFrames(), 0.0);
    EXPECT_EQ(stage.account().held, before.held) << "it is still to be carried out";
    EXPECT_EQ(stage.account().resets, before.resets);
    pull(128);
    EXPECT_EQ(stage.account().resets, before.resets + 1);
    pull(128);
    EXPECT_EQ(stage.account().resets, before.resets + 1);
}

} // namespace
} // namespace lyrabox
