// A sound server that runs but does not answer, and one that drops the program's stream.

#include "program/Places.h"
#include "support/program/RunningProgram.h"

#include <QFile>

#include <csignal>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramOnHangingServer : public RunningProgram {
protected:
    void makeSongs()
    {
        folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, 60.0}, {u"Beta"_s, 400.0, 60.0}});
        showFolder(folder);
    }
    void startWithSongs()
    {
        makeSongs();
        start();
        ASSERT_TRUE(waitForSongs(2));
    }
    bool waitForMessage(bool shown)
    {
        return waitUntil([&] { return showsMessage() == shown; });
    }
    void expectWrittenFiles() const
    {
        EXPECT_TRUE(settingsList(u"EQPresets.plist"_s));
        EXPECT_EQ(settingsList(u"Folders.plist"_s),
                  PropertyList(PropertyList::Array{PropertyList(folder)}));
    }

    QString folder;
};

TEST_F(ProgramOnHangingServer, ReportsItOnPauseAndContinuesWhenTheServerAnswers)
{
    startWithSongs();
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    EXPECT_FALSE(showsMessage());
    sound.hang();
    display.key(u"space"_s);
    EXPECT_TRUE(waitForMessage(true));
    // The windows keep working and another song can be loaded and played. The message stays.
    display.key(u"ctrl+f"_s);
    display.type(u"bet"_s);
    EXPECT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(waitForMessage(true));

    sound.resume();
    EXPECT_TRUE(hears(400.0, 20.0));
    EXPECT_TRUE(waitForMessage(false));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramOnHangingServer, ReportsItDuringASongUntilTheServerContinues)
{
    startWithSongs();
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    EXPECT_FALSE(showsMessage());
    sound.hang();
    EXPECT_TRUE(waitForMessage(true));
    sound.resume();
    EXPECT_TRUE(waitForMessage(false));
    EXPECT_TRUE(hears(300.0));
}

TEST_F(ProgramOnHangingServer, EndsOnASignalAndWritesItsFilesWhileASongPlays)
{
    startWithSongs();
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    QFile::remove(settingsFile(u"Folders.plist"_s));
    sound.hang();
    EXPECT_EQ(sendSignalAndWait(SIGTERM), 0);
    expectWrittenFiles();
}

TEST_F(ProgramOnHangingServer, StartsWithoutSoundAndPlaysWhenTheServerAnswers)
{
    makeSongs();
    sound.hang();
    start();
    ASSERT_TRUE(waitForSongs(2));
    EXPECT_TRUE(waitForMessage(true));
    doubleClickSong(1);
    EXPECT_TRUE(waitForMessage(true));
    sound.resume();
    EXPECT_TRUE(hears(400.0, 20.0));
    EXPECT_TRUE(waitForMessage(false));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramOnHangingServer, EndsOnASignalAndWritesItsFilesAfterAStartWithoutSound)
{
    makeSongs();
    sound.hang();
    start();
    ASSERT_TRUE(waitForSongs(2));
    QFile::remove(settingsFile(u"Folders.plist"_s));
    EXPECT_EQ(sendSignalAndWait(SIGTERM), 0);
    expectWrittenFiles();
}

TEST_F(ProgramOnHangingServer, ADroppedStreamIsReplacedAndTheSongContinues)
{
    startWithSongs();
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    sound.killStreams();
    recorder->waitFor(0.5);
    EXPECT_TRUE(hears(300.0));
    EXPECT_FALSE(showsMessage());
}

TEST_F(ProgramOnHangingServer, ReportsThatThereIsNoDeviceUntilThereIsOne)
{
    startWithSongs();
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    sound.kill();
    EXPECT_TRUE(waitForMessage(true));
    ASSERT_TRUE(sound.restart());
    recorder = sound.record(u"a"_s);
    EXPECT_TRUE(hears(300.0, 20.0));
    EXPECT_TRUE(waitForMessage(false));
}

} // namespace
