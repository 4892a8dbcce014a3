#include "platform/foundation/MusicLibrary.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListSamples.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace lyrabox;
using lyrabox::test::binaryOfXml;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A library in the form that the music application writes.
constexpr auto libraryText = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple Computer//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>Major Version</key><integer>1</integer>
	<key>Date</key><date>2020-05-05T10:10:10Z</date>
	<key>Show Content Ratings</key><true/>
	<key>Tracks</key>
	<dict>
		<key>1000</key>
		<dict>
			<key>Track ID</key><integer>1000</integer>
			<key>Total Time</key><integer>215373</integer>
			<key>Date Added</key><date>2018-03-03T03:03:03Z</date>
			<key>Name</key><string>Song &#38; Dance</string>
			<key>Artist</key><string>Ann &amp; Bob</string>
			<key>Album</key><string>Größe</string>
			<key>Compilation</key><true/>
			<key>Location</key><string>file:///Users/me/Music/Song%20One.m4a</string>
		</dict>
		<key>1002</key>
		<dict>
			<key>Track ID</key><integer>1002</integer>
			<key>Total Time</key><real>1500.5</real>
			<key>Extra</key><dict><key>Name</key><string>inner</string><key>a</key><array><dict/></array></dict>
		</dict>
		<key>1004</key><string>no record</string>
	</dict>
	<key>Playlists</key>
	<array>
		<dict>
			<key>Name</key><string>Library</string>
			<key>Visible</key><false/>
			<key>Playlist Persistent ID</key><string>AAAA</string>
			<key>Playlist Items</key>
			<array>
				<dict><key>Track ID</key><integer>1002</integer></dict>
				<dict><key>Other</key><integer>1</integer><key>Track ID</key><integer>1000</integer></dict>
				<dict><key>Other</key><integer>1</integer></dict>
			</array>
		</dict>
		<string>no playlist</string>
		<dict>
			<key>Name</key><string>Music</string>
			<key>Distinguished Kind</key><integer>4</integer>
			<key>Playlist Persistent ID</key><string>BBBB</string>
			<key>Parent Persistent ID</key><string>AAAA</string>
		</dict>
		<dict><key>Name</key><integer>7</integer><key>Playlist Items</key><array/></dict>
	</array>
	<key>Music Folder</key><string>file:///Users/me/Music/</string>
</dict>
</plist>
)";

class MusicLibraryTest : public testing::Test {
protected:
    QString put(const QString &name, const QByteArray &content) const
    {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }

    QTemporaryDir m_folder;
};

void expectTheLibrary(const MusicLibraryRef &library)
{
    ASSERT_NE(library, nullptr);
    ASSERT_EQ(library->tracks.size(), 2U);
    const MusicTrack &first = library->tracks.at(u"1000"_s);
    EXPECT_EQ(first.name, u"Song & Dance"_s);
    EXPECT_EQ(first.artist, u"Ann & Bob"_s);
    EXPECT_EQ(first.album, u"Größe"_s);
    EXPECT_EQ(first.location, u"file:///Users/me/Music/Song%20One.m4a"_s);
    EXPECT_EQ(first.totalTime, 215373.0);
    const MusicTrack &second = library->tracks.at(u"1002"_s);
    EXPECT_EQ(second.totalTime, 1500.5);
    EXPECT_FALSE(second.name || second.artist || second.album || second.location);

    ASSERT_EQ(library->playlists.size(), 3U);
    const MusicPlaylist &all = library->playlists[0];
    EXPECT_EQ(all.name, u"Library"_s);
    EXPECT_EQ(all.persistentID, u"AAAA"_s);
    EXPECT_EQ(all.visible, false);
    EXPECT_FALSE(all.distinguishedKind || all.parentPersistentID);
    ASSERT_TRUE(all.items);
    EXPECT_THAT(*all.items, testing::ElementsAre(u"1002"_s, u"1000"_s, QString()));
    EXPECT_EQ(library->playlists[1].distinguishedKind, 4);
    EXPECT_EQ(library->playlists[1].parentPersistentID, u"AAAA"_s);
    EXPECT_FALSE(library->playlists[1].visible || library->playlists[1].items);
    EXPECT_TRUE(library->playlists[2].name.isEmpty());
    ASSERT_TRUE(library->playlists[2].items);
    EXPECT_TRUE(library->playlists[2].items->empty());
}

/// The music application's preferences, in a folder that belongs to the tests.
QString preferences()
{
    return QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).filePath(u"com.apple.iApps.plist"_s);
}

