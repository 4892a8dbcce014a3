#include "app/stand/StandLayout.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

std::vector<QRectF> allParts(const StandLayout &layout)
{
    std::vector<QRectF> parts{layout.title,  layout.loop,    layout.dots,
                              layout.passes, layout.countIn, layout.hint};
    for (const auto &more : {layout.captions, layout.numbers, layout.steps})
        parts.insert(parts.end(), more.begin(), more.end());
    return parts;
}

TEST(StandLayout, PartsLieInTheWindowAndNeverOnEachOther)
{
    for (const QSizeF area :
         {QSizeF(1920, 1080), QSizeF(1120, 860), QSizeF(1080, 1920), QSizeF(640, 400)}) {
        for (const std::size_t steps : {0U, 1U, 9U}) {
            const std::vector<QRectF> parts = allParts(standLayout::place(area, 3, steps));
            for (std::size_t i = 0; i < parts.size(); ++i) {
                EXPECT_FALSE(parts[i].isEmpty()) << i;
                EXPECT_TRUE(QRectF(QPointF(), area).contains(parts[i])) << i;
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_FALSE(parts[i].adjusted(0.1, 0.1, -0.1, -0.1).intersects(parts[j]))
                        << i << " " << j;
            }
        }
    }
}

TEST(StandLayout, AShortTextHasItsUsualSizeAndALongOneShrinksBeforeItIsCut)
{
    const QRectF place = standLayout::place({1920, 1080}, 1, 0).title;
    const FittedText brief = standLayout::fit(u"Blues"_s, false, place);
    EXPECT_GE(brief.size, 1080 / 13);
    EXPECT_EQ(brief.text, u"Blues"_s);

    const QString longer = u"The Corner Shop Blues as It Was Played in the Old Town Hall"_s;
    const FittedText shrunk = standLayout::fit(longer, false, place);
    EXPECT_LT(shrunk.size, brief.size);
    EXPECT_EQ(shrunk.text, longer);

    const FittedText cut = standLayout::fit(longer.repeated(10), false, place);
    EXPECT_GE(cut.size, brief.size / 2);
    EXPECT_TRUE(cut.text.endsWith(u'…'));
    for (const FittedText &each : {brief, shrunk, cut})
        EXPECT_LE(QFontMetricsF(standLayout::font(each.size, false)).horizontalAdvance(each.text),
                  place.width());
}

TEST(StandLayout, DotsLieInTheirRowFromLeftToRight)
{
    const QRectF area(100, 50, 400, 40);
    for (const int count : {2, 4, 12}) {
        const std::vector<QRectF> dots = standLayout::dots(area, count);
        ASSERT_EQ(dots.size(), static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < dots.size(); ++i) {
            EXPECT_TRUE(area.adjusted(-0.1, -0.1, 0.1, 0.1).contains(dots[i]));
            EXPECT_TRUE(i == 0 || dots[i].left() > dots[i - 1].right());
        }
    }
}

} // namespace
