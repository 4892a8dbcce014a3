// The stand view as a window of the program.

#include "PracticeRoomFixture.h"
#include "app/stand/StandView.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class StandInTheProgram : public PracticeRoom {
protected:
    StandView *view() const { return window->findChild<StandView *>(); }
    QAction *standView() const { return command(u"Stand View"_s); }
};

TEST_F(StandInTheProgram, IsMadeWhenItIsFirstShown)
{
    EXPECT_EQ(standView()->shortcut(), QKeySequence(Qt::Key_F11));
    EXPECT_FALSE(standView()->isEnabled());
    open();
    EXPECT_TRUE(standView()->isEnabled());
    EXPECT_EQ(view(), nullptr);
    standView()->trigger();
    ASSERT_NE(view(), nullptr);
    EXPECT_TRUE(view()->isVisible());
    EXPECT_TRUE(view()->isFullScreen());
    EXPECT_TRUE(standView()->isChecked());
    standView()->trigger();
    EXPECT_FALSE(view()->isVisible());
    EXPECT_FALSE(standView()->isChecked());
}

TEST_F(StandInTheProgram, IsClosedWithThePane)
{
    open();
    standView()->trigger();
    open();
    EXPECT_FALSE(view()->isVisible());
    EXPECT_FALSE(standView()->isChecked());
}

TEST_F(StandInTheProgram, DigitsOfLoopsWorkInIt)
{
    openWithSong();
    const PracticeLoop loop{.name = u"Riff"_s, .from = 44100, .to = 2 * 44100};
    ASSERT_TRUE(pane()->practice()->store().apply({PutLoop{loop}}));
    standView()->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view()));
    QTest::keyClick(view(), Qt::Key_1);
    EXPECT_EQ(pane()->practice()->calledUp(), loop.id);
    EXPECT_EQ(view()->page().loop, u"Riff"_s);
}

} // namespace
