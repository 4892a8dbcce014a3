#include "platform/ui/KeyPosition.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace lyrabox {
namespace {

int digit(quint32 position, int key, Qt::KeyboardModifiers modifiers = {})
{
    return digitOfKey(QKeyEvent(QEvent::KeyPress, key, modifiers, position, 0, 0));
}

TEST(KeyPosition, GivesTheDigitsOfTheUpperRowInAnyLayout)
{
    for (int number = 1; number <= 9; ++number) {
        EXPECT_EQ(digit(static_cast<quint32>(9 + number), Qt::Key_Ampersand), number);
        EXPECT_EQ(digit(static_cast<quint32>(9 + number), Qt::Key_0 + number), number);
    }
    EXPECT_EQ(digit(9, Qt::Key_Escape), 0);
    EXPECT_EQ(digit(19, Qt::Key_0), 0);
}

TEST(KeyPosition, GivesDigitsThatAreTypedWithShiftOrElsewhere)
{
    EXPECT_EQ(digit(12, Qt::Key_3, Qt::ShiftModifier), 3);
    EXPECT_EQ(digit(87, Qt::Key_1, Qt::KeypadModifier), 1);
    EXPECT_EQ(digit(0, Qt::Key_7), 7);
    EXPECT_EQ(digit(12, Qt::Key_NumberSign, Qt::ShiftModifier), 0);
}

TEST(KeyPosition, IsNoDigitTogetherWithOtherModifiers)
{
    for (const Qt::KeyboardModifier modifier :
         {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        EXPECT_EQ(digit(10, Qt::Key_1, modifier), 0);
}

} // namespace
} // namespace lyrabox
