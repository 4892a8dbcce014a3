#include "platform/encoding/EncodingTools.h"
#include "platform/encoding/TargetFile.h"
#include "support/SampleAudio.h"

#include <QFile>
#include <QScopeGuard>

#include <gtest/gtest.h>

#include <csignal>

#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

using namespace test;
using encoding::TargetFile;

constexpr SongFormat anyFormat = SongFormat::Wav24;

/// A folder with an old file under the new one's name.
class NewSong : public testing::Test {
protected:
    NewSong()
    {
        QFile old(path);
        EXPECT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("old");
    }
    void expectOldFileAlone() const
    {
        EXPECT_EQ(everythingIn(folder.path()), QStringList{u"song.wav"_s});
        EXPECT_EQ(bytesOf(path), QByteArray("old"));
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"song.wav"_s);
};

/// A file system of its own with the given options. Skips the test where mounting is forbidden.
class OwnDisk {
public:
    explicit OwnDisk(const char *options)
    {
        m_isMounted = ::mount("none", name().constData(), "tmpfs", 0, options) == 0;
    }
    ~OwnDisk()
    {
        if (m_isMounted)
            ::umount2(name().constData(), MNT_DETACH);
    }
    bool isMounted() const { return m_isMounted; }
    QString path() const { return m_folder.path(); }
    QByteArray name() const { return QFile::encodeName(m_folder.path()); }

private:
    QTemporaryDir m_folder;
    bool m_isMounted = false;
};

} // namespace

TEST_F(NewSong, TakesItsNameOnlyWhenItIsComplete)
{
    AudioFileWriter writer;
    ASSERT_EQ(writer.open(path, anyFormat, {}), 0);
    ASSERT_EQ(writeAll(writer, madeSound(500'000)), 0);
    EXPECT_EQ(bytesOf(path), QByteArray("old"));
    ASSERT_EQ(writer.finish(), 0);
    EXPECT_GT(bytesOf(path).size(), 3'000'000);
    EXPECT_EQ(everythingIn(folder.path()), QStringList{u"song.wav"_s});
}

TEST_F(NewSong, LeavesNothingWhenItIsGivenUp)
{
    {
        AudioFileWriter writer;
        ASSERT_EQ(writer.open(path, anyFormat, {}), 0);
        ASSERT_EQ(writeAll(writer, madeSound(500'000)), 0);
    }
    expectOldFileAlone();
}

TEST_F(NewSong, LeavesNothingWhenTheProgramIsKilled)
{
    const pid_t child = ::fork();
    if (child == 0) {
        AudioFileWriter writer;
        if (writer.open(path, anyFormat, {}) != 0 || writeAll(writer, madeSound(500'000)) != 0)
            ::_exit(1);
        ::raise(SIGKILL);
    }
    int result = 0;
    ASSERT_EQ(::waitpid(child, &result, 0), child);
    ASSERT_TRUE(WIFSIGNALED(result));
    expectOldFileAlone();
}

TEST_F(NewSong, ReplacesTheFileBehindALinkAndKeepsTheLink)
{
    const QString link = folder.filePath(u"link.wav"_s);
    ASSERT_TRUE(QFile::link(path, link));
    ASSERT_EQ(writeFile(link, anyFormat, madeSound(10)), 0);
    EXPECT_EQ(QFile::symLinkTarget(link), path);
    EXPECT_NE(bytesOf(path), QByteArray("old"));
}

TEST_F(NewSong, HasThePermissionsOfAnyNewFile)
{
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_EQ(writeFile(path, anyFormat, madeSound(10)), 0);
    const mode_t mask = ::umask(022);
    ::umask(mask);
    struct stat info = {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0666 & ~mask);
}

TEST_F(NewSong, SaysThatTheDiskTakesNoFileOfThisSize)
{
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {.rlim_cur = 100'000, .rlim_max = before.rlim_max};
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto undo = qScopeGuard([&] {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, signalBefore);
    });
    for (const SongFormat format : allSongFormats)
        EXPECT_EQ(writeFile(path, format, madeSound(500'000)), status::fileTooLarge)
            << suffixOf(format);
    expectOldFileAlone();
}

TEST_F(NewSong, SaysThatTheFolderIsGone)
{
    EXPECT_EQ(writeFile(folder.filePath(u"none/song.wav"_s), anyFormat, {}),
              status::folderNotFound);
    EXPECT_EQ(writeFile(path + u"/song.wav"_s, anyFormat, {}), status::folderNotFound);

    AudioFileWriter writer;
    const QString inner = folder.filePath(u"inner"_s);
    ASSERT_TRUE(QDir().mkpath(inner));
    ASSERT_EQ(writer.open(inner + u"/song.wav"_s, anyFormat, {}), 0);
    ASSERT_EQ(writeAll(writer, madeSound(1000)), 0);
    ASSERT_TRUE(QDir(inner).removeRecursively());
    EXPECT_EQ(writer.finish(), status::folderNotFound);
}

TEST_F(NewSong, SaysThatTheNameIsTooLong)
{
    const QString longest(300, u'a');
    EXPECT_EQ(writeFile(folder.filePath(longest), anyFormat, {}), status::nameTooLong);
    expectOldFileAlone();
}

TEST_F(NewSong, NeverReplacesWhatIsNoFile)
{
    ASSERT_TRUE(QDir().mkpath(folder.filePath(u"folder.wav"_s)));
    EXPECT_EQ(writeFile(folder.filePath(u"folder.wav"_s), anyFormat, {}), status::notWritable);
}

TEST(FullDisk, IsToldInEveryFormatAndLeavesNothing)
{
    const OwnDisk disk("size=64k");
    if (!disk.isMounted())
        GTEST_SKIP() << "needs the right to mount";
    for (const SongFormat format : allSongFormats)
        EXPECT_EQ(writeFile(disk.path() + u"/song"_s, format, madeSound(500'000)), status::diskFull)
            << suffixOf(format);
    EXPECT_EQ(everythingIn(disk.path()), QStringList());
}

TEST(ReadOnlyDisk, IsTold)
{
    const OwnDisk disk("ro");
    if (!disk.isMounted())
        GTEST_SKIP() << "needs the right to mount";
    EXPECT_EQ(writeFile(disk.path() + u"/song.wav"_s, anyFormat, {}), status::notWritable);
}

TEST(TargetFile, WithANameFromTheStartEndsInTheSameWay)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"song"_s);
    {
        TargetFile file;
        ASSERT_EQ(file.create(path, TargetFile::Unnamed::Never), 0);
        avio_write(file.context(), reinterpret_cast<const unsigned char *>("sound"), 5);
        EXPECT_EQ(everythingIn(folder.path()).size(), 1);
        EXPECT_FALSE(QFile::exists(path));
        ASSERT_EQ(file.commit(), 0);
    }
    EXPECT_EQ(everythingIn(folder.path()), QStringList{u"song"_s});
    EXPECT_EQ(bytesOf(path), QByteArray("sound"));
    {
        TargetFile file;
        ASSERT_EQ(file.create(path, TargetFile::Unnamed::Never), 0);
    }
    EXPECT_EQ(bytesOf(path), QByteArray("sound"));
    EXPECT_EQ(everythingIn(folder.path()), QStringList{u"song"_s});
}

} // namespace lyrabox
