#include "platform/ui/Popover.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using lyrabox::placePopover;
using lyrabox::Popover;
using namespace Qt::Literals::StringLiterals;

namespace {

class PopoverTest : public testing::Test {
protected:
    PopoverTest()
    {
        window.resize(600, 400);
        anchor = new QPushButton(u"+"_s, &window);
        anchor->setGeometry(10, 180, 30, 26);
        elsewhere = new QLineEdit(&window);
        elsewhere->setGeometry(10, 10, 100, 26);
        auto *content = new QWidget;
        auto *layout = new QVBoxLayout(content);
        input = new QLineEdit;
        ok = new QPushButton(u"OK"_s);
        layout->addWidget(new QLabel(u"Enter a name for the new preset"_s));
        layout->addWidget(input);
        layout->addWidget(ok);
        popover = new Popover(&window);
        popover->setContentView(content);
        popover->setContentSize(QSize(240, 110));
        window.show();
        window.activateWindow();
    }

    QWidget window;
    QPushButton *anchor;
    QLineEdit *elsewhere;
    QLineEdit *input;
    QPushButton *ok;
    Popover *popover;
};

TEST_F(PopoverTest, ShowsItsContentOnTheAnchorsRightSide)
{
    EXPECT_FALSE(popover->isShown());
    popover->showRelativeTo(anchor, Popover::Edge::MaxX);
    EXPECT_TRUE(popover->isShown());
    EXPECT_TRUE(popover->isVisible());
    EXPECT_GE(popover->geometry().left(), anchor->geometry().right());
    EXPECT_EQ(popover->contentView()->size(), QSize(240, 110));
    EXPECT_NEAR(popover->geometry().center().y(), anchor->geometry().center().y(), 1);
}

TEST_F(PopoverTest, FirstControlOfTheContentTakesTheKeyboardAndText)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    elsewhere->setFocus();
    popover->showRelativeTo(anchor, Popover::Edge::MaxX);
    ASSERT_EQ(QApplication::focusWidget(), input);
    QTest::keyClicks(QApplication::focusWidget(), u"Bass"_s);
    EXPECT_EQ(input->text(), u"Bass"_s);
    popover->closePopover();
    EXPECT_EQ(QApplication::focusWidget(), elsewhere) << "the focus returns";
}

TEST_F(PopoverTest, InAnInactiveWindowTheFocusReturnsToItsWidget)
{
    elsewhere->setFocus();
    QWidget active;
    auto *ofTheOther = new QLineEdit(&active);
    active.show();
    active.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&active));
    ofTheOther->setFocus();
    popover->showRelativeTo(anchor, Popover::Edge::MaxX);
    EXPECT_EQ(window.focusWidget(), input);
    popover->closePopover();
    EXPECT_EQ(window.focusWidget(), elsewhere);
    EXPECT_TRUE(ofTheOther->hasFocus());
}

TEST_F(PopoverTest, TabStaysInsideTheContent)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    popover->showRelativeTo(anchor, Popover::Edge::MaxX);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), ok);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), input);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), ok);
}

TEST_F(PopoverTest, EscapeClosesIt)
{
    const QSignalSpy closed(popover, &Popover::closed);
    popover->showRelativeTo(anchor, Popover::Edge::MaxX);
    QTest::keyClick(input, Qt::Key_Escape);
    EXPECT_FALSE(popover->isShown());
    EXPECT_FALSE(popover->isVisible());
    EXPECT_EQ(closed.count(), 1);
}

TEST_F(PopoverTest, ClickOutsideClosesItAndClickInsideDoesNot)
{
    popover->showRelativeTo(anchor, Popover::Edge::MaxX);
    QTest::mouseClick(input, Qt::LeftButton);
    QTest::mouseClick(popover, Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_TRUE(popover->isShown());
    QTest::mouseClick(elsewhere, Qt::LeftButton);
    EXPECT_FALSE(popover->isShown());
}

TEST_F(PopoverTest, ClickOnTheAnchorDoesNotCloseIt)
{
    QObject::connect(anchor, &QPushButton::clicked, popover, [this] {
        if (popover->isShown())
            popover->closePopover();
        else
            popover->showRelativeTo(anchor, Popover::Edge::MaxX);
    });
    QTest::mouseClick(anchor, Qt::LeftButton);
    EXPECT_TRUE(popover->isShown());
    QTest::mouseClick(anchor, Qt::LeftButton);
    EXPECT_FALSE(popover->isShown());
}

TEST_F(PopoverTest, NewContentReplacesTheOld)
{
    const QPointer<QWidget> old = popover->contentView();
    auto *next = new QLabel(u"Remove?"_s);
    popover->setContentView(next);
    EXPECT_EQ(popover->contentView(), next);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(old.isNull());
}

TEST_F(PopoverTest, ContentKeepsTheSizeOfItsInterfaceDefinition)
{
    for (const QSize size : {QSize(320, 300), QSize(280, 96)}) {
        auto *view = new QWidget;
        view->resize(size);
        popover->setContentView(view);
        popover->setContentSize(view->size());
        popover->showRelativeTo(anchor, Popover::Edge::MaxX);
        EXPECT_EQ(view->size(), size);
    }
}

TEST_F(PopoverTest, HidingTheAnchorClosesIt)
{
    popover->showRelativeTo(anchor, Popover::Edge::MaxX);
    anchor->hide();
    EXPECT_FALSE(popover->isShown());
}

TEST_F(PopoverTest, StaysInsideAWindowThatShrinks)
{
    popover->showRelativeTo(anchor, Popover::Edge::MaxX);
    window.resize(280, 260);
    EXPECT_TRUE(window.rect().contains(popover->geometry()));
}

TEST(PopoverPlacement, UsesTheOppositeSideIfThePreferredOneHasNoRoom)
{
    const QRect window(0, 0, 600, 400);
    const QSize size(200, 100);
    const QRect right(560, 180, 30, 26);
    EXPECT_EQ(placePopover(size, right, window, Popover::Edge::MaxX).edge, Popover::Edge::MinX);
    EXPECT_EQ(placePopover(size, right, window, Popover::Edge::MinX).edge, Popover::Edge::MinX);
    const QRect bottom(280, 370, 30, 26);
    EXPECT_EQ(placePopover(size, bottom, window, Popover::Edge::MaxY).edge, Popover::Edge::MinY);
    const QRect top(280, 4, 30, 26);
    EXPECT_EQ(placePopover(size, top, window, Popover::Edge::MinY).edge, Popover::Edge::MaxY);
}

TEST(PopoverPlacement, ArrowPointsAtTheAnchorEvenIfThePanelIsMoved)
{
    const QRect window(0, 0, 600, 400);
    const QRect anchor(10, 360, 30, 26);
    const lyrabox::PopoverPlacement placement =
        placePopover(QSize(200, 160), anchor, window, Popover::Edge::MaxX);
    EXPECT_TRUE(window.contains(placement.frame));
    EXPECT_EQ(placement.frame.top() + placement.arrowOffset, anchor.center().y());
}

} // namespace
