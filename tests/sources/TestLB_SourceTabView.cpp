#include "sources/LB_SourceTabView.h"
#include "sources/SourcesFixture.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

namespace lyrabox {
namespace {

struct SourceTabs : test::SourcesFixture {
    SourceTabs()
    {
        library = std::make_shared<MusicLibrary>();
        MusicPlaylist playlist;
        playlist.persistentID = QStringLiteral("first");
        playlist.name = QStringLiteral("First");
        playlist.items.emplace();
        library->playlists.push_back(playlist);
        selector.setSegments({QStringLiteral("Playlists"), QStringLiteral("Folders")});
        tabs.addWidget(new QWidget);
        tabs.addWidget(new QWidget);
        tabs.setTabSelector(&selector);
        tabs.setAddRemoveButtons(&buttons);
        tabs.setFolderController(&folders);
        tabs.setPlaylistController(&playlists);
        makeFolder(QStringLiteral("r"));
    }

    /// The settings store reads its files when the tabs wake it, so the folder must come from a
    /// file.
    void storeRootFolder()
    {
        const auto support = transport.settings.applicationSupportDirectory();
        QFile file(support->toLocalFile() + QStringLiteral("/Folders.plist"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><array><string>" +
            path(QStringLiteral("r")).toUtf8() + "</string></array></plist>\n");
    }
    void press(int segment)
    {
        selector.setSelectedSegment(segment);
        tabs.segmentedControlPressed(&selector);
    }
    int lastTab() const { return userDefaults().value(defaultsKey::lastTab, -1).toInt(); }

    SegmentedControl selector;
    ButtonMatrix buttons;
    LB_SourceTabView tabs;
};

TEST_F(SourceTabs, FirstStartShowsThePlaylistTabAndSelectsTheFirstPlaylist)
{
    tabs.awakeFromNib();
    EXPECT_EQ(tabs.currentIndex(), 0);
    EXPECT_EQ(selector.selectedSegment(), 0);
    EXPECT_TRUE(buttons.isHidden());
    EXPECT_EQ(listShown(), QStringLiteral("first"));
}

TEST_F(SourceTabs, RememberedFolderTabShowsTheButtonsAndScansTheFolder)
{
    storeRootFolder();
    userDefaults().setValue(defaultsKey::lastTab, 1);
    userDefaults().setValue(defaultsKey::folderPath, path(QStringLiteral("r")));
    tabs.awakeFromNib();
    EXPECT_EQ(tabs.currentIndex(), 1);
    EXPECT_FALSE(buttons.isHidden());
    EXPECT_EQ(listShown(), path(QStringLiteral("r")));
    EXPECT_EQ(selectedText(playlistView), QString());
}

TEST_F(SourceTabs, SwitchingTabsWithoutSelectingIsNotRemembered)
{
    tabs.awakeFromNib();
    press(1);
    EXPECT_EQ(tabs.currentIndex(), 1);
    EXPECT_FALSE(buttons.isHidden());
    EXPECT_EQ(listShown(), QStringLiteral("first"));
    EXPECT_NE(lastTab(), 1);
    press(0);
    EXPECT_TRUE(buttons.isHidden());
}

TEST_F(SourceTabs, SelectingAFolderOnTheFolderTabRemembersTheTab)
{
    storeRootFolder();
    tabs.awakeFromNib();
    press(1);
    folderView.selectRow(folderView.model()->index(0, 0));
    EXPECT_EQ(lastTab(), 1);
}

TEST_F(SourceTabs, ListFromNeitherTabClearsTheSelectionAndStays)
{
    storeRootFolder();
    tabs.awakeFromNib();
    ASSERT_EQ(selectedText(playlistView), QStringLiteral("First"));
    tabs.selectNoSource();
    EXPECT_EQ(selectedText(playlistView), QString());
    EXPECT_EQ(listShown(), QStringLiteral("first"));
    EXPECT_EQ(userDefaults().value(defaultsKey::playlist).toString(), QStringLiteral("first"));
    playlistView.selectRow(playlistView.model()->index(0, 0));
    EXPECT_EQ(selectedText(playlistView), QStringLiteral("First"));

    press(1);
    folderView.selectRow(folderView.model()->index(0, 0));
    tabs.selectNoSource();
    EXPECT_EQ(selectedText(folderView), QString());
    EXPECT_EQ(folders.selectedFolder(), nullptr);
    EXPECT_FALSE(userDefaults().contains(defaultsKey::folderPath));
    EXPECT_EQ(listShown(), path(QStringLiteral("r")));
}

TEST_F(SourceTabs, UnknownRememberedTabRestoresNothing)
{
    userDefaults().setValue(defaultsKey::lastTab, 5);
    tabs.awakeFromNib();
    EXPECT_FALSE(tracks.listID().has_value());
}

} // namespace
} // namespace lyrabox
