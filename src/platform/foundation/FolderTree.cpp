#include "platform/foundation/FolderTree.h"

#include "platform/foundation/Files.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

namespace lyrabox::files {
namespace {

/// Identifies a folder, whatever path leads to it.
struct Identity {
    dev_t device;
    ino_t inode;
    friend bool operator==(const Identity &, const Identity &) = default;
};

std::optional<Identity> identityOf(const QString &path)
{
    struct stat attributes = {};
    if (stat(QFile::encodeName(path).constData(), &attributes) != 0)
        return std::nullopt;
    return Identity{attributes.st_dev, attributes.st_ino};
}

/// Whether the folder belongs to a file system that shows data of the kernel.
bool isKernels(const QString &path)
{
    static constexpr std::array<unsigned long, 10> types = {
        PROC_SUPER_MAGIC,   SYSFS_MAGIC,         DEBUGFS_MAGIC, TRACEFS_MAGIC,  SECURITYFS_MAGIC,
        CGROUP_SUPER_MAGIC, CGROUP2_SUPER_MAGIC, BPF_FS_MAGIC,  PSTOREFS_MAGIC, DEVPTS_SUPER_MAGIC};
    struct statfs system = {};
    return statfs(QFile::encodeName(path).constData(), &system) == 0 &&
           std::find(types.begin(), types.end(), static_cast<unsigned long>(system.f_type)) !=
               types.end();
}

} // namespace

QStringList filesOfTree(const QString &directory,
                        const std::function<bool(qint64 found)> &shouldContinue)
{
    struct Waiting {
        QString path;
        std::size_t depth;
    };
    QStringList found;
    std::vector<Identity> ancestors; // of the folder that is being read; the outermost first
    // A recursion could overflow the stack in a very deep tree.
    std::vector<Waiting> waiting{{directory, 0}};
    while (!waiting.empty() && shouldContinue(found.size())) {
        const Waiting folder = std::move(waiting.back());
        waiting.pop_back();
        ancestors.resize(folder.depth);
        const std::optional<Identity> identity = identityOf(folder.path);
        if (!identity ||
            std::find(ancestors.begin(), ancestors.end(), *identity) != ancestors.end())
            continue;
        const bool isOtherDevice = ancestors.empty() || ancestors.back().device != identity->device;
        const bool isForeign = isOtherDevice && isKernels(folder.path);
        if (isForeign && folder.depth > 0)
            continue;
        ancestors.push_back(*identity);

        const std::size_t firstSubfolder = waiting.size();
        for (Entry &entry : shallowEntries(folder.path)) {
            if (!entry.isDirectory)
                found.append(std::move(entry.path));
            else if (!entry.isPackage && !isForeign)
                waiting.push_back({std::move(entry.path), folder.depth + 1});
        }
        std::reverse(waiting.begin() + static_cast<std::ptrdiff_t>(firstSubfolder), waiting.end());
    }
    return found;
}

} // namespace lyrabox::files
