#include "platform/ui/ButtonMatrix.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using lyrabox::ButtonMatrix;
using lyrabox::NamedImage;
using namespace Qt::Literals::StringLiterals;

namespace {

class ButtonMatrixTest : public testing::Test {
protected:
    ButtonMatrixTest()
    {
        matrix.addCell(0, {}, u"Slower"_s, NamedImage(u"MinusButton"_s));
        matrix.addCell(1, u"O"_s, u"Reset"_s);
        matrix.addCell(2, {}, u"Faster"_s, NamedImage(u"PlusButton"_s));
    }

    ButtonMatrix matrix;
    QSignalSpy pressed{&matrix, &ButtonMatrix::pressed};
};

TEST_F(ButtonMatrixTest, NothingIsSelectedBeforeTheFirstPress)
{
    EXPECT_EQ(matrix.selectedTag(), -1);
}

TEST_F(ButtonMatrixTest, ClickSelectsTheCellAndSends)
{
    QTest::mouseClick(matrix.cellWithTag(2), Qt::LeftButton);
    EXPECT_EQ(matrix.selectedTag(), 2);
    EXPECT_EQ(pressed.count(), 1);
    matrix.pressCellWithTag(0);
    EXPECT_EQ(matrix.selectedTag(), 0);
    EXPECT_EQ(pressed.count(), 2);
}

TEST_F(ButtonMatrixTest, EveryPressOfTheSameCellSends)
{
    matrix.pressCellWithTag(2);
    matrix.pressCellWithTag(2);
    EXPECT_EQ(pressed.count(), 2);
}

TEST_F(ButtonMatrixTest, DisabledOrMissingCellDoesNothing)
{
    matrix.cellWithTag(2)->setEnabled(false);
    matrix.pressCellWithTag(2);
    matrix.pressCellWithTag(9);
    EXPECT_EQ(matrix.selectedTag(), -1);
    EXPECT_EQ(pressed.count(), 0);
    EXPECT_EQ(matrix.cellWithTag(9), nullptr);
}

TEST_F(ButtonMatrixTest, CellsHaveAccessibleNamesAndToolTips)
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(matrix.cellWithTag(0));
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Slower"_s);
    EXPECT_EQ(matrix.cellWithTag(0)->toolTip(), u"Slower"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&matrix)->role(), QAccessible::Grouping);
}

TEST_F(ButtonMatrixTest, CellsShareTheWidthWithoutGaps)
{
    matrix.resize(75, 24);
    matrix.show();
    EXPECT_EQ(matrix.cellWithTag(0)->geometry().right() + 1,
              matrix.cellWithTag(1)->geometry().left());
    EXPECT_EQ(matrix.cellWithTag(1)->geometry().right() + 1,
              matrix.cellWithTag(2)->geometry().left());
    EXPECT_EQ(matrix.cellWithTag(2)->geometry().right(), 74);
}

} // namespace
