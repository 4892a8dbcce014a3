#include "app/controls/LB_PlayButtonCell.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using lyrabox::NamedImage;
using namespace Qt::Literals::StringLiterals;

namespace {

QImage drawn(QWidget &widget, qreal ratio = 1.0)
{
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

/// What the widget's picture is when it shows `name`, centred on whole points.
QImage expected(const QWidget &widget, const QString &name, qreal ratio = 1.0)
{
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    const NamedImage named(name);
    QPainter painter(&image);
    if (!named.isNull())
        painter.drawPixmap(QPoint(qRound(widget.width() * 0.5 - named.size().width() * 0.5),
                                  qRound(widget.height() * 0.5 - named.size().height() * 0.5)),
                           named.pixmap(ratio));
    return image;
}

class PlayButtonTest : public testing::Test {
protected:
    PlayButtonTest()
    {
        button.setImage(NamedImage(u"SeekForward"_s));
        button.setAlternateImage(NamedImage(u"SeekBackward"_s));
        button.resize(45, 37);
    }

    LB_PlayButtonCell button;
};

TEST_F(PlayButtonTest, OffShowsTheImageAndOnTheAlternateOne)
{
    for (const qreal ratio : {1.0, 2.0}) {
        button.setState(0);
        EXPECT_EQ(drawn(button, ratio), expected(button, u"SeekForward"_s, ratio));
        button.setState(1);
        EXPECT_EQ(drawn(button, ratio), expected(button, u"SeekBackward"_s, ratio));
    }
    EXPECT_NE(expected(button, u"SeekForward"_s), expected(button, u"SeekBackward"_s));
}

TEST_F(PlayButtonTest, HighlightedShowsTheImageOfTheSameNameFollowedByAlt)
{
    button.setHighlighted(true);
    EXPECT_EQ(drawn(button), expected(button, u"SeekForwardAlt"_s));
    button.setState(1);
    EXPECT_EQ(drawn(button), expected(button, u"SeekBackwardAlt"_s));
    EXPECT_NE(expected(button, u"SeekBackward"_s), expected(button, u"SeekBackwardAlt"_s));
}

TEST_F(PlayButtonTest, AnyOtherStateDrawsNothing)
{
    button.setState(-1);
    EXPECT_EQ(drawn(button), expected(button, {}));
}

} // namespace
