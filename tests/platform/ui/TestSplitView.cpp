#include "platform/ui/SplitView.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace lyrabox {
namespace {

struct SplitViewTest : testing::Test {
    SplitViewTest()
    {
        view.resize(401, 100);
        view.setPanes(left, right);
        view.show();
        view.setDividerPosition(100);
    }

    SplitView view;
    QWidget *left = new QWidget;
    QWidget *right = new QWidget;
};

TEST_F(SplitViewTest, TheFirstPaneEndsAtTheDivider)
{
    EXPECT_EQ(left->geometry(), QRect(0, 0, 100, 100));
    EXPECT_EQ(right->geometry(), QRect(101, 0, 300, 100));
}

TEST_F(SplitViewTest, InRightToLeftLayoutsTheFirstPaneIsOnTheRight)
{
    view.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(left->geometry(), QRect(301, 0, 100, 100));
    EXPECT_EQ(right->geometry(), QRect(0, 0, 300, 100));
    EXPECT_EQ(view.dividerPosition(), 100);
    QTest::keyClick(view.divider(), Qt::Key_Left); // away from the right edge
    EXPECT_EQ(view.dividerPosition(), 108);
    EXPECT_EQ(left->geometry(), QRect(293, 0, 108, 100));
    view.setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(left->geometry(), QRect(0, 0, 108, 100));
    EXPECT_EQ(right->geometry(), QRect(109, 0, 292, 100));
}

TEST_F(SplitViewTest, ThePageKeysMakeTheFirstPaneWiderAndNarrower)
{
    QTest::keyClick(view.divider(), Qt::Key_PageUp);
    EXPECT_EQ(view.dividerPosition(), 140);
    QTest::keyClick(view.divider(), Qt::Key_PageDown);
    EXPECT_EQ(view.dividerPosition(), 100);
}

TEST_F(SplitViewTest, DraggingMovesTheDividerInBothLayoutDirections)
{
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        view.setLayoutDirection(direction);
        view.setDividerPosition(100);
        const int before = view.divider()->x();
        const QPoint middle = view.divider()->rect().center();
        QTest::mousePress(view.divider(), Qt::LeftButton, {}, middle);
        QMouseEvent move(QEvent::MouseMove, middle + QPoint(20, 0),
                         view.divider()->mapToGlobal(middle + QPoint(20, 0)), Qt::LeftButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.divider(), &move);
        QTest::mouseRelease(view.divider(), Qt::LeftButton);
        EXPECT_EQ(view.divider()->x(), before + 20);
    }
}

} // namespace
} // namespace lyrabox