class LocatedLibrary : public MusicLibraryTest {
protected:
    LocatedLibrary()
    {
        QFile::remove(preferences());
        QDir().mkpath(QFileInfo(preferences()).path());
        qputenv("XDG_DATA_HOME", m_folder.path().toLocal8Bit());
    }
    ~LocatedLibrary() override
    {
        QFile::remove(preferences());
        qputenv("XDG_DATA_HOME", m_oldData);
    }

    static void prefer(const PropertyList &value)
    {
        ASSERT_TRUE(writePropertyList(
            PropertyList::Dictionary{{u"other"_s, 1}, {u"iTunesRecentDatabases"_s, value}},
            preferences()));
    }

    QByteArray m_oldData = qgetenv("XDG_DATA_HOME");
};

const QByteArray rhythmboxText = "<rhythmdb version=\"2.0\"><entry type=\"song\">"
                                 "<location>file:///music/a.ogg</location></entry></rhythmdb>";

} // namespace

TEST_F(MusicLibraryTest, ReadsAnXmlLibrary)
{
    expectTheLibrary(readMusicLibrary(put(u"library.xml"_s, libraryText)));
}

TEST_F(MusicLibraryTest, ReadsABinaryLibraryLikeItsXml)
{
    expectTheLibrary(readMusicLibrary(put(u"library.plist"_s, binaryOfXml(libraryText))));
}

TEST_F(MusicLibraryTest, ReadsALibraryInUtf16)
{
    const QString text = QChar(QChar::ByteOrderMark) + QString::fromUtf8(libraryText);
    expectTheLibrary(readMusicLibrary(
        put(u"library.xml"_s,
            QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2))));
}

TEST_F(MusicLibraryTest, AFileThatIsNotALibraryIsRejected)
{
    EXPECT_EQ(readMusicLibrary(m_folder.filePath(u"missing"_s)), nullptr);
    EXPECT_EQ(readMusicLibrary(m_folder.path()), nullptr);
    EXPECT_EQ(readMusicLibrary(put(u"empty"_s, "")), nullptr);
    EXPECT_EQ(readMusicLibrary(put(u"array"_s, "<plist><array/></plist>")), nullptr);
    EXPECT_EQ(readMusicLibrary(put(u"binary"_s, "bplist00garbage")), nullptr);
    EXPECT_EQ(readMusicLibrary(put(u"binary array"_s, binaryOfXml("<plist><array/></plist>"))),
              nullptr);
    EXPECT_EQ(readMusicLibrary(put(u"truncated"_s, QByteArray(libraryText).chopped(200))), nullptr);
}

TEST_F(MusicLibraryTest, ADictionaryWithoutTheKeysIsAnEmptyLibrary)
{
    for (const char *const text :
         {"<plist><dict/></plist>",
          "<plist><dict><key>Tracks</key><array/><key>Playlists</key><dict/></dict></plist>"}) {
        const MusicLibraryRef library = readMusicLibrary(put(u"library"_s, text));
        ASSERT_NE(library, nullptr);
        EXPECT_TRUE(library->tracks.empty());
        EXPECT_TRUE(library->playlists.empty());
    }
}

TEST_F(MusicLibraryTest, TheFirstOfTwoEqualKeysCountsInBothForms)
{
    const QByteArray text =
        "<plist><dict><key>Tracks</key><dict><key>1</key><dict><key>Name</key><string>a</string>"
        "<key>Name</key><string>b</string></dict><key>1</key><dict/></dict>"
        "<key>Tracks</key><dict><key>2</key><dict/></dict></dict></plist>";
    const MusicLibraryRef library = readMusicLibrary(put(u"library"_s, text));
    ASSERT_NE(library, nullptr);
    ASSERT_EQ(library->tracks.size(), 1U);
    EXPECT_EQ(library->tracks.at(u"1"_s).name, u"a"_s);
}

TEST_F(MusicLibraryTest, ATruncatedLibraryIsRejected)
{
    const QByteArray whole = QByteArray(libraryText).trimmed();
    for (qsizetype length = 0; length < whole.size(); length += 7)
        ASSERT_EQ(readMusicLibrary(put(u"library"_s, whole.left(length))), nullptr) << length;
}

TEST(LocationURL, NamesAFileOfThisComputer)
{
    EXPECT_EQ(locationURL(u"file:///a/Song%20One.m4a"_s).toLocalFile(), u"/a/Song One.m4a"_s);
    EXPECT_EQ(locationURL(u"file://localhost/a/%C3%9Cber%20%231%2050%25.mp3"_s).toLocalFile(),
              u"/a/Über #1 50%.mp3"_s);
    EXPECT_EQ(locationURL(u"file://LOCALHOST/a"_s), QUrl(u"file:///a"_s));
    EXPECT_EQ(locationURL(u"/a/50% #1?.mp3"_s).toLocalFile(), u"/a/50% #1?.mp3"_s);
    EXPECT_EQ(locationURL(u"file:///a/100% real.mp3"_s).toLocalFile(), u"/a/100% real.mp3"_s);
}

