#include "platform/foundation/Machine.h"

#include <algorithm>
#include <cstdint>
#include <thread>

#include <malloc.h>
#include <sched.h>
#include <sys/mman.h>
#include <unistd.h>

namespace lyrabox {

unsigned processorCount()
{
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    if (sched_getaffinity(0, sizeof allowed, &allowed) == 0)
        return static_cast<unsigned>(std::max(1, CPU_COUNT(&allowed)));
    return std::max(1U, std::thread::hardware_concurrency());
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
