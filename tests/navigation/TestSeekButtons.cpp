#include "navigation/NavigationFixture.h"
#include "navigation/TransportView.h"
#include "platform/ui/Popover.h"
#include "support/ServerKey.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>
#include <QTreeView>

namespace lyrabox {
namespace {

using test::NavigationFixture;
using test::ServerKey;
constexpr quint64 rate = NavigationFixture::rate;
constexpr quint64 mouseLimit = rate * 4; // the sample rate times the four bytes of a frame

struct SeekButtons : testing::Test {
    NavigationFixture f;

    void press(QWidget &button) { QTest::mousePress(&button, Qt::LeftButton); }
    void release(QWidget &button) { QTest::mouseRelease(&button, Qt::LeftButton); }

    static bool sendKey(SeekButton &button, int key, bool repeat = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeat);
        return button.performKeyEquivalent(&event);
    }
    void releaseKey(int key, bool repeat = false)
    {
        QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier, QString(), repeat);
        QApplication::sendEvent(&f.view, &event);
    }
};

TEST_F(SeekButtons, DelayAndIntervalAreReadWhenTheInterfaceIsLoaded)
{
    EXPECT_EQ(f.forward.theDelay(), 0.4F);
    EXPECT_EQ(f.forward.theInterval(), 0.2F);
    f.play(100);
    press(f.forward);
    EXPECT_DOUBLE_EQ(f.forwardEvents.delay, static_cast<double>(0.4F));
    EXPECT_DOUBLE_EQ(f.forwardEvents.period, 0.20000000298023224);
    release(f.forward);
}

TEST_F(SeekButtons, ShortForwardClickStartsTheNextTrack)
{
    f.play(100);
    press(f.forward);
    EXPECT_TRUE(f.forward.isHighlighted());
    release(f.forward);
    EXPECT_FALSE(f.forward.isHighlighted());
    EXPECT_FALSE(f.forwardEvents.running);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
}

TEST_F(SeekButtons, ForwardHoldStepsOneSecondAndNeverStartsTheNextTrack)
{
    f.play(100);
    press(f.forward);
    for (int i = 0; i < 5; ++i)
        f.forwardEvents.event();
    EXPECT_EQ(f.audio().currentFrame(), 5 * rate);
    EXPECT_EQ(f.forward.clickCount(), 5U);
    for (int i = 0; i < 500; ++i)
        f.forwardEvents.event();
    release(f.forward);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
}

TEST_F(SeekButtons, ForwardHoldByMouseStopsWhereTheRemainingFramesReachRateTimesBytes)
{
    f.play(100);
    press(f.forward);
    f.audio().setCurrentFrame(f.audio().totalFrames() - mouseLimit - 1);
    f.forwardEvents.event();
    EXPECT_EQ(f.audio().currentFrame(), f.audio().totalFrames() - mouseLimit - 1 + rate);
    f.audio().setCurrentFrame(f.audio().totalFrames() - mouseLimit);
    f.forwardEvents.event();
    EXPECT_EQ(f.audio().currentFrame(), f.audio().totalFrames() - mouseLimit);
    release(f.forward);
}

TEST_F(SeekButtons, ForwardHoldByKeyStopsOneSecondBeforeTheEnd)
{
    f.play(100);
    EXPECT_TRUE(sendKey(f.forward, Qt::Key_Right));
    f.audio().setCurrentFrame(f.audio().totalFrames() - rate - 1);
    f.forwardEvents.event();
    EXPECT_EQ(f.audio().currentFrame(), f.audio().totalFrames() - 1);
    f.audio().setCurrentFrame(f.audio().totalFrames() - rate);
    f.forwardEvents.event();
    EXPECT_EQ(f.audio().currentFrame(), f.audio().totalFrames() - rate);
    releaseKey(Qt::Key_Right);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
}

TEST_F(SeekButtons, BackHoldEndsAtTheStartOfTheTrack)
{
    f.play(100);
    f.audio().setCurrentFrame(rate + rate / 2);
    press(f.back);
    f.backEvents.event();
    EXPECT_EQ(f.audio().currentFrame(), rate / 2);
    EXPECT_TRUE(f.back.isPressing());
    f.backEvents.event();
    EXPECT_EQ(f.audio().currentFrame(), 0U);
    EXPECT_FALSE(f.back.isPressing());
    EXPECT_FALSE(f.backEvents.running);
    EXPECT_FALSE(f.back.isHighlighted());
}

TEST_F(SeekButtons, BackHoldEndsAtTheLoopStart)
{
    f.play(100);
    f.setLoopStart(10 * rate);
    f.audio().setCurrentFrame(12 * rate);
    press(f.back);
    f.backEvents.event();
    EXPECT_EQ(f.audio().currentFrame(), 11 * rate);
    f.backEvents.event();
    EXPECT_EQ(f.audio().currentFrame(), 10 * rate);
    EXPECT_FALSE(f.back.isPressing());
}

TEST_F(SeekButtons, NoClickFollowsAHoldThatEndedByItself)
{
    f.play(100, 1);
    press(f.back);
    f.backEvents.event();
    release(f.back);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
}

