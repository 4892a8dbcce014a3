#include "app/controls/LB_TableHeaderCell.h"

#include <QImage>
#include <QPainter>
#include <QStandardItemModel>
#include <QTableView>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Line gray and accent blue at alpha 0.8 over white.
const QColor headerGray(0xCA, 0xCF, 0xD2);
const QColor headerBlue(0x5D, 0xAD, 0xE2);

bool near(const QColor &a, const QColor &b)
{
    return qAbs(a.red() - b.red()) <= 1 && qAbs(a.green() - b.green()) <= 1 &&
           qAbs(a.blue() - b.blue()) <= 1;
}

QImage drawn(qreal ratio, const std::function<void(QPainter &)> &draw)
{
    QImage image((QSizeF(120, 26) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    draw(painter);
    return image;
}

bool contains(const QImage &image, const QColor &colour)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour)
                return true;
        }
    }
    return false;
}

const QRectF frame(0.0, 0.0, 120.0, 26.0);

TEST(LB_TableHeaderCell, SectionIsLineGrayAtFourFifthsWithBlackText)
{
    for (const qreal ratio : {1.0, 2.0}) {
        const QImage image = drawn(ratio, [](QPainter &painter) {
            LB_TableHeaderCell::drawInterior(painter, frame, u"IIII"_s, Qt::AlignLeft);
        });
        EXPECT_TRUE(near(image.pixelColor(image.width() - 20, image.height() / 2), headerGray));
        EXPECT_FALSE(contains(image, Qt::white));
    }
}

TEST(LB_TableHeaderCell, HighlightedSectionIsAccentBlueAtFourFifthsWithWhiteText)
{
    for (const qreal ratio : {1.0, 2.0}) {
        const QImage image = drawn(ratio, [](QPainter &painter) {
            LB_TableHeaderCell::highlight(painter, frame, u"MMMM"_s, Qt::AlignLeft, QChar(0x25B2));
        });
        EXPECT_TRUE(near(image.pixelColor(image.width() - 20, image.height() / 2), headerBlue));
        EXPECT_TRUE(contains(image, Qt::white));
    }
}

TEST(LB_TableHeaderCell, TrailingSpaceAndArrowAreNotDrawn)
{
    const auto header = [](const QString &text) {
        return drawn(1.0, [&](QPainter &painter) {
            LB_TableHeaderCell::drawInterior(painter, frame, text, Qt::AlignLeft);
        });
    };
    EXPECT_EQ(header(u"Title \u25B2"_s), header(u"Title"_s));
    EXPECT_NE(header(u"Title"_s), header(u"Titl"_s));
}

TEST(LB_TableHeaderCell, TextBeginsThreePointsFromTheSectionsEdge)
{
    const QImage image = drawn(1.0, [](QPainter &painter) {
        LB_TableHeaderCell::drawInterior(painter, frame, u"HH"_s, Qt::AlignLeft);
    });
    const auto isBare = [&](int x) {
        for (int y = 1; y < 25; ++y) {
            if (!near(image.pixelColor(x, y), headerGray))
                return false;
        }
        return true;
    };
    EXPECT_TRUE(isBare(1) && isBare(2));
    EXPECT_FALSE(isBare(3) && isBare(4) && isBare(5));
}

TEST(LB_TableHeaderCell, SpacesAndArrowsAreTrimmedFromBothEndsOnly)
{
    EXPECT_EQ(lyrabox::trimmedHeaderText(u"Title \u25B2"_s), u"Title"_s);
    EXPECT_EQ(lyrabox::trimmedHeaderText(u" \u25BC\u25B2 Disc \u25B2 side  \u25BC "_s),
              u"Disc \u25B2 side"_s);
    EXPECT_EQ(lyrabox::trimmedHeaderText(u" \u25B2 "_s), QString());
    EXPECT_EQ(lyrabox::trimmedHeaderText({}), QString());
}

TEST(LB_TableHeaderCell, ArrowIsTheLastOneAfterTheText)
{
    EXPECT_EQ(lyrabox::headerArrow(u"Title  \u25B2"_s), QChar(0x25B2));
    EXPECT_EQ(lyrabox::headerArrow(u"Title  \u25BC"_s), QChar(0x25BC));
    EXPECT_TRUE(lyrabox::headerArrow(u"\u25B2 Title"_s).isNull());
    EXPECT_TRUE(lyrabox::headerArrow(u"Title"_s).isNull());
}

TEST(LB_TableHeaderCell, OnlyTheHighlightedSectionOfATableIsBlue)
{
    QTableView table;
    QStandardItemModel model(1, 2);
    model.setHorizontalHeaderLabels({u"Title  \u25B2"_s, u"Artist  \u25BC"_s});
    table.setModel(&model);
    auto *header = new LB_TableHeaderCell;
    table.setHorizontalHeader(header);
    table.setColumnWidth(0, 100);
    table.setColumnWidth(1, 100);
    table.resize(400, 100);
    header->setHighlightedSection(0);
    const QImage image = header->grab().toImage();
    EXPECT_TRUE(near(image.pixelColor(90, 13), headerBlue));
    EXPECT_TRUE(near(image.pixelColor(190, 13), headerGray));
    EXPECT_TRUE(near(image.pixelColor(300, 13), headerGray)) << "right of the last section";
    header->setHighlightedSection(-1);
    EXPECT_TRUE(near(header->grab().toImage().pixelColor(90, 13), headerGray));
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), u"Title  \u25B2"_s)
        << "the title keeps its arrow";
}

} // namespace
