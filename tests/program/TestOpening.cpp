// Files and folders on the command line, of the first process and of a second one.

#include "program/Places.h"
#include "support/program/RunningProgram.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class OpeningProgram : public RunningProgram {
protected:
    /// Creates a folder of three songs next to the folder that is shown.
    void SetUp() override
    {
        showFolder(makeFolder(u"Shown"_s, {{u"Alpha"_s, 300.0}}));
        given = makeFolder(u"Given"_s, {{u"Beta"_s, 400.0}, {u"Gamma"_s, 500.0}});
    }

    /// Copies one of these songs to another name.
    void rename(const QString &song, const QString &name) const
    {
        ASSERT_TRUE(QDir(given).rename(song, name));
    }

    QString given;
};

TEST_F(OpeningProgram, AFirstStartWithFilesListsThemAndPlaysTheFirst)
{
    start(Size::Usual, {given + u"/gamma.flac"_s, given + u"/beta.flac"_s});
    EXPECT_TRUE(hears(500.0));
    EXPECT_TRUE(waitForSongs(2));
    EXPECT_FALSE(showsMessage());
    display.key(u"ctrl+Right"_s);
    EXPECT_TRUE(hears(400.0)) << "the opened files must be the queue";
    EXPECT_EQ(quit(), 0);
}

TEST_F(OpeningProgram, AClickOnTheFolderShowsItsListAfterFilesWereOpened)
{
    start();
    ASSERT_TRUE(waitForSongs(1));
    ASSERT_TRUE(waitForSelectedSource(0));
    EXPECT_EQ(startSecond({given + u"/gamma.flac"_s, given + u"/beta.flac"_s}), 0);
    EXPECT_TRUE(hears(500.0));
    EXPECT_TRUE(waitForSongs(2));
    click(place::sourceRow(0));
    EXPECT_TRUE(waitForSelectedSource(0));
    EXPECT_TRUE(waitForSongs(1));
    EXPECT_TRUE(hears(500.0)) << "the song must keep playing";
}

TEST_F(OpeningProgram, ASecondInstanceResolvesRelativePathsItself)
{
    start();
    ASSERT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    EXPECT_EQ(startSecond({u"Given/../Given/beta.flac"_s}, homeFolder()), 0);
    EXPECT_TRUE(hears(400.0));
    EXPECT_TRUE(isRunning());
}

TEST_F(OpeningProgram, NamesWithSpacePercentSignAndLineBreakPlay)
{
    rename(u"beta.flac"_s, u"100%20 a b.flac"_s);
    rename(u"gamma.flac"_s, u"two\nlines\n\n.flac"_s);
    start();
    EXPECT_EQ(startSecond({u"100%20 a b.flac"_s}, given), 0);
    EXPECT_TRUE(hears(400.0));
    EXPECT_EQ(startSecond({u"two\nlines\n\n.flac"_s}, given), 0);
    EXPECT_TRUE(hears(500.0));
    EXPECT_EQ(startSecond({u"file://"_s + given + u"/100%2520%20a%20b.flac"_s}), 0);
    EXPECT_TRUE(hears(400.0)) << "a URL from a file manager";
    EXPECT_FALSE(showsMessage());
}

TEST_F(OpeningProgram, AGivenFolderIsAddedAndShown)
{
    start();
    ASSERT_TRUE(waitForSongs(1));
    EXPECT_EQ(startSecond({u"."_s}, given), 0);
    EXPECT_TRUE(waitForSelectedSource(1));
    EXPECT_TRUE(waitForSongs(2));
    EXPECT_EQ(quit(), 0);
    const auto folders = settingsList(u"Folders.plist"_s);
    ASSERT_TRUE(folders);
    ASSERT_NE(folders->array(), nullptr);
    ASSERT_EQ(folders->array()->size(), 2U);
    EXPECT_EQ(folders->array()->at(1), PropertyList(given));
}

TEST_F(OpeningProgram, AFileThatIsNotASongIsReportedAndNothingElseChanges)
{
    QFile note(given + u"/note.flac"_s);
    ASSERT_TRUE(note.open(QIODevice::WriteOnly));
    note.write("not a song");
    note.close();
    start();
    ASSERT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    EXPECT_FALSE(showsMessage());
    EXPECT_EQ(startSecond({note.fileName()}), 0);
    EXPECT_TRUE(waitUntil([this] { return showsMessage(); }));
    EXPECT_TRUE(waitForSongs(1));
    EXPECT_TRUE(hears(300.0));

    // A song given with it plays. The missing file is reported again.
    EXPECT_EQ(startSecond({u"gone.flac"_s, u"gamma.flac"_s}, given), 0);
    EXPECT_TRUE(hears(500.0));
    EXPECT_TRUE(waitUntil([this] { return showsMessage(); }));
    EXPECT_TRUE(waitForSongs(1));
}

TEST_F(OpeningProgram, ANameThatIsNotUtf8IsReported)
{
    start();
    ASSERT_TRUE(waitForSongs(1));
    EXPECT_EQ(startSecondWithBytes(given + u"/caf\\351.flac"_s), 0);
    EXPECT_TRUE(waitUntil([this] { return showsMessage(); }));
    EXPECT_TRUE(waitForSongs(1));
    EXPECT_TRUE(isRunning());
}

TEST_F(OpeningProgram, TheWindowHasTheIconAndTheNameOfTheMenuEntry)
{
    if (display.isWayland())
        GTEST_SKIP() << "windows have no icon of their own on Wayland";
    start();
    QString properties;
    const auto reads = [&] {
        QProcess xprop;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        display.addTo(environment);
        xprop.setProcessEnvironment(environment);
        xprop.start(u"xprop"_s, {u"-id"_s, mainWindow(), u"WM_CLASS"_s, u"_NET_WM_ICON"_s});
        if (xprop.waitForFinished())
            properties = QString::fromUtf8(xprop.readAllStandardOutput());
        return properties.contains(u"128 x 128"_s); // the icon is set after the first picture
    };
    EXPECT_TRUE(waitUntil(reads)) << qPrintable(properties.left(200));
    QFile entry(
        QStringLiteral(LYRABOX_SOURCE_DIR "/resources/desktop/org.lyrabox.Lyrabox.desktop"));
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    EXPECT_TRUE(entry.readAll().contains("\nStartupWMClass=Lyrabox\n"));
    EXPECT_TRUE(properties.contains(u"\"Lyrabox\""_s)) << qPrintable(properties.left(200));
    for (const QString &size : {u"16 x 16"_s, u"48 x 48"_s, u"128 x 128"_s})
        EXPECT_TRUE(properties.contains(size)) << qPrintable(size);
}

TEST_F(OpeningProgram, HelpVersionAndWrongOptionsDoNotReachTheRunningProgram)
{
    start();
    EXPECT_EQ(startSecond({u"--help"_s}), 0);
    EXPECT_EQ(startSecond({u"--version"_s}), 0);
    EXPECT_EQ(startSecond({u"--no-such-option"_s}), 2);
    EXPECT_TRUE(isRunning());
}

} // namespace
