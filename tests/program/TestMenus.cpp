// Chooses every command of the menus and checks what a user sees or hears.

#include "program/Places.h"
#include "support/Heard.h"
#include "support/SampleAudio.h"
#include "support/program/RunningProgram.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramWithMenus : public RunningProgram {
protected:
    /// Opens a menu by its mnemonic and chooses a command by its own; two letters if the first
    /// opens a submenu.
    void choose(const QString &menu, const QString &letters)
    {
        display.key(u"alt+"_s + menu);
        for (const QChar letter : letters)
            display.key(letter);
    }

    /// The same with the mouse.
    void clickInMenu(QPoint title, QPoint command)
    {
        const QRect there(command - QPoint(20, 8), QSize(60, 16));
        const QImage before = picture(there);
        click(title);
        EXPECT_TRUE(comesToDifferFrom(before, there)) << "the menu does not open";
        click(command);
    }

    QImage picture(const QRect &area) const { return window().copy(area); }
    bool comesToDifferFrom(const QImage &before, const QRect &area) const
    {
        return waitUntil([&] { return picture(area) != before; });
    }
    bool comesToLookLike(const QImage &before, const QRect &area) const
    {
        return waitUntil([&] { return picture(area) == before; });
    }

    /// The loudest sample in the last tenth of a second.
    float peakNow() const
    {
        const std::size_t size = recorder->size();
        return peakOf(recorder->samples(size - std::min<std::size_t>(size, 4410), size));
    }

    bool comesToPixel(double pixels) const
    {
        return waitUntil([&] { return std::abs(playedPixels() - pixels) <= 4.0; });
    }

    /// The titles of the songs from the top, recognised by their pixels. Selected rows are not
    /// recognised.
    void learnTitles(const QString &order)
    {
        for (int row = 0; row < order.size(); ++row)
            m_titles.append({order.at(row), text(row)});
    }
    QString titles() const
    {
        QString order;
        for (int row = 0; row < m_titles.size(); ++row) {
            for (const auto &[letter, drawn] : m_titles) {
                if (text(row) == drawn)
                    order += letter;
            }
        }
        return order;
    }
    bool comesToOrder(const QString &order) const
    {
        const bool came = waitUntil([&] { return titles() == order; });
        EXPECT_TRUE(came) << "the order is " << qPrintable(titles()) << ", not "
                          << qPrintable(order);
        return came;
    }

private:
    QImage text(int row) const
    {
        return picture(place::songRowTitle(row)).convertToFormat(QImage::Format_Mono);
    }

    QList<std::pair<QChar, QImage>> m_titles;
};

TEST_F(ProgramWithMenus, PlaybackPlaysPausesAndChangesTheSong)
{
    showFolder(makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, 60.0}, {u"Beta"_s, 400.0, 60.0}}));
    start();
    ASSERT_TRUE(waitForSongs(2));
    choose(u"p"_s, u"p"_s); // Play or Pause
    EXPECT_TRUE(hears(300.0));
    choose(u"p"_s, u"p"_s);
    EXPECT_TRUE(hearsSilence());
    choose(u"p"_s, u"p"_s);
    EXPECT_TRUE(hears(300.0));
    choose(u"p"_s, u"n"_s); // Next Song
    EXPECT_TRUE(hears(400.0));
    choose(u"p"_s, u"r"_s); // Previous Song
    EXPECT_TRUE(hears(300.0));

    const QImage inOrder = picture(place::shuffleButton);
    choose(u"p"_s, u"h"_s); // Shuffle
    EXPECT_TRUE(comesToDifferFrom(inOrder, place::shuffleButton));
    choose(u"p"_s, u"h"_s);
    EXPECT_TRUE(comesToLookLike(inOrder, place::shuffleButton));
}

