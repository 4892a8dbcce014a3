// Songs and folders that the program may not read, from the start or later.

#include "program/Places.h"
#include "support/program/RunningProgram.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ForbiddenFiles : public RunningProgram {
protected:
    ForbiddenFiles() { heedsPermissions = true; }
    ~ForbiddenFiles() override { permit(folder); }

    static void forbid(const QString &path)
    {
        EXPECT_EQ(::chmod(QFile::encodeName(path).constData(), 0), 0);
    }
    static void permit(const QString &path)
    {
        EXPECT_EQ(::chmod(QFile::encodeName(path).constData(), 0755), 0);
    }

    /// "Alpha" sounds at 300 Hz, "Beta" at 400 Hz and "Gamma" at 500 Hz.
    void makeSongs()
    {
        folder = makeFolder(
            u"Tones"_s,
            {{u"Alpha"_s, 300.0, 120.0}, {u"Beta"_s, 400.0, 120.0}, {u"Gamma"_s, 500.0, 120.0}});
        showFolder(folder);
    }
    QString song(const QString &title) const { return QDir(folder).filePath(title + u".flac"_s); }
    QImage message() const { return window().copy(place::messageLine); }

    QString folder;
};

TEST_F(ForbiddenFiles, AnUnreadableSongHasItsOwnErrorUntilItIsReadable)
{
    makeSongs();
    start();
    ASSERT_TRUE(waitForSongs(3));
    forbid(song(u"alpha"_s));
    doubleClickSong(0);
    EXPECT_TRUE(waitUntil([this] { return showsMessage(); }));
    const QImage forbidden = message();
    EXPECT_FALSE(hearsAnything(0.0));

    permit(song(u"alpha"_s));
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    EXPECT_TRUE(waitUntil([this] { return !showsMessage(); }));

    ASSERT_TRUE(QFile::remove(song(u"alpha"_s)));
    doubleClickSong(0);
    EXPECT_TRUE(waitUntil([this] { return showsMessage(); }));
    EXPECT_NE(message(), forbidden) << "the message must not be the one for a missing file";
    EXPECT_EQ(quit(), 0);
}

TEST_F(ForbiddenFiles, ASongInAnUnreadableFolderHasTheSameError)
{
    makeSongs();
    start();
    ASSERT_TRUE(waitForSongs(3));
    forbid(song(u"alpha"_s));
    doubleClickSong(0);
    ASSERT_TRUE(waitUntil([this] { return showsMessage(); }));
    const QImage forbidden = message();
    permit(song(u"alpha"_s));
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    ASSERT_TRUE(waitUntil([this] { return !showsMessage(); }));

    forbid(folder);
    doubleClickSong(0);
    EXPECT_TRUE(waitUntil([&] { return message() == forbidden; }));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ForbiddenFiles, TheSongKeepsPlayingWhenItBecomesUnreadable)
{
    makeSongs();
    start();
    ASSERT_TRUE(waitForSongs(3));
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    forbid(song(u"alpha"_s));
    forbid(folder);
    EXPECT_TRUE(seekForward());
    ASSERT_TRUE(recorder->waitFor(0.5));
    EXPECT_TRUE(hears(300.0));
    EXPECT_FALSE(showsMessage());
    display.key(u"ctrl+Right"_s); // the songs after it are unreadable
    EXPECT_TRUE(waitUntil([this] { return showsMessage(); }));
    EXPECT_TRUE(hearsSilence());
    permit(folder);
    doubleClickSong(1);
    EXPECT_TRUE(hears(400.0));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ForbiddenFiles, AnUnreadableSongIsNotListed)
{
    makeSongs();
    forbid(song(u"beta"_s));
    start();
    ASSERT_TRUE(waitForSongs(2));
    EXPECT_FALSE(showsMessage());
    doubleClickSong(1);
    EXPECT_TRUE(hears(500.0));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ForbiddenFiles, AnUnreadableFolderIsAnEmptyListAndStaysInTheTree)
{
    const QString other = makeFolder(u"Other"_s, {{u"Delta"_s, 600.0}});
    makeSongs();
    const PropertyList both(PropertyList::Array{PropertyList(folder), PropertyList(other)});
    ASSERT_TRUE(writePropertyList(both, settingsFile(u"Folders.plist"_s)));
    forbid(other);
    start();
    ASSERT_TRUE(waitForSongs(3));
    click(place::sourceRow(1));
    EXPECT_TRUE(waitForSongs(0));
    EXPECT_FALSE(showsMessage());
    permit(other);
    click(place::sourceRow(0));
    ASSERT_TRUE(waitForSongs(3));
    click(place::sourceRow(1));
    EXPECT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(hears(600.0));
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(settingsList(u"Folders.plist"_s), both);
}

TEST_F(ForbiddenFiles, AScanKeepsItsSongsWhenTheFolderBecomesUnreadable)
{
    folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}});
    std::vector<Tone> songs;
    for (int i = 0; i < 10; ++i)
        songs.push_back({u"Slow %1"_s.arg(i), 400.0, 1.0});
    const QString slow = makeFolder(u"Slow"_s, songs);
    slowFile = slow + u'/';
    showFolder(folder);
    const PropertyList both(PropertyList::Array{PropertyList(folder), PropertyList(slow)});
    ASSERT_TRUE(writePropertyList(both, settingsFile(u"Folders.plist"_s)));
    start();
    ASSERT_TRUE(waitForSongs(1));
    const auto firstRow = [this] { return window().copy(place::songRowTitle(0)); };
    const QImage alpha = firstRow();
    click(place::sourceRow(1));
    ASSERT_TRUE(waitUntil([&] { return reads(slow + u'/'); }));
    forbid(slow);
    EXPECT_TRUE(waitUntil([&] { return firstRow() != alpha && !songRowIsEmpty(0); }, 60.0));
    EXPECT_TRUE(waitUntil([&] { return !showsProgress(); }));
    EXPECT_TRUE(songRowIsEmpty(9)) << "the songs after the first ones must be missing";
    EXPECT_FALSE(showsMessage());
    permit(slow);
    EXPECT_EQ(quit(), 0);
}

} // namespace
