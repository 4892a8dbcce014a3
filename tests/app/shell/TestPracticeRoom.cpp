// Tests of the practice pane's place in the main window, and of its menu.

#include "PracticeRoomFixture.h"
#include "app/practice/PaneDivider.h"
#include "app/shell/HelpText.h"
#include "app/shell/MainMenu.h"
#include "navigation/LB_NavigationView.h"

#include <QAccessible>
#include <QFile>
#include <QLineEdit>

#include <algorithm>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST_F(PracticeRoom, ThePaneIsClosedAtFirstAndLeavesNoTrace)
{
    EXPECT_EQ(pane(), nullptr);
    EXPECT_FALSE(menuIsShown());
    for (const QAction *action : menu()->actions())
        EXPECT_FALSE(action->isEnabled() && !action->isSeparator());
    program->composition->terminate();
    EXPECT_FALSE(userDefaults().contains(u"practicePane"_s));
    EXPECT_FALSE(userDefaults().contains(u"practicePaneHeight"_s));
}

TEST_F(PracticeRoom, Ctrl3OpensAndClosesThePane)
{
    resize(860);
    EXPECT_EQ(command(u"Practice Pane"_s)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_3));
    const QRect before = lists->geometry();
    open();
    ASSERT_NE(pane(), nullptr);
    EXPECT_TRUE(pane()->isVisible());
    EXPECT_TRUE(menuIsShown());
    EXPECT_TRUE(command(u"Practice Pane"_s)->isChecked());
    EXPECT_TRUE(command(u"Whole Song"_s)->isEnabled());
    open();
    resize(860);
    EXPECT_FALSE(pane()->isVisible());
    EXPECT_FALSE(menuIsShown());
    EXPECT_FALSE(command(u"Whole Song"_s)->isEnabled());
    EXPECT_EQ(lists->geometry(), before);
}

TEST_F(PracticeRoom, ThePaneLiesBetweenListsAndTransport)
{
    open();
    resize(860);
    const auto *transport = window->findChild<QWidget *>(u"transportView"_s);
    EXPECT_EQ(pane()->height(), 320);
    EXPECT_EQ(lists->geometry().bottom() + 1, pane()->geometry().top());
    EXPECT_EQ(pane()->geometry().bottom() + 2, transport->geometry().top()); // with the line
    EXPECT_EQ(paneSwitch(), nullptr);
}

TEST_F(PracticeRoom, TheWindowGrowsOnlyTheFirstTimeThatThePaneOpens)
{
    resize(400);
    const int before = window->height();
    const int border = window->frameGeometry().height() - before;
    const int screen = window->screen()->availableSize().height() - border;
    open();
    QCoreApplication::processEvents();
    EXPECT_EQ(window->height(), std::min(before + 320, screen));
    open();
    const int closed = window->height();
    open();
    QCoreApplication::processEvents();
    EXPECT_EQ(window->height(), closed);
}

TEST_F(PracticeRoom, ThePaneAndItsHeightAreRemembered)
{
    open();
    resize(900);
    QTest::keyClick(pane()->divider(), Qt::Key_Up);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane()->height(), 328);
    endAndLaunch();
    resize(900);
    ASSERT_NE(pane(), nullptr);
    EXPECT_TRUE(pane()->isVisible());
    EXPECT_EQ(pane()->height(), 328);
    EXPECT_TRUE(command(u"Practice Pane"_s)->isChecked());
    EXPECT_TRUE(menuIsShown());
    open();
    endAndLaunch();
    EXPECT_EQ(pane(), nullptr);
}

TEST_F(PracticeRoom, TheDividerIsDraggedWithinItsLimits)
{
    open();
    resize(1000);
    PaneDivider *divider = pane()->divider();
    const auto drag = [&](int y) {
        QTest::mousePress(divider, Qt::LeftButton, {}, {100, 1});
        const QPointF point(100, 1 + y);
        QMouseEvent event(QEvent::MouseMove, point, divider->mapToGlobal(point), Qt::NoButton,
                          Qt::LeftButton, {});
        QCoreApplication::sendEvent(divider, &event);
        QTest::mouseRelease(divider, Qt::LeftButton);
        QCoreApplication::processEvents();
    };
    drag(-60);
    EXPECT_EQ(pane()->height(), 380);
    drag(500);
    EXPECT_EQ(pane()->height(), 240);
    drag(-900);
    EXPECT_EQ(pane()->height(), 460);
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(divider);
    EXPECT_EQ(face->role(), QAccessible::Splitter);
    EXPECT_EQ(face->valueInterface()->currentValue(), 460);
}

TEST_F(PracticeRoom, ALowWindowShowsEitherTheSongsOrThePane)
{
    open();
    resize(480);
    EXPECT_TRUE(pane()->isVisible());
    EXPECT_FALSE(lists->isVisible());
    ASSERT_NE(paneSwitch(), nullptr);
    EXPECT_EQ(paneSwitch()->selectedSegment(), 1);
    const QPoint place = paneSwitch()->mapTo(window, QPoint());

    paneSwitch()->pressSegment(0);
    QCoreApplication::processEvents();
    EXPECT_FALSE(pane()->isVisible());
    EXPECT_TRUE(lists->isVisible());
    ASSERT_NE(paneSwitch(), nullptr);
    EXPECT_EQ(paneSwitch()->selectedSegment(), 0);
    EXPECT_EQ(paneSwitch()->mapTo(window, QPoint()), place);
    EXPECT_FALSE(command(u"Whole Song"_s)->isEnabled());

    paneSwitch()->pressSegment(1);
    QCoreApplication::processEvents();
    EXPECT_TRUE(pane()->isVisible());
    EXPECT_FALSE(lists->isVisible());

    resize(860);
    EXPECT_TRUE(pane()->isVisible());
    EXPECT_TRUE(lists->isVisible());
    EXPECT_EQ(paneSwitch(), nullptr);
}

