#include "platform/foundation/FileStamp.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;
using files::fileIdentity;

namespace {

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
