#include "platform/desktop/ArtworkFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

struct Artwork : testing::Test {
    static QImage picture(int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        return image;
    }
    QStringList files() const { return QDir(path).entryList(QDir::Files); }

    QTemporaryDir folder;
    QString path = folder.filePath(u"deep/covers"_s);
};

TEST_F(Artwork, HasNoFileWithoutAPicture)
{
    const ArtworkFile artwork(path);
    EXPECT_TRUE(artwork.url().isEmpty());
    EXPECT_FALSE(QDir(path).exists());
}

TEST_F(Artwork, IsAPictureThatOthersCanRead)
{
    ArtworkFile artwork(path);
    artwork.setImage(picture(40, 30));
    const QImage read(artwork.url().toLocalFile());
    EXPECT_EQ(read.size(), QSize(40, 30));
    EXPECT_EQ(read.pixelColor(3, 3), QColor(Qt::red));
}

TEST_F(Artwork, IsScaledDown)
{
    ArtworkFile artwork(path);
    artwork.setImage(picture(2000, 1000));
    EXPECT_EQ(QImage(artwork.url().toLocalFile()).size(), QSize(512, 256));
}

TEST_F(Artwork, GetsANewNameForEachPictureAndTheOldFileIsRemoved)
{
    ArtworkFile artwork(path);
    artwork.setImage(picture(4, 4));
    const QUrl first = artwork.url();
    artwork.setImage(picture(4, 4));
    EXPECT_NE(artwork.url(), first);
    EXPECT_EQ(files(), QStringList{artwork.url().fileName()});
}

TEST_F(Artwork, IsRemovedWithTheSong)
{
    ArtworkFile artwork(path);
    artwork.setImage(picture(4, 4));
    artwork.setImage({});
    EXPECT_TRUE(artwork.url().isEmpty());
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(Artwork, IsRemovedWithTheProgram)
{
    {
        ArtworkFile artwork(path);
        artwork.setImage(picture(4, 4));
        EXPECT_EQ(files().size(), 1);
    }
    EXPECT_FALSE(QDir(path).exists());
}

TEST_F(Artwork, HasNoFileIfItCannotBeWritten)
{
    QFile file(folder.filePath(u"deep"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ArtworkFile artwork(path);
    artwork.setImage(picture(4, 4));
    EXPECT_TRUE(artwork.url().isEmpty());
}

TEST_F(Artwork, RemovesOnlyFilesOfDeadProcesses)
{
    ASSERT_TRUE(QDir().mkpath(path));
    const QString alive = u"cover-%1-9.png"_s.arg(QCoreApplication::applicationPid());
    for (const QString &name : {u"cover-2147483646-1.png"_s, u"cover-2147483646-2.png.Xy12"_s,
                                alive, u"cover-letter.png"_s}) {
        QFile file(path + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    const ArtworkFile artwork(path);
    EXPECT_EQ(files(), (QStringList{alive, u"cover-letter.png"_s}));
}

} // namespace
