#include "platform/midi/MidiModule.h"
#include "platform/midi/MidiReceiver.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <gmock/gmock.h>

#include <array>

#include <fcntl.h>
#include <unistd.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

/// What a ScriptedInput has to tell, and what was done with it.
struct Script {
    bool isThere = true;
    bool isBroken = false;
    int waiting = 0; ///< messages
    int opened = 0;
    int longestTurn = 0;
    MidiInput::Listener *listener = nullptr;
    std::array<int, 2> pipe{-1, -1};
};

/// Has what a test puts into it, and a pipe that tells of it once.
class ScriptedInput : public MidiInput {
public:
    explicit ScriptedInput(Script &script) : m_script(script) {}
    ~ScriptedInput() override { m_script.listener = nullptr; }

    bool open(Listener &listener) override
    {
        ++m_script.opened;
        if (!m_script.isThere)
            return false;
        m_script.listener = &listener;
        listener.portFound({.device = 1, .name = u"FS-2"_s});
        return true;
    }
    std::vector<int> descriptors() const override { return {m_script.pipe[0]}; }
    Rest read(int events) override
    {
        char signal = 0;
        [[maybe_unused]] const auto count = ::read(m_script.pipe[0], &signal, 1);
        int turn = 0;
        for (; turn < events && m_script.waiting > 0; ++turn, --m_script.waiting) {
            static constexpr std::array<std::uint8_t, 3> bytes{0xB0, 64, 127};
            m_script.listener->received(1, bytes, std::chrono::microseconds(7));
        }
        m_script.longestTurn = std::max(m_script.longestTurn, turn);
        if (m_script.isBroken)
            return Rest::Broken;
        return m_script.waiting > 0 ? Rest::More : Rest::Nothing;
    }

private:
    Script &m_script;
};

class Receiver : public testing::Test {
protected:
    Receiver()
    {
        EXPECT_EQ(::pipe2(script.pipe.data(), O_NONBLOCK | O_CLOEXEC), 0);
        QDir().mkpath(devices());
    }
    ~Receiver() override
    {
        receiver.reset();
        ::close(script.pipe[0]);
        ::close(script.pipe[1]);
    }

    QString devices() const { return m_folder.filePath(u"snd"_s); }
    void arrive(int messages)
    {
        script.waiting += messages;
        EXPECT_EQ(::write(script.pipe[1], "x", 1), 1);
    }
    /// The system finds a sequencer.
    void addDevice()
    {
        QFile device(QDir(devices()).filePath(u"seq"_s));
        EXPECT_TRUE(device.open(QIODevice::WriteOnly));
    }
    template <typename Condition>
    static bool processUntil(Condition condition)
    {
        for (int turn = 0; turn < 10'000 && !condition(); ++turn)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return condition();
    }

    QTemporaryDir m_folder;
    Script script;
    std::unique_ptr<MidiReceiver> receiver = std::make_unique<MidiReceiver>(
        [this] { return std::make_unique<ScriptedInput>(script); }, devices());
};

TEST_F(Receiver, OpensNothingUntilItIsWanted)
{
    QCoreApplication::processEvents();
    EXPECT_EQ(script.opened, 0);
    receiver->setWanted(true);
    EXPECT_TRUE(receiver->isOpen());
    EXPECT_EQ(receiver->ports().size(), 1);
    receiver->setWanted(true);
    EXPECT_EQ(script.opened, 1);
    const QSignalSpy released(receiver.get(), &MidiReceiver::released);
    receiver->setWanted(false);
    EXPECT_EQ(script.listener, nullptr);
    EXPECT_EQ(released.size(), 1) << "nothing stays held";
    EXPECT_TRUE(receiver->ports().isEmpty());
}

TEST_F(Receiver, GivesOthersTheirTurnInAFlood)
{
    receiver->setWanted(true);
    int others = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++others; });
    timer.start(0);
    const QSignalSpy received(receiver.get(), &MidiReceiver::messageReceived);
    constexpr int flood = 10'000;
    arrive(flood);
    EXPECT_TRUE(processUntil([&] { return received.size() == flood; }));
    EXPECT_LE(script.longestTurn, MidiReceiver::eventsPerTurn);
    EXPECT_GE(others, flood / MidiReceiver::eventsPerTurn / 2);
}

TEST_F(Receiver, MessagesKeepTheirPortAndTheirTime)
{
    receiver->setWanted(true);
    const QSignalSpy received(receiver.get(), &MidiReceiver::messageReceived);
    arrive(1);
    ASSERT_TRUE(processUntil([&] { return !received.isEmpty(); }));
    EXPECT_EQ(received[0][0].value<MidiPort>(), (MidiPort{1, u"FS-2"_s}));
    EXPECT_EQ(received[0][1].toByteArray(), QByteArray("\xB0\x40\x7F"));
    EXPECT_EQ(received[0][2].toLongLong(), 7);
}

TEST_F(Receiver, ADeviceThatGoesLetsGo)
{
    receiver->setWanted(true);
    const QSignalSpy released(receiver.get(), &MidiReceiver::released);
    script.listener->messagesLost();
    EXPECT_EQ(released.size(), 1) << "it may have let go meanwhile";
    script.listener->portGone(1);
    EXPECT_EQ(released.size(), 2);
    EXPECT_TRUE(receiver->ports().isEmpty());
}

TEST_F(Receiver, WithoutASequencerItWaitsForOne)
{
    script.isThere = false;
    receiver->setWanted(true);
    EXPECT_FALSE(receiver->isOpen());
    QCoreApplication::processEvents();
    EXPECT_EQ(script.opened, 1) << "nothing has changed";
    script.isThere = true;
    addDevice();
    EXPECT_TRUE(processUntil([&] { return receiver->isOpen(); }));
}

TEST_F(Receiver, ASequencerThatBreaksDownIsOpenedAgain)
{
    receiver->setWanted(true);
    script.isBroken = true;
    script.isThere = false;
    arrive(0);
    EXPECT_TRUE(processUntil([&] { return !receiver->isOpen(); }));
    script.isBroken = false;
    script.isThere = true;
    addDevice();
    EXPECT_TRUE(processUntil([&] { return receiver->isOpen(); }));
}

TEST(MidiModule, AMissingModuleIsAMachineWithoutPedals)
{
    const MidiModule module(u"/nowhere/lyrabox-midi.so"_s);
    EXPECT_FALSE(module.failure().isEmpty());
    EXPECT_EQ(module.makeMidiInput(), nullptr);
    MidiReceiver receiver([&] { return module.makeMidiInput(); });
    receiver.setWanted(true);
    EXPECT_FALSE(receiver.isOpen());
    EXPECT_TRUE(receiver.readNow());
}

TEST(MidiModule, TheProgramsModuleHasAnInput)
{
    EXPECT_EQ(midiModule().failure(), QString());
    EXPECT_NE(midiModule().makeMidiInput(), nullptr);
}

} // namespace
