#include "platform/ui/Application.h"

#include "platform/ui/StateButton.h"
#include "support/ServerKey.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;
using test::ServerKey;

namespace {

/// Takes the keyboard and records all presses and releases.
class KeyRecorder : public QWidget {
public:
    explicit KeyRecorder(QWidget *parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }

    struct Seen {
        int key;
        bool repeated;
        bool operator==(const Seen &) const = default;
    };
    std::vector<Seen> presses;
    std::vector<Seen> releases;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        presses.push_back({event->key(), event->isAutoRepeat()});
    }
    void keyReleaseEvent(QKeyEvent *event) override
    {
        releases.push_back({event->key(), event->isAutoRepeat()});
    }
};

class HeldKey : public testing::TestWithParam<ServerKey::Way> {
protected:
    HeldKey()
    {
        window.resize(200, 100);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        widget.setFocus();
    }

    enum class Repeat { No, Yes };

    QAction *addCommand(const QKeySequence &shortcut, Repeat repeat)
    {
        auto *action = new QAction(&window);
        action->setShortcut(shortcut);
        action->setAutoRepeat(repeat == Repeat::Yes);
        window.addAction(action);
        return action;
    }

    QWidget window;
    KeyRecorder widget{&window};
    ServerKey key{GetParam()};
};

using Seen = std::vector<KeyRecorder::Seen>;

TEST_P(HeldKey, ACommandThatDoesNotRepeatActsOnce)
{
    const QSignalSpy triggered(addCommand(Qt::CTRL | Qt::Key_Right, Repeat::No),
                               &QAction::triggered);
    key.hold(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(triggered.count(), 1);
    EXPECT_TRUE(widget.presses.empty());
    key.hold(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(triggered.count(), 2) << "a second press acts again";
}

TEST_P(HeldKey, ACommandThatRepeatsActsAgainAndAgain)
{
    const QSignalSpy triggered(addCommand(Qt::Key_Minus, Repeat::Yes), &QAction::triggered);
    key.hold(Qt::Key_Minus, {}, u"-"_s, 5);
    EXPECT_EQ(triggered.count(), 6);
}

TEST_P(HeldKey, ReleasingTheModifierDoesNotEndTheRepeats)
{
    const QSignalSpy triggered(addCommand(Qt::Key_Right, Repeat::No), &QAction::triggered);
    key.press(Qt::Key_Right, Qt::ControlModifier);
    key.letModifiersGo();
    key.repeat(3);
    EXPECT_EQ(triggered.count(), 0);
    key.release();
}

TEST_P(HeldKey, AButtonIsDownUntilTheKeyIsReleased)
{
    StateButton button(&window);
    button.show();
    button.setFocus();
    const QSignalSpy pressed(&button, &QAbstractButton::pressed);
    const QSignalSpy clicked(&button, &QAbstractButton::clicked);
    key.press(Qt::Key_Space, {}, u" "_s);
    key.repeat(5);
    EXPECT_TRUE(button.isDown());
    EXPECT_EQ(clicked.count(), 0);
    key.release();
    EXPECT_FALSE(button.isDown());
    EXPECT_EQ(pressed.count(), 1);
    EXPECT_EQ(clicked.count(), 1);
}

TEST_P(HeldKey, HeldReturnAndEscapeActOnce)
{
    for (const int once : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        key.hold(once);
        EXPECT_EQ(widget.presses, (Seen{{once, false}}));
        widget.presses.clear();
    }
}

TEST_P(HeldKey, AHeldArrowRepeatsMarkedAndIsReleasedOnce)
{
    key.hold(Qt::Key_Down, {}, {}, 2);
    EXPECT_EQ(widget.presses,
              (Seen{{Qt::Key_Down, false}, {Qt::Key_Down, true}, {Qt::Key_Down, true}}));
    EXPECT_EQ(widget.releases,
              (Seen{{Qt::Key_Down, true}, {Qt::Key_Down, true}, {Qt::Key_Down, false}}));
}

TEST_P(HeldKey, ATextFieldRepeatsALetterButNotReturn)
{
    QLineEdit field(&window);
    field.show();
    field.setFocus();
    const QSignalSpy entered(&field, &QLineEdit::returnPressed);
    key.hold(Qt::Key_A, {}, u"a"_s, 3);
    key.hold(Qt::Key_Return, {}, u"\r"_s, 3);
    EXPECT_EQ(field.text(), u"aaaa"_s);
    EXPECT_EQ(entered.count(), 1);
}

TEST_P(HeldKey, AHeldKeyThatClosesAWindowDoesNothingInTheNextOne)
{
    const QSignalSpy behind(addCommand(Qt::CTRL | Qt::Key_W, Repeat::No), &QAction::triggered);
    QWidget front;
    auto *close = new QAction(&front);
    close->setShortcut(Qt::CTRL | Qt::Key_W);
    close->setAutoRepeat(false);
    front.addAction(close);
    QObject::connect(close, &QAction::triggered, &front, &QWidget::close);
    front.show();
    front.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&front));
    key.press(Qt::Key_W, Qt::ControlModifier);
    ASSERT_FALSE(front.isVisible());
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    key.repeat(5);
    EXPECT_EQ(behind.count(), 0);
    key.release();
}

TEST_P(HeldKey, AHeldMnemonicOpensAMenuAndChoosesNothingInIt)
{
    QMenu menu(&window);
    QAction *play = menu.addAction(u"&Play"_s);
    const QSignalSpy chosen(play, &QAction::triggered);
    QAction *open = addCommand(Qt::ALT | Qt::Key_P, Repeat::No);
    QObject::connect(open, &QAction::triggered, &menu, [&] { menu.popup({0, 0}); });
    key.hold(Qt::Key_P, Qt::AltModifier, u"p"_s);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(chosen.count(), 0);
    menu.close();
}

TEST_P(HeldKey, APressAfterAReleaseHandledTooLateIsNotARepeat)
{
    StateButton button(&window);
    button.show();
    button.setFocus();
    const QSignalSpy clicked(&button, &QAbstractButton::clicked);
    key.press(Qt::Key_Space, {}, u" "_s);
    key.releaseAndPressUnseen();
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(button.isDown());
    key.release();
    EXPECT_EQ(clicked.count(), 2);
}

INSTANTIATE_TEST_SUITE_P(Every, HeldKey, testing::ValuesIn(test::everyWay),
                         [](const auto &way) { return test::nameOfWay(way.param); });

TEST(KeyActsWhileHeld, OnlyNavigationKeysAndTypedTextRepeat)
{
    QLineEdit field;
    QLineEdit readOnly;
    readOnly.setReadOnly(true);
    for (const int key : {Qt::Key_Left, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Tab})
        EXPECT_TRUE(keyActsWhileHeld(key, nullptr));
    for (const int key : {Qt::Key_Space, Qt::Key_L, Qt::Key_Delete}) {
        EXPECT_FALSE(keyActsWhileHeld(key, nullptr));
        EXPECT_FALSE(keyActsWhileHeld(key, &readOnly));
        EXPECT_TRUE(keyActsWhileHeld(key, &field));
    }
    EXPECT_FALSE(keyActsWhileHeld(Qt::Key_Return, &field));
}

} // namespace
