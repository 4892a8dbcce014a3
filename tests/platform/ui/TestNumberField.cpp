#include "platform/ui/NumberField.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <cmath>

using lyrabox::NumberField;
using namespace Qt::Literals::StringLiterals;

namespace {

class NumberFieldTest : public testing::Test {
protected:
    void type(const QString &text)
    {
        field.selectAll();
        QTest::keyClicks(&field, text);
    }
    void enter(const QString &text)
    {
        type(text);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    NumberField field;
    QSignalSpy entered{&field, &NumberField::entered};
};

TEST_F(NumberFieldTest, FinishEditSendsOnceAndKeepsTheFocus)
{
    field.setLimits(-12.0F, 12.0F);
    field.show();
    field.setFocus();
    field.finishEdit();
    EXPECT_EQ(entered.count(), 0) << "nothing was being typed";
    type(u"40"_s);
    field.finishEdit();
    field.finishEdit();
    EXPECT_EQ(entered.count(), 1);
    EXPECT_EQ(field.floatValue(), 12.0F);
    EXPECT_EQ(field.focusWidget(), &field);
}

TEST_F(NumberFieldTest, ShowsUpToTwoDecimalsAndTheSuffix)
{
    field.setSuffix(u" %"_s);
    field.setFloatValue(75.0F);
    EXPECT_EQ(field.text(), u"75 %"_s);
    field.setFloatValue(33.3333F);
    EXPECT_EQ(field.text(), u"33.33 %"_s);
    field.setFloatValue(0.5F);
    EXPECT_EQ(field.text(), u"0.5 %"_s);
    EXPECT_FLOAT_EQ(field.floatValue(), 0.5F);
}

TEST_F(NumberFieldTest, ShowsTheMinimumNumberOfDecimals)
{
    field.setMinimumDecimals(1);
    field.setFloatValue(-12.0F);
    EXPECT_EQ(field.text(), u"-12.0"_s);
    field.setFloatValue(100.0F);
    EXPECT_EQ(field.text(), u"100.0"_s);
}

TEST_F(NumberFieldTest, ValueThatRoundsToZeroHasNoSign)
{
    field.setFloatValue(-0.001F);
    EXPECT_EQ(field.text(), u"0"_s);
}

TEST_F(NumberFieldTest, ReadsEitherDecimalMarkAndTheSuffixOrNot)
{
    field.setText(u"75,5 %"_s);
    EXPECT_FLOAT_EQ(field.floatValue(), 75.5F);
    field.setText(u"  75.5"_s);
    EXPECT_FLOAT_EQ(field.floatValue(), 75.5F);
    field.setText(u"-.5"_s);
    EXPECT_FLOAT_EQ(field.floatValue(), -0.5F);
    field.setText(u"\u22123"_s);
    EXPECT_FLOAT_EQ(field.floatValue(), -3.0F);
    field.setText(u"+4"_s);
    EXPECT_FLOAT_EQ(field.floatValue(), 4.0F);
}

TEST_F(NumberFieldTest, TextThatIsNotANumberReadsAsZero)
{
    for (const QString &text : {u"fast"_s, QString(), u"%"_s, u"-"_s, u"nan"_s, u"inf"_s}) {
        field.setText(text);
        EXPECT_EQ(field.floatValue(), 0.0F) << text.toStdString();
    }
}

TEST_F(NumberFieldTest, EnormousNumberStaysFinite)
{
    field.setText(QString(32, u'9') + QString(32, u'9'));
    EXPECT_TRUE(std::isfinite(field.floatValue()));
}

TEST_F(NumberFieldTest, ReturnSendsOnceForAnEdit)
{
    enter(u"80"_s);
    EXPECT_EQ(entered.count(), 1);
    EXPECT_FLOAT_EQ(field.floatValue(), 80.0F);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(entered.count(), 1) << "there was no edit since";
}

TEST_F(NumberFieldTest, LosingTheKeyboardEndsAnEdit)
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *inWindow = new NumberField;
    auto *other = new QLineEdit;
    layout->addWidget(inWindow);
    layout->addWidget(other);
    const QSignalSpy sent(inWindow, &NumberField::entered);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    inWindow->setFocus();
    inWindow->selectAll();
    QTest::keyClicks(inWindow, u"80"_s);
    other->setFocus();
    EXPECT_EQ(sent.count(), 1);
    inWindow->setFocus();
    other->setFocus();
    EXPECT_EQ(sent.count(), 1) << "there was no edit since";
}

class NumberFieldInInactiveWindow : public testing::Test {
protected:
    NumberFieldInInactiveWindow()
    {
        layout->addWidget(field);
        layout->addWidget(other);
        window.show();
        elsewhere.show();
    }

