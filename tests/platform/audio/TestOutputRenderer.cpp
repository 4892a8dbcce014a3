#include "OutputRendererFixture.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

TEST_F(OutputRendererTest, IsSilentAndPullsNothingBeforeTheStart)
{
    EXPECT_EQ(peak(pull(1000)), 0.0F);
    EXPECT_EQ(source.position, 0U);
    EXPECT_EQ(renderer.silentFrames(), 1000U);
    EXPECT_FALSE(renderer.isRunning());
}

TEST_F(OutputRendererTest, PassesTheSourceUnchangedAfterTheFadeIn)
{
    renderer.start();
    const std::vector<float> heard = pull(4000);
    EXPECT_EQ(renderer.silentFrames(), 0U);
    for (std::uint32_t i = fade; i < heard.size(); ++i)
        ASSERT_EQ(heard[i], source.at(i)) << i;
    for (std::uint32_t i = 0; i < fade; ++i)
        ASSERT_LE(std::abs(heard[i]), std::abs(source.at(i))) << i;
}

TEST_F(OutputRendererTest, TheSamplesDoNotDependOnTheSizeOfTheRequests)
{
    renderer.start();
    std::vector<float> heard;
    for (const std::uint32_t frames : {1U, 127U, 128U, 129U, 3U, 1000U, 77U, 2048U}) {
        const std::vector<float> part = pull(frames);
        heard.insert(heard.end(), part.begin(), part.end());
        EXPECT_LE(source.position, heard.size() + fade + OutputRenderer::chunkFrames);
        EXPECT_GE(source.position, heard.size() + fade);
    }
    for (std::uint32_t i = fade; i < heard.size(); ++i)
        ASSERT_EQ(heard[i], source.at(i)) << i;
    EXPECT_EQ(source.largestPull, OutputRenderer::chunkFrames);
}

TEST_F(OutputRendererTest, AStopPullsNothingAndFadesOutThePulledFrames)
{
    renderer.start();
    std::vector<float> heard = pull(2000);
    renderer.stop();
    const std::uint64_t pulled = source.position;
    const std::vector<float> after = pull(2000);
    EXPECT_EQ(source.position, pulled);
    for (std::uint32_t i = 0; i < fade; ++i)
        ASSERT_LE(std::abs(after[i]), std::abs(source.at(2000 + i)) + 1e-6F);
    EXPECT_GT(peak({after.begin(), after.begin() + fade / 2}), 0.2F);
    EXPECT_EQ(peak({after.begin() + fade, after.end()}), 0.0F);
    // A chunk is either silent or not.
    EXPECT_GE(renderer.silentFrames(), 2000 - fade - OutputRenderer::chunkFrames);
    heard.insert(heard.end(), after.begin(), after.end());
    EXPECT_LT(clickLevel(heard), -60.0);
}

TEST_F(OutputRendererTest, AStartAfterAStopContinuesWithoutAClick)
{
    renderer.start();
    std::vector<float> heard = pull(2000);
    renderer.stop();
    const std::vector<float> pause = pull(1000);
    const std::uint64_t position = source.position;
    renderer.start();
    const std::vector<float> after = pull(1000);
    for (std::uint32_t i = fade; i < after.size(); ++i)
        ASSERT_EQ(after[i], source.at(position + i)) << i;
    heard.insert(heard.end(), pause.begin(), pause.end());
    heard.insert(heard.end(), after.begin(), after.end());
    EXPECT_LT(clickLevel(heard), -60.0);
}

TEST_F(OutputRendererTest, AStartDuringTheFadeOutCrossfades)
{
    renderer.start();
    std::vector<float> heard = pull(2000);
    renderer.stop();
    const std::vector<float> pause = pull(100);
    renderer.start();
    const std::vector<float> after = pull(1000);
    heard.insert(heard.end(), pause.begin(), pause.end());
    heard.insert(heard.end(), after.begin(), after.end());
    EXPECT_LT(clickLevel(heard), -60.0);
}

