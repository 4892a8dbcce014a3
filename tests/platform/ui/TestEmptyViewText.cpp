#include "platform/ui/EmptyViewText.h"

#include <QTableView>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

TEST(EmptyViewText, ShowsItsTextOverTheViewportAndFollowsItsSize)
{
    QTableView view;
    EmptyViewText text(&view);
    view.resize(400, 300);
    view.show();
    EXPECT_FALSE(text.isVisible());
    text.showText(u"Nothing here"_s);
    EXPECT_TRUE(text.isVisible());
    EXPECT_EQ(text.geometry(), view.viewport()->geometry());
    view.resize(640, 480);
    EXPECT_EQ(text.geometry(), view.viewport()->geometry());
    text.showText({});
    EXPECT_FALSE(text.isVisible());
}

TEST(EmptyViewText, LeavesTheMouseToTheView)
{
    QTableView view;
    EmptyViewText text(&view);
    view.resize(400, 300);
    view.show();
    text.showText(u"Nothing here"_s);
    EXPECT_EQ(view.childAt(text.geometry().center()), view.viewport());
}

TEST(EmptyViewText, ShowsMarkupAsPlainText)
{
    QTableView view;
    EmptyViewText text(&view);
    text.showText(u"<b>a</b>"_s);
    EXPECT_EQ(text.textFormat(), Qt::PlainText);
    EXPECT_EQ(text.text(), u"<b>a</b>"_s);
}