TEST_F(SeekButtons, BackClickInTheFirstSecondsPlaysThePreviousTrack)
{
    f.play(100, 1);
    f.audio().setCurrentFrame(4 * rate - 1);
    press(f.back);
    release(f.back);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
}

TEST_F(SeekButtons, BackClickFromTheFourthSecondOnRestartsTheTrack)
{
    f.play(100, 1);
    f.audio().setCurrentFrame(4 * rate);
    press(f.back);
    release(f.back);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
    EXPECT_EQ(f.audio().currentFrame(), 0U);
}

TEST_F(SeekButtons, BackClickOnTheFirstTrackRestartsIt)
{
    f.play(100, 0);
    f.audio().setCurrentFrame(rate);
    press(f.back);
    release(f.back);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
    EXPECT_EQ(f.audio().currentFrame(), 0U);
}

TEST_F(SeekButtons, BackClickWithALoopStartGoesToItAndNeverToThePreviousTrack)
{
    f.play(100, 1);
    f.setLoopStart(rate);
    f.audio().setCurrentFrame(2 * rate);
    press(f.back);
    release(f.back);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
    EXPECT_EQ(f.audio().currentFrame(), rate);
}

TEST_F(SeekButtons, AnotherKeyIsNotHandled)
{
    f.play(100);
    EXPECT_FALSE(sendKey(f.forward, Qt::Key_Left));
    EXPECT_FALSE(f.forward.isPressing());
}

TEST_F(SeekButtons, TheRightKeyOnADisabledButtonIsConsumedWithoutEffect)
{
    f.play(100);
    f.forward.setEnabled(false);
    EXPECT_TRUE(sendKey(f.forward, Qt::Key_Right));
    EXPECT_FALSE(f.forward.isPressing());
    press(f.forward);
    EXPECT_FALSE(f.forward.isPressing());
}

TEST_F(SeekButtons, AutoRepeatCountsAsHoldingTheKey)
{
    f.play(100);
    EXPECT_TRUE(sendKey(f.forward, Qt::Key_Right));
    f.forwardEvents.event();
    releaseKey(Qt::Key_Right, true);
    EXPECT_TRUE(sendKey(f.forward, Qt::Key_Right, true));
    EXPECT_TRUE(f.forward.isPressing());
    EXPECT_EQ(f.forward.clickCount(), 1U);
    releaseKey(Qt::Key_Right);
    EXPECT_FALSE(f.forward.isPressing());
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
}

/// A window with the transport area, on the screen, and a key of the display server's.
struct HeldTransportKey : testing::TestWithParam<ServerKey::Way> {
    HeldTransportKey()
    {
        transport.setButtons(&f.back, &f.forward);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        transport.setFocus();
    }

    NavigationFixture f;
    QWidget window;
    TransportView transport{&window};
    ServerKey key{GetParam()};
};

TEST_P(HeldTransportKey, IsOnePressFromItsFirstToItsLastEvent)
{
    f.play(100);
    key.press(Qt::Key_Right);
    for (int i = 0; i < 5; ++i) {
        key.repeat();
        EXPECT_TRUE(f.forward.isPressing());
    }
    f.forwardEvents.event();
    key.repeat(5);
    EXPECT_EQ(f.forward.clickCount(), 1U);
    key.release();
    EXPECT_FALSE(f.forward.isPressing());
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
    key.hold(Qt::Key_Right);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B")) << "too short for a step";
}

TEST_P(HeldTransportKey, DoesNotGoOnIntoThePreviousSongsFromTheStartOfTheSong)
{
    f.play(100, 2);
    f.audio().setCurrentFrame(rate + rate / 2);
    key.press(Qt::Key_Left);
    key.repeat(3);
    f.backEvents.event();
    f.backEvents.event();
    EXPECT_FALSE(f.back.isPressing()) << "the start of the song ends the press";
    for (int i = 0; i < 5; ++i) {
        key.repeat();
        EXPECT_FALSE(f.back.isPressing());
    }
    key.release();
    EXPECT_EQ(f.playingTitle(), QStringLiteral("C"));
    EXPECT_EQ(f.audio().currentFrame(), 0U);
    key.press(Qt::Key_Left);
    key.release();
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B")) << "a new press is one";
}

TEST_P(HeldTransportKey, WorksInAnAddedWindowUntilThatIsLeft)
{
    f.play(100);
    QWidget other;
    transport.addWindow(&other);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    key.press(Qt::Key_Right);
    key.repeat(2);
    EXPECT_TRUE(f.forward.isPressing());
    window.activateWindow(); // the release goes there, or to another program
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(f.forward.isPressing());
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
    key.release();
}

INSTANTIATE_TEST_SUITE_P(Every, HeldTransportKey, testing::ValuesIn(test::everyWay),
                         [](const auto &way) { return test::nameOfWay(way.param); });

/// Which song plays after a short press of the right arrow key while `focus` has the keyboard.
struct TransportKeyFocus : SeekButtons {
    QString titleAfterPress(QWidget &window, QWidget &focus)
    {
        f.play(100);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        focus.setFocus();
        EXPECT_TRUE(focus.hasFocus());
        QTest::keyClick(window.windowHandle(), Qt::Key_Right);
        return f.playingTitle();
    }
};

