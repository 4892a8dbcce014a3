#include "app/controls/LB_PopUpButtonCell.h"

#include "support/DrawnWidget.h"

#include <QAccessible>
#include <QImage>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using lyrabox::NamedImage;
using lyrabox::test::drawn;
using lyrabox::test::expected;
using namespace Qt::Literals::StringLiterals;

namespace {

class PopUpButtonTest : public testing::Test {
protected:
    PopUpButtonTest()
    {
        button.setFirstItemImage(NamedImage(u"SettingsButtonOff"_s));
        button.resize(45, 37);
    }

    LB_PopUpButtonCell button;
};

TEST_F(PopUpButtonTest, ShowsTheFirstItemsImageCentredOnWholePoints)
{
    EXPECT_EQ(drawn(button), expected(button, u"SettingsButtonOff"_s));
    button.setFirstItemImage(NamedImage(u"SettingsButtonOn"_s));
    EXPECT_EQ(drawn(button), expected(button, u"SettingsButtonOn"_s));
}

TEST_F(PopUpButtonTest, HighlightedShowsTheAlternateImageIfThereIsOne)
{
    button.setHighlighted(true);
    EXPECT_EQ(drawn(button), expected(button, u"SettingsButtonOff"_s));
    button.setAlternateImage(NamedImage(u"SettingsButtonOn"_s));
    EXPECT_EQ(drawn(button), expected(button, u"SettingsButtonOn"_s));
    button.setHighlighted(false);
    EXPECT_EQ(drawn(button), expected(button, u"SettingsButtonOff"_s));
}

TEST_F(PopUpButtonTest, PressOpensTheMenuAndItsItemsWork)
{
    const QAction *save = button.menu()->addAction(u"Save"_s);
    const QSignalSpy triggered(save, &QAction::triggered);
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&button));
    QTest::mousePress(&button, Qt::LeftButton);
    ASSERT_TRUE(button.menu()->isVisible());
    EXPECT_TRUE(button.isHighlighted());
    QTest::keyClick(button.menu(), Qt::Key_Down);
    QTest::keyClick(button.menu(), Qt::Key_Return);
    EXPECT_EQ(triggered.count(), 1);
    EXPECT_FALSE(button.menu()->isVisible());
    EXPECT_FALSE(button.isHighlighted());
}

TEST_F(PopUpButtonTest, SpaceOpensTheMenuUnlessTheButtonIsDisabled)
{
    button.menu()->addAction(u"Save"_s);
    button.show();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_TRUE(button.menu()->isVisible());
    button.menu()->close();
    button.setEnabled(false);
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_FALSE(button.menu()->isVisible());
}

TEST_F(PopUpButtonTest, IsAMenuButtonForAssistivePrograms)
{
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->role(), QAccessible::ButtonMenu);
    EXPECT_FALSE(face->state().checkable);
}

} // namespace
