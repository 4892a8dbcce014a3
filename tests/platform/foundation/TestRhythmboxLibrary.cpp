#include "platform/foundation/RhythmboxLibrary.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Files written by Rhythmbox 3.4.6. They hold five imported songs, one of which was removed later,
/// two files that are not songs, two playlists and the play queue. Only the name of the folder was
/// changed.
QString realFolder()
{
    return QStringLiteral(LYRABOX_SOURCE_DIR "/tests/data/rhythmbox");
}

class RhythmboxLibrary : public testing::Test {
protected:
    MusicLibraryRef read(const QByteArray &songs, const QByteArray &playlists = {}) const
    {
        put(u"rhythmdb.xml"_s, songs);
        if (!playlists.isNull())
            put(u"playlists.xml"_s, playlists);
        return readRhythmboxLibrary(m_folder.path());
    }

    void put(const QString &name, const QByteArray &content) const
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir m_folder;
};

QByteArray song(const QByteArray &location, const QByteArray &more = {})
{
    return "<entry type=\"song\">" + more + "<location>" + location + "</location></entry>";
}

QByteArray songs(const QByteArray &entries)
{
    return "<?xml version=\"1.0\"?><rhythmdb version=\"2.0\">" + entries + "</rhythmdb>";
}

QByteArray playlists(const QByteArray &lists)
{
    return "<?xml version=\"1.0\"?><rhythmdb-playlists>" + lists + "</rhythmdb-playlists>";
}

const QString umlauts = u"file:///music/%C3%9Cnicode/%C3%9Cber%20%231%2050%25.flac"_s;
const QString secondSong = u"file:///music/Ann%20&%20Co/First%20%3CAlbum%3E/02%20Song%202.ogg"_s;

} // namespace

TEST_F(RhythmboxLibrary, ReadsTheSongsOfTheRealApplication)
{
    const MusicLibraryRef library = readRhythmboxLibrary(realFolder());
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(library->tracks.size(), 4U) << "without the hidden song and files that are not songs";
    const MusicTrack &track = library->tracks.at(secondSong);
    EXPECT_EQ(track.location, secondSong);
    EXPECT_EQ(track.name, u"Song 2 & <more>"_s);
    EXPECT_EQ(track.artist, u"Ann & Co"_s);
    EXPECT_EQ(track.album, u"First <Album>"_s);
    EXPECT_EQ(track.totalTime, 3000.0);
    EXPECT_EQ(library->tracks.at(umlauts).name, u"Über #1 50%"_s);
    EXPECT_EQ(locationURL(umlauts).toLocalFile(), u"/music/Ünicode/Über #1 50%.flac"_s);
}

TEST_F(RhythmboxLibrary, ReadsThePlaylistsOfTheRealApplicationInOrder)
{
    const MusicLibraryRef library = readRhythmboxLibrary(realFolder());
    ASSERT_NE(library, nullptr);
    ASSERT_EQ(library->playlists.size(), 3U)
        << "all songs and the static playlists, but not the queue";
    EXPECT_EQ(library->playlists[0].name, u"Music"_s);
    EXPECT_EQ(library->playlists[0].distinguishedKind, 4);
    EXPECT_EQ(library->playlists[0].items->size(), 4U);
    EXPECT_EQ(library->playlists[1].name, u"Practice & <slow>"_s);
    EXPECT_FALSE(library->playlists[1].distinguishedKind.has_value());
    EXPECT_THAT(*library->playlists[1].items,
                testing::ElementsAre(u"file:///music/untagged.wav"_s, umlauts, secondSong));
    EXPECT_EQ(library->playlists[2].name, u"Übung"_s);
    EXPECT_THAT(
        *library->playlists[2].items,
        testing::ElementsAre(u"file:///music/Ann%20&%20Co/First%20%3CAlbum%3E/01%20Song%201.ogg"_s))
        << "without the hidden song";
}

TEST_F(RhythmboxLibrary, IdentifiersStayTheSameAcrossRestarts)
{
    // The last selected playlist is stored by its identifier, which therefore must not change.
    const MusicLibraryRef library = readRhythmboxLibrary(realFolder());
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(library->playlists[0].persistentID, u"7B96C6B05BF82AA4"_s);
    EXPECT_EQ(library->playlists[1].persistentID, u"7696C2574F0DF240"_s);
}

TEST_F(RhythmboxLibrary, PlaylistsWithTheSameNameHaveDifferentIdentifiers)
{
    const QByteArray twin = "<playlist name=\"a\" type=\"static\"/>";
    const MusicLibraryRef library = read(songs(song("file:///a")), playlists(twin + twin + twin));
    ASSERT_NE(library, nullptr);
    QSet<QString> identifiers;
    for (const MusicPlaylist &playlist : library->playlists)
        identifiers.insert(playlist.persistentID);
    EXPECT_EQ(identifiers.size(), 4);
}

