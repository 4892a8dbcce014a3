#include "platform/foundation/FileReplacement.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Records the calls to the system in order, and can let flushes fail.
struct Calls {
    std::vector<std::string> order;
    bool records = false;
    bool flushFails = false;
};

Calls &calls()
{
    static Calls theCalls;
    return theCalls;
}

std::string nameOf(int file)
{
    const QString path = QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(file));
    return QFileInfo(path).fileName().toStdString();
}

} // namespace

// These replace the functions of the C library. They record the call and call the kernel.
extern "C" int fsync(int file)
{
    if (calls().records)
        calls().order.push_back("flush " + nameOf(file));
    if (calls().flushFails) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fsync, file));
}

extern "C" int rename(const char *from, const char *to) noexcept
{
    if (calls().records)
        calls().order.push_back("rename to " +
                                QFileInfo(QFile::decodeName(to)).fileName().toStdString());
    return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

namespace {

/// While it lives, writes beyond the first 1,000 bytes of a file fail half-way, as on a full disk.
class FullDisk {
public:
    FullDisk()
    {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &m_before), 0);
        rlimit small = m_before;
        small.rlim_cur = 1000;
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_before = {};
    void (*m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN); ///< the signal would end the process
};

class FileReplacement : public testing::Test {
protected:
    FileReplacement()
    {
        QDir().mkpath(m_folder.filePath(u"settings"_s));
        put("old");
    }
    ~FileReplacement() override { calls() = {}; }

    QString path() const { return m_folder.filePath(u"settings/list"_s); }
    void put(const QByteArray &text) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QByteArray content() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }
    QStringList names() const
    {
        return QDir(m_folder.filePath(u"settings"_s))
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System, QDir::Name);
    }

    QTemporaryDir m_folder;
};

TEST_F(FileReplacement, FlushesTheNewFileBeforeItTakesTheOldOnesPlaceAndTheFolderAfter)
{
    calls().records = true;
    EXPECT_TRUE(files::replaceFile(path(), "new"));
    calls().records = false;
    EXPECT_EQ(calls().order,
              (std::vector<std::string>{"flush list.new", "rename to list", "flush settings"}));
    EXPECT_EQ(content(), "new");
    EXPECT_EQ(names(), QStringList{u"list"_s});
}

TEST_F(FileReplacement, AFlushThatFailsLeavesTheOldFile)
{
    calls().flushFails = true;
    EXPECT_FALSE(files::replaceFile(path(), "new"));
    calls().flushFails = false;
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(names(), QStringList{u"list"_s});
}

TEST_F(FileReplacement, ADiskThatFillsUpLeavesTheOldFile)
{
    const FullDisk full;
    EXPECT_FALSE(files::replaceFile(path(), QByteArray(5000, 'x')));
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(names(), QStringList{u"list"_s});
}

TEST_F(FileReplacement, WritesAStreamOfSmallAndLargePiecesInTheirOrder)
{
    QByteArray expected;
    const auto write = [&expected](QIODevice &file) {
        for (const int size : {1, 65535, 1, 2, 200000, 3, 65536, 65537, 0, 5}) {
            const QByteArray piece(size, static_cast<char>('a' + expected.size() % 26));
            expected += piece;
            EXPECT_EQ(file.write(piece), size);
        }
        return true;
    };
    EXPECT_TRUE(files::replaceFile(path(), write));
    EXPECT_TRUE(content() == expected);
    EXPECT_EQ(names(), QStringList{u"list"_s});
}

TEST_F(FileReplacement, AWriterThatGivesUpLeavesTheOldFile)
{
    const auto giveUp = [](QIODevice &file) { return file.write("half") < 0; };
    EXPECT_FALSE(files::replaceFile(path(), giveUp));
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(names(), QStringList{u"list"_s});
}

