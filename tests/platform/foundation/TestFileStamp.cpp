#include "platform/foundation/FileStamp.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;
using files::fileIdentity;

namespace {

TEST(FileStamp, TellsStatesAndFilesApart)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const auto first = files::fileStamp(path);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->size, 0);
    EXPECT_EQ(files::fileStamp(path), first);

    ASSERT_EQ(file.write("more"), 4);
    ASSERT_TRUE(file.flush());
    const auto second = files::fileStamp(path);
    EXPECT_NE(second, first);
    EXPECT_EQ(second->inode, first->inode);
    EXPECT_EQ(second->size, 4);

    const timespec times[2] = {{1, 2}, {3, 4}};
    ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
    EXPECT_EQ(files::fileStamp(path)->changed, 3'000'000'004);

    ASSERT_TRUE(file.copy(folder.filePath(u"b"_s)));
    EXPECT_NE(files::fileStamp(folder.filePath(u"b"_s))->inode, first->inode);
    ASSERT_TRUE(QFile::link(path, folder.filePath(u"link"_s)));
    EXPECT_EQ(files::fileStamp(folder.filePath(u"link"_s)), files::fileStamp(path));
}

TEST(FileStamp, IsThatOfARegularFileOnly)
{
    const QTemporaryDir folder;
    EXPECT_EQ(files::fileStamp(folder.path()), std::nullopt);
    EXPECT_EQ(files::fileStamp(folder.filePath(u"missing"_s)), std::nullopt);
    EXPECT_EQ(files::fileStamp(QString()), std::nullopt);
    EXPECT_EQ(files::fileStamp(folder.path() + QChar(0)), std::nullopt);
}

class FileIdentity : public testing::Test {
protected:
    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QString path(const QString &name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

TEST_F(FileIdentity, StaysTheSameWhileNothingChanges)
{
    write(u"a"_s, "content");
    const auto identity = fileIdentity(path(u"a"_s));
    ASSERT_TRUE(identity);
    EXPECT_EQ(identity->stamp.size, 7);
    QFile file(path(u"a"_s));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    file.readAll();
    EXPECT_EQ(fileIdentity(path(u"a"_s)), identity);
}

TEST_F(FileIdentity, FollowsLinks)
{
    write(u"a"_s, "content");
    EXPECT_TRUE(QFile::link(path(u"a"_s), path(u"link"_s)));
    EXPECT_EQ(fileIdentity(path(u"link"_s)), fileIdentity(path(u"a"_s)));
}

TEST_F(FileIdentity, DiffersAfterAChangeOfSizeTimeOrFile)
{
    write(u"a"_s, "content");
    const auto first = fileIdentity(path(u"a"_s));
    write(u"a"_s, "longer content");
    const auto second = fileIdentity(path(u"a"_s));
    EXPECT_NE(second, first);

    namespace fs = std::filesystem;
    const fs::path file = path(u"a"_s).toStdString();
    fs::last_write_time(file, fs::last_write_time(file) - std::chrono::nanoseconds(1));
    const auto third = fileIdentity(path(u"a"_s));
    EXPECT_NE(third, second);

    const fs::path copy = path(u"copy"_s).toStdString();
    fs::copy_file(file, copy);
    fs::last_write_time(copy, fs::last_write_time(file));
    fs::rename(copy, file);
    EXPECT_NE(fileIdentity(path(u"a"_s)), third);
}

TEST_F(FileIdentity, OfAMissingFileIsNone)
{
    EXPECT_FALSE(fileIdentity(path(u"missing"_s)));
    EXPECT_FALSE(fileIdentity(QString()));
    EXPECT_FALSE(fileIdentity(path(u"a"_s) + QChar::Null));
}

} // namespace
