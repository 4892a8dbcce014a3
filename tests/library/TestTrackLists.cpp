#include "library/LB_TrackController.h"

#include "library/LibraryFixture.h"
#include "platform/foundation/Files.h"
#include "support/SampleAudio.h"

#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

TEST(FolderScan, ListsTheVisibleAudioFilesOfTheFolderItself)
{
    LibraryFixture library;
    const QDir folder(library.folder.path());
    ASSERT_TRUE(folder.mkdir(u"below"_s));
    const SampleSpec song{.extension = u"mp3"_s, .seconds = 0.5};
    ASSERT_TRUE(makeSampleAt(folder.filePath(u"a.mp3"_s), song));
    ASSERT_TRUE(makeSampleAt(folder.filePath(u".b.mp3"_s), song));
    ASSERT_TRUE(makeSampleAt(folder.filePath(u"below/c.mp3"_s), song));
    QFile text(folder.filePath(u"notes.txt"_s));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("not a song");
    text.close();

    library.tracks.scanForAudioFilesStartingAtURLFolderID(QUrl::fromLocalFile(folder.path()),
                                                          folder.path());

    const TrackRecordList content = library.tracks.content();
    ASSERT_EQ(content.size(), 1U);
    EXPECT_EQ(content[0]->order, 1);
    EXPECT_EQ(content[0]->title, u"a.mp3"_s);
    EXPECT_EQ(content[0]->fileURL.toLocalFile(), folder.filePath(u"a.mp3"_s));
    EXPECT_EQ(content[0]->inode, files::inodeText(folder.filePath(u"a.mp3"_s)));
    EXPECT_NEAR(content[0]->durationValue(), 0.5, 0.1);
    EXPECT_EQ(library.tracks.listID(), folder.path());
    EXPECT_EQ(library.tracks.trackCount(), 1U);
}

TEST(FolderScan, CountsAcceptedFilesOnly)
{
    LibraryFixture library;
    library.tracks.setAudioFileOpener([](const QString &path) -> std::optional<OpenedAudioFile> {
        if (path.endsWith(u".txt"_s))
            return std::nullopt;
        return OpenedAudioFile{{}, path};
    });
    for (const QString &name : {u"1.wav"_s, u"2.txt"_s, u"3.wav"_s, u"4.txt"_s, u"5.wav"_s})
        ASSERT_TRUE(QFile(library.folder.filePath(name)).open(QIODevice::WriteOnly));
    library.tracks.scanForAudioFilesStartingAtURLFolderID(
        QUrl::fromLocalFile(library.folder.path()), u"F"_s);
    const TrackRecordList content = library.tracks.content();
    ASSERT_EQ(content.size(), 3U);
    for (std::size_t i = 0; i < content.size(); ++i)
        EXPECT_EQ(content[i]->order, static_cast<int>(i) + 1);
}

TEST(FolderScan, SurvivesANameThatIsNotValidText)
{
    LibraryFixture library;
    const QByteArray path = QFile::encodeName(library.folder.path()) + "/bad\xff\xfe.wav";
    ASSERT_TRUE(QFile::copy(sampleFile({.seconds = 0.1}), library.folder.filePath(u"good.wav"_s)));
    ASSERT_EQ(link(QFile::encodeName(library.folder.filePath(u"good.wav"_s)).constData(),
                   path.constData()),
              0);
    library.tracks.scanForAudioFilesStartingAtURLFolderID(
        QUrl::fromLocalFile(library.folder.path()), u"F"_s);
    EXPECT_TRUE(library.shownTitles().contains(u"good.wav"_s));
    EXPECT_EQ(unlink(path.constData()), 0); // QTemporaryDir cannot remove a file with such a name.
}

TEST(FolderScan, ListsTheSongsByFileName)
{
    LibraryFixture library;
    library.tracks.setAudioFileOpener([](const QString &path) -> std::optional<OpenedAudioFile> {
        return OpenedAudioFile{{}, path};
    });
    for (const QString &name : {u"10 c.wav"_s, u"2 B.wav"_s, u"1 a.wav"_s, u"11 d.wav"_s})
        ASSERT_TRUE(QFile(library.folder.filePath(name)).open(QIODevice::WriteOnly));
    library.tracks.scanForAudioFilesStartingAtURLFolderID(
        QUrl::fromLocalFile(library.folder.path()), u"F"_s);
    EXPECT_EQ(library.shownTitles(),
              QStringList({u"1 a.wav"_s, u"2 B.wav"_s, u"10 c.wav"_s, u"11 d.wav"_s}));
}