TEST_F(OutputRendererTest, AResetCrossfadesToTheNewMaterialAtOnce)
{
    renderer.start();
    std::vector<float> heard = pull(2025);
    source.position = 100'025; // a quarter of a period away
    renderer.requestReset();
    const std::vector<float> after = pull(1000);
    for (std::uint32_t i = fade; i < after.size(); ++i)
        ASSERT_EQ(after[i], source.at(100'025 + i)) << i;
    heard.insert(heard.end(), after.begin(), after.end());
    EXPECT_LT(clickLevel(heard), -60.0);
}

TEST_F(OutputRendererTest, ResetsFasterThanTheFadesDoNotClick)
{
    renderer.start();
    std::vector<float> heard = pull(2000);
    for (std::uint32_t i = 0; i < 60; ++i) {
        source.position = 7919U * (i + 1);
        renderer.requestReset();
        const std::vector<float> part = pull(1 + (i * 37) % 150);
        heard.insert(heard.end(), part.begin(), part.end());
    }
    EXPECT_LT(clickLevel(heard), -60.0);
    EXPECT_LE(peak(heard), 1.0F);
}

TEST_F(OutputRendererTest, AResetDuringAPullDropsTheChunk)
{
    renderer.start();
    std::vector<float> heard = pull(2000);
    source.duringPull = [&] {
        source.position = 50'000;
        renderer.requestReset();
        source.duringPull = nullptr;
    };
    const std::vector<float> after = pull(1000);
    const auto found = std::find(after.begin(), after.end(), source.at(50'000 + fade + 1));
    ASSERT_NE(found, after.end());
    heard.insert(heard.end(), after.begin(), after.end());
    EXPECT_LT(clickLevel(heard), -60.0);
}

TEST_F(OutputRendererTest, ASourceThatStopsTheOutputIsNotPulledAgainAndFadesOut)
{
    renderer.start();
    std::vector<float> heard = pull(2000);
    int endings = 0;
    source.duringPull = [&] {
        EXPECT_TRUE(renderer.isRenderingHere());
        renderer.stop();
        ++endings;
    };
    const std::vector<float> after = pull(2000);
    EXPECT_EQ(endings, 1);
    EXPECT_FALSE(renderer.isRunning());
    EXPECT_EQ(peak({after.begin() + 2 * fade, after.end()}), 0.0F);
    heard.insert(heard.end(), after.begin(), after.end());
    EXPECT_LT(clickLevel(heard), -60.0);
    EXPECT_FALSE(renderer.isRenderingHere());
}

TEST_F(OutputRendererTest, ASourceThatStopsTheOutputAtItsFirstPullIsNotHeard)
{
    source.duringPull = [&] { renderer.stop(); };
    renderer.start();
    EXPECT_EQ(peak(pull(1000)), 0.0F);
    EXPECT_EQ(source.position, OutputRenderer::chunkFrames);
}

TEST_F(OutputRendererTest, TheVolumeScalesEverySample)
{
    renderer.setVolume(0.5F);
    renderer.start();
    const std::vector<float> heard = pull(2000);
    for (std::uint32_t i = fade; i < heard.size(); ++i)
        ASSERT_EQ(heard[i], source.at(i) * 0.5F) << i;
    EXPECT_LE(peak(heard), 0.25F);
}

TEST_F(OutputRendererTest, TheVolumeIsAppliedClampedAndReadBackAsSet)
{
    renderer.setVolume(3.0F);
    EXPECT_EQ(renderer.volume(), 3.0F);
    renderer.start();
    EXPECT_FLOAT_EQ(peak(pull(2000)), 0.5F);
    renderer.setVolume(-1.0F);
    EXPECT_EQ(renderer.volume(), -1.0F);
    pull(8000);
    EXPECT_EQ(peak(pull(1000)), 0.0F);
}

TEST_F(OutputRendererTest, AVolumeChangeIsSmoothAndEndsExactly)
{
    renderer.start();
    std::vector<float> heard = pull(2000);
    for (const float volume : {0.0F, 1.0F, 0.3F, 1.0F}) {
        renderer.setVolume(volume);
        const std::vector<float> part = pull(5000);
        heard.insert(heard.end(), part.begin(), part.end());
    }
    EXPECT_LT(clickLevel(heard), -60.0);
    EXPECT_EQ(heard.back(), source.at(heard.size() - 1));
}

TEST_F(OutputRendererTest, ALeadOfSilencePullsNothing)
{
    renderer.leadWithSilence(300);
    renderer.start();
    EXPECT_EQ(peak(pull(300)), 0.0F);
    EXPECT_EQ(source.position, 0U);
    EXPECT_GT(peak(pull(1000)), 0.4F);
}

TEST_F(OutputRendererTest, TheSourceIsNotPulledAfterAStopAndAWait)
{
    // This thread stands for a device. A pull after the wait would be a data race.
    std::atomic<bool> quit{false};
    std::thread device([&] {
        std::vector<float> buffer(512);
        while (!quit)
            renderer.render(buffer.data(), 256);
    });
    for (int i = 0; i < 100; ++i) {
        renderer.start();
        while (renderer.silentFrames() != 0)
            std::this_thread::yield();
        renderer.stop();
        renderer.waitUntilIdle();
        source.position = 0;
        source.frequency = 100.0 + i;
        for (int n = 0; n < 10; ++n) {
            std::this_thread::yield();
            ASSERT_EQ(source.position, 0U);
        }
    }
    quit = true;
    device.join();
}

} // namespace