TEST(LocationURL, OtherTextsAreNotFileURLs)
{
    EXPECT_FALSE(locationURL(QString()).isValid());
    EXPECT_FALSE(locationURL(u"song.mp3"_s).isValid());
    EXPECT_FALSE(locationURL(u"http://[broken"_s).isValid());
    EXPECT_FALSE(locationURL(u"http://radio.example/stream"_s).isLocalFile());
}

TEST_F(LocatedLibrary, TheFirstRecentDatabaseIsRead)
{
    const QString path = put(u"My Library.xml"_s, libraryText);
    prefer(PropertyList::Array{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded),
                               u"file:///other"_s});
    expectTheLibrary(locateMusicLibrary());
    prefer(PropertyList::Array{u"file://localhost"_s +
                               QUrl::fromLocalFile(path).path(QUrl::FullyEncoded)});
    expectTheLibrary(locateMusicLibrary());
}

TEST_F(LocatedLibrary, ANamedLibraryThatCannotBeReadIsRejected)
{
    put(u"rhythmbox/rhythmdb.xml"_s, rhythmboxText);
    for (const PropertyList &first :
         {PropertyList(u"file:///nowhere.xml"_s), PropertyList(u"no url"_s),
          PropertyList(u"http://example.org/l.xml"_s), PropertyList(5)}) {
        prefer(PropertyList::Array{first});
        EXPECT_EQ(locateMusicLibrary(), nullptr);
    }
}

TEST_F(LocatedLibrary, WithoutANamedLibraryTheDesktopsOwnIsUsed)
{
    put(u"rhythmbox/rhythmdb.xml"_s, rhythmboxText);
    for (const PropertyList &value :
         {PropertyList(PropertyList::Array()), PropertyList(u"no list"_s)}) {
        prefer(value);
        const MusicLibraryRef library = locateMusicLibrary();
        ASSERT_NE(library, nullptr);
        EXPECT_EQ(library->tracks.count(u"file:///music/a.ogg"_s), 1U);
    }
    QFile::remove(preferences());
    EXPECT_NE(locateMusicLibrary(), nullptr);
}

TEST_F(LocatedLibrary, AChosenLibraryIsUsedFromThenOn)
{
    const QString path = put(u"Über 100% #1.xml"_s, libraryText);
    ASSERT_TRUE(chooseMusicLibrary(path));
    expectTheLibrary(locateMusicLibrary());

    prefer(PropertyList::Array{u"file:///other"_s});
    ASSERT_TRUE(chooseMusicLibrary(path));
    expectTheLibrary(locateMusicLibrary());
    EXPECT_EQ(readPropertyList(preferences())->value(u"other"), PropertyList(1))
        << "other preferences must stay";
}

TEST_F(LocatedLibrary, PreferencesThatCannotBeWrittenAreReported)
{
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    const QString obstacle = put(u"file"_s, "");
    qputenv("XDG_CONFIG_HOME", obstacle.toLocal8Bit() + "/config");
    EXPECT_FALSE(chooseMusicLibrary(u"/a.xml"_s));
    qputenv("XDG_CONFIG_HOME", config);
}

TEST_F(MusicLibraryTest, TheShippedDemoMusicIsOnePlaylistOfSongsThatExist)
{
    const MusicLibraryRef library =
        demoMusicLibrary(QStringLiteral(LYRABOX_SOURCE_DIR "/resources/demo"));
    ASSERT_NE(library, nullptr);
    ASSERT_EQ(library->playlists.size(), 1U);
    EXPECT_EQ(library->playlists[0].name, u"Demo Music"_s);
    EXPECT_FALSE(library->playlists[0].persistentID.isEmpty());
    ASSERT_EQ(library->playlists[0].items->size(), library->tracks.size());
    for (const QString &item : *library->playlists[0].items) {
        const MusicTrack &track = library->tracks.at(item);
        EXPECT_FALSE(track.name->isEmpty());
        EXPECT_GT(track.totalTime.value(), 20'000.0);
        EXPECT_TRUE(QFile::exists(locationURL(*track.location).toLocalFile()))
            << track.location->toStdString();
    }
}

TEST_F(MusicLibraryTest, AFolderWithoutALibraryGivesNoDemoLibrary)
{
    put(u"Demo/LICENSE.txt"_s, "");
    EXPECT_EQ(demoMusicLibrary(m_folder.filePath(u"Demo"_s)), nullptr);
    EXPECT_EQ(demoMusicLibrary(m_folder.filePath(u"missing"_s)), nullptr);
}
