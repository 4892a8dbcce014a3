#include "platform/audio/TimePitch.h"
#include "support/SoundSource.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

using namespace lyrabox;

namespace {

/// Gives the same noise to every stage.
class Noise final : public test::SoundSource {
public:
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        for (std::uint32_t i = 0; i < frames; ++i) {
            m_random = m_random * 1664525U + 1013904223U;
            const float sample = static_cast<float>(m_random >> 8U) / 16777216.0F - 0.5F;
            for (std::uint32_t channel = 0; channel < ioData.mNumberBuffers; ++channel)
                static_cast<float *>(ioData.mBuffers[channel].mData)[i] = sample;
        }
    }

private:
    std::uint32_t m_random = 1;
};

std::vector<float> heardAtThreeQuarters(TimePitch::WarmUp warmUp)
{
    Noise noise;
    TimePitch unit(warmUp);
    EXPECT_EQ(unit.initialize(), status::noError);
    unit.connect(&noise);
    unit.setParameter(parameter::rate, 0.75F);
    unit.awaitReady();
    constexpr std::uint32_t frames = 512;
    std::vector<float> heard;
    for (int i = 0; i < 40; ++i) {
        std::array<float, frames> left{};
        std::array<float, frames> right{};
        AudioBufferList list{};
        list.mNumberBuffers = 2;
        list.mBuffers[0] = {1, sizeof left, left.data()};
        list.mBuffers[1] = {1, sizeof right, right.data()};
        unit.render(frames, list);
        heard.insert(heard.end(), left.begin(), left.end());
    }
    return heard;
}

} // namespace

TEST(TimePitchWarmUp, GivesTheSameSoundInBackground)
{
    const std::vector<float> atOnce = heardAtThreeQuarters(TimePitch::WarmUp::AtOnce);
    EXPECT_TRUE(atOnce == heardAtThreeQuarters(TimePitch::WarmUp::InBackground));
    EXPECT_NE(atOnce.back(), 0.0F);
}

TEST(TimePitchWarmUp, TheDestructorWaitsForIt)
{
    TimePitch unit(TimePitch::WarmUp::InBackground);
    EXPECT_EQ(unit.initialize(), status::noError);
    unit.prepare();
}

TEST(TimePitchWarmUp, PrepareAndAwaitReadyMayBeRepeated)
{
    TimePitch unit(TimePitch::WarmUp::InBackground);
    unit.prepare(); // has no effect before initialize()
    EXPECT_EQ(unit.initialize(), status::noError);
    unit.prepare();
    unit.prepare();
    unit.awaitReady();
    unit.awaitReady();
    unit.prepare();
    Noise noise;
    unit.connect(&noise);
    std::vector<float> left(4096);
    std::vector<float> right(4096);
    AudioBufferList list{};
    list.mNumberBuffers = 2;
    for (std::uint32_t i = 0; i < 8; ++i) {
        list.mBuffers[0] = {1, 2048, left.data() + 512 * i};
        list.mBuffers[1] = {1, 2048, right.data() + 512 * i};
        unit.render(512, list);
    }
    EXPECT_NE(left.back(), 0.0F);
}

TEST(TimePitchWarmUp, AUnitThatWasNeverPreparedCanBeDestroyed)
{
    TimePitch unit(TimePitch::WarmUp::InBackground);
    EXPECT_EQ(unit.initialize(), status::noError);
}
