#include "PaneFixture.h"
#include "StoreFixture.h"
#include "app/practice/PracticeLane.h"
#include "app/practice/WaveColors.h"
#include "support/DrawnWidget.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A wave with a lane. The song lasts 30 s.
class TheLaneOfAWave : public testing::Test, protected PaneFixture, protected StoreFixture {
protected:
    TheLaneOfAWave()
    {
        showSong();
        wave().showWholeSong();
    }

    QPoint placeOf(double second, int y = 10) { return at(second * rate, y); }
    double frameOfPoint() { return wave().scale().framesPerPoint; }

    void dragOn(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = Qt::ShiftModifier)
    {
        QTest::mousePress(&lane, Qt::LeftButton, modifiers, from);
        for (const QPoint point : {(from + to) / 2, to}) {
            QMouseEvent event(QEvent::MouseMove, point, lane.mapToGlobal(point), Qt::NoButton,
                              Qt::LeftButton, modifiers);
            QCoreApplication::sendEvent(&lane, &event);
        }
        QTest::mouseRelease(&lane, Qt::LeftButton, modifiers, to);
    }

    PracticeLane &lane = *new PracticeLane(&wave(), &pane->peaks(), &store);
    QSignalSpy played{&lane, &PracticeLane::playRequested};
    QSignalSpy sought{&lane, &PracticeLane::seekRequested};
};

TEST_F(TheLaneOfAWave, AClickOnAMarkerGoesThereAndOneOnABracketPlaysTheLoop)
{
    const PracticeId loop = addLoop(u"a"_s, 5.0, 10.0);
    const PracticeId marker = addMarker(u"m"_s, 20.0);
    QTest::mouseClick(&lane, Qt::LeftButton, {}, placeOf(20.0) + QPoint(3, 0));
    ASSERT_EQ(sought.size(), 1);
    EXPECT_EQ(sought.first().first().value<PracticeId>(), marker);
    QTest::mouseClick(&lane, Qt::LeftButton, {}, placeOf(7.0));
    ASSERT_EQ(played.size(), 1);
    EXPECT_EQ(played.first().first().value<PracticeId>(), loop);
    EXPECT_TRUE(seeks.isEmpty());
}

TEST_F(TheLaneOfAWave, AClickBesideEverythingSeeksAsInTheWave)
{
    addLoop(u"a"_s, 5.0, 10.0);
    QTest::mouseClick(&lane, Qt::LeftButton, {}, placeOf(15.0));
    ASSERT_EQ(seeks.size(), 1);
    EXPECT_NEAR(static_cast<double>(seeks.first()), 15.0 * rate, frameOfPoint());
}

TEST_F(TheLaneOfAWave, DraggingAMarkerMovesItAsOneStep)
{
    const PracticeId marker = addMarker(u"m"_s, 20.0);
    const std::uint64_t before = store.record().marker(marker)->at;
    dragOn(placeOf(20.0) + QPoint(3, 0), placeOf(23.0) + QPoint(3, 0));
    EXPECT_NEAR(static_cast<double>(store.record().marker(marker)->at), 23.0 * rate,
                frameOfPoint());
    EXPECT_EQ(sought.size(), 0);
    EXPECT_TRUE(store.undo());
    EXPECT_EQ(store.record().marker(marker)->at, before);
}

TEST_F(TheLaneOfAWave, AMarkerSnapsToAnAttackUnlessShiftIsHeld)
{
    const PracticeId marker = addMarker(u"m"_s, 20.2);
    const QPoint from = placeOf(20.2) + QPoint(3, 0);
    // Every half second a note begins.
    const QPoint to = from + QPoint(placeOf(23.03).x() - placeOf(20.2).x(), 0);
    dragOn(from, to, Qt::ShiftModifier);
    const auto free = static_cast<double>(store.record().marker(marker)->at);
    EXPECT_NEAR(free, 23.03 * rate, frameOfPoint());
    store.undo();
    dragOn(from, to, {});
    EXPECT_NEAR(static_cast<double>(store.record().marker(marker)->at), 23.0 * rate, 0.003 * rate);
}

