#include "platform/ui/SegmentedControl.h"

#include "platform/ui/Theme.h"

#include <QAccessible>
#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using lyrabox::SegmentedControl;
using namespace Qt::Literals::StringLiterals;

namespace {

class SegmentedControlTest : public testing::Test {
protected:
    SegmentedControlTest()
    {
        control.setSegments({u"Playlists"_s, u"Folders"_s});
        control.resize(200, 26);
    }

    SegmentedControl control;
    QSignalSpy pressed{&control, &SegmentedControl::pressed};
};

TEST_F(SegmentedControlTest, ClickSelectsTheSegmentAndSends)
{
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(150, 13));
    EXPECT_EQ(control.selectedSegment(), 1);
    EXPECT_EQ(pressed.count(), 1);
    QTest::mouseClick(&control, Qt::RightButton, {}, QPoint(20, 13));
    EXPECT_EQ(control.selectedSegment(), 1);
}

TEST_F(SegmentedControlTest, SelectingByCodeSendsNothingAndIgnoresBadIndices)
{
    control.setSelectedSegment(1);
    EXPECT_EQ(control.selectedSegment(), 1);
    control.setSelectedSegment(2);
    control.setSelectedSegment(-1);
    EXPECT_EQ(control.selectedSegment(), 1);
    EXPECT_EQ(pressed.count(), 0);
}

TEST_F(SegmentedControlTest, ArrowKeysMoveTheSelectionAndStopAtTheEnds)
{
    QTest::keyClick(&control, Qt::Key_Right);
    EXPECT_EQ(control.selectedSegment(), 1);
    QTest::keyClick(&control, Qt::Key_Right);
    EXPECT_EQ(control.selectedSegment(), 1);
    EXPECT_EQ(pressed.count(), 1);
    QTest::keyClick(&control, Qt::Key_Left);
    EXPECT_EQ(control.selectedSegment(), 0);
    EXPECT_EQ(pressed.count(), 2);
}

TEST_F(SegmentedControlTest, HomeEndAndThePageKeysMoveTheSelectionToo)
{
    for (const auto &[key, segment] :
         {std::pair(Qt::Key_End, 1), std::pair(Qt::Key_End, 1), std::pair(Qt::Key_Home, 0),
          std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, 0)}) {
        QTest::keyClick(&control, key);
        EXPECT_EQ(control.selectedSegment(), segment);
    }
    EXPECT_EQ(pressed.count(), 4) << "at an end nothing changes";
}

TEST_F(SegmentedControlTest, SelectedSegmentIsAccentBlueAndTheOtherWhite)
{
    control.setSelectedSegment(1);
    QImage image(control.size(), QImage::Format_ARGB32_Premultiplied);
    control.render(&image);
    EXPECT_EQ(image.pixelColor(190, 13), lyrabox::Theme::accent);
    EXPECT_EQ(image.pixelColor(10, 13), QColor(Qt::white));
}

TEST_F(SegmentedControlTest, AssistiveProgramsSeeTabsAndPressThem)
{
    control.setSelectedSegment(1);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&control);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::PageTabList);
    EXPECT_EQ(accessible->text(QAccessible::Value), u"Folders"_s);
    ASSERT_EQ(accessible->childCount(), 2);
    QAccessibleInterface *playlists = accessible->child(0);
    ASSERT_NE(playlists, nullptr);
    EXPECT_EQ(playlists->text(QAccessible::Name), u"Playlists"_s);
    EXPECT_FALSE(playlists->state().selected);
    EXPECT_EQ(accessible->indexOfChild(accessible->child(1)), 1);
    playlists->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(control.selectedSegment(), 0);
    EXPECT_TRUE(playlists->state().selected);
    EXPECT_EQ(pressed.count(), 1);
    EXPECT_EQ(accessible->child(2), nullptr);
}

TEST_F(SegmentedControlTest, IsMirroredInRightToLeftLayouts)
{
    control.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(control.segmentRect(0), QRect(100, 0, 100, 26));
    QTest::keyClick(&control, Qt::Key_Left);
    EXPECT_EQ(control.selectedSegment(), 1);
    QTest::keyClick(&control, Qt::Key_Right);
    EXPECT_EQ(control.selectedSegment(), 0);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(20, 13));
    EXPECT_EQ(control.selectedSegment(), 1);
}

} // namespace
