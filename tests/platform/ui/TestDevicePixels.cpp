#include "platform/ui/DevicePixels.h"

#include "platform/ui/ButtonMatrix.h"
#include "platform/ui/ImageView.h"
#include "platform/ui/NamedImage.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/StateButton.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize deviceSize(150, 150);

QImage canvas(double scale)
{
    QImage image(deviceSize, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::gray);
    return image;
}

/// The widget's device pixels, with its corner at `position` in a window of that scale.
QImage pixelsOf(QWidget &widget, QPoint position, double scale)
{
    QWidget window;
    window.resize(deviceSize);
    widget.setParent(&window);
    widget.move(position);
    QImage image = canvas(scale);
    window.render(&image);
    widget.setParent(nullptr);
    image.setDevicePixelRatio(1.0);
    const QPointF corner = QPointF(position) * scale;
    return image.copy(QRect(corner.toPoint(), (QSizeF(widget.size()) * scale).toSize()));
}

/// Whether a widget whose corner lies between device pixels looks as it does elsewhere.
void expectSameEverywhere(QWidget &widget)
{
    constexpr QPoint between(7, 5);
    EXPECT_EQ(pixelsOf(widget, between, 1.5), pixelsOf(widget, QPoint(8, 6), 1.5));
    EXPECT_EQ(pixelsOf(widget, between, 1.25), pixelsOf(widget, QPoint(8, 4), 1.25));
}

TEST(DevicePixels, AtAFractionalScaleARoundButtonIsNotCutOff)
{
    StateButton button;
    button.setBackground(StateButton::Background::RoundAccent);
    button.resize(52, 52);
    expectSameEverywhere(button);
    button.setBackground(StateButton::Background::Round);
    expectSameEverywhere(button);
    button.setImage(NamedImage(u"PlayButton"_s));
    expectSameEverywhere(button);
}

TEST(DevicePixels, AtAFractionalScaleBoxesAndImagesAreAsSharpEverywhere)
{
    SegmentedControl control;
    control.setSegments({QString(), QString()});
    control.resize(80, 28);
    expectSameEverywhere(control);
    ImageView view;
    view.setImage(NamedImage(u"LBAlbumArt"_s).pixmap(1.0).toImage());
    view.resize(60, 60);
    expectSameEverywhere(view);
}

TEST(DevicePixels, AtAWholeScaleNothingMoves)
{
    for (const double scale : {1.0, 2.0}) {
        QImage image = canvas(scale);
        QPainter painter(&image);
        painter.translate(3, 5);
        alignToDevicePixels(painter);
        EXPECT_EQ(painter.transform(), QTransform::fromTranslate(3, 5));
    }
}

} // namespace
