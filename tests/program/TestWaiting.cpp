// Input during long work: while a song loads or a long list is built.

#include "program/Places.h"
#include "support/SampleAudio.h"
#include "support/program/RunningProgram.h"

#include <QDir>

#include <cmath>
#include <csignal>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class WaitingProgram : public RunningProgram {
protected:
    /// Creates songs: "Alpha" at 300 Hz takes seconds to load. "Beta" sounds at 400 Hz, "Gamma" at
    /// 500 Hz and "Delta", which is listed between them, at 600 Hz.
    void startWithASlowSong()
    {
        const QString folder =
            makeFolder(u"Tones"_s, {{u"Beta"_s, 400.0}, {u"Delta"_s, 600.0}, {u"Gamma"_s, 500.0}});
        slowFile = QDir(folder).filePath(u"alpha.mp3"_s);
        ASSERT_TRUE(makeSampleAt(slowFile, {.extension = u"mp3"_s,
                                            .frequency = 300.0,
                                            .amplitude = 0.4,
                                            .seconds = 60.0,
                                            .tags = {{u"title"_s, u"Alpha"_s}},
                                            .options = {u"-b:a"_s, u"128k"_s}}));
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(4));
    }

    /// Waits until the load counts as long. Most of it is still to come then.
    void waitWithinTheLoad() const { recorder->waitFor(1.0); }
    bool isLoading() const { return !hearsAnything(0.0); }

    /// Whether no other tone is heard from now on.
    void expectOnly(double frequency)
    {
        const std::size_t begin = recorder->size();
        recorder->waitFor(1.0);
        for (std::size_t at = begin; at + Recorder::sampleRate / 5 < recorder->size();
             at += Recorder::sampleRate / 10)
            EXPECT_NEAR(toneAt(at), frequency, frequency / 200.0);
    }
};

/// Shows the folder "Tones", with "Alpha" at 300 Hz and "Beta" at 350 Hz. Below it is "Slow", whose
/// list of five songs from 400 Hz on takes seconds to build.
class ProgramWithASlowList : public WaitingProgram {
protected:
    static constexpr int slowSongs = 5;

    /// `copies` is the number of additional songs.
    void makeSlowFolder(int copies = 0)
    {
        std::vector<Tone> songs;
        for (int i = 0; i < slowSongs; ++i)
            songs.push_back({u"Slow %1"_s.arg(i), 400.0 + 50.0 * i});
        slowFolder = makeFolder(u"Slow"_s, songs);
        slowFile = slowFolder + u'/';
        const QDir slow(slowFolder);
        const QString first = slow.filePath(slow.entryList(QDir::Files).front());
        for (int i = 0; i < copies; ++i)
            ASSERT_TRUE(QFile::copy(first, slow.filePath(u"copy %1.wav"_s.arg(i))));
    }

    /// `copies` is the number of additional songs in the slow folder.
    void startBesideASlowFolder(int copies = 0)
    {
        const QString fast =
            makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, 120.0}, {u"Beta"_s, 350.0}});
        makeSlowFolder(copies);
        showFolder(fast);
        const PropertyList both(PropertyList::Array{PropertyList(fast), PropertyList(slowFolder)});
        ASSERT_TRUE(writePropertyList(both, settingsFile(u"Folders.plist"_s)));
        start();
        ASSERT_TRUE(waitForSongs(2));
    }

    void beginTheList()
    {
        click(place::sourceRow(1));
        ASSERT_TRUE(waitUntil([this] { return showsProgress(); }));
    }
    /// Ask this after the input that must fall into the wait.
    bool isBuilding() const { return reads(slowFolder); }
    bool waitForTheList() const
    {
        return waitUntil([this] { return !showsProgress(); }, 60.0) && waitForSongs(slowSongs);
    }

    QString slowFolder;
};

