#include "platform/ui/SearchField.h"

#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using lyrabox::SearchField;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST(SearchField, CancelButtonIsShownOnlyWithTextAndOnlySends)
{
    SearchField field;
    field.show();
    auto *button = field.findChild<QToolButton *>();
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->isVisible());
    field.setText(u"cafe"_s);
    EXPECT_TRUE(button->isVisible());
    const QSignalSpy canceled(&field, &SearchField::canceled);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(canceled.count(), 1);
    EXPECT_EQ(field.text(), u"cafe"_s) << "the receiver decides what cancelling does";
}

TEST(SearchField, EscapeCancelsOnlyIfThereIsText)
{
    SearchField field;
    const QSignalSpy canceled(&field, &SearchField::canceled);
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(canceled.count(), 0);
    field.setText(u"cafe"_s);
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(canceled.count(), 1);
}

} // namespace
