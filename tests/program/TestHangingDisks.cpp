// Folders on a disk that does not answer from the start.

#include "program/HangingDisk.h"
#include "program/Places.h"
#include "support/program/RunningProgram.h"

#include <csignal>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Starts with "Tones" on a working disk and "Remote", which was shown last, on a disk that hangs.
class ProgramWithAHangingDisk : public RunningProgram {
protected:
    void startBesideIt()
    {
        const QString tones = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, 120.0}});
        const QString remote = makeFolder(u"Remote"_s, {});
        showFolder(remote);
        folders = PropertyList(PropertyList::Array{PropertyList(tones), PropertyList(remote)});
        ASSERT_TRUE(writePropertyList(folders, settingsFile(u"Folders.plist"_s)));
        if (!disk.mount(remote))
            GTEST_SKIP() << "no disk can be mounted here (" << disk.reason().toStdString()
                         << "): root rights are needed";
        start();
    }

    PropertyList folders;
    HangingDisk disk;
};

TEST_F(ProgramWithAHangingDisk, ShowsItsWindowPlaysFromOtherDisksAndEnds)
{
    startBesideIt();
    if (IsSkipped() || HasFailure())
        return;
    EXPECT_TRUE(disk.isAsked());
    click(place::sourceRow(0));
    ASSERT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(settingsList(u"Folders.plist"_s), folders);
}

TEST_F(ProgramWithAHangingDisk, ContinuesAfterEscapeWhenItsFolderIsSelected)
{
    startBesideIt();
    if (IsSkipped() || HasFailure())
        return;
    click(place::sourceRow(0));
    ASSERT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    click(place::sourceRow(1));
    ASSERT_TRUE(waitUntil([this] { return showsProgress(); }));
    display.key(u"Escape"_s);
    EXPECT_TRUE(waitUntil([this] { return !showsProgress(); }));
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(settingsList(u"Folders.plist"_s), folders);
}

TEST_F(ProgramWithAHangingDisk, IsNotHeldUpByANextSongOnIt)
{
    const QString tones = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, 120.0}});
    const QString remote = makeFolder(u"Tones/Remote"_s, {{u"Beta"_s, 400.0}});
    showFolder(tones);
    setUserDefault(u"includeSubfolders"_s, true);
    setVariable(u"LYRABOX_READY_SONGS"_s, u"1"_s); // even if the whole suite runs without it
    start();
    ASSERT_TRUE(waitForSongs(2));
    if (!disk.mount(remote))
        GTEST_SKIP() << "no disk can be mounted here (" << disk.reason().toStdString()
                     << "): root rights are needed";
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    ASSERT_TRUE(waitUntil([this] { return disk.isAsked(); })) << "it is not made ready";
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
    display.key(u"space"_s);
    EXPECT_TRUE(hears(300.0));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithAHangingDisk, EndsOnASignalWhenItsFolderIsSelected)
{
    startBesideIt();
    if (IsSkipped() || HasFailure())
        return;
    click(place::sourceRow(1));
    ASSERT_TRUE(waitUntil([this] { return showsProgress(); }));
    EXPECT_EQ(sendSignalAndWait(SIGTERM), 0);
    EXPECT_EQ(settingsList(u"Folders.plist"_s), folders);
}

} // namespace
