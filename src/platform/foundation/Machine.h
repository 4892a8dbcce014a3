#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <thread>

namespace lyrabox {

/// The number of processors that this process may use, at least 1. Smaller than the machine's
/// number if the process may run on some of them only. Any thread.
unsigned processorCount();

/// Calls `work` on a new thread. If the system cannot start one (because of a limit or lack of
/// memory), the result is not joinable and `work` is not called; the caller then does the work
/// itself. Any thread.
[[nodiscard]] std::jthread startThread(std::function<void()> work);

/// For tests: lets startThread() succeed only `count` more times. Without a count there is no
/// limit.
void limitThreads(std::optional<int> count);

/// How many bytes of memory the system can provide without swapping; none if that is not known. Any
/// thread.
std::optional<std::uint64_t> systemAvailableMemory();

/// Tells the kernel that this memory will soon be filled from start to end. The kernel then
/// provides it in huge pages, which is faster. Only whole pages within the range are affected. Does
/// nothing if the kernel has no huge pages. Any thread.
void expectToBeFilled(void *start, std::size_t bytes);

/// Returns freed memory to the system that the allocator would keep for later. Worth calling after
/// work that needed much memory. Any thread.
void giveBackFreedMemory();

} // namespace lyrabox