TEST_F(ProgramWithMenus, PlaybackChangesSpeedPitchAndVolume)
{
    showFolder(makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, 120.0}}));
    start();
    ASSERT_TRUE(waitForSongs(1));
    choose(u"p"_s, u"p"_s);
    ASSERT_TRUE(hears(300.0));

    const QImage normal = picture(place::speedField);
    choose(u"p"_s, u"f"_s); // Faster
    EXPECT_TRUE(comesToDifferFrom(normal, place::speedField));
    const QImage fast = picture(place::speedField);
    choose(u"p"_s, u"s"_s); // Slower
    EXPECT_TRUE(comesToLookLike(normal, place::speedField));
    choose(u"p"_s, u"s"_s);
    EXPECT_TRUE(comesToDifferFrom(normal, place::speedField));
    EXPECT_NE(picture(place::speedField), fast);
    choose(u"p"_s, u"o"_s); // Normal Speed
    EXPECT_TRUE(comesToLookLike(normal, place::speedField));

    const double semitone = std::exp2(1.0 / 12.0);
    const QImage original = picture(place::pitchField);
    choose(u"p"_s, u"u"_s); // Pitch Up
    EXPECT_TRUE(hears(300.0 * semitone));
    choose(u"p"_s, u"d"_s); // Pitch Down
    EXPECT_TRUE(hears(300.0));
    choose(u"p"_s, u"d"_s);
    EXPECT_TRUE(hears(300.0 / semitone));
    EXPECT_NE(picture(place::pitchField), original);
    choose(u"p"_s, u"i"_s); // Original Pitch
    EXPECT_TRUE(hears(300.0));
    EXPECT_TRUE(comesToLookLike(original, place::pitchField));

    const float loud = peakNow();
    for (int i = 0; i < 4; ++i)
        choose(u"p"_s, u"q"_s); // Quieter
    EXPECT_TRUE(waitUntil([&] { return peakNow() < 0.9F * loud; }));
    for (int i = 0; i < 4; ++i)
        choose(u"p"_s, u"e"_s); // Louder
    EXPECT_TRUE(waitUntil([&] { return peakNow() > 0.97F * loud; }));
}

TEST_F(ProgramWithMenus, PlaybackSeeksAndLoops)
{
    constexpr int seconds = 60;
    const QString folder = makeFolder(u"Steps"_s, {});
    addStepSong(folder, u"Steps"_s, seconds);
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(1));
    choose(u"p"_s, u"p"_s);
    ASSERT_TRUE(hears(stepFrequency(1)));
    choose(u"p"_s, u"l"_s); // Loop: marks the start
    ASSERT_TRUE(hears(stepFrequency(3)));
    choose(u"p"_s, u"l"_s); // marks the end
    ASSERT_TRUE(hears(stepFrequency(2)));
    ASSERT_TRUE(hears(stepFrequency(3)));
    ASSERT_TRUE(hears(stepFrequency(2)));
    choose(u"p"_s, u"l"_s); // clears the loop
    EXPECT_TRUE(hears(stepFrequency(5), 20.0));

    choose(u"p"_s, u"p"_s);
    ASSERT_TRUE(hearsSilence());
    const double fiveSeconds = navigationBar().width() * 5.0 / seconds;
    const int here = playedPixels();
    choose(u"p"_s, u"w"_s); // Forward 5 Seconds
    EXPECT_TRUE(comesToPixel(here + fiveSeconds));
    choose(u"p"_s, u"b"_s); // Back 5 Seconds
    EXPECT_TRUE(comesToPixel(here));
}

