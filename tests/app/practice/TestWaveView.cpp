#include "PaneFixture.h"
#include "app/practice/WaveColors.h"
#include "support/DrawnWidget.h"

#include <QAccessible>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheWave : public testing::Test, protected PaneFixture {
protected:
    TheWave() { showSong(); }

    int countOf(const QColor &color, const QRect &part = {})
    {
        const QImage image = drawn(wave());
        const QRect area = part.isNull() ? image.rect() : part;
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x)
                count += image.pixelColor(x, y) == color ? 1 : 0;
        }
        return count;
    }
};

TEST_F(TheWave, AClickSeeksToItsPlace)
{
    const QPoint place = at(5.0 * rate);
    QTest::mouseClick(&wave(), Qt::LeftButton, {}, place);
    ASSERT_EQ(seeks.size(), 1);
    EXPECT_NEAR(static_cast<double>(seeks.first()), 5.0 * rate, wave().scale().framesPerPoint);
    EXPECT_FALSE(audio().loop().has_value());
}

TEST_F(TheWave, AClickOutsideTheSongSeeksToItsNearestEnd)
{
    const QPoint place = at(-1.0 * rate);
    ASSERT_GT(place.x(), 0);
    QTest::mouseClick(&wave(), Qt::LeftButton, {}, place);
    EXPECT_EQ(seeks, QList<quint64>{0});
}

TEST_F(TheWave, ADragMakesALoopThatPlaysFromItsStart)
{
    const quint64 from = frameAt(400);
    const quint64 to = frameAt(600);
    drag({400, 100}, {600, 100}, Qt::ShiftModifier);
    const auto loop = audio().loop();
    ASSERT_TRUE(loop.has_value());
    EXPECT_NEAR(static_cast<double>(loop->start), static_cast<double>(from), 1.0);
    EXPECT_NEAR(static_cast<double>(loop->end), static_cast<double>(to), 1.0);
    EXPECT_EQ(audio().currentFrame(), loop->start);
    EXPECT_EQ(transport.loopButton->state(), 1);
    EXPECT_TRUE(seeks.isEmpty());
}

TEST_F(TheWave, TheLoopSoundsOnlyWhenTheButtonIsLetGo)
{
    QTest::mousePress(&wave(), Qt::LeftButton, {}, {400, 100});
    move({600, 100});
    EXPECT_FALSE(audio().loop().has_value());
    EXPECT_TRUE(wave().shownLoop().has_value());
    QTest::mouseRelease(&wave(), Qt::LeftButton, {}, {600, 100});
    EXPECT_TRUE(audio().loop().has_value());
}

TEST_F(TheWave, TheEndsOfALoopSnapToZeroCrossingsUnlessShiftIsHeld)
{
    const SongSamples samples = pane->peaks().samples();
    const auto crosses = [&](quint64 frame) {
        return samples.left[frame - 1] * samples.left[frame] <= 0.0F;
    };
    wave().zoomIn();
    drag({400, 100}, {601, 100});
    const auto snapped = audio().loop();
    ASSERT_TRUE(snapped.has_value());
    EXPECT_TRUE(crosses(snapped->start));
    EXPECT_TRUE(crosses(snapped->end));
    EXPECT_NEAR(static_cast<double>(snapped->start), static_cast<double>(frameAt(400)),
                6.0 * wave().scale().framesPerPoint + 1.0);
}

TEST_F(TheWave, AnEndOfTheLoopIsDraggedAndHeard)
{
    audio().setLoop({2 * rate, 8 * rate});
    const QPoint end = at(8.0 * rate);
    drag(end, end + QPoint(50, 0), Qt::ShiftModifier);
    const auto loop = audio().loop();
    ASSERT_TRUE(loop.has_value());
    EXPECT_EQ(loop->start, 2 * rate);
    EXPECT_NEAR(static_cast<double>(loop->end), 8.0 * rate + 50.0 * wave().scale().framesPerPoint,
                2.0);
    EXPECT_EQ(audio().currentFrame(), loop->end - rate * 3 / 2);
}

