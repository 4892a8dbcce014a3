#include "app/pedals/KeyAssignments.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A window with two commands, a text field and a plain widget.
class Keys : public testing::Test {
protected:
    Keys()
    {
        play.setShortcuts({QKeySequence(Qt::Key_Space)});
        loop.setShortcuts({QKeySequence(Qt::Key_L)});
        for (QAction *action : {&play, &loop}) {
            action->setShortcutContext(Qt::ApplicationShortcut);
            window.addAction(action);
        }
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&field);
        layout->addWidget(&plain);
        plain.setFocusPolicy(Qt::StrongFocus);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        assignments = std::make_unique<KeyAssignments>(
            QList<MenuCommand>{{.id = u"play"_s, .group = {}, .name = u"Play"_s, .action = &play},
                               {.id = u"loop"_s, .group = {}, .name = u"Loop"_s, .action = &loop}});
    }

    void learn(const QString &key, const QString &command)
    {
        ASSERT_TRUE(setKey(map, assignments->builtIn(), key, command));
        assignments->apply(map);
    }
    static qsizetype presses(QAction &action, QWidget &where, Qt::Key key,
                             Qt::KeyboardModifiers modifiers = {})
    {
        where.setFocus();
        const QSignalSpy triggered(&action, &QAction::triggered);
        QTest::keyClick(&where, key, modifiers);
        return triggered.size();
    }

    QWidget window;
    QLineEdit field;
    QWidget plain;
    QAction play;
    QAction loop;
    PedalMap map;
    std::unique_ptr<KeyAssignments> assignments;
};

TEST_F(Keys, WithoutAMapNothingChanges)
{
    assignments->apply({});
    EXPECT_EQ(play.shortcuts(), QList{QKeySequence(Qt::Key_Space)});
    EXPECT_EQ(presses(loop, plain, Qt::Key_L), 1);
    EXPECT_EQ(assignments->commandOf(QKeySequence(Qt::Key_L))->id, u"loop"_s);
    EXPECT_EQ(assignments->commandOf(QKeySequence(Qt::Key_K)), nullptr);
}

TEST_F(Keys, ALearntKeyWorksBesidesTheBuiltInOne)
{
    learn(u"PgDown"_s, u"play"_s);
    EXPECT_EQ(presses(play, plain, Qt::Key_PageDown), 1);
    EXPECT_EQ(presses(play, plain, Qt::Key_Space), 1);
    map = {};
    assignments->apply(map);
    EXPECT_EQ(presses(play, plain, Qt::Key_PageDown), 0);
}

TEST_F(Keys, AKeyThatIsTakenFromAnotherCommandWorksForOneOnly)
{
    learn(u"L"_s, u"play"_s);
    EXPECT_EQ(presses(play, plain, Qt::Key_L), 1);
    EXPECT_EQ(presses(loop, plain, Qt::Key_L), 0);
}

TEST_F(Keys, ALearntKeyThatATextFieldNeedsIsTyped)
{
    learn(u"F"_s, u"play"_s);
    learn(u"Left"_s, u"loop"_s);
    learn(u"F5"_s, u"loop"_s);
    EXPECT_EQ(presses(play, field, Qt::Key_F), 0);
    EXPECT_EQ(field.text(), u"f"_s);
    EXPECT_EQ(presses(loop, field, Qt::Key_Left), 0);
    EXPECT_EQ(field.cursorPosition(), 0);
    EXPECT_EQ(presses(loop, field, Qt::Key_F5), 1) << "nothing is typed with it";
    EXPECT_EQ(presses(play, plain, Qt::Key_F), 1);
    EXPECT_EQ(presses(loop, plain, Qt::Key_Left), 1);
}

TEST_F(Keys, APageTurnerWorksWhileATextFieldHasTheKeyboard)
{
    learn(u"PgDown"_s, u"play"_s);
    EXPECT_EQ(presses(play, field, Qt::Key_PageDown), 1);
}

TEST_F(Keys, ALearntKeyMovesInAnOpenMenu)
{
    learn(u"Down"_s, u"play"_s);
    QMenu menu(&window);
    menu.addAction(u"One"_s);
    menu.addAction(u"Two"_s);
    menu.popup(window.pos());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    const QSignalSpy triggered(&play, &QAction::triggered);
    QTest::keyClick(&menu, Qt::Key_Down);
    EXPECT_EQ(triggered.size(), 0);
    EXPECT_NE(menu.activeAction(), nullptr);
    menu.close();
    EXPECT_EQ(presses(play, plain, Qt::Key_Down), 1);
}

TEST_F(Keys, WhatAFileSaysInOtherWaysIsUnderstoodOrIgnored)
{
    map.keys = {
        {.command = u"play"_s, .keys = {u"ctrl+shift+k"_s, u"Tab"_s, u"nonsense"_s, u"A, B"_s}},
        {.command = u"unknown"_s, .keys = {u"L"_s}}};
    assignments->apply(map);
    EXPECT_EQ(play.shortcuts(),
              (QList{QKeySequence(Qt::Key_Space), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K)}));
    EXPECT_EQ(loop.shortcuts(), QList{QKeySequence(Qt::Key_L)});
}

TEST(KeyOf, AModifierAloneIsNoKeyAndTheKeypadIsNoOther)
{
    EXPECT_TRUE(keyOf({QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier}).isEmpty());
    EXPECT_EQ(keyOf({QEvent::KeyPress, Qt::Key_5, Qt::KeypadModifier}), QKeySequence(Qt::Key_5));
    EXPECT_FALSE(isAssignable(QKeySequence(Qt::Key_Tab)));
    EXPECT_FALSE(isAssignable(QKeySequence(Qt::Key_Escape)));
    EXPECT_FALSE(isAssignable(QKeySequence(Qt::Key_Return)));
    EXPECT_TRUE(isAssignable(QKeySequence(Qt::CTRL | Qt::Key_Return)));
}

} // namespace
