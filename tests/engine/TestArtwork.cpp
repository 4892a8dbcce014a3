#include "engine/Artwork.h"

#include <gtest/gtest.h>

#include <QBuffer>

namespace lyrabox {
namespace {

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return data;
}

QImage redImage(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

TEST(Artwork, IsDecodedAtItsNaturalSize)
{
    for (const char *format : {"PNG", "JPG", "BMP"}) {
        const QImage image = decodedArtwork(encoded(redImage(300, 200), format));
        EXPECT_EQ(image.size(), QSize(300, 200)) << format;
        EXPECT_GT(image.pixelColor(150, 100).red(), 240) << format;
    }
}

TEST(Artwork, DataThatIsNotAnImageGivesNull)
{
    EXPECT_TRUE(decodedArtwork({}).isNull());
    EXPECT_TRUE(decodedArtwork("no image").isNull());
    EXPECT_TRUE(decodedArtwork(QByteArray(100000, '\0')).isNull());
}

TEST(Artwork, ATruncatedPngIsNullOrSmallerThanTheLimitAndNeverCrashes)
{
    const QByteArray whole = encoded(redImage(64, 64), "PNG");
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const QImage image = decodedArtwork(whole.first(length));
        EXPECT_TRUE(image.isNull() || image.size() == QSize(64, 64));
    }
}

TEST(Artwork, AnImageOverTheLimitIsNull)
{
    EXPECT_FALSE(decodedArtwork(encoded(redImage(maximumArtworkSide, 1), "PNG")).isNull());
    EXPECT_TRUE(decodedArtwork(encoded(redImage(maximumArtworkSide + 1, 1), "PNG")).isNull());
    EXPECT_TRUE(decodedArtwork(encoded(redImage(1, maximumArtworkSide + 1), "PNG")).isNull());
}

TEST(Artwork, ALargeImageIsScaledDown)
{
    for (const char *format : {"PNG", "JPEG"}) {
        const QImage wide = decodedArtwork(encoded(redImage(4000, 2000), format));
        EXPECT_EQ(wide.size(), QSize(keptArtworkSide, keptArtworkSide / 2)) << format;
        EXPECT_GT(wide.pixelColor(wide.rect().center()).red(), 240) << format;
    }
    const QImage fits = decodedArtwork(encoded(redImage(keptArtworkSide, 3), "PNG"));
    EXPECT_EQ(fits.size(), QSize(keptArtworkSide, 3));
    const QImage thin = decodedArtwork(encoded(redImage(3, maximumArtworkSide), "PNG"));
    EXPECT_EQ(thin.size(), QSize(1, keptArtworkSide));
}

TEST(Artwork, AHeaderWithAHugeSizeGivesNull)
{
    QByteArray data = encoded(redImage(64, 64), "BMP");
    for (const qsizetype at : {18, 22}) { // width and height, little-endian
        data[at] = '\0';
        data[at + 1] = '\0';
        data[at + 2] = '\0';
        data[at + 3] = '\x10';
    }
    EXPECT_TRUE(decodedArtwork(data).isNull());
}

TEST(Artwork, AVectorDrawingIsRefused)
{
    EXPECT_TRUE(decodedArtwork("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"8\" height=\"8\">"
                               "<rect width=\"8\" height=\"8\"/></svg>")
                    .isNull());
}

} // namespace
} // namespace lyrabox
