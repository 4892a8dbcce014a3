#include "library/FolderFiles.h"

#include "platform/foundation/DiskPatience.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/FolderTree.h"
#include "platform/foundation/TerminationSignals.h"

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace lyrabox {

namespace {

FolderFiles find(const QString &path, bool inTree,
                 const std::function<bool(qint64 found)> &keepGoing)
{
    FolderFiles found;
    found.isReadable = files::isReadable(path);
    if (inTree) {
        found.paths = files::filesOfTree(path, keepGoing);
        return found;
    }
    for (files::Entry &entry : files::shallowEntries(path)) {
        if (!entry.isDirectory)
            found.paths.append(std::move(entry.path));
        else if (!entry.isPackage)
            ++found.foldersInside;
    }
    return found;
}

FolderFiles findPatiently(const QString &path, bool inTree, ProgressPacer &progress)
{
    struct Search {
        FolderFiles found;
        std::atomic<qint64> count = 0;
        std::atomic<bool> isStopped = false;
    };
    const auto search = std::make_shared<Search>();
    const bool isDone = files::runAbandonable(
        [search, path, inTree] {
            search->found = find(path, inTree, [&search](qint64 count) {
                search->count = count;
                return !search->isStopped;
            });
        },
        [&search, &progress] {
            progress.advance(search->count);
            search->isStopped = progress.isStopped() || TerminationSignals::haveCome();
            return !search->isStopped;
        });
    return isDone ? std::move(search->found) : FolderFiles();
}

} // namespace

FolderFiles findFolderFiles(const QString &path, bool inTree, ProgressPacer &progress)
{
    if (files::mountThatMayHang(path))
        return findPatiently(path, inTree, progress);
    return find(path, inTree, [&progress](qint64 found) {
        progress.advance(found);
        return !progress.isStopped();
    });
}

} // namespace lyrabox
