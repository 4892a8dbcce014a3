#include "app/practice/PaneFixture.h"
#include "app/practice/TrainerRun.h"
#include "app/stand/StandView.h"
#include "practice/PracticeEdits.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheStandView : public testing::Test, protected PaneFixture {
protected:
    void open()
    {
        view = std::make_unique<StandView>(
            StandSource(&audio(), practice.get(), metronome.get(), pane.get()));
        view->resize(960, 540);
        view->show();
    }

    /// 60 beats of 120 a minute from the start on, in bars of 4.
    void setBeats()
    {
        std::vector<std::uint64_t> frames;
        for (std::uint64_t beat = 0; beat < 60; ++beat)
            frames.push_back(beat * rate / 2);
        ASSERT_TRUE(practice->store().apply({PutBeats{fittedGrid(frames, 0, 4)}}));
    }

    PracticeId addLoop(const QString &name)
    {
        const PracticeLoop loop{.name = name, .from = 8 * rate, .to = 10 * rate, .colour = 3};
        EXPECT_TRUE(practice->store().apply({PutLoop{loop}}));
        return loop.id;
    }

    std::unique_ptr<StandView> view;
};

TEST_F(TheStandView, FollowsTitleLoopAndSpeed)
{
    open();
    EXPECT_EQ(view->page().title, u"Play a song."_s);
    showSong();
    EXPECT_EQ(view->page().title, u"A"_s);
    EXPECT_EQ(view->page().loop, QString());
    audio().setLoop({.start = 2 * rate, .end = 3 * rate + rate / 2});
    EXPECT_EQ(view->page().loop, u"0:02.0–0:03.5"_s);
    ASSERT_TRUE(practice->play(addLoop(u"Riff"_s)));
    EXPECT_EQ(view->page().loop, u"Riff"_s);
    EXPECT_EQ(view->page().loopColour, 3);
    audio().setPlaybackSpeedPct(80.0F);
    EXPECT_EQ(view->page().numbers.at(0).value, u"80 %"_s);
    EXPECT_EQ(view->accessibleDescription(), u"A, Riff, Speed: 80 %"_s);
}

TEST_F(TheStandView, FollowsBeatsAndPosition)
{
    showSong();
    setBeats();
    open();
    audio().setCurrentFrame(5 * rate + rate / 10);
    EXPECT_EQ(view->page().numbers.at(1).value, u"120"_s);
    EXPECT_EQ(view->page().numbers.at(2).value, u"3"_s);
    EXPECT_EQ(view->page().beat, 3);
}

TEST_F(TheStandView, CountsWhileTheCountInIsHeard)
{
    showSong();
    setBeats();
    metronome->setCountIn({});
    metronome->setCountInOn(true);
    open();
    EXPECT_EQ(view->page().countIn, u"Count-in: 1 bar"_s);
    audio().setCurrentFrame(4 * rate);
    audio().setIsRunning(true);
    transport.audio.pull(rate / 4);
    view->showNow();
    EXPECT_EQ(view->page().numbers.at(2), (StandNumber{u"Count-in"_s, u"1"_s}));
    transport.audio.pull(rate);
    view->showNow();
    EXPECT_EQ(view->page().numbers.at(2), (StandNumber{u"Count-in"_s, u"3"_s}));
    transport.audio.pull(rate);
    view->showNow();
    EXPECT_EQ(view->page().numbers.at(2).caption, u"Bar"_s);
    audio().setIsRunning(false);
    metronome->setCountInOn(false);
}

TEST_F(TheStandView, ShowsTheLadderOfARun)
{
    showSong();
    open();
    ASSERT_TRUE(practice->play(addLoop(u"Riff"_s)));
    ASSERT_TRUE(pane->trainer()->start());
    EXPECT_EQ(view->page().steps.size(), 9U);
    EXPECT_EQ(view->page().steps.at(0).text, u"60"_s);
    EXPECT_TRUE(view->page().passes.contains(u"pass 1 of 3"_s));
    pane->trainer()->stop();
    EXPECT_TRUE(view->page().steps.empty());
}

TEST_F(TheStandView, RestsWhileNothingChangesAndWhileItIsHidden)
{
    showSong();
    open();
    QTRY_VERIFY(view->paintCount() > 0);
    EXPECT_FALSE(view->isMoving());
    audio().setIsRunning(true);
    EXPECT_TRUE(view->isMoving());
    QCoreApplication::processEvents();
    const quint64 paints = view->paintCount();
    transport.audio.pull(rate); // without beats there is nothing to see of the position
    view->showNow();
    QCoreApplication::processEvents();
    EXPECT_EQ(view->paintCount(), paints);
    view->hide();
    EXPECT_FALSE(view->isMoving());
    audio().setPlaybackSpeedPct(50.0F);
    EXPECT_NE(view->page().numbers.at(0).value, u"50 %"_s);
    view->show();
    EXPECT_EQ(view->page().numbers.at(0).value, u"50 %"_s);
    audio().setIsRunning(false);
    view->showNow();
    EXPECT_FALSE(view->isMoving());
}

TEST_F(TheStandView, IsClosedByEscapeAndADoubleClick)
{
    open();
    QSignalSpy shown(view.get(), &StandView::shownChanged);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    EXPECT_FALSE(view->isVisible());
    view->show();
    QTest::mouseDClick(view.get(), Qt::LeftButton);
    EXPECT_FALSE(view->isVisible());
    EXPECT_EQ(shown.size(), 3);
}

TEST_F(TheStandView, IsDrawnInTheColoursOfItsPalette)
{
    showSong();
    open();
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x10, 0x10, 0x10));
    dark.setColor(QPalette::WindowText, QColor(0xF0, 0xF0, 0xF0));
    view->setPalette(dark);
    const QImage image = view->grab().toImage();
    EXPECT_EQ(image.pixelColor(2, 2), QColor(0x10, 0x10, 0x10));
    int bright = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            bright += qGray(image.pixel(x, y)) > 0xE0 ? 1 : 0;
    }
    EXPECT_GT(bright, 1000);
}

} // namespace