TEST_F(FileReplacement, AWriterThatThrowsLeavesTheOldFile)
{
    const auto fail = [](QIODevice &file) -> bool {
        file.write("half");
        throw std::bad_alloc();
    };
    EXPECT_THROW(files::replaceFile(path(), fail), std::bad_alloc);
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(names(), QStringList{u"list"_s});
}

TEST_F(FileReplacement, ADiskThatWasFullForOneWriteOnlyLeavesTheOldFile)
{
    const auto write = [](QIODevice &file) {
        {
            const FullDisk full;
            EXPECT_LT(file.write(QByteArray(100000, 'x')), 0);
        }
        file.write("and the rest"); // the disk has room for this again
        return true;
    };
    EXPECT_FALSE(files::replaceFile(path(), write));
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(names(), QStringList{u"list"_s});
}

TEST_F(FileReplacement, ADiskThatIsFullAtTheLastCollectedBytesLeavesTheOldFile)
{
    const FullDisk full;
    EXPECT_FALSE(files::replaceFile(path(), [](QIODevice &file) {
        return file.write(QByteArray(2000, 'x')) == 2000; // collected and not written yet
    }));
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(names(), QStringList{u"list"_s});
}

TEST_F(FileReplacement, OverwritesTheFileThatAKilledProgramLeft)
{
    QFile stale(path() + u".new"_s);
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.write("half of something that was longer than this");
    stale.close();
    EXPECT_TRUE(files::replaceFile(path(), "new"));
    EXPECT_EQ(content(), "new");
    EXPECT_EQ(names(), QStringList{u"list"_s});
}

TEST_F(FileReplacement, APipeInTheTemporaryFilesPlaceDoesNotHang)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path() + u".new"_s).constData(), 0600), 0);
    EXPECT_TRUE(files::replaceFile(path(), "new"));
    EXPECT_EQ(content(), "new");
}

TEST_F(FileReplacement, KeepsALinkAndThePermissions)
{
    const QString link = m_folder.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(path(), link));
    ASSERT_EQ(chmod(QFile::encodeName(path()).constData(), 0640), 0);
    EXPECT_TRUE(files::replaceFile(link, "new"));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(content(), "new");
    struct stat attributes = {};
    ASSERT_EQ(stat(QFile::encodeName(path()).constData(), &attributes), 0);
    EXPECT_EQ(attributes.st_mode & 0777, 0640U);
}

TEST_F(FileReplacement, KeepsWhatAFileContainedUnderTheFirstFreeName)
{
    EXPECT_TRUE(files::keepAside(path(), u"mark"_s));
    EXPECT_TRUE(files::replaceFile(path(), "new"));
    EXPECT_TRUE(files::keepAside(path(), u"mark"_s));
    EXPECT_EQ(names(), (QStringList{u"list"_s, u"list.mark-1"_s, u"list.mark-2"_s}));
    QFile second(path() + u".mark-2"_s);
    ASSERT_TRUE(second.open(QIODevice::ReadOnly));
    EXPECT_EQ(second.readAll(), "new");
    EXPECT_FALSE(files::keepAside(m_folder.filePath(u"nowhere"_s), u"mark"_s));
}

TEST_F(FileReplacement, KeepsAFileOnlyOnceUntilItIsReplaced)
{
    EXPECT_TRUE(files::keepAside(path(), u"mark"_s));
    EXPECT_TRUE(files::keepAside(path(), u"mark"_s));
    EXPECT_EQ(names(), (QStringList{u"list"_s, u"list.mark-1"_s}));
}

TEST_F(FileReplacement, CreatesAFileButNoFolder)
{
    EXPECT_TRUE(files::replaceFile(m_folder.filePath(u"settings/more"_s), "new"));
    EXPECT_EQ(names(), (QStringList{u"list"_s, u"more"_s}));
    EXPECT_FALSE(files::replaceFile(m_folder.filePath(u"nowhere/list"_s), "new"));
    EXPECT_FALSE(files::replaceFile(m_folder.filePath(u"settings"_s), "new"));
}

} // namespace
