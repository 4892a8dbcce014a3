#include "program/Places.h"
#include "support/program/RunningProgram.h"

#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double rate = Recorder::sampleRate;

class NavigatingProgram : public RunningProgram {
protected:
    void startWithSteps(int seconds)
    {
        const QString folder = makeFolder(u"Steps"_s, {{u"Zeta"_s, 250.0, 20.0}});
        addStepSong(folder, u"Steps"_s, seconds);
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(2));
        doubleClickSong(0);
        ASSERT_TRUE(hears(stepFrequency(0)));
    }

    /// The second of the step song that plays now; -1 if something else is heard.
    static int stepOf(double frequency)
    {
        const double step = (frequency - stepFrequency(0)) / (stepFrequency(1) - stepFrequency(0));
        return std::abs(step - std::round(step)) < 0.1 ? static_cast<int>(std::round(step)) : -1;
    }
    int stepNow() const { return stepOf(toneNow()); }

    /// The first recorded sample, from `begin` on, that belongs to second `step` or a later one.
    std::size_t firstHeard(int step, std::size_t begin) const
    {
        constexpr double window = 0.06;
        constexpr std::size_t hop = Recorder::sampleRate / 50;
        for (std::size_t at = begin; at + 4 * hop < recorder->size(); at += hop) {
            const int heard = stepOf(toneAt(at, window));
            if (heard >= step && stepOf(toneAt(at + hop, window)) == heard)
                return at;
        }
        ADD_FAILURE() << "second " << step << " is not heard";
        return begin;
    }
};

TEST_F(NavigatingProgram, HoldingForwardScrubsAndStopsBeforeTheEnd)
{
    constexpr int seconds = 40;
    startWithSteps(seconds);
    display.moveTo(place::mainWindow.topLeft() + place::forwardButton);
    display.press();
    const std::size_t begin = recorder->size();
    // With less than four seconds left it stops stepping, and the song continues normally.
    EXPECT_TRUE(hears(stepFrequency(seconds - 2)));
    const std::size_t nearEnd = recorder->size();
    EXPECT_TRUE(hears(stepFrequency(seconds - 1)));
    EXPECT_NEAR(static_cast<double>(recorder->size() - nearEnd) / rate, 1.0, 0.25);

    // There are five steps a second. Between them the song keeps playing.
    const auto early = static_cast<double>(firstHeard(5, begin));
    const auto late = static_cast<double>(firstHeard(35, begin));
    EXPECT_NEAR(30.0 / ((late - early) / rate), 6.0, 0.6);
    display.release();
    EXPECT_TRUE(hears(250.0)); // the song has ended; the button has not skipped it
}

TEST_F(NavigatingProgram, PressingTheRightArrowKeyPlaysTheNextSong)
{
    startWithSteps(20);
    display.key(u"Right"_s);
    EXPECT_TRUE(hears(250.0, 5.0)); // long before the end
}

TEST_F(NavigatingProgram, HoldingTheRightArrowKeyScrubs)
{
    startWithSteps(30);
    const std::size_t begin = recorder->size();
    display.keyDown(u"Right"_s); // the display repeats the key
    ASSERT_TRUE(waitUntil([this] { return stepNow() >= 12; }, 8.0));
    display.keyUp(u"Right"_s);
    EXPECT_LT(static_cast<double>(firstHeard(12, begin) - begin) / rate, 6.0);
    const int reached = stepNow();
    EXPECT_TRUE(hears(stepFrequency(reached + 2), 4.0)); // the song continues normally
}

TEST_F(NavigatingProgram, AClickInTheBarLandsWithinAPixel)
{
    startWithSteps(20);
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
    const QRect bar = navigationBar();
    for (const double part : {0.3, 0.85, 0.5}) {
        const int pixels = static_cast<int>(part * bar.width());
        click({bar.left() + pixels, bar.center().y()});
        display.moveTo(place::mainWindow.center()); // hides the time at the pointer
        EXPECT_TRUE(waitUntil([&] { return std::abs(playedPixels() - pixels) <= 1; }, 5.0))
            << playedPixels() << " of " << pixels;
    }
    // The sound continues at that position.
    display.key(u"space"_s);
    EXPECT_TRUE(hears(stepFrequency(10)));
}

TEST_F(NavigatingProgram, AMarkedLoopRepeats)
{
    startWithSteps(12);
    EXPECT_TRUE(hears(stepFrequency(2)));
    display.key(u"l"_s);
    EXPECT_TRUE(hears(stepFrequency(4)));
    display.key(u"l"_s);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(hears(stepFrequency(3)));
        EXPECT_TRUE(hears(stepFrequency(4)));
        EXPECT_TRUE(hears(stepFrequency(2)));
    }
    // A third press clears the loop and the song continues.
    display.key(u"l"_s);
    EXPECT_TRUE(hears(stepFrequency(5)));
}

} // namespace
