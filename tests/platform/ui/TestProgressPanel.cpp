#include "platform/ui/ProgressPanel.h"

#include <QAccessible>
#include <QProgressBar>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

struct Window : QWidget {
    Window()
    {
        resize(600, 400);
        view.setGeometry(100, 50, 480, 300);
        show();
    }
    QTableView view{this};
    ProgressPanel *panel = new ProgressPanel(&view);
};

/// Counts the events that the application delivers while the counter exists.
class EventCounter : public QObject {
public:
    explicit EventCounter(QEvent::Type type) : m_type(type) { qApp->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return false;
    }

private:
    QEvent::Type m_type;
};

TEST(ProgressPanel, IsHiddenUntilThereIsProgress)
{
    const Window window;
    EXPECT_FALSE(window.panel->isVisible());
}

TEST(ProgressPanel, LiesInTheMiddleOfItsView)
{
    Window window;
    window.panel->showProgress(u"Reading"_s, 1, 2);
    EXPECT_TRUE(window.panel->isVisible());
    EXPECT_TRUE(window.view.geometry().contains(window.panel->geometry()));
    EXPECT_LE(
        (window.panel->geometry().center() - window.view.geometry().center()).manhattanLength(), 1);
}

TEST(ProgressPanel, FillsTheBarByTheFractionDone)
{
    Window window;
    window.panel->showProgress(u"a"_s, 1, 4);
    EXPECT_EQ(window.panel->shownPermille(), 250);
    window.panel->showProgress(u"b"_s, 9, 4);
    EXPECT_EQ(window.panel->shownPermille(), 1000);
    window.panel->showProgress(u"c"_s, 9, 0);
    EXPECT_EQ(window.panel->shownPermille(), -1);
    EXPECT_EQ(window.panel->text(), u"c"_s);
}

TEST(ProgressPanel, PaintsAtOnceAndHandlesNoEvents)
{
    Window window;
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::postEvent(&window, new QEvent(QEvent::User));
    const EventCounter events(QEvent::User);
    const EventCounter paints(QEvent::Paint);
    window.panel->showProgress(u"Reading"_s, 1, 2);
    EXPECT_GT(paints.count, 0);
    EXPECT_EQ(events.count, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(events.count, 1);
}

TEST(ProgressPanel, DisappearsWhenTheEventLoopRunsAgain)
{
    Window window;
    window.panel->showProgress(u"Reading"_s, 1, 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window.panel->isVisible(); }));
}

TEST(ProgressPanel, ShowsTextAndProgressToAssistivePrograms)
{
    Window window;
    window.panel->showProgress(u"Reading songs: 3 of 4"_s, 3, 4);
    EXPECT_EQ(window.panel->accessibleName(), u"Reading songs: 3 of 4"_s);
    QAccessibleInterface *bar =
        QAccessible::queryAccessibleInterface(window.panel->findChild<QProgressBar *>());
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    EXPECT_EQ(bar->text(QAccessible::Name), u"Reading songs: 3 of 4"_s);
    ASSERT_NE(bar->valueInterface(), nullptr);
    EXPECT_EQ(bar->valueInterface()->currentValue().toInt(), 750);
}

TEST(ProgressPanel, LetsClicksThrough)
{
    Window window;
    window.panel->showProgress(u"Reading"_s, 1, 2);
    EXPECT_NE(window.childAt(window.panel->geometry().center()), window.panel);
}

} // namespace
