// The keys of the practice pane in the whole program.

#include "PracticeRoomFixture.h"
#include "app/practice/SongPractice.h"
#include "app/shell/MainMenu.h"

#include <QLineEdit>
#include <QTableView>

#include <tuple>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class PracticeKeyboard : public PracticeRoom {
protected:
    PracticeKeyboard()
    {
        openWithSong();
        activate(window);
        audio()->setLoop({44100, 5 * 44100});
        pane()->wave()->setFocus();
    }

    static void activate(QMainWindow *shown)
    {
        shown->show();
        shown->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(shown));
    }

    static void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    /// Presses a key of the given position that has `key` in the layout.
    static void pressAt(quint32 position, int key, Qt::KeyboardModifiers modifiers = {})
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, position, 0, 0, QString(QChar(key)));
            static quint64 time = 0;
            event.setTimestamp(++time); // else it would be a repeat
            QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
        }
    }

    const PracticeRecord &record() const { return pane()->practice()->record(); }
    std::size_t loops() const { return record().loops.size(); }
};

TEST_F(PracticeKeyboard, KeepsMovesAndPlaysLoopsFromAnywhere)
{
    auto *songs = window->findChild<QTableView *>(u"trackTableView"_s);
    songs->setFocus();
    press(Qt::Key_K);
    ASSERT_EQ(loops(), 1U);
    press(Qt::Key_A);
    EXPECT_EQ(record().loops.front().from, 44100U - 441U);
    press(Qt::Key_S, Qt::ShiftModifier);
    EXPECT_EQ(record().loops.front().from, 44100U - 441U + 4410U);
    press(Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(record().loops.front().to, 5U * 44100U + 44U);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(record().loops.front().to, 5U * 44100U);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(record().loops.front().to, 5U * 44100U + 44U);
    audio()->setCurrentFrame(4 * 44100);
    QMainWindow *equalizer = WholeProgram::window(u"EqualizerWindow"_s);
    activate(equalizer);
    press(Qt::Key_1);
    EXPECT_EQ(audio()->currentFrame(), record().loops.front().from);
    EXPECT_EQ(record().markers.size(), 0U);
    press(Qt::Key_M);
    EXPECT_EQ(record().markers.size(), 1U);
}

TEST_F(PracticeKeyboard, BelongToATextFieldThatHasTheKeyboard)
{
    auto *search = window->findChild<QLineEdit *>(u"searchField"_s);
    search->setFocus();
    for (const int key : {Qt::Key_K, Qt::Key_M, Qt::Key_1, Qt::Key_Y})
        QTest::keyClick(search, static_cast<char>(key + (key > Qt::Key_9 ? 'a' - 'A' : 0)));
    EXPECT_EQ(search->text(), u"km1y"_s);
    press(Qt::Key_F, Qt::AltModifier);
    pressAt(11, Qt::Key_2);
    EXPECT_EQ(search->text(), u"km1y2"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(search->text(), u"km1y2"_s) << "the field undoes its own edit";
    EXPECT_EQ(loops(), 0U);
    EXPECT_EQ(record().markers.size(), 0U);
    EXPECT_EQ(audio()->loop(), (LoopRange{44100, 5 * 44100}));
}

TEST_F(PracticeKeyboard, DigitsWorkByTheirPlaceOnTheKeyboard)
{
    press(Qt::Key_K);
    ASSERT_EQ(loops(), 1U);
    for (const auto &[position, key, modifiers] :
         {std::tuple{10U, Qt::Key_Ampersand, Qt::NoModifier},
          std::tuple{10U, Qt::Key_1, Qt::ShiftModifier},
          std::tuple{87U, Qt::Key_1, Qt::KeypadModifier}}) { // French
        audio()->setCurrentFrame(4 * 44100);
        pressAt(position, key, modifiers);
        EXPECT_EQ(audio()->currentFrame(), 44100U) << key;
    }
    audio()->setCurrentFrame(4 * 44100);
    pressAt(10, Qt::Key_Exclam, Qt::ShiftModifier);
    EXPECT_EQ(audio()->currentFrame(), 4U * 44100U) << "a character that needs Shift is no digit";
}

/// Counts the keys that reach a widget.
class KeyCounter : public QObject {
public:
    QString keys;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress)
            keys += static_cast<QKeyEvent *>(event)->text();
        return false;
    }
};

