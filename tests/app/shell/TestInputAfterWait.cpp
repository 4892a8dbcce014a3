#include "app/shell/InputAfterWait.h"

#include "platform/ui/StateButton.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QShortcut>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

using namespace lyrabox;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {

using Work = InputAfterWait::Work;

class AfterWait : public testing::Test {
protected:
    AfterWait()
    {
        for (int i = 0; i < 3; ++i)
            songs.push_back(std::make_shared<TrackRecord>());
        table.show();
    }

    /// Runs the event loop as it does when the user does nothing.
    static void settleEvents()
    {
        runOneRound();
        runOneRound();
    }
    static void runOneRound() { QCoreApplication::processEvents(); }

    void pick(int song)
    {
        input.pick(songs[static_cast<std::size_t>(song)], loaded, [this, song] {
            played.push_back(song);
            loaded = songs[static_cast<std::size_t>(song)];
        });
    }

    bool keyReaches(QWidget &widget, bool repeated)
    {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s, repeated);
        QLineEdit *field = qobject_cast<QLineEdit *>(&widget);
        const QString before = field->text();
        QCoreApplication::sendEvent(&widget, &key);
        return field->text() != before;
    }

    std::chrono::milliseconds now = 1000ms;
    StateButton button;
    QTableView table;
    InputAfterWait input{&button, &table, [this] { return now; }};
    std::vector<TrackRecordRef> songs;
    TrackRecordRef loaded;
    std::vector<int> played;
};

TEST_F(AfterWait, WithoutAWaitInputActsAtOnce)
{
    EXPECT_FALSE(input.isFromWait());
    EXPECT_FALSE(input.pressMeansPlay());
    pick(0);
    pick(0);
    EXPECT_EQ(played, (std::vector<int>{0, 0}));
}

TEST_F(AfterWait, OnlyTheLastOfSeveralPickedSongsIsPlayed)
{
    input.noteWork(Work::Load);
    pick(0);
    pick(1);
    pick(2);
    EXPECT_TRUE(played.empty());
    input.settle();
    EXPECT_EQ(played, (std::vector<int>{2}));
    input.settle();
    EXPECT_EQ(played.size(), 1U);
}

TEST_F(AfterWait, TheSongThatWasJustLoadedIsNotLoadedAgain)
{
    loaded = songs[1];
    input.noteWork(Work::Load);
    pick(1);
    input.settle();
    EXPECT_TRUE(played.empty());
}

TEST_F(AfterWait, PickingTheLoadedSongAgainCancelsTheOtherPick)
{
    loaded = songs[1];
    input.noteWork(Work::Load);
    pick(2);
    pick(1);
    input.settle();
    EXPECT_TRUE(played.empty());
}

TEST_F(AfterWait, ASongPickedDuringAListBuildIsPlayedEvenIfItIsLoaded)
{
    loaded = songs[1];
    input.noteWork(Work::List);
    pick(1);
    input.settle();
    EXPECT_EQ(played, (std::vector<int>{1}));
}

TEST_F(AfterWait, WorkBeforeTheWindowIsShownIsNotAWait)
{
    table.hide();
    input.noteWork(Work::List);
    EXPECT_FALSE(input.isFromWait());
}

TEST_F(AfterWait, PressingPlayAgainStillMeansPlay)
{
    input.noteWork(Work::Load);
    button.setState(1); // as the load does
    EXPECT_TRUE(input.pressMeansPlay());
    EXPECT_TRUE(input.pressMeansPlay());
    input.settle();
    EXPECT_FALSE(input.pressMeansPlay());
}

TEST_F(AfterWait, ThePressThatBeginsTheWaitCountsAsPlay)
{
    button.setState(1); // as the press does, before it loads
    input.noteWork(Work::Load);
    EXPECT_TRUE(input.pressMeansPlay());
}

