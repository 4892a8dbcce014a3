// The output plays a source that has ended and still holds sound.

#include "OutputRendererFixture.h"

#include <thread>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

/// A source that stops the output after 1,024 frames and then holds 2,048 more.
class PlayingOutTest : public OutputRendererTest {
protected:
    static constexpr std::uint64_t ended = 1024;
    static constexpr std::uint64_t held = 2048;

    PlayingOutTest()
    {
        source.duringPull = [this] {
            if (source.position == ended) {
                source.heldUpTo = ended + held;
                renderer.stop();
            }
        };
        renderer.start();
        while (renderer.isRunning())
            hear(128);
        EXPECT_TRUE(renderer.isPlayingOut());
    }

    void hear(std::uint32_t frames)
    {
        const std::vector<float> more = pull(frames);
        heard.insert(heard.end(), more.begin(), more.end());
    }

    void expectCutOff()
    {
        EXPECT_FALSE(renderer.isPlayingOut());
        const std::uint64_t position = source.position;
        pull(fade);
        EXPECT_EQ(peak(pull(1024)), 0.0F);
        EXPECT_EQ(source.position, position);
    }

    std::vector<float> heard;
};

TEST_F(PlayingOutTest, HeldFramesAreHeardAndFadeOutWithoutAClick)
{
    for (int i = 0; i < 100 && renderer.isPlayingOut(); ++i)
        hear(100);
    EXPECT_FALSE(renderer.isPlayingOut());
    EXPECT_FALSE(renderer.isRunning());
    hear(512);
    EXPECT_EQ(source.position, ended + held) << "was pulled beyond its held frames";
    for (std::uint64_t i = fade; i < ended + held - fade - OutputRenderer::chunkFrames; ++i)
        ASSERT_NEAR(heard[i], source.at(i), 1e-6) << i;
    EXPECT_EQ(peak(std::vector(heard.begin() + ended + held, heard.end())), 0.0F);
    EXPECT_LT(clickLevel(heard), -60.0);
}

TEST_F(PlayingOutTest, AStopOnTheControlSideCutsItOff)
{
    renderer.stop();
    expectCutOff();
}

TEST_F(PlayingOutTest, AResetCutsItOffAndPullsNothing)
{
    renderer.requestReset();
    expectCutOff();
}

TEST_F(PlayingOutTest, TheNextStartFollowsItWithoutAClick)
{
    renderer.start();
    EXPECT_TRUE(renderer.isRunning());
    for (int i = 0; i < 40; ++i)
        hear(128);
    EXPECT_TRUE(renderer.isRunning());
    EXPECT_GT(source.position, ended + held + fade);
    EXPECT_LT(clickLevel(heard), -60.0);
    // The next material begins one fade before the end of the held frames.
    for (std::uint64_t i = ended + held; i < heard.size(); ++i)
        ASSERT_NEAR(heard[i], source.at(i + fade), 1e-6) << i;
}

TEST_F(OutputRendererTest, AStopOnTheControlSideDuringAPullPlaysNothingOut)
{
    source.duringPull = [this] {
        if (source.position == 1024) {
            std::thread([this] { renderer.stop(); }).join();
            source.heldUpTo = 4096;
            renderer.stop();
        }
    };
    renderer.start();
    pull(2048);
    EXPECT_FALSE(renderer.isPlayingOut());
    EXPECT_EQ(source.position, 1024U);
}

} // namespace