TEST_F(PracticeRoom, CommandsOfTheListsBringThemBack)
{
    open();
    resize(480);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    const std::pair<QString, QString> commands[] = {
        {u"Song List"_s, u"trackTableView"_s},
        {u"Search Songs"_s, u"searchField"_s},
    };
    for (const auto &[text, widget] : commands) {
        command(text)->trigger();
        EXPECT_TRUE(lists->isVisible()) << text.toStdString();
        EXPECT_EQ(QApplication::focusWidget(), window->findChild<QWidget *>(widget))
            << text.toStdString();
        paneSwitch()->pressSegment(1);
        EXPECT_FALSE(lists->isVisible());
    }
    command(u"Playlists and Folders"_s)->trigger();
    EXPECT_TRUE(lists->isVisible());
    paneSwitch()->pressSegment(1);
    command(u"Show Playing Song"_s)->setEnabled(true);
    command(u"Show Playing Song"_s)->trigger();
    EXPECT_TRUE(lists->isVisible());
}

TEST_F(PracticeRoom, AClickSeeksByTheRuleOfTheNavigationBarAndAClosedPaneKeepsNoSong)
{
    openWithSong();
    // A place before the start of the loop counts as that start.
    audio()->setLoop({10 * 44100, 15 * 44100});
    WaveView *wave = pane()->wave();
    wave->showWholeSong();
    QTest::mouseClick(wave, Qt::LeftButton, {}, {wave->width() / 4, 100});
    EXPECT_EQ(audio()->currentFrame(), 10U * 44100U);
    open();
    EXPECT_EQ(pane()->peaks().song(), nullptr);
}

TEST_F(PracticeRoom, FollowIsCheckedWhileTheWaveFollows)
{
    open();
    EXPECT_TRUE(command(u"Follow"_s)->isChecked());
    command(u"Follow"_s)->trigger();
    EXPECT_FALSE(command(u"Follow"_s)->isChecked());
    EXPECT_FALSE(pane()->wave()->isFollowing());
    command(u"Follow"_s)->trigger();
    EXPECT_TRUE(pane()->wave()->isFollowing());
}

TEST_F(PracticeRoom, MenuHelpAndGuideNameTheSameKeys)
{
    const auto *all = window->findChild<MainMenu *>();
    const QList<PracticeCommandEntry> entries = practiceCommands();
    ASSERT_EQ(all->practiceActions.size(), entries.size());
    for (qsizetype index = 0; index < entries.size(); ++index) {
        EXPECT_EQ(all->practiceActions.at(index)->shortcuts(), entries.at(index).keys);
        EXPECT_EQ(all->practiceActions.at(index)->text(), entries.at(index).text);
    }
    QFile file(QStringLiteral(LYRABOX_SOURCE_DIR "/docs/guide.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString guide = QString::fromUtf8(file.readAll());
    const QString help = keysHelpText();
    for (const PracticeKeyLine &line : practiceKeyLines()) {
        EXPECT_TRUE(help.contains(line.keys + u": "_s + line.what)) << line.what.toStdString();
        EXPECT_TRUE(guide.contains(u"| "_s + line.keys + u" |"_s)) << line.keys.toStdString();
    }
}

TEST_F(PracticeRoom, TheMenuHasEveryCommandAndEnablesWhatApplies)
{
    openWithSong();
    const auto *all = window->findChild<MainMenu *>();
    for (const QAction *action : all->practiceActions) {
        const auto *holder = qobject_cast<QMenu *>(action->parent());
        EXPECT_TRUE(holder == menu() || (holder && holder->parent() == menu()))
            << action->text().toStdString();
    }
    const auto submenu = [&](const QString &title) {
        for (const QMenu *found : menu()->findChildren<QMenu *>()) {
            if (found->title().remove(u'&') == title)
                return found->menuAction();
        }
        ADD_FAILURE() << title.toStdString();
        return menu()->menuAction();
    };
    EXPECT_FALSE(command(u"Keep Loop"_s)->isEnabled());
    EXPECT_TRUE(command(u"Add Marker"_s)->isEnabled());
    EXPECT_FALSE(submenu(u"Move Start"_s)->isEnabled());
    audio()->setLoop({44100, 88200});
    EXPECT_TRUE(command(u"Keep Loop"_s)->isEnabled());
    EXPECT_TRUE(submenu(u"Move Start"_s)->isEnabled());
    EXPECT_FALSE(command(u"Loop 1"_s)->isEnabled());
    command(u"Keep Loop"_s)->trigger();
    EXPECT_FALSE(command(u"Keep Loop"_s)->isEnabled());
    EXPECT_TRUE(submenu(u"Play"_s)->isEnabled());
    EXPECT_TRUE(command(u"Loop 1"_s)->isEnabled());
    EXPECT_FALSE(command(u"Loop 2"_s)->isEnabled());
    EXPECT_TRUE(command(u"Undo"_s)->isEnabled());
    open(); // closes it
    for (const QAction *action : all->practiceActions)
        EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
}

} // namespace