TEST(FolderScan, GivesAnEmptyListForAnEmptyOrMissingFolder)
{
    LibraryFixture library;
    ASSERT_TRUE(QDir(library.folder.path()).mkdir(u"empty"_s));
    for (const QString &name : {u"empty"_s, u"none"_s}) {
        library.showPlaylist({u"A"_s});
        ASSERT_EQ(library.tracks.trackCount(), 1U);
        library.tracks.scanForAudioFilesStartingAtURLFolderID(
            QUrl::fromLocalFile(library.folder.filePath(name)), name);
        EXPECT_TRUE(library.tracks.content().empty());
        EXPECT_EQ(library.tracks.trackCount(), 0U);
        EXPECT_TRUE(library.table.isEnabled());
        EXPECT_EQ(library.tracks.listID(), name);
    }
}

TEST(FolderScan, DisablesTheTableWhileItRuns)
{
    LibraryFixture library;
    ASSERT_TRUE(QFile(library.folder.filePath(u"1.wav"_s)).open(QIODevice::WriteOnly));
    std::atomic<bool> wasEnabled = true;
    library.tracks.setAudioFileOpener([&](const QString &) -> std::optional<OpenedAudioFile> {
        wasEnabled = library.table.isEnabled();
        return std::nullopt;
    });
    library.tracks.scanForAudioFilesStartingAtURLFolderID(
        QUrl::fromLocalFile(library.folder.path()), u"F"_s);
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(library.table.isEnabled());
}

TEST(PlaylistImport, SkipsNoItem)
{
    LibraryFixture library;
    library.library->tracks[u"1"_s].name = u"Without location"_s;
    library.tracks.getTracksForiTunesPlaylistArrayPlaylistID(
        std::vector<QString>{u"missing"_s, u"1"_s}, u"P"_s);
    const TrackRecordList content = library.tracks.content();
    ASSERT_EQ(content.size(), 2U);
    EXPECT_EQ(content[0]->title, std::nullopt);
    EXPECT_EQ(content[0]->inode, u"(null)"_s);
    EXPECT_EQ(content[0]->order, 1);
    EXPECT_EQ(content[1]->title, u"Without location"_s);
    EXPECT_EQ(content[1]->inode, u"(null)"_s);
    EXPECT_EQ(content[1]->order, 2);
}

TEST(PlaylistImport, GivesTheSameInodeToTheSameFileInTwoPlaylists)
{
    LibraryFixture library;
    library.showPlaylist({u"A"_s}, u"P1"_s);
    const TrackRecordRef first = library.tracks.content().front();
    library.library->tracks[u"again"_s].location = first->fileURL.toString();
    library.tracks.getTracksForiTunesPlaylistArrayPlaylistID(std::vector<QString>{u"again"_s},
                                                             u"P2"_s);
    const TrackRecordRef second = library.tracks.content().front();
    EXPECT_NE(first, second);
    EXPECT_EQ(first->inode, second->inode);
    EXPECT_NE(first->inode, u"(null)"_s);
}

TEST(PlaylistImport, SharesTheSettingsOfUnreadableFilesWithADeletedOne)
{
    LibraryFixture library;
    library.library->tracks[u"1"_s].location = u"file:///no/such/file.mp3"_s;
    const std::optional<std::vector<QString>> items{{u"1"_s}};
    library.tracks.getTracksForiTunesPlaylistArrayPlaylistID(items, u"P"_s);
    EXPECT_EQ(library.tracks.content().front()->inode, u"(null)"_s);
    EXPECT_FALSE(library.tracks.content().front()->hasSettings);
    library.transport.settings.setValuesForInode({50.0F, 0.0F}, u"(null)"_s);
    library.tracks.getTracksForiTunesPlaylistArrayPlaylistID(items, u"P"_s);
    EXPECT_TRUE(library.tracks.content().front()->hasSettings);
}

