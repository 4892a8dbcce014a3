// Pedals in the real program, through a stand-in for the system's MIDI sequencer: learning them,
// playing with them while another window is in front, and plugging them in and out.

#include "pedals/PedalText.h"
#include "practice/PracticeText.h"
#include "program/PaneOnScreen.h"
#include "support/sequencer/FakeSequencer.h"

#include <QDir>
#include <QFile>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramWithPedals : public ProgramWithPane {
protected:
    ProgramWithPedals()
    {
        setVariable(u"LD_PRELOAD"_s, QStringLiteral(LYRABOX_SEQUENCER_STAND_IN));
        setVariable(u"LYRABOX_STAND_IN_SEQUENCER"_s, pedals.path());
        // Otherwise the sanitizer refuses to start, because it is not the first library.
        setVariable(u"ASAN_OPTIONS"_s, QString::fromLocal8Bit(qgetenv("ASAN_OPTIONS")) +
                                           u":verify_asan_link_order=0"_s);
    }

    void assign(const QByteArray &text)
    {
        QDir().mkpath(settingsFile(u"Practice"_s));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\"lyrabox pedals\": 1, " + text + '}');
    }
    QString path() const { return settingsFile(u"Practice/Pedals.json"_s); }
    PedalMap kept() const
    {
        QFile file(path());
        const auto reading =
            file.open(QIODevice::ReadOnly) ? readPedals(file.readAll()) : std::nullopt;
        return reading ? reading->map : PedalMap();
    }
    std::vector<PracticeMarker> markers() const
    {
        const QDir folder(settingsFile(u"Practice"_s));
        for (const QString &name : folder.entryList({u"Steps*.json"_s}, QDir::Files)) {
            QFile file(folder.filePath(name));
            if (!file.open(QIODevice::ReadOnly))
                continue;
            if (const auto reading = readPractice(file.readAll()))
                return reading->record.markers;
        }
        return {};
    }
    /// Whether a library is in the program's memory.
    bool hasLoaded(const QByteArray &library) const
    {
        QFile maps(u"/proc/%1/maps"_s.arg(processId()));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(library);
    }
    void tap(int controller = 64)
    {
        pedals.press(20, controller);
        pedals.release(20, controller);
    }

    FakeSequencer pedals;
};

TEST_F(ProgramWithPedals, WithoutAPedalNothingOfMidiIsLoaded)
{
    pedals.plug(20, u"FS-2"_s, u"FS-2"_s);
    assign(R"("keys": [{"command": "play or pause", "keys": ["PgDown"]}])");
    startAndPlay();
    display.key(u"Next"_s); // Page Down
    EXPECT_TRUE(hearsSilence()) << "the file was read";
    EXPECT_FALSE(hasLoaded("lyrabox-midi.so"));
    EXPECT_FALSE(pedals.wasOpened());
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithPedals, APedalIsLearntAndPlaysWhileAnotherWindowIsInFront)
{
    startAndPlay();
    display.key(u"ctrl+4"_s);
    const QString window = display.waitForWindow(u"^Pedals and Keys"_s);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == window; }));
    EXPECT_FALSE(pedals.wasOpened());
    // The search has the keyboard after the list: by its name, down to the list, and learn.
    display.key(u"shift+Tab"_s, 2);
    display.type(u"play or"_s);
    display.key(u"Tab"_s, 2);
    display.key(u"Return"_s);
    ASSERT_TRUE(waitUntil([&] { return pedals.wasOpened(); }));
    pedals.plug(20, u"FS-2"_s, u"FS-2"_s); // only now
    ASSERT_TRUE(pedals.comesToBeReceived(20));
    tap();
    ASSERT_TRUE(waitUntil([&] { return kept().switches.size() == 1; }));
    EXPECT_EQ(kept().switches[0].tap, u"play or pause"_s);
    EXPECT_EQ(kept().switches[0].control.port, u"FS-2"_s);

    ASSERT_TRUE(hearsAnything());
    tap();
    EXPECT_TRUE(hearsSilence()) << "the window of the pedals is in front";
    tap();
    EXPECT_TRUE(hearsAnything());
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithPedals, UnpluggedAndPluggedInAHundredTimesAPedalWorks)
{
    assign(R"("switches": [{"control": "controller 64", "tap": "play or pause",
              "hold": "quit"}])");
    startAndPlay();
    for (int round = 0; round < 100; ++round) {
        pedals.plug(20, u"FS-2"_s, u"FS-2"_s);
        ASSERT_TRUE(pedals.comesToBeReceived(20)) << round;
        pedals.press(20); // and it is held
        pedals.unplug(20);
        ASSERT_TRUE(waitUntil([&] { return !pedals.isReceivedFrom(20); })) << round;
    }
    pedals.plug(20, u"FS-2"_s, u"FS-2"_s);
    ASSERT_TRUE(pedals.comesToBeReceived(20));
    ASSERT_TRUE(hearsAnything());
    EXPECT_TRUE(isRunning()) << "no hold was left over";
    tap();
    EXPECT_TRUE(hearsSilence());
    tap();
    EXPECT_TRUE(hearsAnything());
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithPedals, MarkersAreSetWhereTheyWerePressed)
{
    pedals.plug(20, u"FS-2"_s, u"FS-2"_s);
    assign(R"("switches": [{"control": "controller 64", "tap": "add marker"}])");
    startAndPlay();
    openPane();
    ASSERT_TRUE(pedals.comesToBeReceived(20));
    // Both were pressed at one time, and the second one is read so much later.
    ASSERT_TRUE(hears(stepFrequency(1), 8.0));
    pedals.send(20,
                {FakeSequencer::controllerBytes(64, 127), FakeSequencer::controllerBytes(64, 0)}, 0,
                std::chrono::milliseconds(500));
    pedals.send(20,
                {FakeSequencer::controllerBytes(64, 127), FakeSequencer::controllerBytes(64, 0)});
    ASSERT_TRUE(waitUntil([&] { return markers().size() == 2; }));
    const double between = static_cast<double>(markers()[1].at - markers()[0].at) / 44100.0;
    std::printf("two presses 500 ms apart, read together: markers %.1f ms apart\n", between * 1e3);
    EXPECT_NEAR(between, 0.5, 0.05);
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithPedals, AFloodLeavesTheProgramAlive)
{
    pedals.plug(20, u"FS-2"_s, u"FS-2"_s);
    assign(R"("switches": [{"control": "controller 64", "tap": "faster"}],
              "dials": [{"control": "controller 11", "sets": "volume"}])");
    startAndPlay();
    ASSERT_TRUE(pedals.comesToBeReceived(20));
    std::vector<QByteArray> burst;
    for (int event = 0; event < 1000; ++event) {
        burst.push_back(FakeSequencer::controllerBytes(11, 127 - event % 2));
        burst.push_back(FakeSequencer::controllerBytes(event % 128, event % 127));
    }
    for (int round = 0; round < 10; ++round)
        pedals.send(20, burst);
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
    display.key(u"space"_s);
    EXPECT_TRUE(hearsAnything());
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithPedals, WithoutASequencerThereIsNoError)
{
    pedals.setPresent(false);
    assign(R"("switches": [{"control": "controller 64", "tap": "play or pause"}])");
    startAndPlay();
    ASSERT_TRUE(waitUntil([&] { return hasLoaded("lyrabox-midi.so"); }));
    EXPECT_FALSE(showsMessage());
    EXPECT_FALSE(pedals.wasOpened());
    EXPECT_EQ(quit(), 0);
}

} // namespace
