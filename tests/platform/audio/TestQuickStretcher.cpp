#include "platform/audio/QuickStretcher.h"

#include "platform/audio/TimePitchHistory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

namespace lyrabox {
namespace {

constexpr std::uint32_t comparedFrames = 2816;

class QuickStretcherTest : public testing::Test {
protected:
    QuickStretcherTest()
    {
        history.allocate();
        stretcher.allocate();
    }

    static float tone(std::int64_t frame)
    {
        return static_cast<float>(0.5 * std::sin(0.05 * static_cast<double>(frame)));
    }

    /// Fills the history with `frames` frames of the song. The frames after them are very loud.
    void fill(std::int64_t frames)
    {
        history.clear();
        for (std::int64_t frame = 0; frame < TimePitchHistory::capacity; ++frame)
            history.set(frame, frame < frames ? tone(frame) : 1e6F,
                        frame < frames ? -tone(frame) : 1e6F);
    }

    void render(double speed, double pitch, std::uint32_t chunk = 128)
    {
        left.assign(comparedFrames, 0.0F);
        right.assign(comparedFrames, 0.0F);
        stretcher.start(speed, pitch);
        for (std::uint32_t done = 0; done < comparedFrames; done += chunk) {
            const std::uint32_t count = std::min(chunk, comparedFrames - done);
            stretcher.render(history, left.data() + done, right.data() + done, count);
        }
    }

    TimePitchHistory history;
    QuickStretcher stretcher;
    std::vector<float> left;
    std::vector<float> right;
};

TEST_F(QuickStretcherTest, GivesTheSongUnchangedAtNormalSpeedAndPitch)
{
    fill(TimePitchHistory::capacity);
    render(1.0, 1.0);
    for (std::uint32_t i = 0; i < comparedFrames; ++i)
        ASSERT_NEAR(left[i], tone(i), 1e-6F) << i;
}

TEST_F(QuickStretcherTest, KeepsATonePure)
{
    fill(TimePitchHistory::capacity);
    for (const double speed : {0.1, 0.5, 1.25, 2.0}) {
        for (const double pitch : {0.25, 0.5, 1.0, 1.5, 4.0}) {
            render(speed, pitch);
            // In a pure tone the sum of two neighbouring samples is a fixed multiple of the one
            // between them.
            const double share = 2.0 * std::cos(0.05 * pitch);
            for (std::uint32_t i = 300; i + 1 < comparedFrames; ++i) {
                const double sum =
                    static_cast<double>(left[i - 1]) + static_cast<double>(left[i + 1]);
                ASSERT_NEAR(sum, share * static_cast<double>(left[i]), 0.01)
                    << speed << " " << pitch << " " << i;
            }
        }
    }
}

TEST_F(QuickStretcherTest, TreatsBothChannelsAlike)
{
    fill(TimePitchHistory::capacity);
    render(0.7, 1.3);
    for (std::uint32_t i = 0; i < comparedFrames; ++i)
        ASSERT_EQ(right[i], -left[i]) << i;
}

TEST_F(QuickStretcherTest, ReadsOnlyUpToItsReach)
{
    for (const double speed : {0.1, 0.5, 1.0, 2.0}) {
        for (const double pitch : {0.25, 1.0, 4.0}) {
            stretcher.start(speed, pitch);
            fill(stretcher.reach(comparedFrames));
            render(speed, pitch);
            for (std::uint32_t i = 0; i < comparedFrames; ++i)
                ASSERT_LT(std::abs(left[i]), 0.8F) << speed << " " << pitch << " " << i;
        }
    }
}

TEST_F(QuickStretcherTest, DoesNotDependOnTheSizeOfTheRequests)
{
    fill(TimePitchHistory::capacity);
    render(1.6, 0.8, 128);
    const std::vector<float> wanted = left;
    render(1.6, 0.8, 1000);
    EXPECT_EQ(left, wanted);
}

} // namespace
} // namespace lyrabox
