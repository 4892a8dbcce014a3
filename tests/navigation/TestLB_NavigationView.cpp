#include "navigation/NavigationFixture.h"
#include "support/HoldingOutput.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QTest>

#include <cmath>
#include <utility>

namespace lyrabox {
namespace {

using test::NavigationFixture;
using Frame = quint64;
constexpr Frame rate = NavigationFixture::rate;

struct NavigationView : testing::Test {
    NavigationFixture f;

    void click(int x) { QTest::mouseClick(&f.view, Qt::LeftButton, {}, QPoint(x, 20)); }
    void hover(int x)
    {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, 20), QPointF(x, 20), Qt::NoButton,
                         Qt::NoButton, {});
        QApplication::sendEvent(&f.view, &move);
    }
    QColor pixel(int x, int y = 37) { return f.view.grab().toImage().pixelColor(x, y); }
};

const QColor played(52, 152, 219);
const QColor ground(189, 195, 199);

bool isNear(const QColor &a, const QColor &b, int tolerance = 2)
{
    return std::abs(a.red() - b.red()) <= tolerance &&
           std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance;
}

TEST(PlayFraction, IsDividedInSinglePrecision)
{
    EXPECT_EQ(playFraction(1, 3), static_cast<double>(1.0F / 3.0F));
    EXPECT_NE(playFraction(1, 3), 1.0 / 3.0);
    EXPECT_TRUE(std::isnan(playFraction(0, 0)));
}

TEST(FrameAtPosition, RoundsTheTotalToSinglePrecision)
{
    constexpr Frame total = 16'777'217; // 2^24 + 1, which single precision rounds to 2^24.
    EXPECT_EQ(frameAtPosition(400.0, 400.0, total), 16'777'216U);
    EXPECT_EQ(frameAtPosition(-5.0, 400.0, total), 0U);
    EXPECT_EQ(frameAtPosition(0.0, 0.0, total), 0U);
}

TEST(HoverTextPosition, StaysTwentyTwoPointsFromBothEnds)
{
    EXPECT_EQ(hoverTextPosition(3.0, 400.0), 22.0);
    EXPECT_EQ(hoverTextPosition(398.0, 400.0), 378.0);
    EXPECT_EQ(hoverTextPosition(200.0, 400.0), 200.0);
}

TEST_F(NavigationView, ClickLeftOfTheLoopStartSeeksToTheLoopStart)
{
    f.play(100);
    f.setLoopStart(50 * rate);
    click(100);
    EXPECT_EQ(f.audio().currentFrame(), 50 * rate);
}

TEST_F(NavigationView, ClickRightOfTheLoopEndSeeksThere)
{
    f.play(100);
    f.setLoopStart(10 * rate);
    f.audio().setLoopEndFrame(20 * rate);
    f.audio().setIsLooping(true);
    click(300);
    EXPECT_EQ(f.audio().currentFrame(), 75 * rate);
}

TEST_F(NavigationView, ClickWithoutATrackSeeksToFrameZeroAndHoverShowsNothing)
{
    f.audio().setCurrentFrame(5000);
    hover(200);
    EXPECT_EQ(f.view.hoverText(), QString());
    EXPECT_FALSE(f.view.hoverTimer()->isActive());
    click(200);
    EXPECT_EQ(f.audio().currentFrame(), 0U);
}

TEST_F(NavigationView, SeekToTheFrameAfterTheLoopStartIsTheFirstThatIsNotClamped)
{
    f.play(100);
    constexpr Frame loopStart = 50 * rate;
    f.setLoopStart(loopStart);
    for (const auto &[asked, reached] :
         {std::pair(loopStart - 1, loopStart), std::pair(loopStart, loopStart),
          std::pair(loopStart + 1, loopStart + 1), std::pair(Frame{0}, loopStart)}) {
        f.audio().setCurrentFrame(70 * rate);
        f.view.seekToFrame(asked);
        EXPECT_EQ(f.audio().currentFrame(), reached) << asked;
    }
    // A loop start that is not set does not clamp.
    f.audio().setLoopStartIsSet(false);
    f.view.seekToFrame(loopStart - 1);
    EXPECT_EQ(f.audio().currentFrame(), loopStart - 1);
}

TEST_F(NavigationView, HoverShowsTheTimeUnderThePointer)
{
    f.play(100);
    hover(200);
    EXPECT_EQ(f.view.hoverText(), QStringLiteral("0:50"));
    EXPECT_EQ(f.view.hoverPosition(), 200.0);
    hover(4);
    EXPECT_EQ(f.view.hoverPosition(), 22.0);
    EXPECT_EQ(f.view.hoverText(), QStringLiteral("0:01"));
}

