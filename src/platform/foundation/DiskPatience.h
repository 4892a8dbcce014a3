#pragma once

#include "platform/foundation/Volumes.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// Questions to disks that may never answer. A call to a file system that another machine or
/// another process serves blocks for as long as that side is silent. Nothing in this process can
/// end such a call, so it is made on a thread that can be abandoned.
namespace lyrabox::files {

/// Calls `work` on a new thread and waits for its end; then returns true. Every 50 ms it calls
/// `shouldContinue` on the calling thread. If that returns false, the wait ends with false, and the
/// thread is abandoned together with what `work` holds. So `work` must own everything it uses. If
/// the system cannot start a thread, `work` is called on the calling thread.
bool runAbandonable(const std::function<void()> &work, const std::function<bool()> &shouldContinue);

/// The mount point of the file system that `path` lies on, if that file system may hang: a network
/// file system, or one that a process serves. None for a local one. Asks only the kernel's mount
/// table, never a disk. Any thread.
std::optional<QString> mountThatMayHang(const QString &path);

/// For tests: replaces the kernel's mount table and the patience of 2 s. An empty function restores
/// both.
void setMountsThatMayHang(std::function<std::vector<Mount>()> table,
                          std::chrono::milliseconds patience = {});

namespace detail {
bool askPatiently(const QString &path, const std::function<void()> &question);
} // namespace detail

/// Calls `question`, which asks the disk of `path`, and returns its answer. None if that disk may
/// hang and does not answer within 2 s. The disk then counts as silent: every further question
/// about it returns none at once, until the abandoned question is answered. If a disk answers late,
/// later questions to it wait up to twice the time that it took. `question` must own everything it
/// uses. Any thread.
template <typename Answer>
std::optional<Answer> askPatiently(const QString &path, std::function<Answer()> question)
{
    const auto answer = std::make_shared<std::optional<Answer>>();
    if (!detail::askPatiently(path, [answer, ask = std::move(question)] { *answer = ask(); }))
        return std::nullopt;
    return std::move(*answer);
}

/// Sets a function that is called on any thread when a silent disk has answered or is gone. An
/// empty function removes it.
void setSilenceEndHandler(std::function<void()> handler);

} // namespace lyrabox::files