TEST_F(RhythmboxLibrary, AutomaticPlaylistsAreLeftOut)
{
    const MusicLibraryRef library =
        read(songs(song("file:///a")),
             playlists("<playlist name=\"auto\" type=\"automatic\"><conjunction><equals "
                       "prop=\"type\">song</equals>"
                       "</conjunction></playlist><playlist name=\"b\" type=\"static\"/>"));
    ASSERT_NE(library, nullptr);
    ASSERT_EQ(library->playlists.size(), 2U);
    EXPECT_EQ(library->playlists[1].name, u"b"_s);
}

TEST_F(RhythmboxLibrary, ASongThatIsOnlyInAPlaylistBecomesATrack)
{
    const MusicLibraryRef library =
        read(songs(song("file:///a")),
             playlists("<playlist name=\"b\" "
                       "type=\"static\"><location>file:///new.mp3</location></playlist>"));
    ASSERT_NE(library, nullptr);
    EXPECT_THAT(*library->playlists[1].items, testing::ElementsAre(u"file:///new.mp3"_s));
    EXPECT_EQ(library->tracks.at(u"file:///new.mp3"_s).location, u"file:///new.mp3"_s);
    EXPECT_THAT(*library->playlists[0].items, testing::ElementsAre(u"file:///a"_s));
}

TEST_F(RhythmboxLibrary, AllSongsAreSortedByLocation)
{
    const MusicLibraryRef library =
        read(songs(song("file:///c") + song("file:///a") + song("file:///b")));
    ASSERT_NE(library, nullptr);
    EXPECT_THAT(*library->playlists[0].items,
                testing::ElementsAre(u"file:///a"_s, u"file:///b"_s, u"file:///c"_s));
}

TEST_F(RhythmboxLibrary, MalformedEntriesDoNotAffectOthers)
{
    const MusicLibraryRef library =
        read(songs("<entry/><entry type=\"song\"/><other><entry type=\"song\"/></other>text" +
                   song("file:///a", "<title>A<b>c</b></title><duration>long</duration><rating/>") +
                   song("file:///a", "<title>again</title>")));
    ASSERT_NE(library, nullptr);
    ASSERT_EQ(library->tracks.size(), 1U);
    EXPECT_EQ(library->tracks.at(u"file:///a"_s).name, u"A"_s);
    EXPECT_EQ(library->tracks.at(u"file:///a"_s).totalTime, 0.0);
}

TEST_F(RhythmboxLibrary, ALengthThatIsNotAFiniteNumberIsIgnored)
{
    const MusicLibraryRef library = read(songs(song("file:///a", "<duration>nan</duration>") +
                                               song("file:///b", "<duration>1e308</duration>") +
                                               song("file:///c", "<duration>2</duration>")));
    ASSERT_TRUE(library);
    EXPECT_FALSE(library->tracks.at(u"file:///a"_s).totalTime);
    EXPECT_FALSE(library->tracks.at(u"file:///b"_s).totalTime);
    EXPECT_EQ(library->tracks.at(u"file:///c"_s).totalTime, 2000.0);
}

TEST_F(RhythmboxLibrary, WithoutSongsThereIsNoLibrary)
{
    EXPECT_EQ(readRhythmboxLibrary(m_folder.filePath(u"missing"_s)), nullptr);
    EXPECT_EQ(read(songs("")), nullptr);
    EXPECT_EQ(read(""), nullptr);
    EXPECT_EQ(read("<other/>"), nullptr);
    EXPECT_EQ(read(songs(song("file:///a")).chopped(5)), nullptr);
    EXPECT_EQ(read(QByteArray("<rhythmdb>").repeated(100000)), nullptr);
}

TEST_F(RhythmboxLibrary, SongsRemainIfThePlaylistsAreUnreadable)
{
    const MusicLibraryRef library = read(
        songs(song("file:///a")), playlists("<playlist name=\"b\" type=\"static\"/>").chopped(5));
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(library->playlists.size(), 1U);
    EXPECT_EQ(library->tracks.size(), 1U);
}

TEST_F(RhythmboxLibrary, AnEntityBombIsRefused)
{
    QByteArray bomb = "<!DOCTYPE r [<!ENTITY a0 \"aaaaaaaaaa\">";
    for (int i = 1; i < 12; ++i) {
        const QByteArray inner = "&a" + QByteArray::number(i - 1) + ';';
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    EXPECT_EQ(
        read(bomb +
             "]><rhythmdb><entry type=\"song\"><location>&a11;</location></entry></rhythmdb>"),
        nullptr);
}
