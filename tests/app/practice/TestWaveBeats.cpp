#include "BeatsFixture.h"
#include "app/practice/PracticeLane.h"
#include "app/practice/SnapButton.h"
#include "app/practice/WaveColors.h"
#include "platform/foundation/UserDefaults.h"
#include "support/DrawnWidget.h"

#include <QAccessible>
#include <QMenu>

#include <algorithm>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class BeatsInTheWave : public testing::Test, protected BeatsFixture {
protected:
    BeatsInTheWave() { userDefaults().remove(u"practiceSnap"_s); }
    ~BeatsInTheWave() override { userDefaults().remove(u"practiceSnap"_s); }

    /// How much of the column of a beat has a colour, between the lane and the numbers. A line may
    /// lie one pixel beside the place that at() rounds to.
    double shareOf(const QImage &image, int beat, const QColor &color)
    {
        const int middle = at(static_cast<double>(beat) * beatFrames).x();
        const int top = WaveView::laneHeight;
        const int bottom = image.height() - 20;
        int most = 0;
        for (int x = middle - 1; x <= middle + 1; ++x) {
            int count = 0;
            for (int y = top; y < bottom; ++y)
                count += image.pixelColor(x, y) == color ? 1 : 0;
            most = std::max(most, count);
        }
        return static_cast<double>(most) / (bottom - top);
    }

    QPoint handleOf(int beat)
    {
        return {at(static_cast<double>(beat) * beatFrames).x(), wave().height() - 5};
    }

    void choose(int row)
    {
        auto *button = pane->findChild<SnapButton *>();
        button->click();
        auto *menu = button->findChild<QMenu *>();
        ASSERT_NE(menu, nullptr);
        menu->actions().at(row)->trigger();
        menu->close();
        QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
    }
};

TEST_F(BeatsInTheWave, AreLinesAndThoseThatBeginABarAreDarker)
{
    setBeats(steadyGrid());
    const QImage image = drawn(wave());
    EXPECT_GT(shareOf(image, 8, waveColors::bar), 0.3);
    EXPECT_GT(shareOf(image, 9, waveColors::beat), 0.3);
    EXPECT_EQ(shareOf(image, 9, waveColors::bar), 0.0);
}

TEST_F(BeatsInTheWave, AreDashedWhileTheyAreOnlySuggested)
{
    const QImage image = drawn(wave());
    const double share = shareOf(image, 9, waveColors::beat);
    EXPECT_GT(share, 0.15);
    EXPECT_LT(share, 0.55);
    EXPECT_EQ(shareOf(image, 8, waveColors::bar), 0.0);
}

TEST_F(BeatsInTheWave, MoveWithTheWave)
{
    setBeats(steadyGrid());
    for (const int way : {1, 7, 300}) {
        wave().setFollowing(false);
        turnWheel(-1, {400, 100});
        for (int moved = 0; moved < way % 5; ++moved)
            turnWheel(-1, {400, 100});
        const QImage image = drawn(wave());
        const int beat = static_cast<int>(frameAt(500) / beatFrames);
        EXPECT_GT(shareOf(image, beat, beat % 4 == 0 ? waveColors::bar : waveColors::beat), 0.3);
    }
}

TEST_F(BeatsInTheWave, AreHatchedWhereTheyAreLost)
{
    const auto at = [](std::uint64_t beats) { return beats * beatFrames; };
    const auto hatched = [&] {
        const QImage image = drawn(wave());
        int count = 0;
        for (int x = this->at(11.0 * beatFrames).x(); x < this->at(12.0 * beatFrames).x(); ++x)
            count += image.pixelColor(x, WaveView::laneHeight + 2) == waveColors::hatch ? 1 : 0;
        return count;
    };
    setBeats(steadyGrid());
    EXPECT_LE(hatched(), 1);
    setBeats(BeatGrid({{.frame = at(0), .bar = 1, .beat = 1},
                       {.frame = at(8), .bar = 3, .beat = 1, .isLost = true},
                       {.frame = at(24), .bar = 7, .beat = 1},
                       {.frame = at(40), .bar = 11, .beat = 1}}));
    EXPECT_GE(hatched(), 2);
}