TEST_F(AfterWait, IfTheButtonShowedPauseAPressWorksAsUsual)
{
    button.setState(1);
    settleEvents();
    input.noteWork(Work::Load);
    EXPECT_FALSE(input.pressMeansPlay());
}

TEST_F(AfterWait, ASongPickedBeforeAPressIsPlayedFirst)
{
    button.setState(1);
    settleEvents();
    input.noteWork(Work::Load);
    pick(2);
    EXPECT_FALSE(input.pressMeansPlay());
    EXPECT_EQ(played, (std::vector<int>{2}));
}

TEST_F(AfterWait, InputIsNewAgainATenthOfASecondAfterTheWait)
{
    input.noteWork(Work::Load);
    now += 5000ms; // the length of the work does not matter
    EXPECT_TRUE(input.isFromWait());
    settleEvents(); // the wait is over
    now += 99ms;
    EXPECT_TRUE(input.isFromWait());
    now += 1ms;
    EXPECT_FALSE(input.isFromWait());
}

TEST_F(AfterWait, APickedSongIsPlayedWithoutFurtherInput)
{
    input.noteWork(Work::Load);
    pick(2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !played.empty(); }));
}

TEST_F(AfterWait, OnlyRepeatsOfAHeldKeyAreDropped)
{
    QLineEdit field;
    EXPECT_TRUE(keyReaches(field, true));
    input.noteWork(Work::Load);
    EXPECT_FALSE(keyReaches(field, true));
    EXPECT_TRUE(keyReaches(field, false));
    input.settle();
    EXPECT_TRUE(keyReaches(field, true));
}

TEST_F(AfterWait, ARepeatedKeyTriggersNoShortcut)
{
    input.noteWork(Work::Load);
    QLineEdit field;
    QKeyEvent key(QEvent::ShortcutOverride, Qt::Key_Minus, Qt::NoModifier, u"-"_s, true);
    key.ignore();
    QCoreApplication::sendEvent(&field, &key);
    EXPECT_TRUE(key.isAccepted()); // so that it becomes a key press, which is dropped
}

TEST_F(AfterWait, AClickOnAReplacedListDoesNotReachTheNewOne)
{
    struct Watch : QObject {
        bool eventFilter(QObject *, QEvent *event) override
        {
            presses += event->type() == QEvent::MouseButtonPress ? 1 : 0;
            return false;
        }
        int presses = 0;
    } watch;
    table.viewport()->installEventFilter(&watch);
    const auto click = [this] {
        QMouseEvent press(QEvent::MouseButtonPress, {5, 5}, {5, 5}, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(table.viewport(), &press);
    };
    input.noteWork(Work::Load);
    click();
    EXPECT_EQ(watch.presses, 1);
    input.settle();
    input.noteWork(Work::List);
    click();
    EXPECT_EQ(watch.presses, 1);
    runOneRound(); // input may arrive after the timers
    click();
    EXPECT_EQ(watch.presses, 1);
    runOneRound(); // the wait is over
    click();
    EXPECT_EQ(watch.presses, 2);
}

TEST_F(AfterWait, TheEscapeThatStoppedTheWorkIsNotDelivered)
{
    QWidget receiver;
    int presses = 0;
    QShortcut shortcut(Qt::Key_Escape, &receiver, [&presses] { ++presses; });
    receiver.show();
    receiver.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&receiver));

    input.noteWork(Work::List);
    QTest::keyClick(&receiver, Qt::Key_Escape);
    EXPECT_EQ(presses, 1) << "an Escape that stopped nothing is delivered";

    input.dropEscape();
    QTest::keyClick(&receiver, Qt::Key_Escape);
    EXPECT_EQ(presses, 1);

    input.settle();
    QTest::keyClick(&receiver, Qt::Key_Escape);
    EXPECT_EQ(presses, 2);
    input.noteWork(Work::List);
    QTest::keyClick(&receiver, Qt::Key_Escape);
    EXPECT_EQ(presses, 3) << "the next wait starts afresh";
}

} // namespace
