#include "platform/ui/StateButton.h"

#include "platform/ui/Theme.h"
#include "support/DrawnWidget.h"

#include <QAccessible>
#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using lyrabox::NamedImage;
using lyrabox::StateButton;
using lyrabox::test::drawn;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A button that is on or off.
struct SwitchButton : StateButton {
    SwitchButton() { setStateTexts(u"Off"_s, u"Half"_s, u"On"_s); }
};

TEST(StateButton, TwoStateButtonGoesOffOnOff)
{
    SwitchButton button;
    button.click();
    EXPECT_EQ(button.state(), 1);
    button.click();
    EXPECT_EQ(button.state(), 0);
}

TEST(StateButton, ThreeStateButtonGoesOffMixedOnOff)
{
    SwitchButton button;
    button.setAllowsMixedState(true);
    button.click();
    EXPECT_EQ(button.state(), -1);
    button.click();
    EXPECT_EQ(button.state(), 1);
    button.click();
    EXPECT_EQ(button.state(), 0);
}

TEST(StateButton, StateHasChangedBeforeTheClickIsSent)
{
    SwitchButton button;
    button.resize(30, 30);
    int seen = 7;
    QObject::connect(&button, &StateButton::clicked, &button, [&] { seen = button.state(); });
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(seen, 1);
}

TEST(StateButton, DisabledButtonKeepsItsState)
{
    SwitchButton button;
    button.resize(30, 30);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.state(), 0);
}

TEST(StateButton, KeyboardPressesTheButton)
{
    SwitchButton button;
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(button.state(), 1);
}

TEST(StateButton, ImageDimsWhenDisabledUnlessSwitchedOff)
{
    StateButton button;
    button.setImage(NamedImage(u"SeekForward"_s));
    button.resize(30, 30);
    const QImage enabled = drawn(button);
    button.setEnabled(false);
    EXPECT_NE(drawn(button), enabled);
    button.setImageDimsWhenDisabled(false);
    EXPECT_EQ(drawn(button), enabled);
}

TEST(StateButton, OnlyPushInShowsAPress)
{
    StateButton button;
    button.setImage(NamedImage(u"LoopButton1"_s));
    button.setBackground(StateButton::Background::Round);
    button.resize(40, 40);
    const QImage plain = drawn(button);
    button.setHighlighted(true);
    EXPECT_NE(drawn(button), plain);
    button.setHighlightMode(StateButton::Highlight::None);
    EXPECT_EQ(drawn(button), plain);
}

TEST(StateButton, BackgroundsAreDrawnInTheirColours)
{
    StateButton button;
    button.resize(40, 40);
    for (const qreal ratio : {1.0, 2.0}) {
        button.setBackground(StateButton::Background::RoundAccent);
        const QImage accent = drawn(button, ratio);
        EXPECT_EQ(accent.pixelColor(accent.width() / 2, accent.height() / 2),
                  lyrabox::Theme::accent);
        EXPECT_EQ(accent.pixelColor(1, 1), QColor(Qt::white)) << "the corner is outside the disc";
        button.setBackground(StateButton::Background::None);
        EXPECT_EQ(drawn(button, ratio).pixelColor(20, 20), QColor(Qt::white));
    }
}

TEST(StateButton, StateIsAnnouncedToAssistivePrograms)
{
    StateButton button;
    button.setAllowsMixedState(true);
    button.setStateTexts(u"Loop off"_s, u"Loop start marked"_s, u"Looping"_s);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Loop off"_s);
    EXPECT_TRUE(accessible->state().checkable);
    button.click();
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Loop start marked"_s);
    EXPECT_TRUE(accessible->state().checkStateMixed);
    button.click();
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Looping"_s);
    EXPECT_TRUE(accessible->state().checked);
    EXPECT_EQ(button.toolTip(), u"Looping"_s);
}

TEST(StateButton, AMomentaryPressIsSentWithoutAStateChange)
{
    StateButton button;
    const QSignalSpy clicked(&button, &StateButton::clicked);
    const QSignalSpy changed(&button, &StateButton::stateChanged);
    button.click();
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(button.state(), 0);
}

TEST(StateButton, AssistiveProgramsPressTheButton)
{
    StateButton button;
    const QSignalSpy clicked(&button, &StateButton::clicked);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(accessible, nullptr);
    ASSERT_NE(accessible->actionInterface(), nullptr);
    ASSERT_TRUE(accessible->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::pressAction()));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicked.count(), 1);
}

} // namespace
