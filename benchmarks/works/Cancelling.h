#pragma once

#include "Work.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <latch>
#include <stop_token>
#include <thread>

#include <pthread.h>

namespace lyrabox::work {

inline double secondsOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1.0e-9;
}

/// Stops the work at twenty places and reports the longest time until it has ended: the time of the
/// processor, without that of other programs. `run(stop)` does the work and returns whether it was
/// stopped. The amount is how often it was.
template <typename Run>
void reportCancelling(Run run)
{
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    static_cast<void>(run(std::stop_token()));
    const auto whole = Clock::now() - begin;
    double longest = 0.0;
    int stopped = 0;
    for (int i = 0; i < 20; ++i) {
        std::latch told(2);
        double ended = 0.0;
        double requested = 0.0;
        bool wasStopped = false;
        {
            std::jthread thread([&](const std::stop_token &stop) {
                wasStopped = run(stop);
                ended = secondsOf(CLOCK_THREAD_CPUTIME_ID);
                told.arrive_and_wait(); // the clock lives as long as the thread
            });
            std::this_thread::sleep_for(whole * i / 22);
            clockid_t clock{};
            pthread_getcpuclockid(thread.native_handle(), &clock);
            thread.request_stop();
            requested = secondsOf(clock);
            told.arrive_and_wait();
        }
        stopped += wasStopped ? 1 : 0;
        longest = std::max(longest, ended - requested);
    }
    report({.seconds = longest, .megabytes = 0.0}, stopped);
}

} // namespace lyrabox::work
