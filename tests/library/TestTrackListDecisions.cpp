#include "library/TrackListDecisions.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

TEST(ScrollTarget, IsTheLastRowWhenHalfAScreenBelowTheSongIsBeyondIt)
{
    EXPECT_EQ(scrollTarget(300, 100, 40, 310), 309);
}

TEST(ScrollTarget, IsTheFirstRowWhenHalfAScreenAboveTheSongIsBeforeIt)
{
    EXPECT_EQ(scrollTarget(10, 100, 40, 310), 0);
}

TEST(ScrollTarget, IsHalfAScreenBeyondTheSong)
{
    EXPECT_EQ(scrollTarget(200, 100, 41, 310), 220);
    EXPECT_EQ(scrollTarget(60, 100, 41, 310), 40);
}

TEST(ScrollTarget, IsNoneForAVisibleRow)
{
    EXPECT_EQ(scrollTarget(100, 100, 40, 310), std::nullopt);
    EXPECT_EQ(scrollTarget(139, 100, 40, 310), std::nullopt);
    EXPECT_EQ(scrollTarget(140, 100, 40, 310), 160);
    EXPECT_EQ(scrollTarget(99, 100, 40, 310), 79);
}

TEST(ScrollTarget, IsTheSongItselfWhenNothingIsVisible)
{
    EXPECT_EQ(scrollTarget(7, 0, 0, 10), 7);
}

TEST(ScrollTarget, IsNoneWithoutAPlayingSong)
{
    EXPECT_EQ(scrollTarget(-1, 0, 10, 10), std::nullopt);
}

TEST(SortedColumnTitle, EndsWithTwoSpacesAndTheArrow)
{
    EXPECT_EQ(sortedColumnTitle(u"Title"_s, true), u"Title  ▲"_s);
    EXPECT_EQ(sortedColumnTitle(u"Title"_s, false), u"Title  ▼"_s);
    EXPECT_EQ(sortedColumnTitle(u""_s, true), u"  ▲"_s);
}

TEST(SortedColumnTitle, ReplacesAnEarlierArrow)
{
    EXPECT_EQ(sortedColumnTitle(sortedColumnTitle(u"Title"_s, true), false), u"Title  ▼"_s);
    EXPECT_EQ(sortedColumnTitle(u" ▲▼ Two Words ▼ ▲"_s, true), u"Two Words  ▲"_s);
}
