// The return from the stretcher to the unchanged source.

#include "platform/audio/TimePitch.h"
#include "support/SoundSource.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

namespace lyrabox {
namespace {

/// A chord with slow noise, the same in every run.
float songAt(std::int64_t frame)
{
    const auto at = static_cast<double>(frame);
    const auto noise = [](std::int64_t index) {
        auto bits = static_cast<std::uint32_t>(index) * 2654435761U;
        bits = (bits ^ (bits >> 15U)) * 2246822519U;
        return static_cast<double>(bits ^ (bits >> 13U)) / 4294967296.0 - 0.5;
    };
    const double part = static_cast<double>(frame % 16) / 16.0;
    return static_cast<float>(
        0.2 * std::sin(0.031 * at) + 0.15 * std::sin(0.047 * at + 1.0) +
        0.1 * std::sin(0.113 * at + 2.0) +
        0.2 * ((1.0 - part) * noise(frame / 16) + part * noise(frame / 16 + 1)));
}

class Song final : public test::SoundSource {
public:
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        for (std::uint32_t i = 0; i < frames; ++i, ++position) {
            for (std::uint32_t channel = 0; channel < ioData.mNumberBuffers; ++channel)
                static_cast<float *>(ioData.mBuffers[channel].mData)[i] = songAt(position);
        }
    }
    std::int64_t position = 0;
};

std::vector<float> pull(TimePitch &stage, std::uint32_t frames)
{
    std::vector<float> left(frames);
    std::vector<float> right(frames);
    AudioBufferList list;
    list.mNumberBuffers = 2;
    list.mBuffers[0] = {1, frames * 4, left.data()};
    list.mBuffers[1] = {1, frames * 4, right.data()};
    stage.render(frames, list);
    return left;
}

class TimePitchReturn : public testing::TestWithParam<float> {};

TEST_P(TimePitchReturn, FadesTheSourceInOnlyOnceTheStretcherFollowsIt)
{
    Song song;
    TimePitch stage;
    ASSERT_EQ(stage.initialize(), status::noError);
    ASSERT_EQ(stage.connect(&song), status::noError);
    stage.setParameter(parameter::rate, GetParam());
    pull(stage, 30000);
    stage.setParameter(parameter::rate, 1.0F);
    const std::vector<float> heard = pull(stage, 60000);

    // After the crossfade every frame is the song's own. This searches backwards for its end.
    const std::int64_t begin =
        song.position - static_cast<std::int64_t>(stage.latencyFrames()) - 60000;
    std::size_t untouched = heard.size();
    const auto wanted = [&](std::size_t i) { return songAt(begin + static_cast<std::int64_t>(i)); };
    while (untouched > 0 && heard[untouched - 1] == wanted(untouched - 1))
        --untouched;
    ASSERT_LT(untouched, heard.size());
    ASSERT_GE(untouched, TimePitch::crossfadeFrames);

    double product = 0.0;
    double ofHeard = 0.0;
    double ofWanted = 0.0;
    for (std::size_t i = untouched - TimePitch::crossfadeFrames; i < untouched; ++i) {
        product += static_cast<double>(heard[i]) * static_cast<double>(wanted(i));
        ofHeard += static_cast<double>(heard[i]) * static_cast<double>(heard[i]);
        ofWanted += static_cast<double>(wanted(i)) * static_cast<double>(wanted(i));
    }
    EXPECT_GT(product / std::sqrt(ofHeard * ofWanted), 0.97);
}

INSTANTIATE_TEST_SUITE_P(Rates, TimePitchReturn, testing::Values(0.6F, 0.75F, 1.5F));

} // namespace
} // namespace lyrabox
