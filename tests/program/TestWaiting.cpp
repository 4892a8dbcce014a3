// What the user does while the program loads a song that takes long.

#include "program/Places.h"
#include "support/SampleAudio.h"
#include "support/program/RunningProgram.h"

#include <QDir>

#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class WaitingProgram : public RunningProgram {
protected:
    /// "Alpha" takes seconds to load; it sounds at 300 Hz. The others are "Beta" at 400 Hz, "Gamma"
    /// at 500 Hz and "Delta", which is listed between them, at 600 Hz.
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

    bool showsProgress() const
    {
        constexpr QRect middleOfTheList(540, 300, 280, 90);
        const QImage part = window().copy(middleOfTheList);
        for (int y = 0; y < part.height(); ++y) {
            for (int x = 0; x < part.width(); ++x) {
                if (part.pixelColor(x, y) == QColor(0x34, 0x98, 0xDB))
                    return true;
            }
        }
        return false;
    }

    /// Long enough for the load to count as a long one, of which most is still to come.
    void waitWithinTheLoad() const { recorder->waitFor(1.0); }
    bool isLoading() const { return !hearsAnything(0.0); }

    /// Whether nothing but this tone is heard from here on.
    void expectOnly(double frequency)
    {
        const std::size_t begin = recorder->size();
        recorder->waitFor(1.0);
        for (std::size_t at = begin; at + Recorder::sampleRate / 5 < recorder->size();
             at += Recorder::sampleRate / 10)
            EXPECT_NEAR(toneAt(at), frequency, frequency / 200.0);
    }
};

TEST_F(WaitingProgram, ALongLoadShowsItsProgressAndThenPlays)
{
    startWithASlowSong();
    EXPECT_FALSE(showsProgress());
    doubleClickSong(0);
    EXPECT_TRUE(waitUntil([this] { return showsProgress(); }));
    EXPECT_TRUE(hears(300.0, 30.0));
    EXPECT_TRUE(waitUntil([this] { return !showsProgress(); }));
}

TEST_F(WaitingProgram, PlayPressedAgainWhileTheSongLoadsStaysPlay)
{
    startWithASlowSong();
    click(place::songRow(0));
    display.key(u"space"_s);
    waitWithinTheLoad();
    display.key(u"space"_s);
    display.key(u"space"_s);
    display.key(u"space"_s);
    ASSERT_TRUE(isLoading()) << "the song has loaded too fast for the test";
    EXPECT_TRUE(hears(300.0, 30.0));
    expectOnly(300.0);
    display.key(u"space"_s); // and now it is a pause
    EXPECT_TRUE(hearsSilence());
}

TEST_F(WaitingProgram, PausePressedWhileTheNextSongLoadsIsAPause)
{
    startWithASlowSong();
    doubleClickSong(1);
    EXPECT_TRUE(hears(400.0));
    doubleClickSong(0);
    waitWithinTheLoad();
    display.key(u"space"_s);
    ASSERT_TRUE(isLoading()) << "the song has loaded too fast for the test";
    EXPECT_TRUE(waitUntil([this] { return showsProgress(); }));
    EXPECT_TRUE(waitUntil([this] { return !showsProgress(); }));
    EXPECT_TRUE(hearsSilence());
    display.key(u"space"_s);
    EXPECT_TRUE(hears(300.0));
}

TEST_F(WaitingProgram, OfTheSongsPickedWhileOneLoadsTheLastIsPlayed)
{
    startWithASlowSong();
    doubleClickSong(0);
    waitWithinTheLoad();
    doubleClickSong(1);
    doubleClickSong(2);
    doubleClickSong(3);
    ASSERT_TRUE(isLoading()) << "the song has loaded too fast for the test";
    const std::size_t begin = recorder->size();
    EXPECT_TRUE(hears(500.0, 30.0));
    expectOnly(500.0);
    for (std::size_t at = begin; at + Recorder::sampleRate / 20 < recorder->size();
         at += Recorder::sampleRate / 20) {
        const double tone = toneAt(at, 0.05);
        EXPECT_FALSE(std::abs(tone - 400.0) < 4.0 || std::abs(tone - 600.0) < 4.0)
            << "a song that was picked before is heard";
    }
}

TEST_F(WaitingProgram, AKeyThatRepeatsItselfMeanwhileIsOnePress)
{
    startWithASlowSong();
    doubleClickSong(0);
    waitWithinTheLoad();
    display.keyDown(u"minus"_s); // slower by 5 percent; the display repeats it
    recorder->waitFor(1.0);
    display.keyUp(u"minus"_s);
    ASSERT_TRUE(isLoading()) << "the song has loaded too fast for the test";
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
