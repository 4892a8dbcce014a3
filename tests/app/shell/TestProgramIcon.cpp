#include "app/shell/ProgramIcon.h"

#include <QImage>

#include <gtest/gtest.h>

namespace lyrabox {
namespace {

TEST(ProgramIcon, EverySizeIsRenderedSeparately)
{
    const QIcon icon = programIcon();
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        ASSERT_TRUE(icon.availableSizes().contains(QSize(size, size))) << size;
        const QImage image = icon.pixmap(size).toImage();
        ASSERT_EQ(image.size(), QSize(size, size));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << size << ": the corners are rounded";
        const QColor left = image.pixelColor(size / 8, size / 2);
        EXPECT_GT(left.blue(), left.red()) << size << ": the box is blue";
    }
}

TEST(ProgramIcon, TheLyreIsVisibleAtSixteenPixels)
{
    const QImage image = programIcon().pixmap(16).toImage();
    int white = 0;
    for (int x = 4; x < 12; ++x)
        white += image.pixelColor(x, 5) == QColor(Qt::white) ? 1 : 0;
    EXPECT_EQ(white, 8) << "width of the yoke";
}

} // namespace
} // namespace lyrabox
