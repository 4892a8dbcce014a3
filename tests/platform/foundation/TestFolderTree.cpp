#include "platform/foundation/FolderTree.h"

#include "platform/foundation/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

class FolderTree : public testing::Test {
protected:
    void add(const QString &file)
    {
        const QString path = root.filePath(file);
        ASSERT_TRUE(QDir().mkpath(path.section(u'/', 0, -2)));
        ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    }

    /// The paths found below the root, relative to it.
    QStringList found()
    {
        QStringList names;
        for (const QString &path : files::filesOfTree(root.path(), [](qint64) { return true; }))
            names.append(path.mid(root.path().size() + 1));
        return names;
    }

    QStringList expectedOf(const QString &folder)
    {
        QStringList own;
        QStringList below;
        for (const files::Entry &entry : files::shallowEntries(root.filePath(folder))) {
            if (entry.isDirectory)
                below += expectedOf(entry.path.mid(root.path().size() + 1));
            else
                own.append(entry.path.mid(root.path().size() + 1));
        }
        return own + below;
    }

    QTemporaryDir root;
};

TEST_F(FolderTree, ListsAFoldersOwnFilesAndThenEachSubfolderInTheOrderOfTheListing)
{
    for (const QString &file :
         {u"b/2"_s, u"b/1"_s, u"a/x/deep"_s, u"a/own"_s, u"top"_s, u"c/y/z/deepest"_s, u"c/own"_s})
        add(file);
    const QStringList names = found();
    EXPECT_EQ(names, expectedOf({}));
    EXPECT_EQ(names.front(), u"top"_s);
    EXPECT_EQ(names.indexOf(u"a/x/deep"_s), names.indexOf(u"a/own"_s) + 1);
}

TEST_F(FolderTree, EntersNoHiddenFolderNoPackageAndNoLink)
{
    add(u"song"_s);
    add(u".hidden/song"_s);
    add(u"Project.logicx/song"_s);
    QTemporaryDir elsewhere;
    ASSERT_TRUE(QFile(elsewhere.filePath(u"song"_s)).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(elsewhere.path(), root.filePath(u"link"_s)));
    QStringList names = found();
    names.removeOne(u"link"_s); // the link itself counts as a file
    EXPECT_EQ(names, (QStringList{u"song"_s}));
}

TEST_F(FolderTree, EndsWhereLinksLoop)
{
    add(u"a/song"_s);
    ASSERT_TRUE(QFile::link(root.filePath(u"a"_s), root.filePath(u"a/again"_s)));
    ASSERT_TRUE(QFile::link(root.path(), root.filePath(u"a/top"_s)));
    EXPECT_EQ(found().count(u"a/song"_s), 1);
    EXPECT_EQ(found().size(), 3);
}

TEST_F(FolderTree, ListsAFolderThatIsMountedWithinItselfOnce)
{
    add(u"a/song"_s);
    ASSERT_TRUE(QDir(root.path()).mkdir(u"a/again"_s));
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        GTEST_SKIP() << "this process may not mount";
    const QByteArray folder = QFile::encodeName(root.filePath(u"a"_s));
    const QByteArray within = folder + "/again";
    ASSERT_EQ(mount(folder.constData(), within.constData(), nullptr, MS_BIND, nullptr), 0);
    EXPECT_EQ(found(), (QStringList{u"a/song"_s}));
    EXPECT_EQ(umount(within.constData()), 0);
}

TEST_F(FolderTree, SkipsTheKernelsOwnFileSystems)
{
    if (!QFile::exists(u"/proc/self"_s))
        GTEST_SKIP() << "there is no /proc";
    add(u"song"_s);
    ASSERT_TRUE(QDir(root.path()).mkdir(u"proc"_s));
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        GTEST_SKIP() << "this process may not mount";
    const QByteArray within = QFile::encodeName(root.filePath(u"proc"_s));
    ASSERT_EQ(mount("/proc", within.constData(), nullptr, MS_BIND, nullptr), 0);
    EXPECT_EQ(found(), (QStringList{u"song"_s}));
    EXPECT_EQ(umount(within.constData()), 0);
}

TEST_F(FolderTree, DescendsAsDeepAsTheLongestPath)
{
    constexpr int levels = 300;
    QString folder;
    for (int i = 0; i < levels; ++i)
        folder += u"d/"_s;
    add(folder + u"song"_s);
    EXPECT_EQ(found(), (QStringList{folder + u"song"_s}));
}

TEST_F(FolderTree, FindsNoFilesInAMissingFolder)
{
    EXPECT_TRUE(
        files::filesOfTree(root.filePath(u"none"_s), [](qint64) { return true; }).isEmpty());
}

TEST_F(FolderTree, StopsWhenTheCallerSaysSo)
{
    add(u"1"_s);
    add(u"2"_s);
    add(u"below/3"_s);
    add(u"below/deeper/4"_s);
    std::vector<qint64> told;
    const QStringList names = files::filesOfTree(root.path(), [&told](qint64 soFar) {
        told.push_back(soFar);
        return told.size() < 3;
    });
    EXPECT_EQ(told, (std::vector<qint64>{0, 2, 3}));
    EXPECT_EQ(names.size(), 3);
}

} // namespace
