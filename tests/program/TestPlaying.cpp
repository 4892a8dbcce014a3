#include "program/Places.h"
#include "support/program/RunningProgram.h"

#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const double semitone = std::exp2(1.0 / 12.0);

class PlayingProgram : public RunningProgram {
protected:
    void startWithTones(double seconds = 30.0)
    {
        folder = makeFolder(u"Tones"_s, {{u"Gamma"_s, 500.0, seconds},
                                         {u"Alpha"_s, 300.0, seconds},
                                         {u"Beta"_s, 400.0, seconds}});
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(3));
    }

    QString folder;
};

TEST_F(PlayingProgram, ADoubleClickPlaysThatSong)
{
    startWithTones();
    EXPECT_TRUE(hearsSilence());
    doubleClickSong(1);
    EXPECT_TRUE(hears(400.0));
    doubleClickSong(2);
    EXPECT_TRUE(hears(500.0));
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
}

TEST_F(PlayingProgram, ASearchShowsOnlyMatchingSongs)
{
    startWithTones();
    display.key(u"ctrl+f"_s);
    display.type(u"GAM"_s);
    EXPECT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(hears(500.0));
    click(place::searchField);
    display.key(u"Escape"_s);
    EXPECT_TRUE(waitForSongs(3));
}

TEST_F(PlayingProgram, SpacePlaysAndPausesExceptInTheSearchField)
{
    startWithTones();
    doubleClickSong(1);
    EXPECT_TRUE(hears(400.0));
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
    display.key(u"space"_s);
    EXPECT_TRUE(hears(400.0));

    click(place::searchField);
    const std::size_t before = recorder->size();
    display.type(u"The A"_s); // the first song's artist; the space is typed
    EXPECT_TRUE(waitForSongs(1));
    recorder->waitFor(0.5);
    for (std::size_t at = before; at + Recorder::sampleRate / 5 < recorder->size();
         at += Recorder::sampleRate / 10)
        EXPECT_NEAR(toneAt(at), 400.0, 2.0) << "after " << (at - before) << " samples";
}

TEST_F(PlayingProgram, HoldingSpacePausesOnce)
{
    startWithTones();
    doubleClickSong(1);
    EXPECT_TRUE(hears(400.0));
    display.keyDown(u"space"_s); // the display repeats the key
    EXPECT_TRUE(hearsSilence());
    const std::size_t begin = recorder->size();
    recorder->waitFor(1.5);
    display.keyUp(u"space"_s);
    for (const float sample : recorder->samples(begin)) {
        if (std::abs(sample) > 0.001F) {
            ADD_FAILURE() << "the song plays again";
            break;
        }
    }
}

TEST_F(PlayingProgram, AFirstStartShowsSongsAndSpacePlays)
{
    start();
    EXPECT_FALSE(songRowIsEmpty(0));
    EXPECT_TRUE(hearsSilence());
    display.key(u"space"_s);
    EXPECT_TRUE(hearsAnything());
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
}

TEST_F(PlayingProgram, ASortIsRememberedAfterARestart)
{
    startWithTones();
    click(place::titleHeader); // the list is already sorted by title, so this reverses the order
    ASSERT_TRUE(waitUntil([this] {
        doubleClickSong(0);
        return waitUntil([this] { return std::abs(toneNow() - 500.0) < 2.0; }, 4.0);
    }));
    EXPECT_EQ(quit(), 0);

    const auto settings = settingsList(u"UserSettings.plist"_s);
    ASSERT_TRUE(settings);
    const PropertyList::Array *sorts = settings->value(u"sorts").array();
    ASSERT_TRUE(sorts != nullptr && sorts->size() == 1);
    EXPECT_EQ(sorts->front().value(u"id"), PropertyList(folder));
    EXPECT_EQ(sorts->front().value(u"key"), PropertyList(u"title"_s));
    EXPECT_EQ(sorts->front().value(u"ascending").boolean(), false);

    start();
    ASSERT_TRUE(waitForSongs(3));
    EXPECT_TRUE(hearsSilence());
    doubleClickSong(0);
    EXPECT_TRUE(hears(500.0));
    doubleClickSong(2);
    EXPECT_TRUE(hears(300.0));
}

TEST_F(PlayingProgram, TheKeptSpeedAndPitchAreRestoredAfterARestart)
{
    folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}});
    addStepSong(folder, u"Steps"_s, 10);
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(2));
    doubleClickSong(1);
    EXPECT_TRUE(hears(stepFrequency(0)));
    display.key(u"bracketright"_s);
    display.key(u"minus"_s, 10); // to 50 percent
    EXPECT_TRUE(hears(stepFrequency(1) * semitone));
    display.key(u"ctrl+s"_s);
    EXPECT_EQ(quit(), 0);

    start();
    ASSERT_TRUE(waitForSongs(2));
    EXPECT_TRUE(hearsSilence());
    doubleClickSong(0); // has no kept settings
    EXPECT_TRUE(hears(300.0));
    doubleClickSong(1);
    EXPECT_TRUE(hears(stepFrequency(1) * semitone));
    const std::size_t first = recorder->size();
    EXPECT_TRUE(hears(stepFrequency(2) * semitone));
    const double seconds = static_cast<double>(recorder->size() - first) / Recorder::sampleRate;
    EXPECT_NEAR(seconds, 2.0, 0.3); // one second of the song at half speed
}

TEST_F(PlayingProgram, TheNextSongStartsByItselfAtTheEndOfOne)
{
    startWithTones(3.0);
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    EXPECT_TRUE(hears(400.0));
    EXPECT_TRUE(hears(500.0));
}

} // namespace
