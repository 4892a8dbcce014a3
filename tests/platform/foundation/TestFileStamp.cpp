#include "platform/foundation/FileStamp.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

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

} // namespace
