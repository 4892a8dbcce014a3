#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <thread>

namespace lyrabox {

/// Processors that this process may use, at least 1: fewer than there are where it is bound to some
/// of them. Any thread.
unsigned processorCount();

/// Calls `work` on a thread of its own. Where the system has no thread to give (a limit of
/// processes, no memory) the result is not joinable and `work` is not called: the caller does it
/// itself. Any thread.
[[nodiscard]] std::jthread startThread(std::function<void()> work);

/// Lets startThread() succeed `count` more times only; none lifts the limit. For tests.
void limitThreads(std::optional<int> count);

/// Bytes of memory that the system can give without swapping; none if it does not say. Any thread.
std::optional<std::uint64_t> systemAvailableMemory();

/// Tells the kernel that the memory will be filled from its start to its end soon, so that it comes
/// in large pages instead of one by one. Only whole pages of it are meant; nothing happens where
/// the kernel has no such pages. Any thread.
void expectToBeFilled(void *start, std::size_t bytes);

/// Gives freed memory that the allocator keeps for later back to the system. After work that took
/// much of it. Any thread.
void giveBackFreedMemory();

} // namespace lyrabox
