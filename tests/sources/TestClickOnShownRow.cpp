// Clicks on the row whose list is shown already.
#include "platform/foundation/Machine.h"
#include "sources/SourcesFixture.h"

#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

struct ClickOnTheShownRow : test::SourcesFixture {
    ClickOnTheShownRow()
    {
        limitThreads(0); // The main thread opens the files, so that the stop takes effect at once.
        tracks.setAudioFileOpener([](const QString &) { return OpenedAudioFile{{}, u"1"_s}; });
        tracks.setProgressClock([this] { return now += std::chrono::seconds(1); });
        tracks.setProgressHook([](qint64, qint64) {});
        tracks.setStopProbe([this] { return [this] { return stops; }; });
        QObject::connect(&tracks, &LB_TrackController::listShown, &tracks, [this] { ++lists; });
    }
    ~ClickOnTheShownRow() override { limitThreads({}); }

    void addSongs(const QString &folder, int count) const
    {
        makeFolder(folder);
        for (int i = 0; i < count; ++i) {
            QFile file(path(folder + u"/%1.mp3"_s.arg(i)));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    void showFolders(const QStringList &names)
    {
        for (const QString &name : names)
            addSongs(name, 3);
        setRoots(names);
        folders.setup();
        show(folderView);
    }
    static void show(SourceTreeView &view)
    {
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }
    static void click(SourceTreeView &view, int row)
    {
        const QPoint place = view.visualRect(view.model()->index(row, 0)).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }

    std::chrono::milliseconds now{};
    bool stops = false;
    int lists = 0;
};

TEST_F(ClickOnTheShownRow, ReadsAFolderAgainIfItsListWasStopped)
{
    showFolders({u"a"_s});
    stops = true;
    click(folderView, 0);
    ASSERT_TRUE(tracks.isListIncomplete());
    stops = false;
    click(folderView, 0);
    EXPECT_FALSE(tracks.isListIncomplete());
    EXPECT_EQ(tracks.trackCount(), 3U);
    EXPECT_EQ(listShown(), path(u"a"_s));
    EXPECT_EQ(lists, 2);
}

TEST_F(ClickOnTheShownRow, ReadsAPlaylistAgainIfItsListWasStopped)
{
    library = std::make_shared<MusicLibrary>();
    MusicPlaylist playlist;
    playlist.persistentID = u"P"_s;
    playlist.items = std::vector<QString>{u"1"_s, u"2"_s, u"3"_s};
    library->playlists.push_back(playlist);
    playlists.setup();
    show(playlistView);
    stops = true;
    click(playlistView, 0);
    ASSERT_TRUE(tracks.isListIncomplete());
    stops = false;
    click(playlistView, 0);
    EXPECT_FALSE(tracks.isListIncomplete());
    EXPECT_EQ(tracks.trackCount(), 3U);
    EXPECT_EQ(lists, 2);
}

TEST_F(ClickOnTheShownRow, ReadsNothingIfTheListIsComplete)
{
    showFolders({u"a"_s});
    click(folderView, 0);
    click(folderView, 0);
    EXPECT_EQ(lists, 1);
}

TEST_F(ClickOnTheShownRow, ReadsNothingIfTheClickSelectedAnotherRow)
{
    showFolders({u"a"_s, u"b"_s});
    stops = true;
    click(folderView, 0);
    click(folderView, 1);
    EXPECT_EQ(lists, 2);
    EXPECT_EQ(listShown(), path(u"b"_s));
}

} // namespace
} // namespace lyrabox