TEST_F(TheWave, DraggingTheEndOfAKeptLoopEditsItAndANewLoopDoesNot)
{
    const PracticeLoop kept{.from = 2 * rate, .to = 8 * rate};
    ASSERT_TRUE(practice->store().apply({PutLoop{kept}}));
    practice->play(kept.id);
    const QPoint end = at(8.0 * rate);
    drag(end, end + QPoint(50, 0), Qt::ShiftModifier);
    const auto loop = audio().loop();
    ASSERT_TRUE(loop.has_value());
    EXPECT_GT(loop->end, 8 * rate);
    EXPECT_EQ(practice->record().loop(kept.id)->to, loop->end);
    EXPECT_EQ(practice->calledUp(), kept.id);
    drag(at(9.0 * rate), at(10.0 * rate), Qt::ShiftModifier);
    EXPECT_FALSE(practice->calledUp());
    EXPECT_EQ(practice->record().loop(kept.id)->to, loop->end);
    EXPECT_EQ(practice->record().loops.size(), 1U);
}

TEST_F(TheWave, ABracketCarriesTheWholeLoop)
{
    audio().setLoop({2 * rate, 5 * rate});
    const QPoint middle = at(3.5 * rate, 8);
    drag(middle, middle + QPoint(100, 0), Qt::ShiftModifier);
    const auto loop = audio().loop();
    ASSERT_TRUE(loop.has_value());
    EXPECT_EQ(loop->end - loop->start, 3 * rate);
    EXPECT_GT(loop->start, 2 * rate);
}

TEST_F(TheWave, TheWheelScrollsAndStopsFollowingUntilASeek)
{
    const double before = wave().scale().first;
    QSignalSpy following(&wave(), &WaveView::followingChanged);
    turnWheel(-1, {500, 100});
    EXPECT_GT(wave().scale().first, before);
    EXPECT_FALSE(wave().isFollowing());
    audio().setCurrentFrame(10 * rate);
    EXPECT_TRUE(wave().isFollowing());
    EXPECT_EQ(following.size(), 2);
}

TEST_F(TheWave, CtrlAndTheWheelZoomAboutThePointer)
{
    const WaveScale before = wave().scale();
    turnWheel(1, {700, 100}, Qt::ControlModifier);
    EXPECT_LT(wave().scale().framesPerPoint, before.framesPerPoint);
    EXPECT_NEAR(wave().scale().frameAt(700), before.frameAt(700), 1.0);
}

TEST_F(TheWave, TheLineStaysInItsPlaceWhileTheSongPlays)
{
    audio().setIsRunning(true);
    EXPECT_TRUE(wave().isMoving());
    for (int step = 0; step < 5; ++step) {
        transport.audio.pull(rate / 5);
        wave().showPosition();
        EXPECT_NEAR(wave().scale().xOf(wave().line()), 0.38 * wave().width(), 1.0);
    }
    EXPECT_GT(wave().line(), 0.5 * rate);
}

TEST_F(TheWave, AWaveThatWasScrolledStaysWhileTheLineMoves)
{
    audio().setIsRunning(true);
    turnWheel(-1, {500, 100});
    const WaveScale before = wave().scale();
    transport.audio.pull(rate);
    wave().showPosition();
    EXPECT_EQ(wave().scale(), before);
    wave().setFollowing(true);
    EXPECT_NEAR(wave().scale().xOf(wave().line()), 0.38 * wave().width(), 1.0);
}

TEST_F(TheWave, RestsWhileNothingPlaysOrItIsHidden)
{
    EXPECT_FALSE(wave().isMoving());
    audio().setIsRunning(true);
    EXPECT_TRUE(wave().isMoving());
    pane->hide();
    EXPECT_FALSE(wave().isMoving());
    pane->show();
    EXPECT_TRUE(wave().isMoving());
    audio().setIsRunning(false);
    EXPECT_FALSE(wave().isMoving());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(pane.get()));
    QCoreApplication::processEvents();
    const quint64 painted = wave().paintCount();
    for (int turn = 0; turn < 5; ++turn) {
        wave().showPosition();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(wave().paintCount(), painted);
}

