#include "app/controls/LB_PlayButtonCell.h"

#include "support/DrawnWidget.h"

#include <QImage>

#include <gtest/gtest.h>

using lyrabox::NamedImage;
using lyrabox::test::drawn;
using lyrabox::test::expected;
using namespace Qt::Literals::StringLiterals;

namespace {

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

TEST_F(PlayButtonTest, HighlightedShowsTheImageWhoseNameEndsInAlt)
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
