#pragma once

#include "platform/foundation/Volumes.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// Questions to disks that may never answer. A folder of another machine, or one that another
/// process serves, keeps the thread that asks for as long as the other side is silent; nothing in
/// the process can end such a call. So it is made on a thread that can be left behind.
namespace lyrabox::files {

/// Calls `work` on a thread of its own and waits until it is done; true. `goOn` is asked on the
/// calling thread every 50 ms; once it says no, the wait ends with false, and the thread is left
/// behind with whatever `work` holds. So `work` owns what it uses. Where no thread can be had,
/// `work` is done on the calling thread.
bool runAbandonable(const std::function<void()> &work, const std::function<bool()> &goOn);

/// The place where the file system is mounted that `path` lies on, if that may hang: one of a
/// network or one that a process serves. None for a local one. Asks the kernel's table of mounts
/// and no disk. Any thread.
std::optional<QString> mountThatMayHang(const QString &path);

/// For tests: replaces the kernel's table and the 2 s. An empty function restores both.
void setMountsThatMayHang(std::function<std::vector<Mount>()> table,
                          std::chrono::milliseconds patience = {});

namespace detail {
bool askPatiently(const QString &path, const std::function<void()> &question);
} // namespace detail

/// What `question`, which asks the disk of `path`, answers. None when that disk may hang and says
/// nothing for 2 s. Then it counts as silent: nobody waits for it any more, and every question
/// about it is answered with none at once, until the first one has its answer. A disk that has
/// answered late is given twice that time from then on. What `question` uses it has to own. Any
/// thread.
template <typename Answer>
std::optional<Answer> askPatiently(const QString &path, std::function<Answer()> question)
{
    const auto answer = std::make_shared<std::optional<Answer>>();
    if (!detail::askPatiently(path, [answer, ask = std::move(question)] { *answer = ask(); }))
        return std::nullopt;
    return std::move(*answer);
}

/// What is called, on any thread, when a silent disk has answered or is gone. Empty: nothing.
void setSilenceEndHandler(std::function<void()> handler);

} // namespace lyrabox::files
