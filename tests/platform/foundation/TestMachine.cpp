#include "platform/foundation/Machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <thread>
#include <vector>

#include <sched.h>
#include <unistd.h>

using namespace lyrabox;

TEST(Machine, CountsTheProcessorsThatTheProcessIsBoundTo)
{
    cpu_set_t before;
    ASSERT_EQ(sched_getaffinity(0, sizeof before, &before), 0);
    EXPECT_EQ(processorCount(), static_cast<unsigned>(CPU_COUNT(&before)));

    cpu_set_t one;
    CPU_ZERO(&one);
    for (std::size_t i = 0; i < CPU_SETSIZE && CPU_COUNT(&one) == 0; ++i) {
        if (CPU_ISSET(i, &before))
            CPU_SET(i, &one);
    }
    ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
    EXPECT_EQ(processorCount(), 1U);
    sched_setaffinity(0, sizeof before, &before);
}

TEST(Machine, ReportsTheAvailableMemory)
{
    const std::optional<std::uint64_t> available = systemAvailableMemory();
    ASSERT_TRUE(available);
    EXPECT_GT(*available, std::uint64_t{1} << 20);
    const auto pages = static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES));
    EXPECT_LE(*available, pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)));
}

TEST(Machine, ExpectingMemoryToBeFilledKeepsItsContent)
{
    std::vector<unsigned char> memory(std::size_t{5} << 20, 7);
    expectToBeFilled(memory.data() + 1, memory.size() - 1);
    EXPECT_TRUE(
        std::all_of(memory.begin(), memory.end(), [](unsigned char byte) { return byte == 7; }));
    expectToBeFilled(memory.data(), 10); // smaller than a page
    EXPECT_EQ(memory[9], 7);
}

TEST(Machine, CallsTheWorkOnANewThread)
{
    std::thread::id where;
    startThread([&where] { where = std::this_thread::get_id(); }).join();
    EXPECT_NE(where, std::thread::id());
    EXPECT_NE(where, std::this_thread::get_id());
}

TEST(Machine, DoesNotCallTheWorkIfThereIsNoThread)
{
    bool isDone = false;
    limitThreads(1);
    EXPECT_TRUE(startThread([] {}).joinable());
    EXPECT_FALSE(startThread([&isDone] { isDone = true; }).joinable());
    limitThreads({});
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(startThread([] {}).joinable());
}