TEST(PlaylistImport, MarksTheSongThatPlays)
{
    LibraryFixture library;
    library.showPlaylist({u"A"_s, u"B"_s});
    library.queue.playTrack(library.tracks.content()[1]);
    library.tracks.getTracksForiTunesPlaylistArrayPlaylistID(
        std::vector<QString>{u"P1/0"_s, u"P1/1"_s}, u"P2"_s);
    EXPECT_FALSE(library.tracks.content()[0]->isPlaying);
    EXPECT_TRUE(library.tracks.content()[1]->isPlaying);
}

TEST(PlaylistImport, GivesAnEmptyListForAnEmptyPlaylist)
{
    LibraryFixture library;
    library.showPlaylist({u"A"_s});
    library.tracks.getTracksForiTunesPlaylistArrayPlaylistID(std::nullopt, u"P"_s);
    EXPECT_TRUE(library.tracks.content().empty());
    EXPECT_EQ(library.tracks.trackCount(), 0U);
    EXPECT_TRUE(library.table.isEnabled());
    EXPECT_EQ(library.tracks.listID(), u"P"_s);
}

TEST(PlaylistImport, GivesEmptyRecordsWithoutALibrary)
{
    LibraryFixture library;
    library.tracks.setLibraryLocator([] { return nullptr; });
    library.tracks.getTracksForiTunesPlaylistArrayPlaylistID(std::vector<QString>{u"1"_s}, u"P"_s);
    ASSERT_EQ(library.tracks.content().size(), 1U);
    EXPECT_EQ(library.tracks.content().front()->title, std::nullopt);
}

TEST(MusicLibraryOfTheTrackList, IsReadOnceAndAgainOnlyAfterAFailure)
{
    LibraryFixture library;
    int reads = 0;
    bool works = false;
    library.tracks.setLibraryLocator([&]() -> MusicLibraryRef {
        ++reads;
        return works ? std::make_shared<MusicLibrary>() : nullptr;
    });
    EXPECT_EQ(library.tracks.iTunesLibraryDictionary(), nullptr);
    EXPECT_EQ(library.tracks.iTunesLibraryDictionary(), nullptr);
    EXPECT_EQ(reads, 2);
    works = true;
    const MusicLibraryRef first = library.tracks.iTunesLibraryDictionary();
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(library.tracks.iTunesLibraryDictionary(), first);
    EXPECT_EQ(reads, 3);
}

TEST(LB_TrackController, MarksTheSettingsOfTheLoadedSongInARebuiltList)
{
    LibraryFixture f;
    f.showPlaylist({u"a"_s, u"b"_s}, u"P1"_s);
    const TrackRecordRef loaded = f.tracks.content()[1];
    f.queue.playTrack(loaded);
    f.tracks.getTracksForiTunesPlaylistArrayPlaylistID(std::vector<QString>{u"P1/0"_s, u"P1/1"_s},
                                                       u"P2"_s);
    ASSERT_NE(f.tracks.content()[1], loaded);
    f.audio().setPlaybackSpeedPct(80.0F);
    f.audio().saveSettings();
    EXPECT_TRUE(loaded->hasSettings);
    EXPECT_TRUE(f.tracks.content()[1]->hasSettings);
    EXPECT_FALSE(f.tracks.content()[0]->hasSettings);
    f.audio().removeSettings();
    EXPECT_FALSE(f.tracks.content()[1]->hasSettings);
}

TEST(LB_TrackController, MarksTheSettingsOfTheLoadedSongInTheQueueOfAnotherList)
{
    LibraryFixture f;
    f.showPlaylist({u"a"_s, u"b"_s}, u"P1"_s);
    const TrackRecordRef loaded = f.tracks.content()[1];
    f.queue.playTrack(loaded);
    const std::vector<QString> songs{u"P1/0"_s, u"P1/1"_s};
    f.tracks.getTracksForiTunesPlaylistArrayPlaylistID(songs, u"P2"_s);
    f.queue.setPlayQueueWithListID(f.tracks.content(), u"P2"_s);
    f.tracks.getTracksForiTunesPlaylistArrayPlaylistID(songs, u"P3"_s);
    f.audio().setPlaybackSpeedPct(80.0F);
    f.audio().saveSettings();
    ASSERT_NE(f.queue.content()[1], loaded);
    EXPECT_TRUE(f.queue.content()[1]->hasSettings) << "it is played with them later";
    f.audio().removeSettings();
    EXPECT_FALSE(f.queue.content()[1]->hasSettings);
}