TEST_F(ProgramWithASlowList, ShowsItsProgressAndThenItsSongs)
{
    startBesideASlowFolder();
    EXPECT_FALSE(showsProgress());
    beginTheList();
    EXPECT_TRUE(waitForTheList());
    doubleClickSong(2);
    EXPECT_TRUE(hearsAnything(60.0));
}

TEST_F(ProgramWithASlowList, TheWindowIsShownBeforeTheRememberedList)
{
    makeSlowFolder();
    showFolder(slowFolder);
    start();
    EXPECT_TRUE(waitUntil([this] { return showsProgress(); }));
    EXPECT_TRUE(isBuilding());
    display.key(u"ctrl+f"_s); // handled after the list is built
    display.type(u"slow 2"_s);
    EXPECT_TRUE(waitUntil([this] { return !showsProgress(); }, 60.0));
    EXPECT_TRUE(waitForSongs(1));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithASlowList, EscapeStopsTheRememberedList)
{
    makeSlowFolder(20);
    showFolder(slowFolder);
    start();
    ASSERT_TRUE(waitUntil([this] { return showsProgress(); }));
    ASSERT_TRUE(isBuilding()) << "the list was built too fast for the test";
    display.key(u"Escape"_s);
    EXPECT_TRUE(waitUntil([this] { return showsMessage(); }))
        << "no message that songs are missing";
    EXPECT_TRUE(waitUntil([this] { return !isBuilding(); }));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithASlowList, ASignalDuringTheRememberedListEndsTheProgram)
{
    makeSlowFolder();
    showFolder(slowFolder);
    start();
    ASSERT_TRUE(isBuilding()) << "the list was built too fast for the test";
    EXPECT_EQ(sendSignalAndWait(SIGTERM), 0);
    EXPECT_TRUE(settingsList(u"EQPresets.plist"_s));
}

TEST_F(ProgramWithASlowList, TheSoundContinuesDuringTheWork)
{
    startBesideASlowFolder();
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    beginTheList();
    const std::size_t begin = recorder->size();
    EXPECT_TRUE(waitForTheList());
    const std::size_t end = recorder->size();
    // On a busy machine the output may run dry for a moment.
    int slices = 0;
    int sounding = 0;
    for (std::size_t at = begin; at + Recorder::sampleRate / 5 < end;
         at += Recorder::sampleRate / 5) {
        ++slices;
        sounding += std::abs(toneAt(at) - 300.0) < 1.5 ? 1 : 0;
    }
    EXPECT_GT(slices, 5);
    EXPECT_GT(sounding, slices / 2);
    EXPECT_TRUE(hears(300.0));
}

TEST_F(ProgramWithASlowList, DropsClicksOnTheListThatItReplaces)
{
    startBesideASlowFolder();
    beginTheList();
    doubleClickSong(1);
    ASSERT_TRUE(isBuilding()) << "the list was built too fast for the test";
    EXPECT_TRUE(waitForTheList());
    const std::size_t begin = recorder->size();
    recorder->waitFor(1.0);
    for (std::size_t at = begin; at + Recorder::sampleRate / 10 < recorder->size();
         at += Recorder::sampleRate / 10)
        EXPECT_EQ(toneAt(at, 0.1), 0.0);
    EXPECT_FALSE(reads(slowFolder)) << "a song was loaded";
}

TEST_F(ProgramWithASlowList, PausePressedDuringTheWorkPauses)
{
    startBesideASlowFolder();
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));
    beginTheList();
    display.key(u"space"_s);
    ASSERT_TRUE(isBuilding()) << "the list was built too fast for the test";
    EXPECT_TRUE(waitForTheList());
    EXPECT_TRUE(hearsSilence());
    display.key(u"space"_s);
    EXPECT_TRUE(hears(300.0));
}