TEST_F(NavigationView, HoverTextIsEmptiedThreeSecondsAfterThePointerRests)
{
    f.play(100);
    hover(200);
    ASSERT_EQ(f.view.hoverText(), QStringLiteral("0:50"));
    EXPECT_EQ(f.view.hoverTimer()->interval(), 3000);
    EXPECT_TRUE(f.view.hoverTimer()->isSingleShot());
    ASSERT_TRUE(f.view.hoverTimer()->isActive());
    // Each move restarts the time.
    f.view.hoverTimer()->stop();
    hover(204);
    ASSERT_TRUE(f.view.hoverTimer()->isActive());
    ASSERT_EQ(f.view.hoverText(), QStringLiteral("0:51"));
    f.view.hoverTimer()->setInterval(0); // Stands for a pointer that has rested.
    EXPECT_TRUE(QTest::qWaitFor([this] { return f.view.hoverText().isEmpty(); }));
    EXPECT_FALSE(f.view.hoverTimer()->isActive());
}

TEST_F(NavigationView, LeavingEmptiesTheHoverText)
{
    f.play(100);
    hover(200);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&f.view, &leave);
    EXPECT_EQ(f.view.hoverText(), QString());
}

TEST_F(NavigationView, ShowsElapsedAndTotalTime)
{
    f.play(125);
    f.audio().setCurrentFrame(61 * rate);
    f.view.updateTimeDisplay();
    EXPECT_EQ(f.view.elapsedText(), QStringLiteral("1:01"));
    EXPECT_EQ(f.view.totalText(), QStringLiteral("2:05"));
}

TEST_F(NavigationView, RefreshesFourTimesASecondFromTheStart)
{
    f.play(10);
    f.view.awakeFromNib();
    EXPECT_TRUE(f.view.refreshTimer()->isActive());
    EXPECT_EQ(f.view.refreshTimer()->interval(), 250);
}

TEST_F(NavigationView, EndedTrackStartsTheNextOnTheNextTick)
{
    f.play(10);
    f.audio().setTrackHasEnded(true);
    f.view.updateTimeDisplay();
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
    EXPECT_FALSE(f.audio().trackHasEnded());
}

/// An output that still plays after the song has ended.
struct NavigationViewAtASongsEnd : NavigationView {
    NavigationViewAtASongsEnd()
    {
        engine::setAudioUnitFactory(test::withHoldingOutput(f.transport.audio.factory(), output));
        EXPECT_EQ(engine::buildAudioSystem(), 0);
        f.play(10);
        f.audio().setTrackHasEnded(true);
        output = {.isPlayingOut = true};
    }
    ~NavigationViewAtASongsEnd() override { engine::tearDownAudioSystem(); }

    test::HoldingOutput::Log output;
};

TEST_F(NavigationViewAtASongsEnd, NextSongOfTheQueueDoesNotCutOffTheSound)
{
    f.view.updateTimeDisplay();
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
    EXPECT_EQ(output.calls, std::vector<std::string>{"start"});
}

TEST_F(NavigationViewAtASongsEnd, ChosenSongCutsOffTheSound)
{
    f.queue.playTrack(f.list.at(2));
    ASSERT_FALSE(output.calls.empty());
    EXPECT_EQ(output.calls.front(), "stop");
}

TEST_F(NavigationViewAtASongsEnd, OutputIsHaltedAfterTheLastSongHasBeenHeard)
{
    f.play(10, 2);
    f.audio().setTrackHasEnded(true);
    output = {.isPlayingOut = true};
    for (int tick = 0; tick < 3; ++tick)
        f.view.updateTimeDisplay();
    EXPECT_EQ(f.playingTitle(), QString());
    EXPECT_TRUE(output.calls.empty());
    output.isPlayingOut = false;
    f.view.updateTimeDisplay();
    f.view.updateTimeDisplay();
    EXPECT_EQ(output.calls, std::vector<std::string>{"stop"});
}

TEST_F(NavigationView, PlayedPartIsBlueOnTheGrayBackground)
{
    f.play(100);
    f.audio().setCurrentFrame(50 * rate);
    f.view.updateTimeDisplay();
    f.now += 10000;
    EXPECT_TRUE(isNear(pixel(150), played)) << pixel(150).name().toStdString();
    EXPECT_TRUE(isNear(pixel(250), ground)) << pixel(250).name().toStdString();
}

TEST_F(NavigationView, PlayedPartBeforeTheLoopStartIsHalfTransparent)
{
    f.play(100);
    f.setLoopStart(25 * rate);
    f.audio().setCurrentFrame(75 * rate);
    f.view.updateTimeDisplay();
    f.now += 10000;
    const QColor half((played.red() + ground.red()) / 2, (played.green() + ground.green()) / 2,
                      (played.blue() + ground.blue()) / 2);
    EXPECT_TRUE(isNear(pixel(80), half)) << pixel(80).name().toStdString();
    EXPECT_TRUE(isNear(pixel(150), played)) << pixel(150).name().toStdString();
    EXPECT_TRUE(isNear(pixel(330), ground)) << pixel(330).name().toStdString();
}

TEST_F(NavigationView, WholePlayedPartIsHalfTransparentWhilePlayingBeforeTheLoopStart)
{
    f.play(100);
    f.setLoopStart(75 * rate);
    f.audio().setCurrentFrame(50 * rate);
    f.view.updateTimeDisplay();
    f.now += 10000;
    EXPECT_FALSE(isNear(pixel(190), played));
    EXPECT_FALSE(isNear(pixel(190), ground));
    EXPECT_TRUE(isNear(pixel(210), ground));
}

