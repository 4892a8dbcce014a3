#include "sources/SourcesFixture.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "sources/BrowserPopover.h"
#include "sources/LB_BrowserButton.h"
#include "sources/LB_DirectoryItem.h"

#include <QAbstractButton>
#include <QFile>

namespace lyrabox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FolderSource : test::SourcesFixture {
    void setUpAndRestore()
    {
        folders.setup();
        folders.restoreSelection();
    }
    QString storedPath() const { return userDefaults().value(defaultsKey::folderPath).toString(); }
    void remember(const QString &name) const
    {
        userDefaults().setValue(defaultsKey::folderPath, path(name));
    }
    void select(int row) { folderView.selectRow(folderView.model()->index(row, 0)); }
};

TEST_F(FolderSource, NoStoredFoldersGiveAnEmptyOutlineAndNoSelection)
{
    setUpAndRestore();
    EXPECT_THAT(rowsOf(folderView), IsEmpty());
    EXPECT_EQ(folders.selectedFolder(), nullptr);
    EXPECT_FALSE(folderView.placeholderText().isEmpty());
}

TEST_F(FolderSource, TwoStoredPathsToTheSameFolderLoadAsOneRoot)
{
    makeFolder(QStringLiteral("music"));
    ASSERT_TRUE(QFile::link(path(QStringLiteral("music")), path(QStringLiteral("link"))));
    setRoots({QStringLiteral("link"), QStringLiteral("music")});
    setUpAndRestore();
    EXPECT_THAT(rowsOf(folderView), ElementsAre(QStringLiteral("music")));
}

TEST_F(FolderSource, RestoringAHiddenFolderSelectsItsDeepestListedAncestor)
{
    makeFolder(QStringLiteral("r/x/.hidden"));
    setRoots({QStringLiteral("r")});
    remember(QStringLiteral("r/x/.hidden"));
    setUpAndRestore();
    EXPECT_EQ(selectedText(folderView), QStringLiteral("x"));
    EXPECT_THAT(rowsOf(folderView), ElementsAre(QStringLiteral("r"), QStringLiteral("  x")));
    EXPECT_TRUE(folderView.isExpanded(folderView.selectedRow()));
    EXPECT_EQ(listShown(), path(QStringLiteral("r/x")));
}

TEST_F(FolderSource, RestoringADeletedFolderSelectsNothingAndForgetsIt)
{
    makeFolder(QStringLiteral("r"));
    setRoots({QStringLiteral("r")});
    remember(QStringLiteral("r/gone"));
    setUpAndRestore();
    EXPECT_EQ(folders.selectedFolder(), nullptr);
    EXPECT_FALSE(userDefaults().contains(defaultsKey::folderPath));
}

TEST_F(FolderSource, RestoringAnUnreadableFolderSelectsNothingAndForgetsIt)
{
    makeFolder(QStringLiteral("r/locked"));
    setRoots({QStringLiteral("r")});
    remember(QStringLiteral("r/locked"));
    setUnreadable(QStringLiteral("r/locked"));
    setUpAndRestore();
    EXPECT_EQ(folders.selectedFolder(), nullptr);
    EXPECT_FALSE(userDefaults().contains(defaultsKey::folderPath));
}

TEST_F(FolderSource, RestoringAFolderOutsideAllRootsSelectsNothingAndKeepsTheKey)
{
    makeFolder(QStringLiteral("r"));
    makeFolder(QStringLiteral("elsewhere"));
    setRoots({QStringLiteral("r")});
    remember(QStringLiteral("elsewhere"));
    setUpAndRestore();
    EXPECT_EQ(folders.selectedFolder(), nullptr);
    EXPECT_EQ(storedPath(), path(QStringLiteral("elsewhere")));
}

TEST_F(FolderSource, RestoresADeepFolder)
{
    makeFolder(QStringLiteral("r/a/b/c"));
    setRoots({QStringLiteral("r")});
    remember(QStringLiteral("r/a/b"));
    setUpAndRestore();
    EXPECT_EQ(selectedText(folderView), QStringLiteral("b"));
    EXPECT_EQ(listShown(), path(QStringLiteral("r/a/b")));
}

