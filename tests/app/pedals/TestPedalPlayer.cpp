#include "ScriptedDevice.h"
#include "app/pedals/PedalPlayer.h"

#include <QAction>
#include <QCoreApplication>
#include <QSignalSpy>

#include <gmock/gmock.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr PedalTime ms(int milliseconds)
{
    return std::chrono::milliseconds(milliseconds);
}

class Player : public testing::Test {
protected:
    PedalPlayer::Hooks hooks()
    {
        return {.heardFrame =
                    [this](std::chrono::microseconds age) {
                        return static_cast<quint64>((now - age).count());
                    },
                .perform =
                    [this](const QString &command, quint64 frame, PedalTime pressed) {
                        done.push_back(command.toStdString() + ' ' +
                                       std::to_string(pressed.count() / 1000));
                        frames.push_back(frame);
                    },
                .values = {{u"volume"_s,
                            {.name = u"Volume"_s,
                             .get = [this] { return volume; },
                             .set =
                                 [this](double value) {
                                     volume = value;
                                     ++sets;
                                 },
                             .step = 0.1}}},
                .now = [this] { return now; }};
    }

    void assign(const QString &tap, const QString &doubleTap = {}, const QString &hold = {})
    {
        PedalMap map;
        map.switches = {
            {.control = {.number = 64}, .tap = tap, .doubleTap = doubleTap, .hold = hold}};
        map.dials = {
            {.control = {.number = 11}, .target = u"volume"_s},
            {.control = {.number = 20}, .target = u"volume"_s, .form = PedalDial::Form::Offset},
            {.control = {.number = 21}, .target = u"unknown"_s}};
        player->setMap(map);
    }
    void send(int controller, int value, PedalTime time) { device.send(controller, value, time); }
    void read() { device.read(); }
    void waitFor(std::size_t commands)
    {
        while (done.size() < commands)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    ScriptedDevice device;
    PedalTime now = ms(1000);
    double volume = 0.5;
    int sets = 0;
    std::vector<std::string> done;
    std::vector<quint64> frames;
    std::unique_ptr<PedalPlayer> player =
        std::make_unique<PedalPlayer>(hooks(), [this] { return device.makeInput(); });
};

TEST_F(Player, OpensNothingWithoutAMappingForMidi)
{
    PedalMap map;
    map.keys = {{.command = u"loop"_s, .keys = {u"PgUp"_s}}};
    player->setMap(map);
    EXPECT_EQ(device.made, 0);
    assign(u"loop"_s);
    EXPECT_EQ(device.made, 1);
    player->setMap({});
    EXPECT_FALSE(player->isOpen());
}

TEST_F(Player, ACommandKnowsWhatWasHeardWhenItWasPressed)
{
    assign(u"mark"_s);
    send(64, 127, ms(990));
    send(64, 0, ms(995));
    now = ms(1100); // read late
    read();
    EXPECT_THAT(done, ElementsAre("mark 990"));
    EXPECT_THAT(frames, ElementsAre(990'000U));
}

TEST_F(Player, ATapThatWaitsForASecondOneKeepsItsPlace)
{
    assign(u"mark"_s, u"next"_s);
    send(64, 127, ms(1000));
    send(64, 0, ms(1050));
    read();
    EXPECT_THAT(done, IsEmpty());
    now = ms(1351);
    waitFor(1); // by its timer
    EXPECT_THAT(done, ElementsAre("mark 1000"));
    EXPECT_THAT(frames, ElementsAre(1'000'000U));
}

TEST_F(Player, AHoldThatWasLetGoBeforeTheTimerIsATap)
{
    assign(u"mark"_s, {}, u"train"_s);
    send(64, 127, ms(1000));
    read();
    // The main thread is busy; meanwhile the switch is let go.
    now = ms(1600);
    send(64, 0, ms(1100));
    waitFor(1);
    EXPECT_THAT(done, ElementsAre("mark 1000"));
}

TEST_F(Player, UnpluggedWhileItIsHeldItDoesNothing)
{
    assign(u"mark"_s, u"next"_s, u"train"_s);
    for (int round = 0; round < 100; ++round) {
        send(64, 127, now);
        read();
        device.listener->portGone(1);
        device.listener->portFound({.device = 1, .name = u"FS-2"_s});
        now += ms(2000);
    }
    send(64, 127, now);
    send(64, 0, now + ms(400));
    now += ms(400);
    read();
    EXPECT_THAT(done, ElementsAre("mark 201000"));
}

TEST_F(Player, AFloodOfADialSetsItsValueOnceATurn)
{
    assign(u"mark"_s);
    for (int value = 64; value < 128; ++value)
        send(11, value, ms(1000));
    read();
    EXPECT_EQ(sets, 1) << "it began near the value";
    EXPECT_DOUBLE_EQ(volume, 1.0);
}

TEST_F(Player, APedalTakesAValueOverWhenItReachesIt)
{
    assign(u"mark"_s);
    send(11, 0, ms(1000));
    read();
    EXPECT_DOUBLE_EQ(volume, 0.5);
    send(11, 100, ms(1100));
    read();
    EXPECT_NEAR(volume, 100.0 / 127.0, 1e-9);
    for (const int value : {66, 65, 63})
        send(20, value, ms(1200));
    read();
    EXPECT_NEAR(volume, 100.0 / 127.0 + 0.2, 1e-9);
    send(21, 100, ms(1300));
    read();
    EXPECT_EQ(sets, 2) << "a value that the program does not have";
}

TEST_F(Player, WhileLearningNothingIsCarriedOut)
{
    player->setLearning(true);
    EXPECT_EQ(device.made, 1);
    const QSignalSpy heard(player.get(), &PedalPlayer::heard);
    send(64, 127, ms(1000));
    read();
    ASSERT_EQ(heard.size(), 1);
    EXPECT_EQ(heard[0][0].value<PedalControl>(),
              (PedalControl{.port = u"FS-2"_s, .channel = 1, .number = 64}));
    EXPECT_THAT(done, IsEmpty());
    player->setLearning(false);
    EXPECT_FALSE(player->isOpen());
}

} // namespace
