// Signals and crashes at bad moments, and folders that fail while the program shows them.

#include "program/HangingDisk.h"
#include "program/Places.h"
#include "program/SessionManager.h"
#include "support/program/RunningProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <random>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList fileNames{u"UserSettings.plist"_s, u"EQPresets.plist"_s, u"Folders.plist"_s};

class FaultyProgram : public RunningProgram {
protected:
    void startWithSongs()
    {
        showFolder(makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}, {u"Beta"_s, 400.0}}));
        start();
        ASSERT_TRUE(waitForSongs(2));
        for (const QString &name : fileNames)
            QFile::remove(settingsFile(name));
    }

    void expectWrittenFiles() const
    {
        for (const QString &name : fileNames)
            EXPECT_TRUE(settingsList(name)) << name.toStdString() << " is not written";
    }
};

class ProgramInTheMiddle;

/// What the program is doing when it is ended.
struct Moment {
    const char *name;
    void (ProgramInTheMiddle::*reach)();
};

class ProgramInTheMiddle : public FaultyProgram, public testing::WithParamInterface<Moment> {
public:
    void alert()
    {
        display.key(u"F1"_s);
        display.waitForWindow(u"^Keys"_s);
    }
    void fileDialog()
    {
        display.key(u"ctrl+shift+o"_s);
        display.waitForWindow(u"^Choose Music Library"_s);
    }
    void popover()
    {
        const QRgb before = window().pixel(place::browserOk);
        click(place::addFolderButton);
        EXPECT_TRUE(waitUntil([&] { return window().pixel(place::browserOk) != before; }));
    }
    void folderQuestion()
    {
        const QRgb before = window().pixel(place::removeOk - QPoint(16, 0));
        click(place::removeFolderButton);
        EXPECT_TRUE(
            waitUntil([&] { return window().pixel(place::removeOk - QPoint(16, 0)) != before; }));
    }
    void presetName()
    {
        display.key(u"ctrl+2"_s);
        const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
        EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
        const QImage before = display.screen(display.frameOf(equalizer));
        display.key(u"Insert"_s);
        EXPECT_TRUE(
            waitUntil([&] { return display.screen(display.frameOf(equalizer)) != before; }));
    }
    void menu()
    {
        const QImage before = window().copy(0, 24, 120, 60);
        display.key(u"alt+f"_s);
        EXPECT_TRUE(waitUntil([&] { return window().copy(0, 24, 120, 60) != before; }));
    }
    void buttonHold()
    {
        doubleClickSong(0);
        hears(300.0);
        display.moveTo(place::mainWindow.topLeft() + place::forwardButton);
        const int before = playedPixels();
        display.press();
        EXPECT_TRUE(waitUntil([&] { return playedPixels() > before + 40; }));
    }
    void keyHold()
    {
        doubleClickSong(0);
        hears(300.0);
        const int before = playedPixels();
        display.keyDown(u"Right"_s);
        EXPECT_TRUE(waitUntil([&] { return playedPixels() > before + 40; }));
    }
    void typing()
    {
        display.key(u"ctrl+f"_s);
        display.type(u"alp"_s);
        EXPECT_TRUE(waitForSongs(1));
    }
};

TEST_P(ProgramInTheMiddle, WritesItsFilesAndEndsOnASignal)
{
    startWithSongs();
    (this->*GetParam().reach)();
    ASSERT_FALSE(HasFailure());
    EXPECT_EQ(sendSignalAndWait(SIGTERM), 0);
    expectWrittenFiles();
}

INSTANTIATE_TEST_SUITE_P(Moments, ProgramInTheMiddle,
                         testing::Values(Moment{"Alert", &ProgramInTheMiddle::alert},
                                         Moment{"FileDialog", &ProgramInTheMiddle::fileDialog},
                                         Moment{"Popover", &ProgramInTheMiddle::popover},
                                         Moment{"FolderQuestion",
                                                &ProgramInTheMiddle::folderQuestion},
                                         Moment{"PresetName", &ProgramInTheMiddle::presetName},
                                         Moment{"Menu", &ProgramInTheMiddle::menu},
                                         Moment{"ButtonHold", &ProgramInTheMiddle::buttonHold},
                                         Moment{"KeyHold", &ProgramInTheMiddle::keyHold},
                                         Moment{"Typing", &ProgramInTheMiddle::typing}),
                         [](const auto &moment) { return std::string(moment.param.name); });