TEST_F(FolderSource, SelectingAFolderStoresAnnouncesAndScans)
{
    makeFolder(QStringLiteral("r"));
    setRoots({QStringLiteral("r")});
    folders.setup();
    QObject observer;
    QString listAtAnnouncement = QStringLiteral("not announced");
    NotificationCenter::defaultCenter().addObserver(&observer, notification::folderSelected,
                                                    [&] { listAtAnnouncement = listShown(); });
    select(0);
    EXPECT_EQ(storedPath(), path(QStringLiteral("r")));
    EXPECT_EQ(listAtAnnouncement, QString()) << "the scan must come after the announcement";
    EXPECT_EQ(listShown(), path(QStringLiteral("r")));
}

TEST_F(FolderSource, AddingAnExistingRootAddsNothingAndSelectsTheLastVisibleRow)
{
    makeFolder(QStringLiteral("a"));
    makeFolder(QStringLiteral("b"));
    setRoots({QStringLiteral("a"), QStringLiteral("b")});
    folders.setup();
    folders.addFolders({QUrl::fromLocalFile(path(QStringLiteral("a")) + QLatin1Char('/'))});
    EXPECT_THAT(rowsOf(folderView), ElementsAre(QStringLiteral("a"), QStringLiteral("b")));
    EXPECT_EQ(selectedText(folderView), QStringLiteral("b"));
}

TEST_F(FolderSource, AddingAFolderAppendsSelectsAndStoresIt)
{
    makeFolder(QStringLiteral("a/inner"));
    makeFolder(QStringLiteral("b"));
    setRoots({QStringLiteral("a")});
    folders.setup();
    folders.addFolders({QUrl::fromLocalFile(path(QStringLiteral("b")))});
    EXPECT_EQ(selectedText(folderView), QStringLiteral("b"));
    EXPECT_EQ(transport.settings.folderDataArray(),
              QStringList({path(QStringLiteral("a")), path(QStringLiteral("b"))}));
}

TEST_F(FolderSource, AddsTheFolderChosenInTheBrowser)
{
    folders.setup();
    const QString home = QDir::homePath();
    ASSERT_TRUE(QDir().mkpath(home));
    window.show();
    folders.addFolder(&folderView);
    ASSERT_TRUE(popover.isShown());
    auto *browser = popover.findChild<SourceTreeView *>(QStringLiteral("browserOutlineView"));
    auto *ok = popover.findChild<LB_BrowserButton *>(QStringLiteral("okButton"));
    EXPECT_FALSE(ok->isEnabled());
    browser->selectRow(browser->model()->index(0, 0));
    EXPECT_TRUE(ok->isEnabled());
    ok->click();
    EXPECT_FALSE(popover.isShown());
    EXPECT_EQ(transport.settings.folderDataArray(), QStringList({home}));
    EXPECT_EQ(folders.selectedFolder()->itemID(), home);
}

TEST_F(FolderSource, RemovingARootStoresTheOthers)
{
    makeFolder(QStringLiteral("a"));
    makeFolder(QStringLiteral("b"));
    setRoots({QStringLiteral("a"), QStringLiteral("b")});
    folders.setup();
    select(0);
    window.show();
    folders.removeFolder(&folderView);
    EXPECT_EQ(popover.findChild<QLabel *>(QStringLiteral("messageField"))->text(),
              QStringLiteral("Remove folder 'a'?"));
    popover.findChild<QAbstractButton *>(QStringLiteral("okButton"))->click();
    EXPECT_THAT(rowsOf(folderView), ElementsAre(QStringLiteral("b")));
    EXPECT_EQ(folders.selectedFolder(), nullptr);
    EXPECT_EQ(selectedText(folderView), QString());
    EXPECT_EQ(transport.settings.folderDataArray(), QStringList({path(QStringLiteral("b"))}));
    EXPECT_FALSE(userDefaults().contains(defaultsKey::folderPath));
    EXPECT_FALSE(popover.isShown());
}

