#include "platform/foundation/Machine.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <fstream>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

#include <malloc.h>
#include <sched.h>
#include <sys/mman.h>
#include <unistd.h>

namespace lyrabox {

namespace {

constexpr int noLimit = std::numeric_limits<int>::max();

std::atomic<int> &threadsLeft()
{
    static std::atomic<int> count = noLimit;
    return count;
}

bool mayStartThread()
{
    std::atomic<int> &left = threadsLeft();
    return left == noLimit || left-- > 0;
}

} // namespace

unsigned processorCount()
{
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    if (sched_getaffinity(0, sizeof allowed, &allowed) == 0)
        return static_cast<unsigned>(std::max(1, CPU_COUNT(&allowed)));
    return std::max(1U, std::thread::hardware_concurrency());
}

std::jthread startThread(std::function<void()> work)
{
    if (!mayStartThread())
        return {};
    try {
        return std::jthread(std::move(work));
    } catch (const std::system_error &) {
        return {};
    }
}

void limitThreads(std::optional<int> count)
{
    threadsLeft() = count.value_or(noLimit);
}

std::optional<std::uint64_t> systemAvailableMemory()
{
    std::ifstream file("/proc/meminfo");
    std::string key;
    std::uint64_t kibibytes = 0;
    std::string rest;
    while (file >> key >> kibibytes && std::getline(file, rest)) {
        if (key == "MemAvailable:")
            return kibibytes * 1024;
    }
    return std::nullopt;
}

void expectToBeFilled(void *start, std::size_t bytes)
{
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto address = reinterpret_cast<std::uintptr_t>(start);
    const std::uintptr_t first = (address + page - 1) / page * page;
    const std::uintptr_t end = (address + bytes) / page * page;
    if (end > first)
        madvise(reinterpret_cast<void *>(first), end - first, MADV_HUGEPAGE);
}

void giveBackFreedMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace lyrabox
