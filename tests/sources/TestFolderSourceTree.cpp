// How the folder tree reacts to the pointer and to volumes that come and go, and how often it
// accesses the disk.

#include "sources/SourcesFixture.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

using testing::ElementsAre;

struct FolderTree : test::SourcesFixture {
    FolderTree()
    {
        NotificationCenter::defaultCenter().addObserver(&observer, notification::folderSelected,
                                                        [this] { ++scans; });
    }

    /// Makes the folders and shows `roots` as roots.
    void showRoots(const QStringList &roots, const QStringList &made = {})
    {
        for (const QString &name : roots + made)
            makeFolder(name);
        setRoots(roots);
        folders.setup();
        folderView.show();
        folderView.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&folderView));
    }
    QModelIndex row(int number, const QModelIndex &parent = {}) const
    {
        return folderView.model()->index(number, 0, parent);
    }
    QString selected() const { return selectedText(folderView); }
    QString shown() const { return listShown().section(u'/', -1); }

    /// Rows are given by number, because a drag may change which folder they show.
    void pointer(QEvent::Type type, int rootRow, Qt::MouseButton button, Qt::MouseButtons held)
    {
        const QPointF place = folderView.visualRect(row(rootRow)).center();
        QMouseEvent event(type, place, folderView.viewport()->mapToGlobal(place), button, held, {});
        QApplication::sendEvent(folderView.viewport(), &event);
    }
    void press(int rootRow, Qt::MouseButton button = Qt::LeftButton)
    {
        pointer(QEvent::MouseButtonPress, rootRow, button, button);
    }
    /// Sends three moves, because the view ignores the first ones after a press.
    void dragTo(int rootRow)
    {
        for (int i = 0; i < 3; ++i)
            pointer(QEvent::MouseMove, rootRow, Qt::NoButton, Qt::LeftButton);
    }
    void release(int rootRow)
    {
        pointer(QEvent::MouseButtonRelease, rootRow, Qt::LeftButton, Qt::NoButton);
    }

    /// Counts how often the disk is asked whether a folder can be read.
    void countQuestions(const QString &name)
    {
        files::setReadabilityProbe([this, asked = path(name)](const QString &probed) {
            questions += probed == asked ? 1 : 0;
            return readable;
        });
    }
    void activateWindow()
    {
        QEvent event(QEvent::WindowActivate);
        QApplication::sendEvent(&folderView, &event);
    }

    QObject observer;
    int scans = 0;
    int questions = 0;
    bool readable = true;
};