    /// Types into the field, then activates the other window.
    void typeAndLeave()
    {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, u"80"_s);
        elsewhere.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
        ASSERT_EQ(entered.count(), 0) << "activating another window does not end the edit";
    }

    QWidget window;
    QWidget elsewhere;
    QVBoxLayout *layout = new QVBoxLayout(&window);
    NumberField *field = new NumberField;
    NumberField *other = new NumberField;
    QSignalSpy entered{field, &NumberField::entered};
};

TEST_F(NumberFieldInInactiveWindow, IsEnteredWhenTheFocusMoves)
{
    ASSERT_NO_FATAL_FAILURE(typeAndLeave());
    other->setFocus();
    EXPECT_EQ(entered.count(), 1);
    EXPECT_FLOAT_EQ(field->floatValue(), 80.0F);
}

TEST_F(NumberFieldInInactiveWindow, IsEnteredWhenTheFocusIsCleared)
{
    ASSERT_NO_FATAL_FAILURE(typeAndLeave());
    field->clearFocus();
    EXPECT_EQ(entered.count(), 1);
}

TEST_F(NumberFieldInInactiveWindow, IsEnteredWhenTheFieldIsDisabled)
{
    ASSERT_NO_FATAL_FAILURE(typeAndLeave());
    field->setEnabled(false);
    EXPECT_EQ(entered.count(), 1);
}

TEST_F(NumberFieldInInactiveWindow, KeepsTheEditUntilTheWindowIsActiveAgain)
{
    ASSERT_NO_FATAL_FAILURE(typeAndLeave());
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(entered.count(), 0);
    EXPECT_EQ(QApplication::focusWidget(), field);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(entered.count(), 1);
}

TEST_F(NumberFieldTest, LeavesDropsToItsWindow)
{
    EXPECT_FALSE(field.acceptDrops());
}

TEST_F(NumberFieldTest, EscapeRestoresTheShownValue)
{
    field.setFloatValue(75.0F);
    type(u"80"_s);
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(field.text(), u"75"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(entered.count(), 0);
}

TEST_F(NumberFieldTest, SettingAValueDiscardsTheEdit)
{
    type(u"80"_s);
    field.setFloatValue(20.0F);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(entered.count(), 0);
    EXPECT_FLOAT_EQ(field.floatValue(), 20.0F);
}

TEST_F(NumberFieldTest, TypedNumberOutsideTheLimitsIsMovedToTheLimit)
{
    field.setMinimumDecimals(1);
    field.setLimits(-12.0F, 12.0F);
    enter(u"40"_s);
    EXPECT_EQ(field.text(), u"12.0"_s);
    enter(u"-40"_s);
    EXPECT_EQ(field.text(), u"-12.0"_s);
    EXPECT_EQ(entered.count(), 2);
}

TEST_F(NumberFieldTest, LimitedFieldRefusesTextThatIsNotANumber)
{
    field.setLimits(-12.0F, 12.0F);
    field.setFloatValue(3.0F);
    enter(u"loud"_s);
    EXPECT_EQ(field.text(), u"3"_s);
    EXPECT_EQ(entered.count(), 0);
}

TEST_F(NumberFieldTest, FieldWithoutLimitsSendsAnyNumber)
{
    enter(u"fast"_s);
    EXPECT_EQ(entered.count(), 1);
    EXPECT_EQ(field.floatValue(), 0.0F);
}

} // namespace
