// Everything that practising hands over to the callback, at random while a device plays. The thread
// sanitizer looks for races; here the sound must go on.

#include "device/ClickFixture.h"

#include <random>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

class PractisingOnServer : public ClicksOnServer {
protected:
    static std::uint32_t below(std::mt19937 &random, std::uint32_t limit)
    {
        return static_cast<std::uint32_t>(random() % limit);
    }

    static LeadIn anyLeadIn(std::mt19937 &random)
    {
        LeadIn leadIn{.frames = below(random, 3) == 0 ? 0 : below(random, 6000),
                      .clickCount = below(random, LeadIn::maximumClicks)};
        for (std::uint32_t i = 0; i < leadIn.clickCount; ++i)
            leadIn.clicks[i] = {.frame = i * 100};
        return leadIn;
    }

    static void changeAnything(std::mt19937 &random)
    {
        const std::uint64_t place = below(random, 60 * 44100);
        switch (below(random, 10)) {
        case 0:
            engine::setClicks(below(random, 4) == 0 ? nullptr : clickAtEveryBeat());
            break;
        case 1:
            engine::setClickSound({.loudness = static_cast<float>(below(random, 11)) / 10.0F,
                                   .timbre = static_cast<ClickTimbre>(below(random, clickTimbres)),
                                   .side = static_cast<ClickSide>(below(random, 3)),
                                   .hasAccents = below(random, 2) == 0});
            break;
        case 2:
            engine::setLeadInAtWrap(anyLeadIn(random));
            break;
        case 3:
            engine::setLeadInAtStart(anyLeadIn(random));
            break;
        case 4:
            engine::setIsLooping(false);
            engine::setLoopStartFrame(place);
            engine::setLoopEndFrame(place + below(random, 20000));
            engine::setIsLooping(below(random, 4) != 0);
            break;
        case 5:
            engine::seekToFrame(place);
            break;
        case 6:
            engine::startAtFrame(place);
            break;
        case 7:
            engine::setPlaybackRate(0.5F + static_cast<float>(below(random, 150)) / 100.0F);
            engine::setPitchCents(static_cast<float>(below(random, 3)) * 100.0F);
            break;
        case 8:
            engine::setOutputRunning(below(random, 3) != 0);
            break;
        default:
            engine::heardFrame();
            engine::passes();
            engine::clicks();
        }
    }
};

TEST_F(PractisingOnServer, AnythingMayChangeAtAnyTimeWhileItPlays)
{
    constexpr int changes = 3000;
    std::mt19937 random(11);
    engine::setOutputRunning(true);
    std::uint64_t passes = 0;
    for (int i = 0; i < changes; ++i) {
        changeAnything(random);
        const engine::PassCount count = engine::passes();
        ASSERT_GE(count.ended, passes);
        ASSERT_LE(count.heard, count.ended);
        passes = count.ended;
        if (i % 8 == 0) { // so that the callback runs between the changes
            ASSERT_TRUE(recorder->waitForSize(recorder->size() + 1));
        }
        if (engine::trackHasEnded())
            engine::setTrackHasEnded(false);
    }
    EXPECT_GT(passes, 0U);

    // In the end it plays as ever.
    engine::setIsLooping(false);
    engine::setLeadInAtStart({});
    engine::setLeadInAtWrap({});
    engine::setClicks(clickAtEveryBeat());
    engine::setClickSound({.loudness = 1.0F, .side = ClickSide::Right, .hasAccents = false});
    engine::setPlaybackRate(1.0F);
    engine::setPitchCents(0.0F);
    engine::seekToFrame(0);
    engine::setOutputRunning(true);
#ifndef __SANITIZE_THREAD__ // which is too slow to play in time
    ASSERT_TRUE(recorder->waitFor(1.0));
    const Window window = listen(3.0);
    EXPECT_NEAR(static_cast<double>(onsets(window.right, 0.05F).size()), 12.0, 1.0);
    EXPECT_NEAR(static_cast<double>(onsets(window.left, 0.2F).size()), 12.0, 1.0);
#endif
}

} // namespace