TEST_F(TheWave, ZoomsToTheLoopAndBack)
{
    const WaveScale before = wave().scale();
    pane->perform(PracticeCommand::ZoomToLoop);
    EXPECT_EQ(wave().scale(), before); // no loop
    audio().setLoop({2 * rate, 4 * rate});
    pane->perform(PracticeCommand::ZoomToLoop);
    EXPECT_NEAR(wave().scale().xOf(2.0 * rate), 0.08 * wave().width(), 1.0);
    EXPECT_NEAR(wave().scale().xOf(4.0 * rate), 0.92 * wave().width(), 1.0);
    pane->perform(PracticeCommand::ZoomToLoop);
    EXPECT_DOUBLE_EQ(wave().scale().framesPerPoint, before.framesPerPoint);
}

TEST_F(TheWave, ShowsTheWholeSong)
{
    pane->perform(PracticeCommand::WholeSong);
    EXPECT_DOUBLE_EQ(wave().scale().xOf(0.0), 0.0);
    EXPECT_NEAR(wave().scale().xOf(30.0 * rate), wave().width(), 1e-6);
}

TEST_F(TheWave, IsInColorInsideTheLoopAndGrayOutside)
{
    pane->perform(PracticeCommand::WholeSong);
    EXPECT_EQ(countOf(waveColors::gray), 0);
    audio().setLoop({10 * rate, 20 * rate});
    const int third = wave().width() / 3;
    const int height = wave().height();
    EXPECT_GT(countOf(waveColors::gray, {0, 0, third - 8, height}), 0);
    EXPECT_EQ(countOf(waveColors::gray, {third + 8, 0, third - 16, height}), 0);
    EXPECT_GT(countOf(waveColors::loopBackground, {third + 8, 0, third - 16, height}), 0);
    EXPECT_EQ(countOf(waveColors::loopBackground, {0, 0, third - 8, height}), 0);
}

TEST_F(TheWave, KeepsItsColumnsWhileItMoves)
{
    audio().setLoop({rate, 25 * rate});
    QTest::mouseClick(&wave(), Qt::LeftButton, {}, {500, 100});
    wave().showFrame(10.0 * rate);
    const int top = 60; // below the head of the line
    const QRect part(700, top, 200, wave().height() - top - 30);
    const QImage before = drawn(wave()).copy(part);
    const double framesPerPoint = wave().scale().framesPerPoint;
    wave().showFrame(10.0 * rate + 37.0 * framesPerPoint);
    EXPECT_EQ(drawn(wave()).copy(part.translated(-37, 0)), before);
}

TEST_F(TheWave, ADragDoesNotMoveWithTheWave)
{
    audio().setIsRunning(true);
    QTest::mousePress(&wave(), Qt::LeftButton, {}, {500, 100});
    const WaveScale before = wave().scale();
    transport.audio.pull(rate);
    wave().showPosition();
    EXPECT_EQ(wave().scale(), before);
    QTest::mouseRelease(&wave(), Qt::LeftButton, {}, {500, 100});
}

TEST_F(TheWave, TellsAssistiveTechnologiesItsPlaceAndItsLoop)
{
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&wave());
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->role(), QAccessible::Slider);
    EXPECT_EQ(face->text(QAccessible::Name), u"Wave"_s);
    ASSERT_NE(face->valueInterface(), nullptr);
    EXPECT_DOUBLE_EQ(face->valueInterface()->maximumValue().toDouble(), 30.0);
    face->valueInterface()->setCurrentValue(12.0);
    EXPECT_EQ(seeks, QList<quint64>{12 * rate});
    audio().setLoop({rate, 2 * rate});
    EXPECT_TRUE(face->text(QAccessible::Value).contains(u"0:01.000 to 0:02.000"_s))
        << face->text(QAccessible::Value).toStdString();
}

TEST_F(TheWave, AnotherSongBeginsAtItsUsualScale)
{
    const double usual = wave().scale().framesPerPoint;
    pane->perform(PracticeCommand::WholeSong);
    turnWheel(3, {300, 100}, Qt::ControlModifier);
    QSignalSpy changed(&pane->peaks(), &SongPeaks::songChanged);
    transport.load(TransportFixture::track(u"B"_s));
    ASSERT_TRUE(changed.size() > 0 || changed.wait());
    EXPECT_DOUBLE_EQ(wave().scale().framesPerPoint, usual);
    EXPECT_TRUE(wave().isFollowing());
}

} // namespace
