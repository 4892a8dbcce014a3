#include "app/shell/LB_AppDelegate.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/ui/SearchField.h"

#include <QAction>
#include <QMainWindow>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

struct AppDelegate : testing::Test {
    AppDelegate()
    {
        auto *content = new QWidget;
        main.setCentralWidget(content);
        auto *layout = new QVBoxLayout(content);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        layout->addWidget(search);
        layout->addWidget(transport);
        layout->addWidget(other);
        transport->setFocusPolicy(Qt::StrongFocus);
        other->setFocusPolicy(Qt::StrongFocus);
        mainItem.setCheckable(true);
        eqItem.setCheckable(true);

        delegate.setMainWindow(&main);
        delegate.setEqWindow(&eq);
        delegate.setMainWindowMenuItem(&mainItem);
        delegate.setEqWindowMenuItem(&eqItem);
        delegate.setSearchField(search);
        delegate.setSplitView(split.get());
        delegate.setTransportView(transport);
        delegate.setURLOpener([this](const QUrl &url) {
            opened = url;
            return true;
        });
        split->setDelegate(&delegate);
        split->setPanes(left, right);
        split->resize(1200, 400);
        split->show();
    }

    void launch()
    {
        NotificationCenter::defaultCenter().post(notification::applicationDidFinishLaunching);
    }

    QMainWindow main;
    QMainWindow eq;
    QAction mainItem;
    QAction eqItem;
    SearchField *search = new SearchField;
    std::unique_ptr<SplitView> split = std::make_unique<SplitView>();
    QWidget *transport = new QWidget;
    QWidget *other = new QWidget;
    QWidget *left = new QWidget;
    QWidget *right = new QWidget;
    LB_AppDelegate delegate;
    QUrl opened;
};

TEST_F(AppDelegate, LaunchColoursBothWindowsAndFocusesTheTransport)
{
    launch();
    main.show();
    for (const QMainWindow *window : {&main, &eq}) {
        const QColor color = window->palette().color(QPalette::Window);
        EXPECT_NEAR(color.red(), 236 + 1, 2);
        EXPECT_NEAR(color.green(), 240 + 1, 2);
        EXPECT_NEAR(color.blue(), 241 + 1, 2);
    }
    EXPECT_NEAR(windowBackgroundColor().alphaF(), 0.95, 0.005);
    EXPECT_EQ(main.focusWidget(), transport);
}

TEST_F(AppDelegate, OnlyTheKeyWindowsItemIsChecked)
{
    delegate.windowDidBecomeKey(&main);
    EXPECT_TRUE(mainItem.isChecked());
    delegate.windowDidBecomeKey(&eq);
    EXPECT_FALSE(mainItem.isChecked());
    EXPECT_TRUE(eqItem.isChecked());
    delegate.windowDidBecomeKey(&main);
    EXPECT_TRUE(mainItem.isChecked());
    EXPECT_FALSE(eqItem.isChecked());
}

TEST_F(AppDelegate, CheckMarksFollowSwitchesBetweenApplications)
{
    QEvent activate(QEvent::WindowActivate);
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(&eq, &activate);
    EXPECT_TRUE(eqItem.isChecked());
    QApplication::sendEvent(&eq, &deactivate);
    EXPECT_FALSE(mainItem.isChecked());
    EXPECT_FALSE(eqItem.isChecked());
    QApplication::sendEvent(&main, &activate);
    EXPECT_TRUE(mainItem.isChecked());
    EXPECT_FALSE(eqItem.isChecked());
}

TEST_F(AppDelegate, TogglesOnlyBringAWindowToTheFront)
{
    delegate.toggleEqWindow();
    EXPECT_TRUE(eq.isVisible());
    delegate.toggleEqWindow();
    EXPECT_TRUE(eq.isVisible()) << "toggling never hides the front window";
    delegate.toggleMainWindow();
    EXPECT_TRUE(main.isVisible());
    EXPECT_TRUE(eq.isVisible());
}

TEST_F(AppDelegate, OnlyClosingTheMainWindowIsAnnounced)
{
    int closed = 0;
    QObject::connect(&delegate, &LB_AppDelegate::mainWindowClosed, &main, [&] { ++closed; });
    delegate.toggleMainWindow();
    delegate.toggleEqWindow();
    eq.close();
    EXPECT_EQ(closed, 0);
    main.close();
    EXPECT_EQ(closed, 1);
}

TEST_F(AppDelegate, DividerStaysBetweenItsLimits)
{
    split->setDividerPosition(50);
    EXPECT_EQ(split->dividerPosition(), 162);
    split->setDividerPosition(900);
    EXPECT_EQ(split->dividerPosition(), 300);
    split->setDividerPosition(200);
    EXPECT_EQ(split->dividerPosition(), 200);
}

TEST_F(AppDelegate, AResizeLimitsTheLeftPaneToAQuarter)
{
    split->setDividerPosition(200);
    split->resize(600, 400);
    EXPECT_EQ(left->width(), 150);
    EXPECT_EQ(right->x(), 151);
    EXPECT_EQ(right->width(), 449);
    EXPECT_EQ(right->height(), 400);
    split->resize(1200, 400);
    EXPECT_EQ(left->width(), 150);
    EXPECT_EQ(right->width(), 1049);
    EXPECT_EQ(leftPaneWidthAfterResize(200, 601), 150);
}

TEST_F(AppDelegate, CancellingTheSearchEmptiesTheFieldAndFocusesTheTransport)
{
    launch();
    main.show();
    search->setFocus();
    QTest::keyClicks(search, u"abc"_s);
    search->cancel();
    EXPECT_EQ(search->text(), QString());
    EXPECT_EQ(main.focusWidget(), transport);
}

TEST_F(AppDelegate, ReturnInTheSearchFieldFocusesTheTransport)
{
    launch();
    main.show();
    main.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
    search->setFocus();
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(main.focusWidget(), transport);
}

TEST_F(AppDelegate, OpensTheSupportAddressAndTheWebsite)
{
    delegate.emailSupport();
    EXPECT_EQ(opened.scheme(), u"mailto"_s);
    EXPECT_TRUE(opened.path().contains(u'@'));
    delegate.openWebsite();
    EXPECT_EQ(opened.scheme(), u"https"_s);
    EXPECT_FALSE(opened.host().isEmpty());
}

} // namespace
} // namespace lyrabox