TEST_F(FolderSource, RemovingWhileASubfolderIsSelectedRemovesNoRootButClearsTheSelection)
{
    makeFolder(QStringLiteral("r/sub"));
    setRoots({QStringLiteral("r")});
    remember(QStringLiteral("r/sub"));
    setUpAndRestore();
    ASSERT_EQ(selectedText(folderView), QStringLiteral("sub"));
    EXPECT_FALSE(folders.selectedFolder()->isRemovable());
    transport.settings.setFolderDataArray({}); // Empty, so that storing the list becomes visible.
    window.show();
    folders.removeFolder(&folderView);
    ASSERT_TRUE(popover.isShown());
    popover.findChild<QAbstractButton *>(QStringLiteral("okButton"))->click();
    EXPECT_THAT(rowsOf(folderView), ElementsAre(QStringLiteral("r"), QStringLiteral("  sub")));
    EXPECT_EQ(folders.selectedFolder(), nullptr);
    EXPECT_EQ(selectedText(folderView), QString());
    EXPECT_FALSE(userDefaults().contains(defaultsKey::folderPath));
    EXPECT_EQ(transport.settings.folderDataArray(), QStringList({path(QStringLiteral("r"))}));
    EXPECT_FALSE(popover.isShown());
}

TEST_F(FolderSource, FolderOfOnlyFilesHiddenFoldersOrPackagesIsNotExpandable)
{
    makeFolder(QStringLiteral("files"));
    QFile file(path(QStringLiteral("files/a.txt")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    makeFolder(QStringLiteral("hidden/.a"));
    makeFolder(QStringLiteral("packages/Tool.app/inside"));
    makeFolder(QStringLiteral("links"));
    ASSERT_TRUE(QFile::link(disk.path(), path(QStringLiteral("links/up"))));
    makeFolder(QStringLiteral("real/sub"));
    for (const char *name : {"files", "hidden", "packages", "links"}) {
        const auto item =
            std::make_shared<LB_FolderItem>(folderURL(path(QLatin1String(name))), nullptr);
        EXPECT_EQ(item->numberOfChildren(), 0) << name;
    }
    const auto real =
        std::make_shared<LB_FolderItem>(folderURL(path(QStringLiteral("real"))), nullptr);
    EXPECT_EQ(real->numberOfChildren(), 1);
    real->resetChildren();
}

TEST_F(FolderSource, MountingOrUnmountingListsAllTreesAgainAndKeepsExpansionAndSelection)
{
    makeFolder(QStringLiteral("r/old"));
    makeFolder(QStringLiteral("s/gone"));
    setRoots({QStringLiteral("r"), QStringLiteral("s")});
    remember(QStringLiteral("r/old"));
    setUpAndRestore();
    folderView.expand(folderView.model()->index(1, 0));
    makeFolder(QStringLiteral("r/new"));
    ASSERT_TRUE(QDir(path(QStringLiteral("s"))).rmdir(QStringLiteral("gone")));
    int scans = 0;
    QObject observer;
    NotificationCenter::defaultCenter().addObserver(&observer, notification::folderSelected,
                                                    [&] { ++scans; });
    NotificationCenter::defaultCenter().post(notification::volumeDidMount);
    EXPECT_THAT(rowsOf(folderView), ElementsAre(QStringLiteral("r"), QStringLiteral("  new"),
                                                QStringLiteral("  old"), QStringLiteral("s")));
    EXPECT_EQ(selectedText(folderView), QStringLiteral("old"));
    EXPECT_EQ(scans, 0);
    makeFolder(QStringLiteral("s/back"));
    NotificationCenter::defaultCenter().post(notification::volumeDidUnmount);
    EXPECT_EQ(folderView.model()->rowCount(folderView.model()->index(1, 0)), 1);
}

TEST_F(FolderSource, SelectingAPlaylistDeselectsTheFolderAndForgetsIt)
{
    makeFolder(QStringLiteral("r"));
    setRoots({QStringLiteral("r")});
    remember(QStringLiteral("r"));
    setUpAndRestore();
    NotificationCenter::defaultCenter().post(notification::playlistSelected);
    EXPECT_EQ(folders.selectedFolder(), nullptr);
    EXPECT_EQ(selectedText(folderView), QString());
    EXPECT_FALSE(userDefaults().contains(defaultsKey::folderPath));
}

TEST_F(FolderSource, ButtonTagDecidesBetweenAddAndRemove)
{
    makeFolder(QStringLiteral("r"));
    setRoots({QStringLiteral("r")});
    folders.setup();
    select(0);
    window.show();
    ButtonMatrix buttons(&window);
    for (const int tag : {0, 1, 5})
        buttons.addCell(tag, QStringLiteral("x"), QStringLiteral("x"));
    buttons.pressCellWithTag(5);
    folders.addRemoveButtonPressed(&buttons);
    EXPECT_FALSE(popover.isShown());
    buttons.pressCellWithTag(1);
    folders.addRemoveButtonPressed(&buttons);
    EXPECT_NE(popover.findChild<SourceTreeView *>(QStringLiteral("browserOutlineView")), nullptr);
    popover.closePopover();
    buttons.pressCellWithTag(0);
    folders.addRemoveButtonPressed(&buttons);
    EXPECT_EQ(
        popover.contentView()->findChild<SourceTreeView *>(QStringLiteral("browserOutlineView")),
        nullptr);
    EXPECT_TRUE(popover.isShown());
}

TEST_F(FolderSource, UnreachableFolderIsSlantedAndGray)
{
    makeFolder(QStringLiteral("r"));
    const auto item =
        std::make_shared<LB_FolderItem>(folderURL(path(QStringLiteral("r"))), nullptr);
    EXPECT_EQ(item->itemName().style.foreground, QColor(Qt::black));
    EXPECT_EQ(item->itemName().style.obliqueness, 0.0);
    setUnreadable(QStringLiteral("r"));
    EXPECT_FALSE(item->isReachable());
    EXPECT_EQ(item->itemName().style.foreground, QColor(0x55, 0x55, 0x55));
    EXPECT_EQ(item->itemName().style.obliqueness, 0.2);
    EXPECT_EQ(item->itemName().text, QStringLiteral("r"));
}

TEST_F(FolderSource, FolderIsListedOnlyWhenItsRowIsShown)
{
    for (int i = 0; i < 200; ++i)
        makeFolder(QStringLiteral("r/f%1/sub").arg(i));
    setRoots({QStringLiteral("r")});
    folders.setup();
    folderView.show();
    folderView.expand(folderView.model()->index(0, 0));
    folderView.grab();
    const auto *model = static_cast<const SourceTreeModel *>(folderView.model());
    int listed = 0;
    for (const SourceItemRef &child : model->roots().front()->children())
        listed += child->isListed() ? 1 : 0;
    EXPECT_GT(listed, 0);
    EXPECT_LT(listed, 40);
}

TEST(FolderPath, IgnoresOnlyATrailingSeparator)
{
    EXPECT_EQ(folderPath(QUrl::fromLocalFile(QStringLiteral("/a/b/"))), QStringLiteral("/a/b"));
    EXPECT_EQ(folderPath(QUrl::fromLocalFile(QStringLiteral("/"))), QStringLiteral("/"));
    EXPECT_NE(folderPath(QUrl::fromLocalFile(QStringLiteral("/A"))),
              folderPath(QUrl::fromLocalFile(QStringLiteral("/a"))));
    EXPECT_EQ(folderPath(QUrl(QStringLiteral("/home/me"))), QStringLiteral("/home/me"));
}

} // namespace
} // namespace lyrabox