TEST_F(TransportKeyFocus, ALeafOfATreeKeepsTheArrowsThatItHasNoUseFor)
{
    QWidget window;
    TransportView transport(&window);
    transport.setButtons(&f.back, &f.forward);
    QWidget pane(&window);
    QTreeView tree(&pane);
    QStandardItemModel model;
    model.appendRow(new QStandardItem(QStringLiteral("Leaf")));
    tree.setModel(&model);
    tree.setCurrentIndex(model.index(0, 0));
    EXPECT_EQ(titleAfterPress(window, tree), QStringLiteral("A"));
}

TEST_F(TransportKeyFocus, APopoverKeepsTheArrows)
{
    QWidget window;
    window.resize(400, 300);
    TransportView transport(&window);
    transport.setButtons(&f.back, &f.forward);
    QWidget anchor(&window);
    Popover popover(&window);
    auto *content = new QWidget;
    content->resize(100, 40);
    auto *button = new QPushButton(content);
    popover.setContentView(content);
    window.show();
    popover.showRelativeTo(&anchor, Popover::Edge::MaxX);
    EXPECT_EQ(titleAfterPress(window, *button), QStringLiteral("A"));
}

TEST_F(TransportKeyFocus, AnotherWindowKeepsTheArrowsUnlessItIsAdded)
{
    QWidget window;
    TransportView transport(&window);
    transport.setButtons(&f.back, &f.forward);
    QWidget other;
    QTableView table(&other);
    EXPECT_EQ(titleAfterPress(other, table), QStringLiteral("A"));
    transport.addWindow(&other);
    EXPECT_EQ(titleAfterPress(other, table), QStringLiteral("B"));
    QLineEdit field(&other);
    field.show();
    EXPECT_EQ(titleAfterPress(other, field), QStringLiteral("A"));
}

TEST_F(SeekButtons, HoldSwallowsOtherInput)
{
    f.play(100);
    QLineEdit field;
    press(f.forward);
    QTest::keyClick(&field, Qt::Key_A);
    EXPECT_EQ(field.text(), QString());
    release(f.forward);
    QTest::keyClick(&field, Qt::Key_A);
    EXPECT_EQ(field.text(), QStringLiteral("a"));
}

TEST_F(SeekButtons, PressEndsWithoutAClickWhenTheButtonIsDisabled)
{
    f.play(100);
    press(f.forward);
    f.forward.setEnabled(false);
    EXPECT_FALSE(f.forward.isPressing());
    EXPECT_FALSE(f.forwardEvents.running);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
}

TEST_F(SeekButtons, PressEndsWithoutAClickWhenTheWindowIsLeftOrClosed)
{
    f.play(100);
    press(f.forward);
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(&f.forward, &deactivate);
    EXPECT_FALSE(f.forward.isPressing());
    press(f.forward);
    QEvent close(QEvent::Close);
    QApplication::sendEvent(&f.view, &close);
    EXPECT_FALSE(f.forward.isPressing());
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
}

TEST(TransportKeys, AreNeverTakenFromATextFieldInUse)
{
    QLineEdit field;
    EXPECT_EQ(focusKind(&field), FocusKind::Text);
    for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Space})
        EXPECT_FALSE(transportTakesKey(key, FocusKind::Text));
}

TEST(TransportKeys, LeaveSpaceToAButtonAndArrowsToASlider)
{
    QCheckBox button;
    LB_Slider slider;
    EXPECT_EQ(focusKind(&button), FocusKind::Button);
    EXPECT_EQ(focusKind(&slider), FocusKind::Arrows);
    EXPECT_FALSE(transportTakesKey(Qt::Key_Space, FocusKind::Button));
    EXPECT_TRUE(transportTakesKey(Qt::Key_Left, FocusKind::Button));
    EXPECT_FALSE(transportTakesKey(Qt::Key_Left, FocusKind::Arrows));
    EXPECT_TRUE(transportTakesKey(Qt::Key_Space, FocusKind::Arrows));
}

TEST(TransportKeys, BelongToTheTransportOtherwise)
{
    EXPECT_EQ(focusKind(nullptr), FocusKind::Other);
    EXPECT_TRUE(transportTakesKey(Qt::Key_Left, FocusKind::Other));
}

TEST_F(SeekButtons, TransportAreaHandsTheArrowKeysToTheButtons)
{
    f.play(100);
    QWidget window;
    TransportView transport(&window);
    auto *field = new QLineEdit(&window);
    transport.setButtons(&f.back, &f.forward);
    QTest::keyPress(&transport, Qt::Key_Right);
    EXPECT_TRUE(f.forward.isPressing());
    QTest::keyRelease(&transport, Qt::Key_Right);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
    QTest::keyClick(field, Qt::Key_Right);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
}

TEST_F(SeekButtons, AnAssistiveProgramsPressIsAShortClick)
{
    f.play(100);
    f.forward.click();
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
}

} // namespace
} // namespace lyrabox
