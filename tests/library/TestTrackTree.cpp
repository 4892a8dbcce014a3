// Lists of a folder with its subfolders, and lists that the user stops.

#include "library/LB_TrackController.h"
#include "library/LibraryFixture.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Machine.h"

#include <QDir>
#include <QSignalSpy>

#include <atomic>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TrackTree : public testing::Test {
protected:
    TrackTree()
    {
        userDefaults().remove(LB_TrackController::includeSubfoldersKey);
        f = std::make_unique<LibraryFixture>();
        f->tracks.setAudioFileOpener([this](const QString &path) {
            ++opened;
            return path.endsWith(u".txt"_s)
                       ? std::nullopt
                       : std::optional(OpenedAudioFile{{}, path.section(u'/', -1)});
        });
    }
    ~TrackTree() override { userDefaults().remove(LB_TrackController::includeSubfoldersKey); }

    void add(const QStringList &files)
    {
        for (const QString &file : files) {
            const QString path = root.filePath(file);
            ASSERT_TRUE(QDir().mkpath(path.section(u'/', 0, -2)));
            ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
        }
    }
    void scan()
    {
        f->tracks.scanForAudioFilesStartingAtURLFolderID(QUrl::fromLocalFile(root.path()),
                                                         root.path());
    }
    QStringList shownFiles() const
    {
        QStringList files;
        for (const TrackRecordRef &record : f->tracks.content())
            files.append(record->fileURL.toLocalFile().mid(root.path().size() + 1));
        return files;
    }

    /// Reports progress at every step and stops the work when `isStop` returns true.
    void stopWhen(std::function<bool(qint64 done, qint64 found)> isStop)
    {
        auto stops = std::make_shared<bool>(false);
        f->tracks.setProgressClock([this] { return now += std::chrono::seconds(1); });
        f->tracks.setProgressHook([isStop = std::move(isStop), stops](qint64 done, qint64 found) {
            *stops = *stops || isStop(done, found);
        });
        f->tracks.setStopProbe([stops] { return [stops] { return *stops; }; });
    }

    std::atomic<int> opened = 0;
    std::chrono::milliseconds now{};
    QTemporaryDir root;
    std::unique_ptr<LibraryFixture> f;
};

TEST_F(TrackTree, HoldsOnlyTheFoldersOwnSongsByDefault)
{
    add({u"own"_s, u"below/inner"_s});
    scan();
    EXPECT_FALSE(f->tracks.includesSubfolders());
    EXPECT_EQ(shownFiles(), (QStringList{u"own"_s}));
}

TEST_F(TrackTree, ListsTheSongsOfTheWholeTreeFolderByFolder)
{
    add({u"own"_s, u"a/1"_s, u"a/deep/2"_s, u"a/notes.txt"_s});
    f->tracks.setIncludesSubfolders(true);
    scan();
    EXPECT_EQ(shownFiles(), (QStringList{u"own"_s, u"a/1"_s, u"a/deep/2"_s}));
    const TrackRecordList content = f->tracks.content();
    for (std::size_t i = 0; i < content.size(); ++i)
        EXPECT_EQ(content[i]->order, static_cast<int>(i) + 1);
    EXPECT_EQ(f->tracks.trackCount(), 3U);
}

TEST_F(TrackTree, ReadsTheShownFolderAgainWhenTheSettingChangesAndRemembersIt)
{
    add({u"own"_s, u"below/inner"_s});
    scan();
    const QSignalSpy changes(&f->tracks, &LB_TrackController::includesSubfoldersChanged);
    f->tracks.setIncludesSubfolders(true);
    EXPECT_EQ(shownFiles(), (QStringList{u"own"_s, u"below/inner"_s}));
    EXPECT_TRUE(userDefaults().value(LB_TrackController::includeSubfoldersKey).toBool());
    EXPECT_EQ(changes.size(), 1);

    LB_TrackController next;
    QTableView table;
    next.setQueue(&f->queue);
    next.setSettings(&f->transport.settings);
    next.setTrackTableView(&table);
    next.setup();
    EXPECT_TRUE(next.includesSubfolders());

    f->tracks.setIncludesSubfolders(false);
    EXPECT_EQ(shownFiles(), (QStringList{u"own"_s}));
}

