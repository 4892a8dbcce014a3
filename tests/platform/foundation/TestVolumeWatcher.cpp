#include "platform/foundation/VolumeWatcher.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sched.h>
#include <sys/mount.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray table =
    "22 1 8:1 / / rw - ext4 /dev/sda1 rw\n48 22 8:51 / /srv/music rw - ext4 /dev/sdf1 rw\n";

/// Counts the two notifications while it lives.
struct Posts {
    Posts()
    {
        NotificationCenter &center = NotificationCenter::defaultCenter();
        center.addObserver(&context, notification::volumeDidMount, [this] { ++mounts; });
        center.addObserver(&context, notification::volumeDidUnmount, [this] { ++unmounts; });
    }

    int mounts = 0;
    int unmounts = 0;
    QObject context;
};

void processEventsUntil(const std::function<bool()> &isDone)
{
    const QDeadlineTimer deadline(5000);
    while (!isDone() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 100);
}

} // namespace

TEST(VolumeWatching, PostsTheChangesSinceTheLastCheck)
{
    QByteArray current = table;
    VolumeWatcher watcher(nullptr, [&current] { return current; });
    Posts posts;
    watcher.check();
    EXPECT_EQ(posts.mounts + posts.unmounts, 0);
    current += "60 1 8:99 / /mnt/new rw - ext4 /dev/sdx1 rw\n";
    watcher.check();
    watcher.check();
    EXPECT_EQ(posts.mounts, 1);
    EXPECT_EQ(posts.unmounts, 0);
    current = table;
    watcher.check();
    EXPECT_EQ(posts.mounts, 1);
    EXPECT_EQ(posts.unmounts, 1);
    current += "61 1 0:99 / /run/lock rw - tmpfs tmpfs rw\n";
    watcher.check();
    EXPECT_EQ(posts.mounts, 1) << "mounts of the system do not count";
}

TEST(VolumeWatching, TheKernelSignalsARealMount)
{
    // A mount namespace of its own hides the mount from the system.
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        GTEST_SKIP() << "this process may not mount";
    // Not in /tmp, which may be in memory: a mount there would count as one of the system.
    const QTemporaryDir folder(QDir::current().filePath(u"volume-XXXXXX"_s));
    ASSERT_TRUE(folder.isValid());
    const QByteArray path = folder.path().toLocal8Bit();
    VolumeWatcher watcher;
    Posts posts;
    ASSERT_EQ(mount(path.constData(), path.constData(), nullptr, MS_BIND, nullptr), 0);
    processEventsUntil([&posts] { return posts.mounts > 0; });
    EXPECT_EQ(posts.mounts, 1);
    ASSERT_EQ(umount2(path.constData(), MNT_DETACH), 0);
    processEventsUntil([&posts] { return posts.unmounts > 0; });
    EXPECT_EQ(posts.unmounts, 1);
}
