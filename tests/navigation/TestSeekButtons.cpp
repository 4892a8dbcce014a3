#include "navigation/NavigationFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace lyrabox {
namespace {

using test::NavigationFixture;
constexpr quint64 rate = NavigationFixture::rate;
constexpr quint64 mouseLimit = rate * 4; // The sample rate times the four bytes of a frame.

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

TEST_F(SeekButtons, AnAssistiveProgramsPressIsAShortClick)
{
    f.play(100);
    f.forward.click();
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
}

} // namespace
} // namespace lyrabox
