#include "program/Places.h"
#include "support/Heard.h"
#include "support/program/RunningProgram.h"

#include <cmath>
#include <numbers>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int guitarSolo = 9; ///< the identifier and the row of a built-in preset
constexpr double guitarSoloAtOneKilohertz = 3.5;

class EqualizingProgram : public RunningProgram {
protected:
    void SetUp() override
    {
        showFolder(makeFolder(u"Tones"_s, {{u"Tone"_s, 1000.0, 60.0, 0.1}}));
        start();
        ASSERT_TRUE(waitForSongs(1));
        doubleClickSong(0);
        ASSERT_TRUE(hears(1000.0));
    }

    void openEqualizer()
    {
        display.key(u"ctrl+2"_s);
        const QString window = display.waitForWindow(u"^Equalizer"_s);
        display.place(window, place::equalizerWindow);
        ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == window; }));
    }

    /// Adds a user preset, which selects it, and opens the question whether to remove it.
    void addPresetAndAskToRemoveIt()
    {
        openEqualizer();
        display.click(place::equalizerWindow.topLeft() + place::presetRow(0));
        display.key(u"Insert"_s);
        display.type(u"Mine"_s);
        display.key(u"Return"_s);
        display.key(u"Delete"_s);
    }
    QStringList presetsOnDisk() const
    {
        QStringList names;
        const PropertyList presets =
            settingsList(u"EQPresets.plist"_s).value_or(PropertyList(PropertyList::Array()));
        for (const PropertyList &preset : *presets.array())
            names.append(*preset.value(u"name").string());
        return names;
    }

    /// The level of the last 0.2 s in decibels, relative to the tone in the file.
    double levelNow() const
    {
        constexpr double inTheFile = 0.1 / std::numbers::sqrt2;
        const std::size_t size = recorder->size();
        return 20.0 *
               std::log10(levelOf(recorder->samples(size - Recorder::sampleRate / 5)) / inTheFile);
    }

    bool hearsLevel(double decibels, double tolerance) const
    {
        const bool heard =
            waitUntil([&] { return std::abs(levelNow() - decibels) <= tolerance; }, 8.0);
        EXPECT_TRUE(heard) << levelNow() << " dB, not " << decibels;
        return heard;
    }
};

TEST_F(EqualizingProgram, TheSliderAtTheTopRaisesItsToneByTwelveDecibels)
{
    EXPECT_TRUE(hearsLevel(0.0, 0.5));
    openEqualizer();
    const QPoint corner = place::equalizerWindow.topLeft();
    display.drag(corner + place::oneKilohertzMiddle, corner + place::oneKilohertzTop);
    EXPECT_TRUE(hearsLevel(12.0, 0.5));
    display.drag(corner + place::oneKilohertzTop, corner + place::oneKilohertzMiddle);
    EXPECT_TRUE(hearsLevel(0.0, 0.5));
}

TEST_F(EqualizingProgram, APresetIsAddedAndRemovedWithTheKeyboard)
{
    addPresetAndAskToRemoveIt();
    display.key(u"Return"_s);
    EXPECT_EQ(quit(), 0);
    EXPECT_FALSE(presetsOnDisk().contains(u"Mine"_s));
    EXPECT_TRUE(presetsOnDisk().contains(u"Manual"_s));
    EXPECT_GE(presetsOnDisk().size(), 20);
}

TEST_F(EqualizingProgram, TheWheelClosesTheRemoveQuestionAndKeepsThePreset)
{
    addPresetAndAskToRemoveIt();
    display.wheel(place::equalizerWindow.topLeft() + place::oneKilohertzMiddle, 3);
    display.key(u"Return"_s); // the question is closed
    EXPECT_EQ(quit(), 0);
    EXPECT_TRUE(presetsOnDisk().contains(u"Mine"_s));
    EXPECT_TRUE(presetsOnDisk().contains(u"Manual"_s));
    EXPECT_EQ(userDefault(u"eqPreset"_s).toInt(), 0);
}

TEST_F(EqualizingProgram, ClosingTheWindowClosesTheRemoveQuestionAndKeepsThePreset)
{
    addPresetAndAskToRemoveIt();
    display.key(u"ctrl+w"_s);
    ASSERT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    display.key(u"ctrl+2"_s);
    ASSERT_TRUE(waitUntil([this] { return display.activeWindow() != mainWindow(); }));
    display.key(u"Return"_s); // the question is closed
    EXPECT_EQ(quit(), 0);
    EXPECT_TRUE(presetsOnDisk().contains(u"Mine"_s));
}

TEST_F(EqualizingProgram, TheChosenPresetIsRestoredAfterARestart)
{
    openEqualizer();
    display.click(place::equalizerWindow.topLeft() + place::presetRow(guitarSolo));
    EXPECT_TRUE(hearsLevel(guitarSoloAtOneKilohertz, 0.7));
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(userDefault(u"eqPreset"_s).toInt(), guitarSolo);

    start();
    ASSERT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    ASSERT_TRUE(hears(1000.0));
    EXPECT_TRUE(hearsLevel(guitarSoloAtOneKilohertz, 0.7));
}

} // namespace