TEST_F(PracticeKeyboard, KeysOfCommandsThatDoNotApplyDoNotReachTheLists)
{
    audio()->clearLoop();
    auto *songs = window->findChild<QTableView *>(u"trackTableView"_s);
    songs->setFocus();
    KeyCounter counter;
    songs->installEventFilter(&counter);
    for (const int key : {Qt::Key_A, Qt::Key_K, Qt::Key_9})
        press(key);
    press(Qt::Key_P, Qt::ShiftModifier);
    EXPECT_EQ(counter.keys, QString()) << "the list would search";
    open(); // closes the pane
    songs->setFocus();
    press(Qt::Key_A);
    EXPECT_EQ(counter.keys, u"a"_s);
}

TEST_F(PracticeKeyboard, ReturnAndDeleteBelongToTheWidgetThatHasTheKeyboard)
{
    press(Qt::Key_K);
    audio()->setCurrentFrame(4 * 44100);
    press(Qt::Key_Return);
    EXPECT_EQ(audio()->currentFrame(), 44100U) << "in the pane it plays the selected loop";
    audio()->setCurrentFrame(4 * 44100);
    window->findChild<QWidget *>(u"folderOutlineView"_s)->setFocus();
    press(Qt::Key_Delete);
    EXPECT_EQ(loops(), 1U);
    window->findChild<QTableView *>(u"trackTableView"_s)->setFocus();
    press(Qt::Key_Return);
    EXPECT_NE(audio()->currentFrame(), 44100U) << "in the list of songs it plays the song";
    pane()->wave()->setFocus();
    pane()->practice()->select(record().loops.front().id);
    press(Qt::Key_Delete);
    EXPECT_EQ(loops(), 0U);
}

TEST_F(PracticeKeyboard, OnlyTheKeysThatMoveRepeatWhileTheyAreHeld)
{
    const auto *all = window->findChild<MainMenu *>();
    for (qsizetype index = 0; index < all->practiceActions.size(); ++index) {
        const PracticeCommand made = all->practiceEntries.at(index).command;
        const bool moves = made == PracticeCommand::MoveStart || made == PracticeCommand::MoveEnd ||
                           made == PracticeCommand::MoveLoop;
        EXPECT_EQ(all->practiceActions.at(index)->autoRepeat(), moves) << index;
    }
}

TEST_F(PracticeKeyboard, MenusGiveUpTheMnemonicsThatMoveLoops)
{
    const auto mnemonics = [&] {
        QStringList found;
        for (const QAction *title : window->menuBar()->actions())
            found.append(QKeySequence::mnemonic(title->text()).toString());
        return found;
    };
    EXPECT_FALSE(mnemonics().contains(u"Alt+F"_s));
    EXPECT_FALSE(mnemonics().contains(u"Alt+S"_s));
    EXPECT_TRUE(mnemonics().contains(u"Alt+P"_s));
    open(); // closes the pane
    EXPECT_TRUE(mnemonics().contains(u"Alt+F"_s));
    EXPECT_TRUE(mnemonics().contains(u"Alt+S"_s));
    EXPECT_TRUE(mnemonics().contains(u"Alt+H"_s));
}

TEST_F(PracticeKeyboard, LettersChooseTheItemsOfAnOpenMenu)
{
    QMenu *practice = menu();
    practice->popup(window->mapToGlobal(QPoint(100, 20)));
    ASSERT_TRUE(practice->isVisible());
    QTest::keyClick(practice, Qt::Key_M); // the submenu "Marker", not a marker
    EXPECT_EQ(record().markers.size(), 0U);
    ASSERT_NE(practice->activeAction(), nullptr);
    EXPECT_EQ(practice->activeAction()->text(), u"&Marker"_s);
    practice->close();
    practice->popup(window->mapToGlobal(QPoint(100, 20)));
    QTest::keyClick(practice, Qt::Key_K);
    EXPECT_EQ(loops(), 1U);
    EXPECT_FALSE(practice->isVisible());
    practice->popup(window->mapToGlobal(QPoint(100, 20)));
    QTest::keyClick(practice, Qt::Key_Delete);
    EXPECT_EQ(loops(), 1U) << "the keyboard is not in the pane";
    audio()->setCurrentFrame(4 * 44100);
    QTest::keyClick(practice, Qt::Key_Return);
    EXPECT_EQ(audio()->currentFrame(), 4U * 44100U);
}

} // namespace
