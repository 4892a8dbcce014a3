// Changes that happen while a popover of the folder list is open.

#include "sources/SourcesFixture.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "sources/LB_BrowserButton.h"

#include <QAbstractButton>
#include <QPointer>

namespace lyrabox {
namespace {

struct FolderPopover : test::SourcesFixture {
    FolderPopover()
    {
        for (const char *name : {"a/inner", "b", "c"})
            makeFolder(QLatin1String(name));
        setRoots({QStringLiteral("a"), QStringLiteral("b")});
        folders.setup();
        window.show();
    }

    void select(int row) { folderView.selectRow(folderView.model()->index(row, 0)); }
    /// Opens the question whether to remove the root in that row. Returns its OK button.
    QPointer<QAbstractButton> askToRemove(int row)
    {
        select(row);
        folders.removeFolder(&button);
        EXPECT_TRUE(popover.isShown());
        return popover.contentView()->findChild<QAbstractButton *>(QStringLiteral("okButton"));
    }
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }
    void expectRoots(const QStringList &names) const
    {
        QStringList paths;
        for (const QString &name : names)
            paths.append(path(name));
        EXPECT_EQ(transport.settings.folderDataArray(), paths);
    }

    QWidget button{&window};
};

TEST_F(FolderPopover, OpeningAFolderFromElsewhereClosesTheQuestionAndRemovesNone)
{
    const QPointer<QAbstractButton> ok = askToRemove(0);
    folders.addFolders({url(QStringLiteral("c"))});
    EXPECT_FALSE(popover.isShown());
    if (ok)
        ok->click();
    expectRoots({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
}

TEST_F(FolderPopover, SelectingAnotherFolderClosesTheQuestionAndRemovesNone)
{
    const QPointer<QAbstractButton> ok = askToRemove(0);
    select(1);
    EXPECT_FALSE(popover.isShown());
    if (ok)
        ok->click();
    EXPECT_EQ(folderView.model()->rowCount(), 2);
    EXPECT_EQ(selectedText(folderView), QStringLiteral("b"));
}

TEST_F(FolderPopover, SelectingAPlaylistClosesTheQuestion)
{
    const QPointer<QAbstractButton> ok = askToRemove(1);
    NotificationCenter::defaultCenter().post(notification::playlistSelected);
    EXPECT_FALSE(popover.isShown());
    if (ok)
        ok->click();
    EXPECT_EQ(folderView.model()->rowCount(), 2);
}

TEST_F(FolderPopover, MountingAVolumeKeepsTheQuestionAboutTheSameFolder)
{
    const QPointer<QAbstractButton> ok = askToRemove(0);
    NotificationCenter::defaultCenter().post(notification::volumeDidMount);
    NotificationCenter::defaultCenter().post(notification::volumeDidUnmount);
    ASSERT_TRUE(popover.isShown());
    ok->click();
    EXPECT_FALSE(popover.isShown());
    expectRoots({QStringLiteral("b")});
    EXPECT_EQ(folders.selectedFolder(), nullptr);
}

TEST_F(FolderPopover, AFolderDeletedDuringTheQuestionCanStillBeRemoved)
{
    const QPointer<QAbstractButton> ok = askToRemove(1);
    ASSERT_TRUE(QDir().rmdir(path(QStringLiteral("b"))));
    NotificationCenter::defaultCenter().post(notification::volumeDidUnmount);
    ASSERT_TRUE(popover.isShown());
    ok->click();
    expectRoots({QStringLiteral("a")});
}

TEST_F(FolderPopover, SecondPressOfOkRemovesNothingMore)
{
    const QPointer<QAbstractButton> ok = askToRemove(0);
    ok->click();
    select(0);
    if (ok)
        ok->click();
    expectRoots({QStringLiteral("b")});
    EXPECT_EQ(selectedText(folderView), QStringLiteral("b"));
}

TEST_F(FolderPopover, BrowserStaysOpenDuringChangesOfTheTreeAndAddsTheChosenFolder)
{
    folders.addFolder(&button);
    ASSERT_TRUE(popover.isShown());
    auto *browser = popover.findChild<SourceTreeView *>(QStringLiteral("browserOutlineView"));
    auto *ok = popover.findChild<LB_BrowserButton *>(QStringLiteral("okButton"));
    browser->selectRow(browser->model()->index(0, 0));
    select(1);
    folders.addFolders({url(QStringLiteral("c"))});
    NotificationCenter::defaultCenter().post(notification::playlistSelected);
    NotificationCenter::defaultCenter().post(notification::volumeDidMount);
    ASSERT_TRUE(popover.isShown());
    ok->click();
    EXPECT_FALSE(popover.isShown());
    EXPECT_EQ(transport.settings.folderDataArray().last(), QDir::homePath());
    EXPECT_EQ(folderView.model()->rowCount(), 4);
}

TEST_F(FolderPopover, BrowserReplacesTheQuestionAndKeepsItsFolder)
{
    const QPointer<QAbstractButton> ok = askToRemove(0);
    folders.addFolder(&button);
    ASSERT_TRUE(popover.isShown());
    if (ok)
        ok->click();
    EXPECT_EQ(folderView.model()->rowCount(), 2);
    select(1); // The question is gone, so nothing must be closed.
    EXPECT_TRUE(popover.isShown());
}

TEST_F(FolderPopover, ClosingTheWindowClosesTheQuestion)
{
    askToRemove(0);
    window.close();
    EXPECT_FALSE(popover.isShown());
    EXPECT_EQ(folderView.model()->rowCount(), 2);
}

} // namespace
} // namespace lyrabox