TEST_F(FolderTree, DragScansTheRowOfTheReleaseAndNoneThatItPasses)
{
    showRoots({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    press(0);
    for (const int passed : {1, 2, 3})
        dragTo(passed);
    EXPECT_EQ(selected(), u"d"_s) << "the highlight must follow the pointer";
    EXPECT_EQ(scans, 0);
    release(3);
    EXPECT_EQ(scans, 1);
    EXPECT_EQ(shown(), u"d"_s);
    EXPECT_EQ(folders.selectedFolder()->itemID(), path(u"d"_s));
}

TEST_F(FolderTree, DragThatReturnsToTheSelectedRowScansNothing)
{
    showRoots({u"a"_s, u"b"_s, u"c"_s});
    folderView.selectRow(row(0));
    ASSERT_EQ(scans, 1);
    press(0);
    for (const int passed : {1, 2, 0})
        dragTo(passed);
    release(0);
    EXPECT_EQ(selected(), u"a"_s);
    EXPECT_EQ(scans, 1);
}

TEST_F(FolderTree, RightPressSelectsAtOnceSoThatItsMenuAppliesToThatRow)
{
    showRoots({u"a"_s, u"b"_s});
    folderView.selectRow(row(0));
    press(1, Qt::RightButton);
    EXPECT_EQ(shown(), u"b"_s);
    EXPECT_EQ(folders.selectedFolder()->itemID(), path(u"b"_s));
}

TEST_F(FolderTree, PressWhoseReleaseIsLostStillSelects)
{
    showRoots({u"a"_s, u"b"_s});
    press(0);
    QFocusEvent focusOut(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&folderView, &focusOut);
    EXPECT_EQ(shown(), u"a"_s);
    press(1);
    folderView.hide();
    EXPECT_EQ(shown(), u"b"_s);
    EXPECT_EQ(scans, 2);
}

TEST_F(FolderTree, MountDuringADragKeepsListAndSelectionConsistent)
{
    showRoots({u"a"_s, u"b"_s});
    folderView.selectRow(row(0));
    press(1);
    NotificationCenter::defaultCenter().post(notification::volumeDidMount);
    release(1);
    EXPECT_EQ(selected(), u"a"_s);
    EXPECT_EQ(shown(), u"a"_s);
    EXPECT_EQ(scans, 1);
}

TEST_F(FolderTree, AsteriskKeyExpandsTheRowAndListsNothingBelowIt)
{
    showRoots({u"r"_s}, {u"r/a/b/c"_s});
    folderView.hide(); // Drawing would list the folders.
    folderView.selectRow(row(0));
    QTest::keyClick(&folderView, Qt::Key_Asterisk);
    EXPECT_THAT(rowsOf(folderView), ElementsAre(u"r"_s, u"  a"_s));
    const auto *model = static_cast<const SourceTreeModel *>(folderView.model());
    EXPECT_FALSE(model->itemAt(row(0, row(0)))->isListed());
}

TEST_F(FolderTree, DrawingChecksOnceWhetherARowIsReachable)
{
    countQuestions(u"r"_s);
    showRoots({u"r"_s});
    activateWindow();
    questions = 0;
    folderView.grab();
    folderView.grab();
    EXPECT_EQ(questions, 1);
}

TEST_F(FolderTree, NameOfARowNeedsNoDiskAccess)
{
    countQuestions(u"r"_s);
    makeFolder(u"r"_s);
    setRoots({u"r"_s});
    folders.setup();
    EXPECT_EQ(row(0).data().toString(), u"r"_s);
    EXPECT_EQ(questions, 0);
}

TEST_F(FolderTree, RowIsCheckedAgainOnSelectionMountAndWindowActivation)
{
    countQuestions(u"r"_s);
    showRoots({u"r"_s});
    folderView.grab();
    const auto isAsked = [this] { return std::exchange(questions, 0) > 0; };
    const auto isAskedByDrawing = [&] {
        folderView.grab();
        return isAsked();
    };
    EXPECT_TRUE(isAsked());
    EXPECT_FALSE(isAskedByDrawing());
    folderView.selectRow(row(0));
    EXPECT_TRUE(isAskedByDrawing());
    NotificationCenter::defaultCenter().post(notification::volumeDidMount);
    EXPECT_TRUE(isAskedByDrawing());
    activateWindow();
    EXPECT_TRUE(isAskedByDrawing());
    EXPECT_FALSE(isAskedByDrawing());
}

TEST_F(FolderTree, FolderThatBecameReadableIsShownAsReadableWhenTheWindowIsActivated)
{
    readable = false;
    countQuestions(u"r"_s);
    showRoots({u"r"_s});
    folderView.grab();
    EXPECT_TRUE(row(0).data(Qt::FontRole).value<QFont>().italic());
    readable = true;
    activateWindow();
    folderView.grab();
    EXPECT_FALSE(row(0).data(Qt::FontRole).isValid());
    EXPECT_EQ(row(0).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::black));
}

TEST_F(FolderTree, MountKeepsSelectionAndExpansionInTheirRootIfOneRootIsInsideAnother)
{
    showRoots({u"music"_s, u"music/jazz"_s}, {u"music/jazz/trio"_s});
    folderView.expand(row(1));
    folderView.selectRow(row(0, row(1)));
    ASSERT_EQ(selected(), u"trio"_s);
    NotificationCenter::defaultCenter().post(notification::volumeDidMount);
    EXPECT_THAT(rowsOf(folderView), ElementsAre(u"music"_s, u"jazz"_s, u"  trio"_s));
    EXPECT_EQ(folderView.selectedRow().parent(), row(1));
    EXPECT_EQ(folders.selectedFolder()->parent(),
              static_cast<const SourceTreeModel *>(folderView.model())->roots().at(1));
    EXPECT_EQ(scans, 1);

    folderView.selectRow(row(1)); // This root is inside the other one.
    NotificationCenter::defaultCenter().post(notification::volumeDidUnmount);
    EXPECT_EQ(folderView.selectedRow(), row(1));
}

TEST_F(FolderTree, NothingIsSelectedAfterTheSelectedSubfolderVanishesWithItsVolume)
{
    showRoots({u"r"_s}, {u"r/stick"_s});
    folderView.expand(row(0));
    folderView.selectRow(row(0, row(0)));
    ASSERT_EQ(selected(), u"stick"_s);
    ASSERT_TRUE(QDir(path(u"r"_s)).rmdir(u"stick"_s));
    NotificationCenter::defaultCenter().post(notification::volumeDidUnmount);
    EXPECT_EQ(folders.selectedFolder(), nullptr);
    EXPECT_EQ(selected(), QString());
    EXPECT_FALSE(userDefaults().contains(defaultsKey::folderPath));
    EXPECT_EQ(scans, 1);
}

TEST_F(FolderTree, MountKeepsTheScrollPosition)
{
    QStringList below;
    for (int i = 0; i < 60; ++i)
        below.append(u"r/%1"_s.arg(i));
    showRoots({u"r"_s}, below);
    folderView.expand(row(0));
    folderView.selectRow(row(0));
    folderView.verticalScrollBar()->setValue(folderView.verticalScrollBar()->maximum());
    const int scrolled = folderView.verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    NotificationCenter::defaultCenter().post(notification::volumeDidMount);
    folderView.grab();
    EXPECT_EQ(folderView.verticalScrollBar()->value(), scrolled);
}

} // namespace
} // namespace lyrabox
