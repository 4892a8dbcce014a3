// What a musician does, on the sound server of newer desktops. The rest of this suite runs on it
// with LYRABOX_TEST_SOUND_SERVER=pipewire.

#include "program/Places.h"
#include "support/Heard.h"
#include "support/program/RunningProgram.h"

#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramOnPipeWire : public RunningProgram {
protected:
    ProgramOnPipeWire() : RunningProgram(PrivateSoundServer::Kind::PipeWire) {}

    /// How loud the last fifth of a second is.
    double levelNow() const
    {
        const std::size_t size = recorder->size();
        return levelOf(recorder->samples(size - Recorder::sampleRate / 5));
    }
};

TEST_F(ProgramOnPipeWire, StartsPlaysLoopsEqualizesChangesTheDeviceAndQuits)
{
    constexpr double frequency = 1000.0; // of the band that is moved
    const QString folder = makeFolder(u"Songs"_s, {{u"Tone"_s, frequency, 60.0, 0.1}});
    addStepSong(folder, u"Steps"_s, 12);
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(2));
    doubleClickSong(0);
    ASSERT_TRUE(hears(stepFrequency(1)));

    // A loop of two seconds.
    display.key(u"l"_s);
    EXPECT_TRUE(hears(stepFrequency(3)));
    display.key(u"l"_s);
    EXPECT_TRUE(hears(stepFrequency(1)));
    EXPECT_TRUE(hears(stepFrequency(3)));
    EXPECT_TRUE(hears(stepFrequency(1)));

    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());

    // A band is raised by 12 decibels.
    doubleClickSong(1);
    ASSERT_TRUE(hears(frequency));
    const double before = levelNow();
    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    display.place(equalizer, place::equalizerWindow);
    const QPoint corner = place::equalizerWindow.topLeft();
    display.drag(corner + place::oneKilohertzMiddle, corner + place::oneKilohertzTop);
    EXPECT_TRUE(waitUntil([&] { return levelNow() > 3.5 * before; }))
        << "from " << before << " to " << levelNow();

    // The sound follows the default device.
    recorder = sound.record(u"b"_s);
    ASSERT_TRUE(sound.setDefaultSink(u"b"_s));
    EXPECT_TRUE(hears(frequency));
    EXPECT_EQ(quit(), 0);
}

} // namespace
