// The program on a Wayland compositor, whatever display the other tests of this folder run on: that
// it works at all, and what is different there.

#include "program/Places.h"
#include "support/Heard.h"
#include "support/program/RunningProgram.h"
#include "support/program/WaylandDisplay.h"

#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramOnWayland : public RunningProgram {
protected:
    ProgramOnWayland()
        : RunningProgram(PrivateSoundServer::chosenKind(), VirtualDisplay::Kind::Wayland)
    {}

    WaylandDisplay &compositor() { return dynamic_cast<WaylandDisplay &>(display); }

    /// The level of the last fifth of a second.
    double levelNow() const
    {
        const std::size_t size = recorder->size();
        return levelOf(recorder->samples(size - Recorder::sampleRate / 5));
    }
};

TEST_F(ProgramOnWayland, StartsPlaysLoopsEqualizesAndQuits)
{
    const QString folder = makeFolder(u"Tones"_s, {{u"Tone"_s, 1000.0, 60.0, 0.1}});
    addStepSong(folder, u"Steps"_s, 12);
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(2));
    EXPECT_EQ(compositor().applicationOf(mainWindow()), u"org.lyrabox.Lyrabox"_s)
        << "the desktop cannot tell whose window it is";

    doubleClickSong(0);
    EXPECT_TRUE(hears(stepFrequency(2)));
    display.key(u"l"_s);
    EXPECT_TRUE(hears(stepFrequency(4)));
    display.key(u"l"_s);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(hears(stepFrequency(2)));
        EXPECT_TRUE(hears(stepFrequency(4)));
    }

    doubleClickSong(1);
    ASSERT_TRUE(hears(1000.0));
    const double flat = levelNow();
    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    display.place(equalizer, place::equalizerWindow);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
    const QPoint corner = place::equalizerWindow.topLeft();
    display.drag(corner + place::oneKilohertzMiddle, corner + place::oneKilohertzTop);
    const double twelveDecibels = std::pow(10.0, 12.0 / 20.0);
    EXPECT_TRUE(waitUntil([&] {
        return std::abs(levelNow() / flat / twelveDecibels - 1.0) < 0.06;
    })) << levelNow() / flat;

    display.key(u"ctrl+1"_s);
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    EXPECT_EQ(quit(), 0);
}

} // namespace