TEST_F(ProgramWithMenus, ViewFocusesTheListsAndSortsTheSongs)
{
    const QString own = makeFolder(u"A"_s, {});
    const auto add = [&](const QString &title, const QString &artist, const QString &album,
                         double frequency, double length) {
        makeSampleAt(QDir(own).filePath(title + u".flac"_s),
                     {.extension = u"flac"_s,
                      .frequency = frequency,
                      .seconds = length,
                      .tags = {{u"title"_s, title}, {u"artist"_s, artist}, {u"album"_s, album}}});
    };
    add(u"Alpha"_s, u"Carol"_s, u"Xylophone"_s, 300.0, 40.0);
    add(u"Beta"_s, u"Ann"_s, u"Zither"_s, 400.0, 50.0);
    add(u"Gamma"_s, u"Bob"_s, u"Yodel"_s, 500.0, 30.0);
    const QString other = makeFolder(u"B"_s, {{u"Delta"_s, 600.0}});
    showFolder(own);
    const PropertyList both(PropertyList::Array{PropertyList(own), PropertyList(other)});
    ASSERT_TRUE(writePropertyList(both, settingsFile(u"Folders.plist"_s)));
    start();
    ASSERT_TRUE(waitForSongs(3));
    learnTitles(u"ABG"_s);
    ASSERT_EQ(titles(), u"ABG"_s);
    choose(u"v"_s, u"sr"_s); // Sort By > Reverse Order
    EXPECT_TRUE(comesToOrder(u"GBA"_s));
    choose(u"v"_s, u"sa"_s); // Artist
    EXPECT_TRUE(comesToOrder(u"BGA"_s));
    choose(u"v"_s, u"sl"_s); // Album
    EXPECT_TRUE(comesToOrder(u"AGB"_s));
    choose(u"v"_s, u"si"_s); // Time
    EXPECT_TRUE(comesToOrder(u"GAB"_s));
    choose(u"v"_s, u"st"_s); // Title
    EXPECT_TRUE(comesToOrder(u"ABG"_s));

    choose(u"p"_s, u"p"_s);
    EXPECT_TRUE(hears(300.0));
    choose(u"p"_s, u"n"_s);
    EXPECT_TRUE(hears(400.0));
    choose(u"p"_s, u"f"_s);
    choose(u"s"_s, u"k"_s);
    choose(u"v"_s, u"sp"_s); // Playing: the playing song comes last
    EXPECT_TRUE(comesToOrder(u"AGB"_s));
    choose(u"v"_s, u"st"_s);
    EXPECT_TRUE(comesToOrder(u"ABG"_s));
    choose(u"v"_s, u"sk"_s); // Kept Speed and Pitch: songs without come first
    EXPECT_TRUE(comesToOrder(u"AGB"_s));

    clickInMenu(place::viewMenu, place::songListCommand);
    display.key(u"Down"_s);
    display.key(u"Return"_s);
    EXPECT_TRUE(hears(300.0)) << "the list of songs does not have the focus";
    choose(u"v"_s, u"f"_s); // Playlists and Folders
    display.key(u"Down"_s);
    EXPECT_TRUE(waitForSongs(1)) << "the folders do not have the focus";
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithMenus, SongCommandsKeepForgetAndShow)
{
    const QString folder = makeFolder(u"Many"_s, {});
    const QString first = QDir(folder).filePath(u"10.flac"_s);
    ASSERT_TRUE(makeSampleAt(first, {.extension = u"flac"_s, .frequency = 300.0, .seconds = 60.0}));
    for (int i = 11; i < 50; ++i)
        ASSERT_TRUE(QFile::copy(first, QDir(folder).filePath(u"%1.flac"_s.arg(i))));
    showFolder(folder);
    start();
    ASSERT_TRUE(waitUntil([this] { return !songRowIsEmpty(10); }));
    doubleClickSong(0);
    ASSERT_TRUE(hears(300.0));

    const QImage top = picture(place::songRowTitle(5));
    click(place::songRow(3));
    display.key(u"ctrl+End"_s);
    ASSERT_TRUE(comesToDifferFrom(top, place::songRowTitle(5)));
    choose(u"s"_s, u"s"_s); // Show Playing Song
    EXPECT_TRUE(comesToLookLike(top, place::songRowTitle(5)));

    const QImage without = picture(place::songRowStar(0));
    choose(u"p"_s, u"f"_s);
    choose(u"s"_s, u"k"_s); // Keep Speed and Pitch
    EXPECT_TRUE(comesToDifferFrom(without, place::songRowStar(0)));
    choose(u"s"_s, u"f"_s); // Forget Speed and Pitch
    EXPECT_TRUE(comesToLookLike(without, place::songRowStar(0)));
}

TEST_F(ProgramWithMenus, FileAndEditCommandsWork)
{
    const QString folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}, {u"Beta"_s, 400.0}});
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(2));
    choose(u"e"_s, u"s"_s); // Search Songs
    display.type(u"bet"_s);
    EXPECT_TRUE(waitForSongs(1));
    display.key(u"Escape"_s);
    EXPECT_TRUE(waitForSongs(2));

    const QRect ok(place::browserOk - QPoint(20, 8), QSize(40, 16));
    const QImage before = picture(ok);
    choose(u"f"_s, u"a"_s); // Add Folder
    EXPECT_TRUE(comesToDifferFrom(before, ok));
    display.key(u"Escape"_s);
    EXPECT_TRUE(comesToLookLike(before, ok));

    choose(u"f"_s, u"m"_s); // Choose Music Library
    display.waitForWindow(u"^Choose Music Library"_s);
    display.type(folder + u"/alpha.flac"_s);
    display.key(u"Return"_s);
    display.waitForWindow(u"^Music library chosen"_s);
    display.key(u"Return"_s);
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));

    choose(u"f"_s, u"q"_s); // Quit
    EXPECT_EQ(waitForEnd(), 0);
}