TEST_F(BeatsInTheWave, AreDraggedByTheirHandlesInOneStep)
{
    setBeats(steadyGrid());
    drag(handleOf(8), handleOf(8) + QPoint(6, 0), Qt::ShiftModifier);
    const double moved = 8.0 * beatFrames + 6.0 * wave().scale().framesPerPoint;
    EXPECT_NEAR(grid().frameOfBeats(8.0), moved, 2.0 * wave().scale().framesPerPoint);
    EXPECT_NEAR(grid().frameOfBeats(59.0), 59.0 * beatFrames, 2.0);
    EXPECT_FALSE(audio().loop()) << "no loop is made";
    EXPECT_TRUE(store().undo());
    EXPECT_EQ(grid(), steadyGrid());
    drag(handleOf(8), handleOf(8) + QPoint(400, 0), Qt::ShiftModifier);
    EXPECT_GT(grid().anchors().size(), 2U);
    drag(handleOf(0) + QPoint(0, -60), handleOf(8) + QPoint(0, -60), Qt::ShiftModifier);
    EXPECT_TRUE(audio().loop()) << "above the handles, a drag makes a loop";
}

TEST_F(BeatsInTheWave, DraggedPastAnAnchorStay)
{
    const auto at = [](std::uint64_t beats) { return beats * beatFrames; };
    setBeats(BeatGrid({{.frame = at(0), .bar = 1, .beat = 1},
                       {.frame = at(10), .bar = 3, .beat = 3},
                       {.frame = at(40), .bar = 11, .beat = 1}}));
    const BeatGrid before = grid();
    drag(handleOf(8), handleOf(12), Qt::ShiftModifier);
    EXPECT_EQ(grid(), before);
}

TEST_F(BeatsInTheWave, CatchTheEndsOfALoopUnlessShiftIsHeldOrSnappingIsOff)
{
    // The beats are a little off the attacks, so that the two can be told apart.
    std::vector<std::uint64_t> frames;
    for (std::uint64_t beat = 0; beat < 58; ++beat)
        frames.push_back(beat * beatFrames + 800);
    setBeats(fittedGrid(frames, 0, 4));
    const double reach = loopHands::snapReach * wave().scale().framesPerPoint;
    ASSERT_GT(reach, 2'000.0);
    const auto dragLoop = [&](Qt::KeyboardModifiers modifiers) {
        drag(at(4.0 * beatFrames + 1'500.0), at(8.0 * beatFrames + 1'500.0), modifiers);
        return audio().loop().value_or(LoopRange{0, 0});
    };
    EXPECT_EQ(dragLoop({}), (LoopRange{4 * beatFrames + 800, 8 * beatFrames + 800}));
    EXPECT_GT(dragLoop(Qt::ShiftModifier).start, 4 * beatFrames + 900);
    choose(1);
    EXPECT_EQ(wave().snapTo(), SnapTo::Attack);
    EXPECT_NEAR(static_cast<double>(dragLoop({}).start), 4.0 * beatFrames, 0.005 * rate);
    choose(2);
    EXPECT_GT(dragLoop({}).start, 4 * beatFrames + 900);
}

TEST_F(BeatsInTheWave, CatchAMarkerThatIsDragged)
{
    setBeats(steadyGrid());
    const auto marker = practice->addMarker(10 * beatFrames, u"Verse"_s);
    ASSERT_TRUE(marker);
    PracticeLane *lane = pane->lane();
    const auto pointAt = [this](double frame) { return QPoint(at(frame).x() + 2, 10); };
    const QPoint from = pointAt(10.0 * beatFrames);
    const QPoint to = pointAt(12.0 * beatFrames + 1'500.0);
    QTest::mousePress(lane, Qt::LeftButton, {}, from);
    for (const QPoint point : {(from + to) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, point, lane->mapToGlobal(point), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(lane, &move);
    }
    QTest::mouseRelease(lane, Qt::LeftButton, {}, to);
    EXPECT_EQ(practice->record().marker(*marker)->at, 12 * beatFrames);
}

TEST_F(BeatsInTheWave, AreSpokenOfWithThePlaceInTheSong)
{
    setBeats(steadyGrid());
    audio().setCurrentFrame(9 * beatFrames);
    wave().showPosition();
    const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&wave());
    EXPECT_EQ(spoken->text(QAccessible::Value), u"0:04.500, bar 3.2"_s);
}

TEST_F(BeatsInTheWave, KeepTheChoiceOfWhatSnaps)
{
    choose(1);
    EXPECT_EQ(pane->findChild<SnapButton *>()->text(), u"Snap: Attack"_s);
    PracticePane other(&audio(), practice.get(), metronome.get(), sound.get(), [](quint64) {});
    EXPECT_EQ(other.wave()->snapTo(), SnapTo::Attack);
}

} // namespace
