#include "platform/foundation/DiskPatience.h"

#include <QFile>
#include <QHash>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <poll.h>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace lyrabox::files {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto lookInterval = 50ms;
constexpr std::chrono::milliseconds usualPatience = 2s;
constexpr const char *mountTablePath = "/proc/self/mountinfo";

/// A call on a detached thread. Both threads own it.
struct Call {
    std::mutex mutex;
    std::condition_variable ended;
    bool isDone = false;
    bool isAbandoned = false;
};

/// Does what runAbandonable() says. In addition it calls `onAbandoned` when the work is abandoned,
/// before the work can end, and `onLateEnd` on the other thread when abandoned work has ended.
bool run(const std::function<void()> &work, const std::function<bool()> &shouldContinue,
         const std::function<void()> &onAbandoned, const std::function<void()> &onLateEnd)
{
    const auto call = std::make_shared<Call>();
    try {
        std::thread([call, work, onLateEnd] {
            work();
            const std::lock_guard lock(call->mutex);
            call->isDone = true;
            call->ended.notify_one();
            if (call->isAbandoned)
                onLateEnd();
        }).detach();
    } catch (const std::system_error &) {
        work();
        return true;
    }
    std::unique_lock lock(call->mutex);
    while (!call->ended.wait_for(lock, lookInterval, [&] { return call->isDone; })) {
        lock.unlock();
        const bool continues = shouldContinue();
        lock.lock();
        if (call->isDone)
            return true;
        if (!continues) {
            call->isAbandoned = true;
            onAbandoned();
            return false;
        }
    }
    return true;
}

bool mayHang(const QString &fileSystem)
{
    static constexpr std::array types = {
        "9p"_L1,    "afs"_L1,   "autofs"_L1, "ceph"_L1,   "cifs"_L1,    "coda"_L1,
        "davfs"_L1, "fuse"_L1,  "gfs2"_L1,   "lustre"_L1, "ncpfs"_L1,   "nfs"_L1,
        "nfs4"_L1,  "ocfs2"_L1, "smb3"_L1,   "smbfs"_L1,  "virtiofs"_L1};
    return fileSystem.startsWith("fuse."_L1) ||
           std::find(types.begin(), types.end(), fileSystem) != types.end();
}

/// The kernel's mount table, which is read again when the kernel reports a change. It is asked for
/// every file of a list, so it copies nothing.
class MountTable {
public:
    std::optional<QString> mountThatMayHang(const QString &path)
    {
        const std::lock_guard lock(m_mutex);
        if (m_replacement)
            take(m_replacement());
        else
            readWhenChanged();
        if (!m_anyMayHang)
            return std::nullopt;
        const Mount *nearest = nullptr;
        for (const Mount &mount : m_mounts) {
            if (isOn(path, mount) &&
                (nearest == nullptr || mount.path.size() >= nearest->path.size()))
                nearest = &mount;
        }
        if (nearest == nullptr || !mayHang(nearest->fileSystem))
            return std::nullopt;
        return nearest->path;
    }

    void replace(std::function<std::vector<Mount>()> table)
    {
        const std::lock_guard lock(m_mutex);
        m_replacement = std::move(table);
        if (!m_replacement)
            read();
    }

private:
    static bool isOn(const QString &path, const Mount &mount)
    {
        return mount.path == "/"_L1 || path == mount.path ||
               (path.startsWith(mount.path) && path.at(mount.path.size()) == u'/');
    }

    void readWhenChanged()
    {
        if (m_descriptor < 0) {
            m_descriptor = ::open(mountTablePath, O_RDONLY | O_CLOEXEC);
            read();
            return;
        }
        pollfd table{m_descriptor, POLLPRI, 0};
        if (::poll(&table, 1, 0) > 0)
            read();
    }

    void read()
    {
        QFile file(QString::fromLatin1(mountTablePath));
        take(file.open(QIODevice::ReadOnly) ? parseAllMounts(file.readAll())
                                            : std::vector<Mount>());
    }

    void take(std::vector<Mount> mounts)
    {
        m_mounts = std::move(mounts);
        m_anyMayHang = std::any_of(m_mounts.begin(), m_mounts.end(),
                                   [](const Mount &mount) { return mayHang(mount.fileSystem); });
    }

    std::mutex m_mutex;
    int m_descriptor = -1; ///< stays open as long as the process lives
    std::vector<Mount> m_mounts;
    bool m_anyMayHang = false; ///< whether any mount may hang
    std::function<std::vector<Mount>()> m_replacement;
};

/// Never destroyed, for the same reason as disks().
MountTable &mountTable()
{
    static auto *const table = new MountTable;
    return *table;
}

struct Disk {
    int openQuestions = 0;                ///< abandoned questions without an answer yet
    std::chrono::milliseconds patience{}; ///< used if longer than the general patience
};

struct Disks {
    std::mutex mutex;
    QHash<QString, Disk> byMount;
    std::chrono::milliseconds patience = usualPatience;
    std::function<void()> onSilenceEnd;
};

/// Never destroyed, because an abandoned thread may use it at any time.
Disks &disks()
{
    static auto *const all = new Disks;
    return *all;
}

void endSilence(const QString &mount, std::chrono::milliseconds took)
{
    std::function<void()> tell;
    {
        const std::lock_guard lock(disks().mutex);
        Disk &disk = disks().byMount[mount];
        disk.patience = std::max(disk.patience, 2 * took);
        if (--disk.openQuestions == 0)
            tell = disks().onSilenceEnd;
    }
    if (tell)
        tell();
}

} // namespace

bool runAbandonable(const std::function<void()> &work, const std::function<bool()> &shouldContinue)
{
    return run(
        work, shouldContinue, [] {}, [] {});
}

std::optional<QString> mountThatMayHang(const QString &path)
{
    return mountTable().mountThatMayHang(path);
}

void setMountsThatMayHang(std::function<std::vector<Mount>()> table,
                          std::chrono::milliseconds patience)
{
    mountTable().replace(table);
    const std::lock_guard lock(disks().mutex);
    disks().patience = table ? patience : usualPatience;
}

bool detail::askPatiently(const QString &path, const std::function<void()> &question)
{
    const std::optional<QString> mount = mountThatMayHang(path);
    if (!mount) {
        question();
        return true;
    }
    std::chrono::milliseconds patience{};
    {
        const std::lock_guard lock(disks().mutex);
        const Disk disk = disks().byMount.value(*mount);
        if (disk.openQuestions > 0)
            return false;
        patience = std::max(disk.patience, disks().patience);
    }
    const Clock::time_point begin = Clock::now();
    const auto abandon = [&mount] {
        const std::lock_guard lock(disks().mutex);
        ++disks().byMount[*mount].openQuestions;
    };
    return run(
        question, [&] { return Clock::now() - begin < patience; }, abandon,
        [mount = *mount, begin] {
            endSilence(mount,
                       std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin));
        });
}

void setSilenceEndHandler(std::function<void()> handler)
{
    const std::lock_guard lock(disks().mutex);
    disks().onSilenceEnd = std::move(handler);
}

} // namespace lyrabox::files
