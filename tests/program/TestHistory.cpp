// The history of practising in the real program: what is written while loops are played, what is
// left of it when the program is killed, and its window, all by keys.

#include "practice/PracticeLog.h"
#include "program/PaneOnScreen.h"

#include <QFile>

#include <functional>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramWithHistory : public ProgramWithPane {
protected:
    QString path() const { return settingsFile(u"Practice/History.csv"_s); }
    std::vector<PracticeLogLine> lines() const { return PracticeLog(path()).read().lines; }

    bool comesToHave(std::size_t count) const
    {
        const bool came = waitUntil([&] { return lines().size() == count; });
        EXPECT_TRUE(came) << lines().size();
        return came;
    }

    /// Makes a loop of two seconds of the song, and keeps it.
    void keepLoop(double second)
    {
        display.key(u"w"_s);
        display.drag(placeOf(second + 0.02), placeOf(second + 1.95));
        ASSERT_TRUE(hears(stepFrequency(second), 4.0));
        display.key(u"k"_s);
    }

    /// Listens until the loop has begun once more.
    bool hearsAPass(double second) const
    {
        return hears(stepFrequency(second), 6.0) && hears(stepFrequency(second + 1), 6.0) &&
               hears(stepFrequency(second), 6.0);
    }

    /// Starts again and plays the song; the pane is still open.
    void startAgain()
    {
        start();
        ASSERT_TRUE(waitForSongs(2));
        display.place(mainWindow(), frame);
        doubleClickSong(0);
        ASSERT_TRUE(hearsAnything());
    }

    QString openHistory()
    {
        display.key(u"ctrl+h"_s);
        QString window = display.waitForWindow(u"^Practice History"_s);
        EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == window; }));
        return window;
    }
};

TEST_F(ProgramWithHistory, WhatWasPractisedIsWrittenAndSurvivesAKill)
{
    startAndPlay();
    openPane();
    EXPECT_FALSE(QFile::exists(path())) << "nothing was practised yet";
    keepLoop(10);
    ASSERT_TRUE(hearsAPass(10));
    display.key(u"minus"_s, 2); // 90 %, over 95 %
    ASSERT_TRUE(comesToHave(1));
    EXPECT_EQ(lines()[0].song, u"Steps"_s);
    EXPECT_EQ(lines()[0].loop, u"Loop 1"_s);
    EXPECT_EQ(lines()[0].speed, 100.0);
    EXPECT_GE(lines()[0].passes, 1);
    EXPECT_NEAR(static_cast<double>(lines()[0].from) / 44100.0, 10.0, 0.2);

    ASSERT_TRUE(hearsAPass(10));
    display.key(u"space"_s);
    ASSERT_TRUE(comesToHave(2)) << "a pause begins";
    EXPECT_EQ(lines()[1].speed, 90.0);
    display.key(u"space"_s);
    ASSERT_TRUE(hearsAPass(10));
    killAtOnce();
    EXPECT_EQ(lines().size(), 2U) << "only what came after the pause is lost";

    startAgain();
    display.key(u"1"_s);
    ASSERT_TRUE(hearsAPass(10));
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(lines().size(), 3U) << "the end of the program";
}

TEST_F(ProgramWithHistory, IsLookedAtAndForgottenByKeys)
{
    startAndPlay();
    openPane();
    keepLoop(10);
    ASSERT_TRUE(hearsAPass(10));
    const QString window = openHistory();
    ASSERT_TRUE(comesToHave(1)) << "the window shows what is being practised, too";
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence()) << "the keys of the player work in this window";
    display.key(u"space"_s);
    ASSERT_TRUE(hearsAnything());
    display.key(u"Escape"_s);
    EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == mainWindow(); }));
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(userDefault(u"historyWindowGeometry"_s).isValid(), !display.isWayland());

    startAgain();
    const QString again = openHistory();
    const auto asks = [&] { return display.activeWindow() != again; };
    display.key(u"shift+Tab"_s, 2);
    display.key(u"space"_s); // Forget History…
    ASSERT_TRUE(waitUntil(asks));
    display.key(u"Escape"_s);
    ASSERT_TRUE(waitUntil([&] { return !asks(); }));
    EXPECT_TRUE(QFile::exists(path())) << "the question was answered with Escape";
    display.key(u"space"_s);
    ASSERT_TRUE(waitUntil(asks));
    display.key(u"Tab"_s);
    display.key(u"space"_s);
    EXPECT_TRUE(waitUntil([&] { return !QFile::exists(path()); }));
    display.key(u"Escape"_s);
    EXPECT_EQ(quit(), 0);
}

} // namespace
