#include "ScriptedDevice.h"
#include "app/pedals/AssignmentRows.h"
#include "app/pedals/PedalsWindow.h"
#include "pedals/PedalText.h"
#include "platform/ui/SearchField.h"
#include "platform/ui/SegmentedControl.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// The window for three commands, a value and a device. Everything is done with the keyboard.
class PedalsAndKeys : public testing::Test {
protected:
    PedalsAndKeys()
    {
        play.setShortcuts({QKeySequence(Qt::Key_Space)});
        loop.setShortcuts({QKeySequence(Qt::Key_L)});
        PedalPlayer::Hooks hooks{
            .heardFrame = [](std::chrono::microseconds) { return 0; },
            .perform = [](const QString &, quint64, PedalTime) {},
            .values = {{u"volume"_s,
                        {.name = u"Volume"_s, .get = [] { return 0.0; }, .set = [](double) {}}}},
            .now = &PedalPlayer::steadyNow};
        pedals = std::make_unique<PedalAssignments>(
            folder.path(),
            QList<MenuCommand>{
                {.id = u"play or pause"_s,
                 .group = u"Playback"_s,
                 .name = u"Play or Pause"_s,
                 .action = &play},
                {.id = u"loop"_s, .group = u"Playback"_s, .name = u"Loop"_s, .action = &loop},
                {.id = u"next loop"_s,
                 .group = u"Practice"_s,
                 .name = u"Next Loop"_s,
                 .action = &next}},
            std::move(hooks), [this] { return device.makeInput(); });
    }

