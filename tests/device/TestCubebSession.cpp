// How long the device runs: after a stop, and before a start that is expected.

#include "platform/output/CubebOutput.h"
#include "platform/output/CubebSession.h"

#include "device/Fixtures.h"
#include "device/SineSource.h"
#include "support/PrivateSoundServer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

constexpr std::size_t second = Recorder::sampleRate;

/// The shortest silence, in frames, that a stop and a start right after it left in three tries. On
/// a busy machine other tries may take longer.
std::size_t shortestGap(CubebOutput &output, Recorder &recorder)
{
    std::size_t shortest = std::numeric_limits<std::size_t>::max();
    for (int attempt = 0; attempt < 3; ++attempt) {
        output.start();
        const auto sound = recorder.waitForSound(recorder.size());
        const std::size_t from = static_cast<std::size_t>(sound) + second / 5;
        recorder.waitForSize(from);
        output.stop();
        output.start();
        recorder.waitForSize(recorder.size() + second / 2);
        const std::vector<float> heard = recorder.samples(from, recorder.size());
        std::size_t gap = 0;
        std::size_t longest = 0;
        for (const float sample : heard) {
            gap = std::abs(sample) < 0.0005F ? gap + 1 : 0;
            longest = std::max(longest, gap);
        }
        shortest = std::min(shortest, longest);
        output.stop();
    }
    return shortest;
}

TEST_F(CubebOutputOnServer, AStartRightAfterAStopDoesNotFillTheDeviceAgain)
{
    SineSource source(440.0);
    open(source);
    EXPECT_LT(shortestGap(output, *recorder), CubebOutput::preferredLatencyFrames);
}

TEST(CubebSessionOnServer, HaltsAStoppedDeviceAfterATimeOfSilence)
{
    const PrivateSoundServer server;
    SineSource source(440.0);
    const std::shared_ptr<CubebSession> session = CubebSession::make({});
    ASSERT_EQ(session->open(CubebOutput::preferredLatencyFrames), status::noError);
    session->renderer().connect(&source);
    session->renderer().start();
    ASSERT_EQ(session->start(), status::noError);
    EXPECT_EQ(session->keepRunning(), status::noError);
    session->renderer().stop();
    while (session->keepRunning() == status::noError) { // a test that waits longer fails
        ASSERT_EQ(session->haltWhenIdle(), status::noError);
        std::this_thread::sleep_for(CubebSession::idleTime + std::chrono::milliseconds(200));
    }
    const std::uint64_t callbacks = session->callbacks();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_EQ(session->callbacks(), callbacks);
    session->close();
}

TEST(CubebSessionOnServer, ADeviceThatExpectsAStartPlaysSilence)
{
    const PrivateSoundServer server;
    SineSource source(440.0);
    const std::shared_ptr<CubebSession> session = CubebSession::make({});
    ASSERT_EQ(session->open(CubebOutput::preferredLatencyFrames), status::noError);
    session->renderer().connect(&source);
    session->runWithSilence();
    EXPECT_EQ(session->keepRunning(), status::noError);
    while (session->callbacks() < 3) // a test that waits longer fails
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(source.rendered, 0U);
    session->close();
}

} // namespace
