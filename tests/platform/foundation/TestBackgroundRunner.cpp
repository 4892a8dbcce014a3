#include "platform/foundation/BackgroundRunner.h"

#include "platform/foundation/Machine.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <latch>
#include <memory>
#include <optional>
#include <stop_token>
#include <thread>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

using namespace lyrabox;
using Job = BackgroundRunner::Job;

namespace {

/// Work that reports its beginning and runs until it is released.
struct HeldWork {
    std::promise<void> begun;
    std::promise<void> mayEnd;

    auto function()
    {
        return [this](const std::stop_token &) {
            begun.set_value();
            mayEnd.get_future().wait();
        };
    }
};

int niceness()
{
    return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
}

constexpr auto doNothing = [](const std::stop_token &) {};

} // namespace

TEST(BackgroundRunner, RunsJobsInTheirOrderOnOneThreadOfItsOwn)
{
    BackgroundRunner runner;
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    std::optional<Job> last;
    for (int i = 0; i < 3; ++i) {
        last = runner.run([&, i](const std::stop_token &) {
            order.push_back(i);
            threads.push_back(std::this_thread::get_id());
        });
        ASSERT_TRUE(last);
    }
    runner.wait(*last);
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(threads, std::vector<std::thread::id>(3, threads.front()));
    EXPECT_NE(threads.front(), std::this_thread::get_id());
}

TEST(BackgroundRunner, DeliversResultsOnTheOwnersThreadThroughItsEventLoop)
{
    BackgroundRunner runner;
    std::vector<int> delivered;
    QEventLoop loop;
    const std::thread::id owner = std::this_thread::get_id();
    const auto deliver = [&](std::unique_ptr<int> result) { // cannot be copied
        EXPECT_EQ(std::this_thread::get_id(), owner);
        delivered.push_back(*result);
        if (delivered.size() == 2)
            loop.quit();
    };
    std::optional<Job> last;
    for (const int value : {7, 8}) {
        last = runner.run([value](const std::stop_token &) { return std::make_unique<int>(value); },
                          deliver);
        ASSERT_TRUE(last);
    }
    runner.wait(*last);
    EXPECT_TRUE(delivered.empty()) << "delivered before the event loop ran";
    loop.exec();
    EXPECT_EQ(delivered, (std::vector<int>{7, 8}));
}

TEST(BackgroundRunner, DeliversTheEndOfWorkWithoutAResult)
{
    BackgroundRunner runner;
    const std::thread::id owner = std::this_thread::get_id();
    QEventLoop loop;
    std::thread::id where;
    ASSERT_TRUE(runner.run(doNothing, [&] {
        where = std::this_thread::get_id();
        loop.quit();
    }));
    loop.exec();
    EXPECT_EQ(where, owner);
}

TEST(BackgroundRunner, NeverBeginsAJobThatWasCancelledWhileItWaited)
{
    BackgroundRunner runner;
    HeldWork held;
    bool hasBegun = false;
    const auto first = runner.run(held.function());
    const auto second = runner.run([&hasBegun](const std::stop_token &) { hasBegun = true; });
    ASSERT_TRUE(first && second);
    held.begun.get_future().wait();
    runner.cancel(*second);
    runner.wait(*second); // returns at once, although the first job still runs
    held.mayEnd.set_value();
    const auto third = runner.run(doNothing);
    ASSERT_TRUE(third);
    runner.wait(*third);
    EXPECT_FALSE(hasBegun);
}

TEST(BackgroundRunner, ARunningJobSeesItsCancellationAndItsResultIsDropped)
{
    BackgroundRunner runner;
    std::promise<void> begun;
    bool sawTheStop = false;
    bool isDelivered = false;
    const auto job = runner.run(
        [&](const std::stop_token &stop) {
            begun.set_value();
            std::promise<void> stopped;
            const std::stop_callback onStop(stop, [&stopped] { stopped.set_value(); });
            stopped.get_future().wait();
            sawTheStop = stop.stop_requested();
        },
        [&isDelivered] { isDelivered = true; });
    ASSERT_TRUE(job);
    begun.get_future().wait();
    runner.cancel(*job);
    runner.wait(*job);
    QCoreApplication::processEvents();
    EXPECT_TRUE(sawTheStop);
    EXPECT_FALSE(isDelivered);
}

TEST(BackgroundRunner, DeliversNothingOfAJobCancelledAfterItsEnd)
{
    BackgroundRunner runner;
    int delivered = 0;
    const auto first = runner.run([](const std::stop_token &) { return 1; },
                                  [&](int result) { delivered += result; });
    const auto second = runner.run([](const std::stop_token &) { return 10; },
                                   [&](int result) { delivered += result; });
    ASSERT_TRUE(first && second);
    runner.wait(*second);
    runner.cancel(*first);
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered, 10);
    runner.cancelAll();
    runner.cancel(12345); // no such job
}

TEST(BackgroundRunner, CancelsAndJoinsWhenItIsDestroyed)
{
    bool hasEnded = false;
    bool hasBegunAnother = false;
    bool isDelivered = false;
    {
        BackgroundRunner runner;
        std::latch begun(1);
        const auto first = runner.run(
            [&](const std::stop_token &stop) {
                std::promise<void> stopped;
                const std::stop_callback onStop(stop, [&stopped] { stopped.set_value(); });
                begun.count_down();
                stopped.get_future().wait();
                hasEnded = true;
            },
            [&isDelivered] { isDelivered = true; });
        const auto second =
            runner.run([&hasBegunAnother](const std::stop_token &) { hasBegunAnother = true; });
        ASSERT_TRUE(first && second);
        begun.wait();
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(hasEnded);
    EXPECT_FALSE(hasBegunAnother);
    EXPECT_FALSE(isDelivered);
}

TEST(BackgroundRunner, RefusesJobsIfTheSystemHasNoThreadAndTriesAgainLater)
{
    BackgroundRunner runner;
    bool isCalled = false;
    const auto work = [&isCalled](const std::stop_token &) { isCalled = true; };
    limitThreads(0);
    EXPECT_FALSE(runner.run(work));
    EXPECT_FALSE(runner.run(work, [] {}));
    limitThreads({});
    EXPECT_FALSE(isCalled);
    const auto job = runner.run(work);
    ASSERT_TRUE(job);
    runner.wait(*job);
    EXPECT_TRUE(isCalled);
}

TEST(BackgroundRunner, RunsAtLowPriorityUnlessAskedForNormal)
{
    const int own = niceness();
    int low = -100;
    int normal = -100;
    {
        BackgroundRunner runner;
        const auto job = runner.run([&low](const std::stop_token &) { low = niceness(); });
        ASSERT_TRUE(job);
        runner.wait(*job);
    }
    {
        BackgroundRunner runner(BackgroundRunner::Priority::Normal);
        const auto job = runner.run([&normal](const std::stop_token &) { normal = niceness(); });
        ASSERT_TRUE(job);
        runner.wait(*job);
    }
    EXPECT_EQ(low, std::max(own, 10));
    EXPECT_EQ(normal, own);
    EXPECT_EQ(niceness(), own);
}

TEST(BackgroundRunner, AJobAndADeliveryMayGiveTheRunnerAnotherJob)
{
    BackgroundRunner runner;
    std::promise<void> inner;
    QEventLoop loop;
    ASSERT_TRUE(runner.run(
        [&](const std::stop_token &) {
            EXPECT_TRUE(runner.run([&](const std::stop_token &) { inner.set_value(); }));
        },
        [&] { EXPECT_TRUE(runner.run(doNothing, [&loop] { loop.quit(); })); }));
    inner.get_future().wait();
    loop.exec();
}