TEST_F(FaultyProgram, ASignalDuringAScanWritesTheFilesAndEnds)
{
    const QString tones = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}, {u"Beta"_s, 400.0}});
    const QString many = makeFolder(u"Many"_s, {});
    const QByteArray song = QFile::encodeName(QDir(tones).filePath(u"alpha.flac"_s));
    for (int i = 0; i < 6000; ++i)
        ASSERT_EQ(
            ::link(song.constData(), QFile::encodeName(many + u"/%1.flac"_s.arg(i)).constData()),
            0);
    showFolder(tones);
    const PropertyList both(PropertyList::Array{PropertyList(tones), PropertyList(many)});
    ASSERT_TRUE(writePropertyList(both, settingsFile(u"Folders.plist"_s)));
    start();
    ASSERT_TRUE(waitForSongs(2));
    click(place::sourceRow(1));
    ASSERT_TRUE(waitUntil([&] { return reads(many); }));
    for (const QString &name : fileNames)
        QFile::remove(settingsFile(name));
    EXPECT_EQ(sendSignalAndWait(SIGTERM), 0);
    expectWrittenFiles();
}

TEST_F(FaultyProgram, ASignalDuringTheNoSoundAlertEndsTheProgram)
{
    sound.kill();
    startWithoutWindow();
    display.waitForWindow(u"^Lyrabox$"_s);
    EXPECT_EQ(sendSignalAndWait(SIGTERM), 1); // the start failed
    EXPECT_FALSE(QFile::exists(settingsFile(u"EQPresets.plist"_s)));
}

TEST_F(FaultyProgram, TheEndOfTheDesktopSessionWritesTheFilesAndEnds)
{
    if (display.isWayland())
        GTEST_SKIP() << "sessions of Wayland have no session manager: they end by a signal";
    SessionManager session;
    startWithSongs();
    ASSERT_TRUE(session.waitForProgram());
    ASSERT_TRUE(session.endSession());
    EXPECT_EQ(waitForEnd(), 0);
    expectWrittenFiles();
}

TEST_F(FaultyProgram, TheEndOfTheDesktopSessionDuringAnAlertWritesTheFilesAndEnds)
{
    if (display.isWayland())
        GTEST_SKIP() << "sessions of Wayland have no session manager: they end by a signal";
    SessionManager session;
    startWithSongs();
    ASSERT_TRUE(session.waitForProgram());
    display.key(u"F1"_s);
    display.waitForWindow(u"^Keys"_s);
    ASSERT_TRUE(session.endSession());
    EXPECT_EQ(waitForEnd(), 0);
    expectWrittenFiles();
}

TEST_F(FaultyProgram, TheSettingsAreWrittenIfTheDisplayServerDies)
{
    startWithSongs();
    display.kill();
    waitForEnd(); // the toolkit calls exit()
    expectWrittenFiles();
}

TEST_F(FaultyProgram, AKillWhileEndingLeavesEachFileWhole)
{
    startWithSongs();
    ASSERT_EQ(sendSignalAndWait(SIGTERM), 0);
    const int rounds = qEnvironmentVariableIntValue("LYRABOX_FAULT_ROUNDS") > 0
                           ? qEnvironmentVariableIntValue("LYRABOX_FAULT_ROUNDS")
                           : 6;
    std::mt19937 dice(9); // chooses the time of the kill
    std::uniform_int_distribution<useconds_t> moment(0, 80'000);
    for (int round = 0; round < rounds; ++round) {
        start();
        ASSERT_TRUE(waitForSongs(2));
        display.key(u"ctrl+2"_s);
        ::kill(processId(), SIGTERM);
        ::usleep(moment(dice));
        killAtOnce();
        expectWrittenFiles();
        ASSERT_FALSE(HasFailure()) << "in round " << round;
    }
    start();
    EXPECT_TRUE(waitForSongs(2));
    EXPECT_EQ(quit(), 0);
}

TEST_F(FaultyProgram, PipesAndDevicesAreNotSongsAndDoNotBlock)
{
    const QString folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}});
    const auto inFolder = [&](const char *name) {
        return QFile::encodeName(QDir(folder).filePath(QString::fromLatin1(name)));
    };
    ASSERT_EQ(mkfifo(inFolder("pipe.mp3").constData(), 0666), 0);
    ASSERT_EQ(symlink("/dev/zero", inFolder("zero.wav").constData()), 0);
    ASSERT_EQ(symlink("loop.flac", inFolder("loop.flac").constData()), 0);
    ASSERT_EQ(symlink("gone.flac", inFolder("dangling.flac").constData()), 0);
    ASSERT_EQ(symlink("..", inFolder("up").constData()), 0);
    ASSERT_EQ(symlink("pipe.mp3", inFolder("link.mp3").constData()), 0);
    showFolder(folder);
    start();
    EXPECT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    EXPECT_EQ(quit(), 0);
}