TEST_F(ProgramWithMenus, WindowCommandsShowAndCloseWindows)
{
    start();
    choose(u"w"_s, u"e"_s); // Equalizer
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
    constexpr QRect both(500, 420, 300, 200);
    display.place(equalizer, place::equalizerWindow.translated(300, 300));
    const QImage covered = display.screen(both);
    click(QPoint(300, 54)); // an empty place
    ASSERT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    choose(u"w"_s, u"l"_s); // Lyrabox
    EXPECT_TRUE(waitUntil([&] { return display.screen(both) != covered; }));
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    choose(u"w"_s, u"c"_s); // Close Window
    EXPECT_EQ(waitForEnd(), 0) << "the program does not end with its main window";
}

TEST_F(ProgramWithMenus, HelpCommandsShowTextsAndOpenUrls)
{
    // The tool with which the toolkit opens URLs.
    const QString tools = makeFolder(u"Tools"_s, {});
    const QString asked = QDir(tools).filePath(u"asked"_s);
    QFile opener(QDir(tools).filePath(u"xdg-open"_s));
    ASSERT_TRUE(opener.open(QIODevice::WriteOnly));
    opener.write("#!/bin/sh\necho \"$1\" >>'" + QFile::encodeName(asked) + "'\n");
    opener.close();
    ASSERT_TRUE(opener.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    setVariable(u"PATH"_s, tools + u':' + qEnvironmentVariable("PATH"));
    const auto wasAsked = [&](const char *address) {
        QFile file(asked);
        return file.open(QIODevice::ReadOnly) && file.readAll().contains(address);
    };
    start();
    for (const auto &[letter, title] :
         {std::pair(u"k"_s, u"^Keys"_s), std::pair(u"a"_s, u"^About Lyrabox"_s)}) {
        choose(u"h"_s, letter); // Keys, About Lyrabox
        const QString shown = display.waitForWindow(title);
        EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == shown; }));
        display.key(u"Escape"_s);
        EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    }
    choose(u"h"_s, u"e"_s); // Email Support
    EXPECT_TRUE(waitUntil([&] { return wasAsked("mailto:"); }));
    choose(u"h"_s, u"w"_s); // Website
    EXPECT_TRUE(waitUntil([&] { return wasAsked("https://"); }));
    choose(u"h"_s, u"c"_s); // Check for Updates
    display.waitForWindow(u"^Updates"_s);
}

TEST_F(ProgramWithMenus, ContextMenusPlaySongsRemoveFoldersAndAddPresets)
{
    showFolder(makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}}));
    start();
    ASSERT_TRUE(waitForSongs(1));
    const auto chooseOf = [this](int command) {
        display.key(u"Menu"_s);
        display.key(u"Down"_s, command);
        display.key(u"Return"_s);
    };
    click(place::songRow(0));
    display.key(u"ctrl+l"_s);
    chooseOf(1); // Play
    EXPECT_TRUE(hears(300.0));

    const QRect ok(place::removeOk - QPoint(20, 6), QSize(40, 12));
    const QImage before = picture(ok);
    display.key(u"ctrl+b"_s);
    chooseOf(2); // Remove Folder
    EXPECT_TRUE(comesToDifferFrom(before, ok));
    constexpr QRect row(30, 78, 100, 16);
    const QImage folder = picture(row);
    click(place::removeOk);
    EXPECT_TRUE(comesToDifferFrom(folder, row));

    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    display.place(equalizer, place::equalizerWindow);
    display.click(place::equalizerWindow.topLeft() + place::presetRow(3));
    chooseOf(1); // Add Preset
    display.type(u"Mine"_s);
    display.key(u"Return"_s);
    EXPECT_EQ(quit(), 0);
    const auto presets = settingsList(u"EQPresets.plist"_s);
    ASSERT_TRUE(presets && presets->array() != nullptr);
    EXPECT_TRUE(std::any_of(presets->array()->begin(), presets->array()->end(),
                            [](const PropertyList &preset) {
                                return preset.value(u"name") == PropertyList(u"Mine"_s);
                            }));
    EXPECT_EQ(settingsList(u"Folders.plist"_s), PropertyList(PropertyList::Array{}));
}

} // namespace
