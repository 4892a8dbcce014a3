#include "navigation/NavigationFixture.h"
#include "navigation/TransportView.h"
#include "platform/ui/Popover.h"
#include "support/ServerKey.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>
#include <QTreeView>

namespace lyrabox {
namespace {

using test::NavigationFixture;
using test::ServerKey;
constexpr quint64 rate = NavigationFixture::rate;

TEST(TransportKeys, AreNeverTakenFromAnActiveTextField)
{
    QLineEdit field;
    EXPECT_EQ(focusKind(&field), FocusKind::Text);
    for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Space})
        EXPECT_FALSE(transportTakesKey(key, FocusKind::Text));
}

TEST(TransportKeys, LeaveSpaceToAButtonAndArrowsToASlider)
{
    QCheckBox button;
    LB_Slider slider;
    EXPECT_EQ(focusKind(&button), FocusKind::Button);
    EXPECT_EQ(focusKind(&slider), FocusKind::Arrows);
    EXPECT_FALSE(transportTakesKey(Qt::Key_Space, FocusKind::Button));
    EXPECT_TRUE(transportTakesKey(Qt::Key_Left, FocusKind::Button));
    EXPECT_FALSE(transportTakesKey(Qt::Key_Left, FocusKind::Arrows));
    EXPECT_TRUE(transportTakesKey(Qt::Key_Space, FocusKind::Arrows));
}

TEST(TransportKeys, BelongToTheTransportOtherwise)
{
    EXPECT_EQ(focusKind(nullptr), FocusKind::Other);
    EXPECT_TRUE(transportTakesKey(Qt::Key_Left, FocusKind::Other));
}

/// A visible window with the transport area, and a key sent by the display server.
struct HeldTransportKey : testing::TestWithParam<ServerKey::Way> {
    HeldTransportKey()
    {
        transport.setButtons(&f.back, &f.forward);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        transport.setFocus();
    }

    NavigationFixture f;
    QWidget window;
    TransportView transport{&window};
    ServerKey key{GetParam()};
};

TEST_P(HeldTransportKey, IsOnePressFromItsFirstToItsLastEvent)
{
    f.play(100);
    key.press(Qt::Key_Right);
    for (int i = 0; i < 5; ++i) {
        key.repeat();
        EXPECT_TRUE(f.forward.isPressing());
    }
    f.forwardEvents.event();
    key.repeat(5);
    EXPECT_EQ(f.forward.clickCount(), 1U);
    key.release();
    EXPECT_FALSE(f.forward.isPressing());
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
    key.hold(Qt::Key_Right);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"))
        << "a press too short for a step must be a click";
}

TEST_P(HeldTransportKey, StopsAtTheStartOfTheSongWithoutGoingToPreviousOnes)
{
    f.play(100, 2);
    f.audio().setCurrentFrame(rate + rate / 2);
    key.press(Qt::Key_Left);
    key.repeat(3);
    f.backEvents.event();
    f.backEvents.event();
    EXPECT_FALSE(f.back.isPressing()) << "the start of the song must end the press";
    for (int i = 0; i < 5; ++i) {
        key.repeat();
        EXPECT_FALSE(f.back.isPressing());
    }
    key.release();
    EXPECT_EQ(f.playingTitle(), QStringLiteral("C"));
    EXPECT_EQ(f.audio().currentFrame(), 0U);
    key.press(Qt::Key_Left);
    key.release();
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B")) << "a new press must be a click";
}

TEST_P(HeldTransportKey, WorksInAnAddedWindowUntilThatIsLeft)
{
    f.play(100);
    QWidget other;
    transport.addWindow(&other);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    key.press(Qt::Key_Right);
    key.repeat(2);
    EXPECT_TRUE(f.forward.isPressing());
    window.activateWindow(); // The release goes there, or to another program.
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(f.forward.isPressing());
    EXPECT_EQ(f.playingTitle(), QStringLiteral("A"));
    key.release();
}

INSTANTIATE_TEST_SUITE_P(Every, HeldTransportKey, testing::ValuesIn(test::everyWay),
                         [](const auto &way) { return test::nameOfWay(way.param); });

/// Returns which song plays after a short press of the right arrow key while `focus` has the focus.
struct TransportKeyFocus : testing::Test {
    NavigationFixture f;

    QString titleAfterPress(QWidget &window, QWidget &focus)
    {
        f.play(100);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        focus.setFocus();
        EXPECT_TRUE(focus.hasFocus());
        QTest::keyClick(window.windowHandle(), Qt::Key_Right);
        return f.playingTitle();
    }
};

TEST_F(TransportKeyFocus, LeafOfATreeKeepsTheArrowsThatItDoesNotUse)
{
    QWidget window;
    TransportView transport(&window);
    transport.setButtons(&f.back, &f.forward);
    QWidget pane(&window);
    QTreeView tree(&pane);
    QStandardItemModel model;
    model.appendRow(new QStandardItem(QStringLiteral("Leaf")));
    tree.setModel(&model);
    tree.setCurrentIndex(model.index(0, 0));
    EXPECT_EQ(titleAfterPress(window, tree), QStringLiteral("A"));
}

TEST_F(TransportKeyFocus, PopoverKeepsTheArrows)
{
    QWidget window;
    window.resize(400, 300);
    TransportView transport(&window);
    transport.setButtons(&f.back, &f.forward);
    QWidget anchor(&window);
    Popover popover(&window);
    auto *content = new QWidget;
    content->resize(100, 40);
    auto *button = new QPushButton(content);
    popover.setContentView(content);
    window.show();
    popover.showRelativeTo(&anchor, Popover::Edge::MaxX);
    EXPECT_EQ(titleAfterPress(window, *button), QStringLiteral("A"));
}

TEST_F(TransportKeyFocus, AnotherWindowKeepsTheArrowsUnlessAdded)
{
    QWidget window;
    TransportView transport(&window);
    transport.setButtons(&f.back, &f.forward);
    QWidget other;
    QTableView table(&other);
    EXPECT_EQ(titleAfterPress(other, table), QStringLiteral("A"));
    transport.addWindow(&other);
    EXPECT_EQ(titleAfterPress(other, table), QStringLiteral("B"));
    QLineEdit field(&other);
    field.show();
    EXPECT_EQ(titleAfterPress(other, field), QStringLiteral("A"));
}

TEST_F(TransportKeyFocus, TransportAreaPassesTheArrowKeysToTheButtons)
{
    f.play(100);
    QWidget window;
    TransportView transport(&window);
    auto *field = new QLineEdit(&window);
    transport.setButtons(&f.back, &f.forward);
    QTest::keyPress(&transport, Qt::Key_Right);
    EXPECT_TRUE(f.forward.isPressing());
    QTest::keyRelease(&transport, Qt::Key_Right);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
    QTest::keyClick(field, Qt::Key_Right);
    EXPECT_EQ(f.playingTitle(), QStringLiteral("B"));
}

} // namespace
} // namespace lyrabox
