#include "platform/foundation/ProgressPacer.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace lyrabox;
using namespace std::chrono_literals;

namespace {

using Told = std::vector<std::pair<qint64, qint64>>;

class Pacing : public testing::Test {
protected:
    ProgressPacer pacer(qint64 total = 0)
    {
        return {[this](qint64 done, qint64 found) { told.emplace_back(done, found); },
                [this] { return now; }, total};
    }

    std::chrono::milliseconds now = 1000ms;
    Told told;
};

TEST_F(Pacing, ShowsNothingFor250MillisecondsAndThenEvery50Milliseconds)
{
    ProgressPacer progress = pacer(99);
    for (int step = 0; step < 40; ++step) {
        now = 1000ms + step * 10ms;
        progress.advance(step);
    }
    EXPECT_EQ(told, (Told{{25, 99}, {30, 99}, {35, 99}}));
}

TEST_F(Pacing, GivesOneGlanceBeforeTheProgressIsShown)
{
    int glances = 0;
    ProgressPacer progress = pacer(99);
    progress.setFirstGlance([&] { ++glances; }, 30ms);
    now += 29ms;
    progress.advance(1);
    EXPECT_EQ(glances, 0);
    now += 1ms;
    progress.advance(2);
    EXPECT_EQ(glances, 1);
    EXPECT_TRUE(told.empty());
    now += 400ms;
    progress.advance(3);
    EXPECT_EQ(glances, 1);
    EXPECT_EQ(told, (Told{{3, 99}}));
}

TEST_F(Pacing, ShowsOnlyTheLatestProgress)
{
    ProgressPacer progress = pacer(1000);
    now += 251ms;
    for (int step = 0; step < 100; ++step)
        progress.advance(step);
    EXPECT_EQ(told, (Told{{0, 1000}}));
}

TEST_F(Pacing, AcceptsATotalThatBecomesKnownLater)
{
    ProgressPacer progress = pacer();
    now += 250ms;
    progress.advance(1);
    progress.setTotal(7);
    now += 50ms;
    progress.advance(2);
    EXPECT_EQ(told, (Told{{1, 0}, {2, 7}}));
}

TEST_F(Pacing, AsksWhetherToStopOnlyOnceTheWorkIsShown)
{
    int made = 0;
    bool wantsToStop = false;
    ProgressPacer progress = pacer(9);
    progress.setStopProbe([&] {
        ++made;
        return [&wantsToStop] { return wantsToStop; };
    });
    wantsToStop = true;
    progress.advance(1);
    EXPECT_EQ(made, 0);
    EXPECT_FALSE(progress.isStopped());
    wantsToStop = false;
    now += 250ms;
    progress.advance(2);
    EXPECT_EQ(made, 1);
    EXPECT_FALSE(progress.isStopped());
    wantsToStop = true;
    now += 50ms;
    progress.advance(3);
    wantsToStop = false;
    now += 50ms;
    progress.advance(4);
    EXPECT_TRUE(progress.isStopped());
    EXPECT_EQ(made, 1);
}

TEST(ProgressPacer, NeverAsksTheClockWithoutAHook)
{
    ProgressPacer progress({}, []() -> std::chrono::milliseconds {
        ADD_FAILURE() << "the clock was called";
        return {};
    });
    progress.advance(5);
}

} // namespace
