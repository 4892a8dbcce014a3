// Every key of the user's guide, pressed and held. The display repeats a held key as usual.

#include "program/Places.h"
#include "support/program/RunningProgram.h"

#include <algorithm>
#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class KeyProgram : public RunningProgram {
protected:
    /// Starts with four songs of 20 s and plays the second, in which each second has its own tone.
    void startWithSongs()
    {
        const QString folder = makeFolder(
            u"Keys"_s,
            {{u"Alpha"_s, 250.0, 20.0}, {u"Gamma"_s, 300.0, 20.0}, {u"Omega"_s, 350.0, 20.0}});
        addStepSong(folder, u"Beta"_s, 20);
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(4));
        doubleClickSong(1);
        ASSERT_TRUE(hears(stepFrequency(0)));
    }

    /// Waits until this many seconds of sound or silence have been recorded.
    void listen(double seconds)
    {
        const auto end =
            recorder->size() + static_cast<std::size_t>(seconds * Recorder::sampleRate);
        EXPECT_TRUE(waitUntil([&] { return recorder->size() >= end; }));
    }

    /// Holds the key long enough for about twenty repeats.
    void hold(const QString &key)
    {
        display.keyDown(key);
        listen(1.6);
        display.keyUp(key);
    }

    /// The same with modifiers. xdotool would release them again.
    void holdWith(const QString &modifier, const QString &key)
    {
        display.keyDown(modifier);
        hold(key);
        display.keyUp(modifier);
    }

    /// The second of the step song that plays now; -1 if something else is heard.
    int stepNow() const
    {
        const double step = (toneNow() - stepFrequency(0)) / (stepFrequency(1) - stepFrequency(0));
        return std::abs(step - std::round(step)) < 0.1 ? static_cast<int>(std::round(step)) : -1;
    }

    bool reachesStep(int step, double seconds = 10.0)
    {
        return waitUntil([&] { return stepNow() >= step; }, seconds);
    }

    /// The speed and pitch of the song in the settings file.
    double kept(const QString &key) const
    {
        const std::optional<PropertyList> settings = settingsList(u"UserSettings.plist"_s);
        const auto *songs = settings ? settings->value(u"songSettings"_s).array() : nullptr;
        return songs == nullptr || songs->empty() ? -1.0
                                                  : songs->front().value(key).real().value_or(-1.0);
    }
};

TEST_F(KeyProgram, HeldSpacePausesOnce)
{
    startWithSongs();
    hold(u"space"_s);
    EXPECT_TRUE(hearsSilence(1.0));
    listen(0.5);
    EXPECT_TRUE(hearsSilence(0.5)) << "the song must stay paused";
    display.key(u"space"_s);
    EXPECT_TRUE(hearsAnything());
    hold(u"space"_s);
    EXPECT_TRUE(hearsSilence(1.0));
}

TEST_F(KeyProgram, HeldLeftEndsAtTheStartOfTheSong)
{
    startWithSongs();
    ASSERT_TRUE(reachesStep(3));
    display.keyDown(u"Left"_s);
    EXPECT_TRUE(hears(stepFrequency(0)));
    listen(1.6); // the display keeps repeating the key
    display.keyUp(u"Left"_s);
    EXPECT_GE(stepNow(), 0) << "another song is playing";
    EXPECT_TRUE(reachesStep(5)) << "the song does not continue";
    display.key(u"Left"_s);
    EXPECT_TRUE(
        hears(stepFrequency(0))); // the song starts again; another press plays the previous one
    display.key(u"Left"_s);
    EXPECT_TRUE(hears(250.0));
}

TEST_F(KeyProgram, HeldControlRightAndLeftMoveByOneSong)
{
    startWithSongs();
    holdWith(u"ctrl"_s, u"Right"_s);
    EXPECT_TRUE(hears(300.0, 3.0));
    holdWith(u"ctrl"_s, u"Left"_s);
    EXPECT_GE(stepNow(), 0);
    display.key(u"ctrl+Right"_s);
    EXPECT_TRUE(hears(300.0, 3.0));
    display.key(u"ctrl+Left"_s);
    EXPECT_TRUE(reachesStep(0));
}

TEST_F(KeyProgram, HeldShiftRightAndLeftRepeatBySteps)
{
    startWithSongs();
    display.keyDown(u"shift"_s);
    display.keyDown(u"Right"_s);
    EXPECT_TRUE(reachesStep(16, 4.0));
    display.keyUp(u"Right"_s);
    display.keyDown(u"Left"_s);
    EXPECT_TRUE(waitUntil([this] { return stepNow() == 0; }, 4.0));
    display.keyUp(u"Left"_s);
    display.keyUp(u"shift"_s);
}

TEST_F(KeyProgram, HeldReturnStartsTheSongOnce)
{
    startWithSongs();
    ASSERT_TRUE(reachesStep(3));
    display.key(u"ctrl+l"_s);
    hold(u"Return"_s);
    EXPECT_GE(stepNow(), 1) << "the song started more than once";
    EXPECT_LE(stepNow(), 2);
}

