#pragma once

#include <cstddef>

namespace lyrabox {

/// Processors that this process may use, at least 1: fewer than there are where it is bound to some
/// of them. Any thread.
unsigned processorCount();

/// Tells the kernel that the memory will be filled from its start to its end soon, so that it comes
/// in large pages instead of one by one. Only whole pages of it are meant; nothing happens where
/// the kernel has no such pages. Any thread.
void expectToBeFilled(void *start, std::size_t bytes);

/// Gives freed memory that the allocator keeps for later back to the system. After work that took
/// much of it. Any thread.
void giveBackFreedMemory();

} // namespace lyrabox