TEST_F(ProgramWithASlowList, EscapeStopsTheListAndKeepsTheSongsReadSoFar)
{
    startBesideASlowFolder(100); // more than any machine reads at once
    beginTheList();
    display.key(u"Escape"_s);
    EXPECT_TRUE(waitUntil([this] { return showsMessage(); })) << "the list was not stopped";
    EXPECT_TRUE(waitUntil([this] { return !showsProgress(); }));
    EXPECT_FALSE(songRowIsEmpty(0));
    EXPECT_FALSE(reads(slowFolder));
    click(place::sourceRow(0));
    EXPECT_TRUE(waitForSongs(2));
    EXPECT_TRUE(waitUntil([this] { return !showsMessage(); }));
}

TEST_F(WaitingProgram, ALongLoadShowsItsProgressAndThenPlays)
{
    startWithASlowSong();
    EXPECT_FALSE(showsProgress());
    doubleClickSong(0);
    EXPECT_TRUE(waitUntil([this] { return showsProgress(); }));
    EXPECT_TRUE(hears(300.0, 30.0));
    EXPECT_TRUE(waitUntil([this] { return !showsProgress(); }));
}

TEST_F(WaitingProgram, PlayPressedAgainDuringALoadStillMeansPlay)
{
    startWithASlowSong();
    click(place::songRow(0));
    display.key(u"space"_s);
    waitWithinTheLoad();
    display.key(u"space"_s);
    display.key(u"space"_s);
    display.key(u"space"_s);
    ASSERT_TRUE(isLoading()) << "the song loaded too fast for the test";
    EXPECT_TRUE(hears(300.0, 30.0));
    expectOnly(300.0);
    display.key(u"space"_s); // this press pauses
    EXPECT_TRUE(hearsSilence());
}

TEST_F(WaitingProgram, PausePressedDuringTheNextLoadPauses)
{
    startWithASlowSong();
    doubleClickSong(1);
    EXPECT_TRUE(hears(400.0));
    doubleClickSong(0);
    waitWithinTheLoad();
    display.key(u"space"_s);
    ASSERT_TRUE(isLoading()) << "the song loaded too fast for the test";
    EXPECT_TRUE(waitUntil([this] { return showsProgress(); }));
    EXPECT_TRUE(waitUntil([this] { return !showsProgress(); }));
    EXPECT_TRUE(hearsSilence());
    display.key(u"space"_s);
    EXPECT_TRUE(hears(300.0));
}

TEST_F(WaitingProgram, OnlyTheLastSongPickedDuringALoadIsPlayed)
{
    startWithASlowSong();
    doubleClickSong(0);
    waitWithinTheLoad();
    doubleClickSong(1);
    doubleClickSong(2);
    doubleClickSong(3);
    ASSERT_TRUE(isLoading()) << "the song loaded too fast for the test";
    const std::size_t begin = recorder->size();
    EXPECT_TRUE(hears(500.0, 30.0));
    expectOnly(500.0);
    for (std::size_t at = begin; at + Recorder::sampleRate / 20 < recorder->size();
         at += Recorder::sampleRate / 20) {
        const double tone = toneAt(at, 0.05);
        EXPECT_FALSE(std::abs(tone - 400.0) < 4.0 || std::abs(tone - 600.0) < 4.0)
            << "a song that was picked earlier is heard";
    }
}

TEST_F(WaitingProgram, AKeyHeldDuringALoadActsOnce)
{
    startWithASlowSong();
    doubleClickSong(0);
    waitWithinTheLoad();
    display.keyDown(u"minus"_s); // slower by 5 percent; the display repeats the key
    recorder->waitFor(1.0);
    display.keyUp(u"minus"_s);
    ASSERT_TRUE(isLoading()) << "the song loaded too fast for the test";
    EXPECT_TRUE(hears(300.0, 30.0));
    display.key(u"ctrl+s"_s); // keeps the song's speed
    EXPECT_EQ(quit(), 0);
    const auto settings = settingsList(u"UserSettings.plist"_s);
    ASSERT_TRUE(settings);
    const PropertyList::Array *songs = settings->value(u"songSettings").array();
    ASSERT_TRUE(songs != nullptr && songs->size() == 1);
    EXPECT_EQ(songs->front().value(u"speed").real(), 95.0);
}

} // namespace