TEST_F(TheLaneOfAWave, DraggingAnEndOfABracketEditsThatLoopOnly)
{
    const PracticeId loop = addLoop(u"a"_s, 5.0, 10.0);
    dragOn(placeOf(10.0), placeOf(12.0));
    EXPECT_EQ(store.record().loop(loop)->from, frames(5.0));
    EXPECT_NEAR(static_cast<double>(store.record().loop(loop)->to), 12.0 * rate, frameOfPoint());
    EXPECT_FALSE(audio().loop().has_value());
    EXPECT_EQ(played.size(), 0);
    dragOn(placeOf(7.0), placeOf(8.0));
    EXPECT_NEAR(static_cast<double>(store.record().loop(loop)->from), 6.0 * rate, frameOfPoint());
    EXPECT_NEAR(static_cast<double>(store.record().loop(loop)->to), 13.0 * rate,
                2.0 * frameOfPoint());
}

TEST_F(TheLaneOfAWave, TheBracketOfTheLoopThatSoundsIsDraggedAsBefore)
{
    const PracticeId loop = addLoop(u"a"_s, 5.0, 10.0);
    audio().setLoop({frames(5.0), frames(10.0)});
    lane.setCalledUp(loop);
    dragOn(placeOf(7.0), placeOf(8.0));
    ASSERT_TRUE(audio().loop().has_value());
    EXPECT_NEAR(static_cast<double>(audio().loop()->start), 6.0 * rate, frameOfPoint());
    EXPECT_EQ(played.size(), 0);
}

TEST_F(TheLaneOfAWave, TheWaveDoesNotMoveUnderADrag)
{
    addMarker(u"m"_s, 2.0);
    wave().zoomIn();
    transport.controller->setIsRunning(true);
    transport.controller->setCurrentFrame(rate);
    const WaveScale before = wave().scale();
    QTest::mousePress(&lane, Qt::LeftButton, {}, placeOf(2.0) + QPoint(3, 0));
    transport.audio.pull(static_cast<std::uint32_t>(rate));
    wave().showPosition();
    EXPECT_EQ(wave().scale(), before);
    QTest::mouseRelease(&lane, Qt::LeftButton, {}, placeOf(2.0) + QPoint(3, 0));
}

TEST_F(TheLaneOfAWave, ADragOfAMarkerThatIsGoneMeanwhileDoesNothing)
{
    const PracticeId marker = addMarker(u"m"_s, 20.0);
    QTest::mousePress(&lane, Qt::LeftButton, {}, placeOf(20.0) + QPoint(3, 0));
    store.apply({RemoveMarker{marker}});
    QTest::mouseRelease(&lane, Qt::LeftButton, {}, placeOf(20.0) + QPoint(3, 0));
    EXPECT_EQ(sought.size(), 0);
    EXPECT_TRUE(store.record().markers.empty());
}

TEST_F(TheLaneOfAWave, DrawsQuietBracketsAndFillsTheOneThatSounds)
{
    const PracticeId a = addLoop({}, 5.0, 10.0);
    const PracticeId b = addLoop({}, 15.0, 20.0);
    change(b, [](PracticeLoop &loop) { loop.colour = 5; });
    const auto colorAt = [&](double second) { return drawn(lane).pixelColor(placeOf(second, 5)); };
    EXPECT_EQ(colorAt(5.5), waveColors::quiet(waveColors::loopColor(1)));
    EXPECT_EQ(colorAt(15.5), waveColors::quiet(waveColors::loopColor(5)));
    audio().setLoop({frames(15.0), frames(20.0)});
    lane.setCalledUp(b);
    EXPECT_EQ(colorAt(15.5), waveColors::loopColor(5));
    EXPECT_EQ(colorAt(5.5), waveColors::quiet(waveColors::loopColor(1)));
    EXPECT_EQ(colorAt(12.0), QColor(Qt::white));
    Q_UNUSED(a)
}

} // namespace
