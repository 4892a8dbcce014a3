#include "sources/SourcesFixture.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <QTest>

namespace lyrabox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

MusicPlaylist playlist(const QString &id, const std::optional<QString> &parent = {})
{
    MusicPlaylist made;
    made.persistentID = id;
    made.parentPersistentID = parent;
    made.name = QStringLiteral("Name %1").arg(id);
    made.items.emplace();
    return made;
}

struct PlaylistSource : test::SourcesFixture {
    PlaylistSource() { library = std::make_shared<MusicLibrary>(); }
    MusicPlaylist &add(const QString &id, const std::optional<QString> &parent = {})
    {
        library->playlists.push_back(playlist(id, parent));
        return library->playlists.back();
    }
    QStringList topLevel() const
    {
        QStringList ids;
        for (const SourceItemRef &root : playlists.model()->roots())
            ids.append(std::static_pointer_cast<LB_PlaylistItem>(root)->itemID());
        return ids;
    }
    QString storedPlaylist() const
    {
        return userDefaults().value(defaultsKey::playlist).toString();
    }
};

TEST_F(PlaylistSource, ShowsOnlyVisiblePlaylistsOfTheRightKind)
{
    add(QStringLiteral("plain"));
    add(QStringLiteral("invisible")).visible = false;
    add(QStringLiteral("visible")).visible = true;
    add(QStringLiteral("music")).distinguishedKind = 4;
    add(QStringLiteral("movies")).distinguishedKind = 2;
    add(QStringLiteral("zero")).distinguishedKind = 0;
    playlists.setup();
    EXPECT_EQ(topLevel(), QStringList({QStringLiteral("plain"), QStringLiteral("visible"),
                                       QStringLiteral("music")}));
}

TEST_F(PlaylistSource, ChildListedBeforeItsFolderIsMissing)
{
    add(QStringLiteral("child"), QStringLiteral("folder"));
    add(QStringLiteral("folder"));
    add(QStringLiteral("late"), QStringLiteral("folder"));
    playlists.setup();
    EXPECT_EQ(topLevel(), QStringList({QStringLiteral("folder")}));
    EXPECT_EQ(playlists.model()->roots().front()->numberOfChildren(), 1);
}

TEST_F(PlaylistSource, ChildOfAHiddenFolderIsMissing)
{
    add(QStringLiteral("folder")).visible = false;
    add(QStringLiteral("child"), QStringLiteral("folder"));
    playlists.setup();
    EXPECT_THAT(topLevel(), IsEmpty());
}

TEST_F(PlaylistSource, RestoringExpandsTheAncestorsOfADeepPlaylist)
{
    add(QStringLiteral("first"));
    add(QStringLiteral("1"));
    add(QStringLiteral("2"), QStringLiteral("1"));
    add(QStringLiteral("3"), QStringLiteral("2"));
    userDefaults().setValue(defaultsKey::playlist, QStringLiteral("3"));
    playlists.setup();
    playlists.restoreSelection();
    EXPECT_EQ(selectedText(playlistView), QStringLiteral("Name 3"));
    EXPECT_THAT(rowsOf(playlistView),
                ElementsAre(QStringLiteral("Name first"), QStringLiteral("Name 1"),
                            QStringLiteral("  Name 2"), QStringLiteral("    Name 3")));
    EXPECT_EQ(listShown(), QStringLiteral("3"));
}

TEST_F(PlaylistSource, RestoringScrollsToAPlaylistFarBelow)
{
    for (int i = 0; i < 60; ++i)
        add(QStringLiteral("before %1").arg(i));
    add(QStringLiteral("folder"));
    add(QStringLiteral("inside"), QStringLiteral("folder"));
    for (int i = 0; i < 60; ++i)
        add(QStringLiteral("after %1").arg(i));
    userDefaults().setValue(defaultsKey::playlist, QStringLiteral("inside"));
    playlists.setup();
    playlists.restoreSelection();
    playlistView.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&playlistView));
    const QRect row = playlistView.visualRect(playlistView.selectedRow());
    EXPECT_TRUE(playlistView.viewport()->rect().contains(row)) << row.top();
}

TEST_F(PlaylistSource, RestoringWithoutARememberedPlaylistSelectsTheFirstRow)
{
    add(QStringLiteral("a"));
    add(QStringLiteral("b"));
    playlists.setup();
    playlists.restoreSelection();
    EXPECT_EQ(listShown(), QStringLiteral("a"));
    EXPECT_EQ(storedPlaylist(), QStringLiteral("a"));
}

TEST_F(PlaylistSource, RestoringAMissingPlaylistSelectsTheFirstRow)
{
    add(QStringLiteral("a"));
    userDefaults().setValue(defaultsKey::playlist, QStringLiteral("gone"));
    playlists.setup();
    playlists.restoreSelection();
    EXPECT_EQ(listShown(), QStringLiteral("a"));
}

TEST_F(PlaylistSource, WithoutALibraryNothingIsSelectedOrLoaded)
{
    library.reset();
    playlists.setup();
    playlists.restoreSelection();
    EXPECT_THAT(rowsOf(playlistView), IsEmpty());
    EXPECT_FALSE(tracks.listID().has_value());
    EXPECT_FALSE(userDefaults().contains(defaultsKey::playlist));
}

TEST_F(PlaylistSource, SelectingAFolderClearsTheSelectionWithoutLoadingAndKeepsTheKey)
{
    add(QStringLiteral("a"));
    playlists.setup();
    playlists.restoreSelection();
    int announced = 0;
    QObject observer;
    NotificationCenter::defaultCenter().addObserver(&observer, notification::playlistSelected,
                                                    [&] { ++announced; });
    NotificationCenter::defaultCenter().post(notification::folderSelected);
    EXPECT_EQ(selectedText(playlistView), QString());
    EXPECT_EQ(announced, 0);
    EXPECT_EQ(storedPlaylist(), QStringLiteral("a"));
    EXPECT_EQ(listShown(), QStringLiteral("a"));
}

TEST_F(PlaylistSource, SearchGoesThroughChildrenBeforeTheNextItem)
{
    add(QStringLiteral("1"));
    add(QStringLiteral("twin"), QStringLiteral("1")).name = QStringLiteral("inner");
    add(QStringLiteral("twin")).name = QStringLiteral("outer");
    playlists.setup();
    const auto found = LB_PlaylistSourceController::playlistItemMatchingPersistentIDInArray(
        QStringLiteral("twin"), playlists.model()->roots());
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->itemName(), QStringLiteral("inner"));
    EXPECT_EQ(LB_PlaylistSourceController::playlistItemMatchingPersistentIDInArray(
                  std::nullopt, playlists.model()->roots()),
              nullptr);
}

TEST_F(PlaylistSource, PlaylistWithoutItemsShowsAnEmptyList)
{
    add(QStringLiteral("a")).items.reset();
    playlists.setup();
    playlists.restoreSelection();
    EXPECT_EQ(listShown(), QStringLiteral("a"));
    EXPECT_EQ(tracks.trackCount(), 0U);
}

} // namespace
} // namespace lyrabox
