#include "program/Places.h"
#include "support/program/RunningProgram.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class SourcesProgram : public RunningProgram {
protected:
    /// Creates one folder that is in the list of folders, and one in the home folder that is not.
    /// The second has songs and a subfolder.
    void SetUp() override
    {
        other = makeFolder(u".elsewhere/Other"_s, {{u"Zero"_s, 250.0}});
        music = makeFolder(u"Music"_s, {{u"Gamma"_s, 500.0}});
        tones = makeFolder(u"Music/Tones"_s, {{u"Alpha"_s, 300.0}, {u"Beta"_s, 400.0}});
        showFolder(other);
        start();
        ASSERT_TRUE(waitForSongs(1));
        ASSERT_TRUE(waitForSelectedSource(0));
    }

    void addMusicThroughThePopover()
    {
        click(place::addFolderButton);
        ASSERT_TRUE(waitUntil([this] { return popoverShowsRow(0); })); // the home folder
        EXPECT_FALSE(popoverShowsRow(1));
        click(place::browserRowArrow);
        ASSERT_TRUE(waitUntil([this] { return popoverShowsRow(1); }));
        click(place::browserRow(1));
        click(place::browserOk);
        ASSERT_TRUE(waitForSelectedSource(1));
    }

    bool popoverShowsRow(int row) const
    {
        const QImage texts = window().copy({place::browserRow(row) - QPoint(80, 8), QSize(60, 16)});
        for (int y = 0; y < texts.height(); ++y) {
            for (int x = 0; x < texts.width(); ++x) {
                if (qGray(texts.pixel(x, y)) < 120)
                    return true;
            }
        }
        return false;
    }

    PropertyList foldersOnDisk() const
    {
        return settingsList(u"Folders.plist"_s).value_or(PropertyList());
    }
    static PropertyList listOf(const QStringList &paths)
    {
        PropertyList::Array list;
        for (const QString &path : paths)
            list.emplace_back(path);
        return PropertyList(list);
    }

    QString other;
    QString music;
    QString tones;
};

TEST_F(SourcesProgram, AFolderIsAddedThroughThePopoverAndRemovedAgain)
{
    addMusicThroughThePopover();
    EXPECT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(hears(500.0));

    click(place::removeFolderButton);
    ASSERT_TRUE(waitUntil([this] {
        const QColor ok = window().pixelColor(place::removeOk - QPoint(16, 0));
        return ok.blue() > ok.red() + 60;
    }));
    click(place::removeOk);
    EXPECT_TRUE(waitUntil([this] { return qGray(window().pixel(place::sourceRowEnd(1))) > 225; }));
    EXPECT_EQ(quit(), 0);
    EXPECT_TRUE(foldersOnDisk() == listOf({other}));
}

TEST_F(SourcesProgram, AFolderIsAddedFromTheEqualizerByKeysAlone)
{
    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    // Beside the popover: not every compositor raises a window that it gives the keyboard.
    display.place(equalizer, place::equalizerWindow.translated(340, 0));
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
    display.key(u"ctrl+o"_s);
    ASSERT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    ASSERT_TRUE(waitUntil([this] { return popoverShowsRow(0); }));
    display.key(u"Down"_s);
    display.key(u"Right"_s);
    ASSERT_TRUE(waitUntil([this] { return popoverShowsRow(1); }));
    display.key(u"Down"_s);
    display.key(u"Return"_s);
    EXPECT_TRUE(waitForSelectedSource(1));
    EXPECT_EQ(quit(), 0);
    EXPECT_TRUE(foldersOnDisk() == listOf({other, music}));
}

TEST_F(SourcesProgram, TabSelectionSortAndSizeAreRestoredAfterARestart)
{
    constexpr QRect smaller(40, 30, 1010, 640);
    addMusicThroughThePopover();
    click(place::sourceRowArrow(1));
    click(place::sourceRow(2));
    ASSERT_TRUE(waitForSelectedSource(2));
    ASSERT_TRUE(waitForSongs(2));
    click(place::titleHeader); // ascending
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    click(place::titleHeader); // descending
    display.place(mainWindow(), smaller);
    EXPECT_EQ(quit(), 0);
    EXPECT_TRUE(foldersOnDisk() == listOf({other, music}));
    EXPECT_EQ(userDefault(u"folderPath"_s).toString(), tones);
    EXPECT_EQ(userDefault(u"lastTab"_s).toInt(), 1);

    start(Size::ItsOwn);
    EXPECT_EQ(display.frameOf(mainWindow()).size(), smaller.size());
    if (!display.isWayland()) { // on Wayland only the compositor knows positions
        EXPECT_EQ(display.frameOf(mainWindow()).topLeft(), smaller.topLeft());
    }
    EXPECT_TRUE(waitForSelectedSource(2));
    EXPECT_TRUE(waitForSongs(2));
    EXPECT_TRUE(hearsSilence());
    doubleClickSong(0);
    EXPECT_TRUE(hears(400.0));
}

} // namespace