TEST_F(NavigationView, CornersAreRounded)
{
    f.play(100);
    QImage image(f.view.size(), QImage::Format_ARGB32);
    image.fill(Qt::magenta);
    f.view.setAttribute(Qt::WA_NoSystemBackground);
    f.view.render(&image, {}, {}, QWidget::RenderFlags());
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::magenta));
    EXPECT_EQ(image.pixelColor(399, 39), QColor(Qt::magenta));
    EXPECT_TRUE(isNear(image.pixelColor(200, 0), ground));
}

TEST_F(NavigationView, IsAnEmptyBarWithoutFrames)
{
    f.view.updateTimeDisplay();
    EXPECT_TRUE(isNear(pixel(80), ground));
    EXPECT_TRUE(isNear(pixel(399 - 80), ground));
}

TEST_F(NavigationView, BarGlidesFromOneRefreshToTheNext)
{
    f.play(100);
    f.now += 1000;
    f.audio().setCurrentFrame(rate);
    f.view.updateTimeDisplay();
    EXPECT_DOUBLE_EQ(f.view.displayedProgress(), 0.0);
    f.now += 125;
    EXPECT_NEAR(f.view.displayedProgress(), 0.005, 1e-6);
    f.now += 125;
    EXPECT_NEAR(f.view.displayedProgress(), 0.01, 1e-6);
}

TEST_F(NavigationView, SeekIsShownAtOnce)
{
    f.play(100);
    f.view.seekToFrame(50 * rate);
    EXPECT_NEAR(f.view.displayedProgress(), 0.5, 1e-6);
}

TEST_F(NavigationView, PaintsNothingWhileNothingChanges)
{
    f.play(100);
    f.view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f.view));
    QApplication::processEvents();
    const quint64 painted = f.view.paintCount();
    for (int tick = 0; tick < 20; ++tick) {
        f.now += 250;
        f.view.updateTimeDisplay();
        QApplication::processEvents();
    }
    EXPECT_EQ(f.view.paintCount(), painted);
}

TEST_F(NavigationView, KeysSeekByFiveAndThirtySecondsAndToBothEnds)
{
    f.play(100);
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(&f.view, key);
        return f.audio().currentSeconds();
    };
    EXPECT_EQ(press(Qt::Key_Right), 5);
    EXPECT_EQ(press(Qt::Key_PageUp), 35);
    EXPECT_EQ(press(Qt::Key_Left), 30);
    EXPECT_EQ(press(Qt::Key_PageDown), 0);
    EXPECT_EQ(press(Qt::Key_Left), 0);
    EXPECT_EQ(press(Qt::Key_Up), 5);
    EXPECT_EQ(press(Qt::Key_End), 99);
    EXPECT_EQ(press(Qt::Key_Home), 0);
}

TEST_F(NavigationView, KeysNeverSeekPastTheLastSecond)
{
    f.play(20);
    QTest::keyClick(&f.view, Qt::Key_PageUp);
    EXPECT_EQ(f.audio().currentSeconds(), 19);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
}

TEST_F(NavigationView, ForwardKeyNearTheEndNeverGoesBack)
{
    f.play(20);
    for (const Frame frame : {20 * rate - 2000, 19 * rate + 1, 19 * rate}) {
        f.audio().setCurrentFrame(frame);
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_PageUp}) {
            QTest::keyClick(&f.view, key);
            EXPECT_EQ(f.audio().currentFrame(), frame);
        }
    }
    // Going back works as anywhere else.
    f.audio().setCurrentFrame(20 * rate - 2000);
    QTest::keyClick(&f.view, Qt::Key_Left);
    EXPECT_EQ(f.audio().currentFrame(), 15 * rate - 2000);
}

TEST_F(NavigationView, ForwardKeyWorksUpToTheLastSecondOfASongWithAFractionalLength)
{
    f.play(20);
    f.transport.song->frames = 20 * rate + 40000;
    f.transport.load(f.list.front());
    f.audio().setCurrentFrame(19 * rate + 20000);
    QTest::keyClick(&f.view, Qt::Key_Right);
    EXPECT_GE(f.audio().currentFrame(), 19 * rate + 20000);
}

TEST_F(NavigationView, KeysDoNotSeekBeforeTheLoop)
{
    f.play(100);
    f.view.seekToSecond(50.0);
    f.setLoopStart(48 * 44100);
    QTest::keyClick(&f.view, Qt::Key_Left);
    EXPECT_EQ(f.audio().currentSeconds(), 48);
}

TEST_F(NavigationView, KeysWithoutASongDoNothing)
{
    QTest::keyClick(&f.view, Qt::Key_Right);
    f.view.seekBySeconds(-5.0);
    EXPECT_EQ(f.audio().currentFrame(), 0U);
}

} // namespace
} // namespace lyrabox