TEST_F(KeyProgram, HeldLMarksOneEndOfALoopEachTime)
{
    startWithSongs();
    ASSERT_TRUE(reachesStep(1));
    hold(u"l"_s);
    const int second = stepNow();
    EXPECT_GE(second, 2) << "there must not be a loop yet";
    ASSERT_TRUE(reachesStep(4));
    display.keyDown(u"l"_s);
    EXPECT_TRUE(waitUntil([this] { return stepNow() == 1; }, 4.0)) << "the loop does not repeat";
    listen(1.6);
    display.keyUp(u"l"_s);
    EXPECT_TRUE(waitUntil([this] { return stepNow() >= 3; }));
    EXPECT_TRUE(waitUntil([this] { return stepNow() == 1; }, 8.0)) << "the loop was cleared";
    display.key(u"l"_s);
    EXPECT_TRUE(reachesStep(6));
}

TEST_F(KeyProgram, HeldStepsRepeatAndOtherCommandsActOnce)
{
    startWithSongs();
    hold(u"bracketright"_s);
    hold(u"minus"_s);
    holdWith(u"ctrl"_s, u"s"_s);
    holdWith(u"ctrl"_s, u"Down"_s);
    EXPECT_TRUE(hearsSilence(2.0)) << "volume";
    holdWith(u"ctrl"_s, u"Up"_s);
    EXPECT_TRUE(hearsAnything(2.0));
    holdWith(u"ctrl"_s, u"r"_s);
    EXPECT_EQ(quit(), 0);
    EXPECT_LT(kept(u"speed"_s), 75.0);
    EXPECT_GT(kept(u"pitch"_s), 500.0);
    EXPECT_TRUE(userDefault(u"shuffle"_s).toBool());
}

TEST_F(KeyProgram, HeldResetAndForgetKeysLeaveTheSongAsItWas)
{
    startWithSongs();
    display.key(u"equal"_s, 3);
    display.key(u"bracketleft"_s, 2);
    display.key(u"ctrl+s"_s);
    display.key(u"ctrl+Right"_s);
    EXPECT_TRUE(hears(300.0));
    display.key(u"ctrl+Left"_s); // reloads the song with its kept settings
    EXPECT_TRUE(waitUntil([this] { return toneNow() > 310.0; }));
    hold(u"0"_s);
    hold(u"backslash"_s);
    EXPECT_GE(stepNow(), 0) << "speed and pitch must be normal";
    display.keyDown(u"shift"_s);
    holdWith(u"ctrl"_s, u"s"_s);
    display.keyUp(u"shift"_s);
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(kept(u"speed"_s), -1.0);
}

TEST_F(KeyProgram, KeysHeldWhileAWindowClosesDoNothingInTheNext)
{
    startWithSongs();
    holdWith(u"ctrl"_s, u"2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
    holdWith(u"ctrl"_s, u"w"_s); // closes the equalizer; then the main window has the focus
    EXPECT_TRUE(isRunning());
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));

    display.key(u"ctrl+l"_s);
    hold(u"F1"_s);
    const QString help = display.waitForWindow(u"^Keys"_s);
    EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == help; }));
    ASSERT_TRUE(reachesStep(6));
    hold(u"Return"_s); // closes the list of keys; then the list of songs has the focus
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    EXPECT_GE(stepNow(), 7) << "the song started again";
}

TEST_F(KeyProgram, LeftAndRightSeekInTheEqualizerButNotInTheTree)
{
    startWithSongs();
    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
    display.key(u"Right"_s);
    EXPECT_TRUE(hears(300.0));
    display.key(u"Left"_s);
    EXPECT_TRUE(reachesStep(0));
    display.keyDown(u"Right"_s);
    EXPECT_TRUE(reachesStep(10, 6.0)) << "a held key does not move through the song";
    display.keyUp(u"Right"_s);
    display.key(u"ctrl+w"_s);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == mainWindow(); }));

    display.key(u"ctrl+b"_s); // the folder has no subfolder
    display.key(u"Right"_s);
    display.key(u"Left"_s);
    hold(u"Left"_s);
    EXPECT_GE(stepNow(), 10) << "the song does not continue";
}

TEST_F(KeyProgram, HeldDeleteAndInsertAskOnceAndRemoveNothing)
{
    startWithSongs();
    display.key(u"ctrl+b"_s);
    hold(u"Delete"_s);
    display.key(u"Escape"_s);
    hold(u"Escape"_s);
    holdWith(u"ctrl"_s, u"o"_s);
    display.key(u"Escape"_s);
    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
    hold(u"Insert"_s);
    display.type(u"Held"_s);
    hold(u"Return"_s);
    display.key(u"ctrl+1"_s);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == mainWindow(); }));
    EXPECT_FALSE(songRowIsEmpty(3));
    EXPECT_EQ(quit(), 0);
    const std::optional<PropertyList> presets = settingsList(u"EQPresets.plist"_s);
    ASSERT_TRUE(presets && presets->array() != nullptr);
    const auto held = std::count_if(presets->array()->begin(), presets->array()->end(),
                                    [](const PropertyList &preset) {
                                        return preset.value(u"name"_s) == PropertyList(u"Held"_s);
                                    });
    EXPECT_EQ(held, 1);
    const std::optional<PropertyList> folders = settingsList(u"Folders.plist"_s);
    ASSERT_TRUE(folders && folders->array() != nullptr);
    EXPECT_EQ(folders->array()->size(), 1U);
}

TEST_F(KeyProgram, HeldFocusShortcutsActOnce)
{
    startWithSongs();
    for (const QString &key : {u"j"_s, u"l"_s, u"b"_s, u"1"_s, u"f"_s})
        holdWith(u"ctrl"_s, key);
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    display.type(u"gamma"_s); // goes to the search field
    EXPECT_TRUE(waitForSongs(1));
    EXPECT_GE(stepNow(), 5) << "the song does not continue";
}

} // namespace