TEST_F(FaultyProgram, TheSongKeepsPlayingWhenItsFolderVanishes)
{
    const QString folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, 60.0}, {u"Beta"_s, 400.0}});
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(2));
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    ASSERT_TRUE(QDir(folder).removeRecursively());
    EXPECT_TRUE(seekForward());
    ASSERT_TRUE(recorder->waitFor(0.5));
    EXPECT_TRUE(hears(300.0));
    display.key(u"ctrl+Right"_s); // the next song is gone: an error ends the queue
    EXPECT_TRUE(hearsSilence());
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(quit(), 0);
}

TEST_F(FaultyProgram, ASettingsFolderThatCannotBeCreatedIsReportedOnce)
{
    const QString folder = QFileInfo(settingsFile(u"x"_s)).path();
    ASSERT_TRUE(QDir().rmdir(folder));
    QFile obstacle(folder);
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    const QString told = QDir(homeFolder()).filePath(u"told"_s);
    const QString lyrabox = std::exchange(program, u"/bin/sh"_s);
    start(Size::Usual, {u"-c"_s, u"exec \"$0\" 2>\"$1\""_s, lyrabox, told});
    EXPECT_EQ(quit(), 0);
    QFile errors(told);
    ASSERT_TRUE(errors.open(QIODevice::ReadOnly));
    const QByteArray text = errors.readAll();
    EXPECT_EQ(text.count("Unable to access Application Support Directory"), 1) << text.constData();
}

/// Has a folder of songs on a separate disk.
class ProgramOnDisk : public FaultyProgram {
protected:
    bool mountDisk()
    {
        folder = QDir(homeFolder()).filePath(u"Disk"_s);
        QDir().mkpath(folder);
        const QByteArray path = QFile::encodeName(folder);
        if (::mount("none", path.constData(), "tmpfs", 0, "size=64m") != 0) {
            reason = std::strerror(errno);
            return false;
        }
        isMounted = true;
        makeFolder(u"Disk"_s, {{u"Alpha"_s, 300.0, 60.0}, {u"Beta"_s, 400.0}});
        showFolder(folder);
        return true;
    }
    void unplug()
    {
        if (std::exchange(isMounted, false))
            ::umount2(QFile::encodeName(folder).constData(), MNT_DETACH);
    }
    ~ProgramOnDisk() override { unplug(); }

    QString folder;
    const char *reason = "";
    bool isMounted = false;
};

TEST_F(ProgramOnDisk, TheSongKeepsPlayingWhenTheDiskIsUnplugged)
{
    if (!mountDisk())
        GTEST_SKIP() << "no disk can be mounted here (" << reason << "): root rights are needed";
    start();
    ASSERT_TRUE(waitForSongs(2));
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    unplug();
    EXPECT_TRUE(seekForward());
    ASSERT_TRUE(recorder->waitFor(0.5));
    EXPECT_TRUE(hears(300.0));
    display.key(u"ctrl+Right"_s);
    EXPECT_TRUE(hearsSilence());
    EXPECT_EQ(quit(), 0);
    EXPECT_TRUE(settingsList(u"Folders.plist"_s));
}

TEST_F(FaultyProgram, AHangingDiskDelaysListsButNotTheSound)
{
    const QString tones = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, 120.0}});
    const QString remote = makeFolder(u"Remote"_s, {{u"Beta"_s, 400.0}});
    showFolder(tones);
    const PropertyList both(PropertyList::Array{PropertyList(tones), PropertyList(remote)});
    ASSERT_TRUE(writePropertyList(both, settingsFile(u"Folders.plist"_s)));
    start();
    ASSERT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    HangingDisk disk;
    if (!disk.mount(remote))
        GTEST_SKIP() << "no disk can be mounted here (" << disk.reason().toStdString()
                     << "): root rights are needed";
    click(place::sourceRow(1));
    ASSERT_TRUE(waitUntil([&] { return disk.isAsked(); }));

    // The sound continues without the main thread.
    for (int second = 0; second < 3; ++second) {
        ASSERT_TRUE(recorder->waitFor(1.0));
        EXPECT_TRUE(hears(300.0));
    }

    disk.unplug();
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(settingsList(u"Folders.plist"_s), both);
}

} // namespace