    PedalsWindow &window()
    {
        if (!m_window) {
            pedals->load();
            m_window = std::make_unique<PedalsWindow>(pedals.get());
            m_window->show();
            EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        }
        return *m_window;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void select(int row) { window().table()->selectRow(row); }
    QString cell(int row, AssignmentRows::Column column)
    {
        return window().table()->model()->index(row, column).data().toString();
    }
    void move(int controller, int value)
    {
        device.send(controller, value, PedalPlayer::steadyNow());
        device.read();
    }
    QString message()
    {
        for (const QLabel *label : window().findChildren<QLabel *>()) {
            if (label->wordWrap())
                return label->text();
        }
        return {};
    }
    PedalMap written() const
    {
        QFile file(QDir(folder.path()).filePath(u"Pedals.json"_s));
        const auto reading =
            file.open(QIODevice::ReadOnly) ? readPedals(file.readAll()) : std::nullopt;
        return reading ? reading->map : PedalMap();
    }

    QTemporaryDir folder;
    ScriptedDevice device;
    QAction play;
    QAction loop;
    QAction next;
    std::unique_ptr<PedalAssignments> pedals;
    std::unique_ptr<PedalsWindow> m_window;
};

TEST_F(PedalsAndKeys, ListsAllCommandsWithTheirKeysAndOpensNoDevice)
{
    EXPECT_EQ(window().table()->model()->rowCount(), 4);
    EXPECT_EQ(cell(0, AssignmentRows::Command), u"Play or Pause"_s);
    EXPECT_EQ(cell(0, AssignmentRows::Menu), u"Playback"_s);
    EXPECT_EQ(cell(1, AssignmentRows::Keys), u"L"_s);
    EXPECT_EQ(cell(3, AssignmentRows::Command), u"Volume"_s);
    EXPECT_EQ(device.made, 0);
    EXPECT_TRUE(window().table()->hasFocus());
    EXPECT_FALSE(QFile::exists(QDir(folder.path()).filePath(u"Pedals.json"_s)));
}

TEST_F(PedalsAndKeys, AKeyIsLearntWithTheKeyboardAlone)
{
    window();
    press(Qt::Key_Down); // Loop
    press(Qt::Key_Return);
    EXPECT_EQ(window().learner()->state(), Learner::State::Listening);
    press(Qt::Key_PageUp);
    EXPECT_EQ(window().learner()->state(), Learner::State::Idle);
    EXPECT_EQ(cell(1, AssignmentRows::Keys), u"L; PgUp"_s);
    EXPECT_EQ(loop.shortcuts().size(), 2);
    ASSERT_EQ(written().keys.size(), 1U);
    EXPECT_EQ(written().keys[0].keys, QStringList{u"PgUp"_s});
}

TEST_F(PedalsAndKeys, EscapeEmptiesTheSearchAndLeavesTheWindowOpen)
{
    auto *search = window().findChild<SearchField *>();
    search->setFocus();
    QTest::keyClicks(search, u"volume"_s);
    EXPECT_EQ(window().table()->model()->rowCount(), 1);
    press(Qt::Key_Escape);
    EXPECT_EQ(window().table()->model()->rowCount(), 4);
    EXPECT_TRUE(search->text().isEmpty());
    EXPECT_TRUE(window().isVisible());
}

TEST_F(PedalsAndKeys, WhenItIsClearWhoHasAKeyTheListHasTheKeyboardAgain)
{
    select(1);
    press(Qt::Key_Return);
    press(Qt::Key_Space); // which plays
    ASSERT_EQ(window().learner()->state(), Learner::State::Asking);
    press(Qt::Key_Escape);
    EXPECT_EQ(window().learner()->state(), Learner::State::Idle);
    EXPECT_TRUE(window().table()->hasFocus());
}

TEST_F(PedalsAndKeys, AKeyThatAnotherCommandHasIsTakenOnlyIfTheUserSaysSo)
{
    select(1);
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    EXPECT_EQ(window().learner()->state(), Learner::State::Asking);
    EXPECT_TRUE(message().contains(u"Play or Pause"_s)) << message().toStdString();
    press(Qt::Key_Escape);
    EXPECT_EQ(window().learner()->state(), Learner::State::Idle);
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(cell(1, AssignmentRows::Keys), u"L"_s);

    window().table()->setFocus();
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    press(Qt::Key_Space); // the button that takes it has the keyboard
    EXPECT_EQ(cell(1, AssignmentRows::Keys), u"L; Space"_s);
    EXPECT_EQ(cell(0, AssignmentRows::Keys), QString());
}

TEST_F(PedalsAndKeys, KeysThatEveryWindowNeedsAreRefused)
{
    select(0);
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    EXPECT_EQ(window().learner()->state(), Learner::State::Listening);
    EXPECT_TRUE(message().contains(u"Tab"_s)) << message().toStdString();
    press(Qt::Key_Escape);
    EXPECT_EQ(window().learner()->state(), Learner::State::Idle);
    EXPECT_TRUE(written().isEmpty());
}

TEST_F(PedalsAndKeys, ASwitchIsLearntWithItsGesture)
{
    select(1);
    window().findChild<SegmentedControl *>()->setSelectedSegment(2);
    press(Qt::Key_Return);
    EXPECT_EQ(device.made, 1);
    move(64, 0);
    EXPECT_EQ(window().learner()->state(), Learner::State::Listening) << "it is let go";
    move(64, 127);
    EXPECT_EQ(cell(1, AssignmentRows::Pedals), u"Controller 64 of FS-2, hold"_s);
    ASSERT_EQ(written().switches.size(), 1U);
    EXPECT_EQ(written().switches[0].hold, u"loop"_s);
    EXPECT_EQ(written().switches[0].control.channel, 1);

    select(0);
    press(Qt::Key_Return);
    move(64, 0);
    move(64, 127);
    EXPECT_EQ(window().learner()->state(), Learner::State::Asking);
    window().learner()->take();
    EXPECT_EQ(cell(0, AssignmentRows::Pedals), u"Controller 64 of FS-2, hold"_s);
    EXPECT_EQ(cell(1, AssignmentRows::Pedals), QString());
}

TEST_F(PedalsAndKeys, WhatASetAssignedForEveryDeviceIsLearntThere)
{
    PedalMap map;
    addSet(map, PedalSet::TwoSwitches, pedals->keys().builtIn());
    EXPECT_TRUE(pedals->change(map));
    select(1);
    window().findChild<SegmentedControl *>()->setSelectedSegment(1);
    press(Qt::Key_Return);
    move(67, 127);
    ASSERT_EQ(written().switches.size(), 2U) << "it would hide the tap of the set";
    EXPECT_EQ(written().switches[1].tap, u"loop"_s);
    EXPECT_EQ(written().switches[1].doubleTap, u"loop"_s);
}

TEST_F(PedalsAndKeys, APedalIsLearntForAValue)
{
    select(3);
    press(Qt::Key_Return);
    press(Qt::Key_A);
    EXPECT_EQ(window().learner()->state(), Learner::State::Listening) << "no key sets a value";
    move(11, 3);
    ASSERT_EQ(written().dials.size(), 1U);
    EXPECT_EQ(written().dials[0].target, u"volume"_s);
    EXPECT_EQ(cell(3, AssignmentRows::Pedals), u"Controller 11 of FS-2"_s);
}

TEST_F(PedalsAndKeys, AnAssignmentIsRemovedByKeys)
{
    select(1);
    press(Qt::Key_Delete);
    QWidget *menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(cell(1, AssignmentRows::Keys), QString());
    EXPECT_TRUE(loop.shortcuts().isEmpty());
}

TEST_F(PedalsAndKeys, TheSearchLeavesWhatMatches)
{
    window().findChild<SearchField *>()->setText(u"practice"_s);
    EXPECT_EQ(window().table()->model()->rowCount(), 1);
    EXPECT_EQ(cell(0, AssignmentRows::Command), u"Next Loop"_s);
    EXPECT_EQ(window().table()->currentIndex().row(), 0);
    window().findChild<SearchField *>()->setText(u"nothing like it"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(window().learner()->state(), Learner::State::Idle);
}

TEST_F(PedalsAndKeys, CommandsThatAreNotKnownAreShownAndKept)
{
    QFile file(QDir(folder.path()).filePath(u"Pedals.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"lyrabox pedals": 1, "switches": [{"control": "note 60", "tap": "fly"}]})");
    file.close();
    select(4);
    EXPECT_EQ(cell(4, AssignmentRows::Command), u"“fly”"_s);
    EXPECT_EQ(cell(4, AssignmentRows::Pedals), u"Note 60"_s);
    select(1);
    press(Qt::Key_Return);
    press(Qt::Key_F7);
    EXPECT_EQ(written().switches[0].tap, u"fly"_s);
}

TEST_F(PedalsAndKeys, ClosingTheWindowEndsLearning)
{
    select(1);
    press(Qt::Key_Return);
    EXPECT_TRUE(pedals->player()->isOpen());
    window().close();
    EXPECT_EQ(window().learner()->state(), Learner::State::Idle);
    EXPECT_FALSE(pedals->player()->isOpen());
}

} // namespace