TEST_F(TrackTree, KeepsAPlaylistAndDroppedFilesWhenTheSettingChanges)
{
    add({u"own"_s, u"below/inner"_s});
    scan();
    f->showPlaylist({u"A"_s});
    f->tracks.setIncludesSubfolders(true);
    EXPECT_EQ(f->tracks.listID(), u"P1"_s);
    EXPECT_EQ(f->shownTitles(), (QStringList{u"A"_s}));

    scan();
    ASSERT_GT(f->tracks.showAndPlayFiles({QUrl::fromLocalFile(root.filePath(u"own"_s))}), 0);
    f->tracks.setIncludesSubfolders(false);
    EXPECT_EQ(f->tracks.listID(), LB_TrackController::droppedFilesListID);
}

TEST_F(TrackTree, HasAnIdentifierSortAndQueueOfItsOwn)
{
    add({u"b"_s, u"a"_s, u"below/c"_s});
    scan();
    f->tracks.sortByColumn(TrackTableModel::Title);
    f->tracks.sortByColumn(TrackTableModel::Title);
    f->queue.playTrack(f->tracks.content().front());
    f->queue.setPlayQueueWithListID(f->tracks.content(), f->tracks.listID());

    f->tracks.setIncludesSubfolders(true);
    EXPECT_EQ(f->tracks.listID(), LB_TrackController::treeListID(root.path()));
    EXPECT_NE(f->tracks.listID(), root.path());
    EXPECT_TRUE(f->tracks.isInOwnOrder());
    EXPECT_EQ(f->queue.content().size(), 2U) << "the queue keeps the list that it was made from";

    f->tracks.setIncludesSubfolders(false);
    EXPECT_FALSE(f->tracks.isInOwnOrder());
    EXPECT_EQ(f->shownTitles(), (QStringList{u"b"_s, u"a"_s}));
}

TEST_F(TrackTree, ReadsNoFileIfStoppedWhileFoldersAreSearched)
{
    add({u"own"_s, u"a/1"_s, u"b/2"_s});
    f->tracks.setIncludesSubfolders(true);
    stopWhen([](qint64 done, qint64 found) { return found == 0 && done > 0; });
    scan();
    EXPECT_EQ(opened, 0);
    EXPECT_TRUE(f->tracks.isListIncomplete());
    EXPECT_TRUE(shownFiles().isEmpty());
    EXPECT_TRUE(f->table.isEnabled());
}

TEST_F(TrackTree, HoldsTheFirstSongsIfStoppedWhileFilesAreRead)
{
    QStringList names;
    for (int i = 0; i < 200; ++i)
        names.append(u"%1"_s.arg(i, 3, 10, QLatin1Char('0')));
    add(names);
    scan();
    const QStringList all = shownFiles();
    opened = 0;
    limitThreads(0); // The main thread then opens the files itself, one by one.
    stopWhen([](qint64 done, qint64 found) { return found == 200 && done == 50; });
    scan();
    limitThreads({});
    EXPECT_EQ(opened, 51);
    EXPECT_EQ(shownFiles(), all.first(51));
    EXPECT_TRUE(f->tracks.isListIncomplete());
    EXPECT_EQ(f->tracks.trackCount(), 51U);
}

TEST_F(TrackTree, DoesNotRemoveSongsFromTheQueueWhenStopped)
{
    add({u"1"_s, u"2"_s, u"3"_s});
    scan();
    f->queue.playTrack(f->tracks.content().front());
    f->queue.setPlayQueueWithListID(f->tracks.content(), f->tracks.listID());
    limitThreads(0);
    stopWhen([](qint64 done, qint64) { return done == 1; });
    scan();
    limitThreads({});
    ASSERT_TRUE(f->tracks.isListIncomplete());
    EXPECT_EQ(f->queue.content().size(), 3U);
}

