#include "platform/ui/ImageView.h"

#include <QImage>

#include <gtest/gtest.h>

using lyrabox::ImageView;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST(ImageView, KeepsTheProportionsAndRoundsTheCorners)
{
    ImageView view;
    view.resize(100, 100);
    QImage red(200, 100, QImage::Format_RGB32);
    red.fill(Qt::red);
    view.setImage(red);
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    view.render(&image, {}, {}, QWidget::DrawChildren);
    EXPECT_EQ(image.pixelColor(50, 50), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(50, 26), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(50, 23), QColor(Qt::white)) << "above the fitted image";
    EXPECT_EQ(image.pixelColor(0, 25), QColor(Qt::white)) << "the corner is round";
    EXPECT_EQ(image.pixelColor(0, 50), QColor(Qt::red));
}

TEST(ImageView, DrawsNothingWithoutAnImageAndCopesWithExtremeSizes)
{
    ImageView view;
    view.resize(100, 100);
    EXPECT_FALSE(view.grab().isNull());
    QImage line(4000, 1, QImage::Format_RGB32);
    line.fill(Qt::red);
    view.setImage(line);
    EXPECT_FALSE(view.grab().isNull());
    view.resize(0, 0);
    view.grab();
}

} // namespace