TEST_F(TrackTree, KeepsTheListIfTheImportOfOpenedFilesIsStopped)
{
    f->showPlaylist({u"A"_s});
    QList<QUrl> files;
    for (int i = 0; i < 10; ++i)
        files.append(QUrl::fromLocalFile(u"/dropped/%1"_s.arg(i)));
    stopWhen([](qint64, qint64) { return true; });
    QList<QUrl> left;
    limitThreads(0);
    EXPECT_EQ(f->tracks.showAndPlayFiles(files, &left), 0);
    limitThreads({});
    EXPECT_TRUE(left.isEmpty());
    EXPECT_EQ(f->shownTitles(), (QStringList{u"A"_s}));
}

TEST_F(TrackTree, StopsAPlaylist)
{
    stopWhen([](qint64 done, qint64) { return done == 2; });
    f->showPlaylist({u"A"_s, u"B"_s, u"C"_s});
    EXPECT_EQ(f->shownTitles(), (QStringList{u"A"_s, u"B"_s}));
    EXPECT_TRUE(f->tracks.isListIncomplete());
    f->tracks.setStopProbe({});
    f->showPlaylist({u"A"_s, u"B"_s, u"C"_s});
    EXPECT_FALSE(f->tracks.isListIncomplete());
}

TEST_F(TrackTree, IsReadEvenIfNoThreadCanBeStarted)
{
    add({u"own"_s, u"a/1"_s});
    f->tracks.setIncludesSubfolders(true);
    limitThreads(0);
    scan();
    EXPECT_EQ(shownFiles(), (QStringList{u"own"_s, u"a/1"_s}));
    limitThreads(1);
    scan();
    limitThreads({});
    EXPECT_EQ(shownFiles(), (QStringList{u"own"_s, u"a/1"_s}));
}

TEST_F(TrackTree, SaysWhyThereAreNoSongsInAFolder)
{
    EXPECT_EQ(f->tracks.emptyText(), u"Choose a playlist or folder"_s);
    add({u"a/1"_s, u"b/2"_s, u".hidden/3"_s, u"x.bundle/4"_s});
    const QSignalSpy texts(&f->tracks, &LB_TrackController::emptyTextChanged);
    scan();
    EXPECT_EQ(f->tracks.emptyText(),
              u"No songs here. Open the folder with its arrow: 2 folders inside."_s);
    EXPECT_EQ(texts.size(), 1);
    f->tracks.setIncludesSubfolders(true);
    EXPECT_EQ(f->tracks.emptyText(), QString());
    f->search(u"nowhere"_s);
    EXPECT_EQ(f->tracks.emptyText(), u"Nothing matches 'nowhere'."_s);
    f->search({});
    EXPECT_EQ(f->tracks.emptyText(), QString());
    f->tracks.getTracksForiTunesPlaylistArrayPlaylistID(std::nullopt, u"P"_s);
    EXPECT_EQ(f->tracks.emptyText(), u"This playlist has no songs."_s);
}

TEST_F(TrackTree, DistinguishesAnUnreadableFolderFromAnEmptyOne)
{
    files::setReadabilityProbe([](const QString &) { return false; });
    scan();
    files::setReadabilityProbe({});
    EXPECT_EQ(f->tracks.emptyText(), u"This folder cannot be read."_s);
    scan();
    EXPECT_EQ(f->tracks.emptyText(), u"No songs here."_s);
}

TEST_F(TrackTree, ReturnsToItsOwnOrderFromAnySort)
{
    add({u"b"_s, u"c"_s, u"a"_s});
    scan();
    EXPECT_TRUE(f->tracks.isInOwnOrder());
    const QStringList own = shownFiles();
    QSignalSpy sorted(&f->tracks, &LB_TrackController::sorted);
    for (int column = 0; column < TrackTableModel::ColumnCount; ++column) {
        f->clickHeader(column);
        f->clickHeader(column);
        EXPECT_FALSE(f->tracks.isInOwnOrder());
        f->tracks.sortByOwnOrder();
        EXPECT_TRUE(f->tracks.isInOwnOrder());
        EXPECT_EQ(shownFiles(), own);
        EXPECT_EQ(f->tracks.highlightedColumn(), -1);
    }
    EXPECT_EQ(sorted.size(), 3 * TrackTableModel::ColumnCount);
    scan();
    EXPECT_TRUE(f->tracks.isInOwnOrder()) << "its own order is remembered";
}

} // namespace
