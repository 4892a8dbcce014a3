#include "pedals/MidiParser.h"
#include "platform/sequencer/SequencerInput.h"
#include "support/sequencer/FakeSequencer.h"

#include <gmock/gmock.h>

#include <utility>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = MidiMessage::Kind;

namespace {

class Sequencer : public testing::Test, protected MidiInput::Listener {
protected:
    struct Received {
        std::uint32_t device;
        std::vector<std::uint8_t> bytes;
        std::chrono::microseconds time;
    };

    Sequencer() { qputenv("LYRABOX_STAND_IN_SEQUENCER", fake.path().toUtf8()); }
    ~Sequencer() override { qunsetenv("LYRABOX_STAND_IN_SEQUENCER"); }

    void portFound(const MidiPort &port) override
    {
        log.push_back("found " + std::to_string(port.device) + ' ' + port.name.toStdString());
    }
    void portGone(std::uint32_t device) override
    {
        log.push_back("gone " + std::to_string(device));
    }
    void received(std::uint32_t device, std::span<const std::uint8_t> bytes,
                  std::chrono::microseconds time) override
    {
        messages.push_back({device, {bytes.begin(), bytes.end()}, time});
    }
    void messagesLost() override { log.emplace_back("lost"); }

    void readAll()
    {
        while (input.read(100) == MidiInput::Rest::More) {
        }
    }
    std::vector<std::string> takeLog()
    {
        readAll();
        return std::exchange(log, {});
    }
    std::vector<Received> takeMessages()
    {
        readAll();
        return std::exchange(messages, {});
    }
    static std::chrono::microseconds now()
    {
        return std::chrono::duration_cast<std::chrono::microseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    }

    FakeSequencer fake;
    SequencerInput input;
    std::vector<std::string> log;
    std::vector<Received> messages;
};

TEST_F(Sequencer, WithoutOneNothingIsOpenedAndNothingIsSaid)
{
    fake.setPresent(false);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(input.open(*this));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Sequencer, ReceivesFromAllPortsThatAreThere)
{
    fake.plug(20, u"FS-2"_s, u"FS-2 MIDI 1"_s);
    fake.plug(24, u"Keys"_s, u"Port"_s, 3);
    ASSERT_TRUE(input.open(*this));
    EXPECT_THAT(takeLog(), ElementsAre("found 5120 FS-2 MIDI 1", "found 6147 Keys: Port"));
    fake.press(20);
    const auto got = takeMessages();
    ASSERT_EQ(got.size(), 1U);
    EXPECT_EQ(got[0].device, 5120U);
    EXPECT_THAT(got[0].bytes, ElementsAre(0xB0, 64, 127));
}

TEST_F(Sequencer, ADeviceThatIsPluggedInLaterIsReceivedFrom)
{
    ASSERT_TRUE(input.open(*this));
    EXPECT_THAT(takeLog(), IsEmpty());
    fake.plug(20, u"FS-2"_s, u"FS-2"_s);
    EXPECT_THAT(takeLog(), ElementsAre("found 5120 FS-2"));
    fake.press(20);
    EXPECT_EQ(takeMessages().size(), 1U);
}

TEST_F(Sequencer, IsPluggedInAndOutAHundredTimes)
{
    ASSERT_TRUE(input.open(*this));
    for (int round = 0; round < 100; ++round) {
        fake.plug(20, u"FS-2"_s, u"FS-2"_s);
        EXPECT_THAT(takeLog(), ElementsAre("found 5120 FS-2"));
        fake.press(20);
        EXPECT_EQ(takeMessages().size(), 1U) << round;
        fake.unplug(20);
        EXPECT_THAT(takeLog(), ElementsAre("gone 5120"));
        fake.press(20);
        EXPECT_TRUE(takeMessages().empty());
    }
}

TEST_F(Sequencer, TwoPortsOfOneNameAreTwoDevices)
{
    ASSERT_TRUE(input.open(*this));
    fake.plug(20, u"FS-2"_s, u"FS-2"_s);
    fake.plug(24, u"FS-2"_s, u"FS-2"_s);
    EXPECT_THAT(takeLog(), ElementsAre("found 5120 FS-2", "found 6144 FS-2"));
    fake.press(20);
    fake.press(24);
    const auto got = takeMessages();
    ASSERT_EQ(got.size(), 2U);
    EXPECT_NE(got[0].device, got[1].device);
}

TEST_F(Sequencer, EveryChannelMessageComesThroughTheSystemsCoder)
{
    fake.plug(20, u"FS-2"_s, u"FS-2"_s);
    ASSERT_TRUE(input.open(*this));
    fake.send(20, {QByteArray("\x81\x3C\x0A"), QByteArray("\x92\x3D\x64"),
                   QByteArray("\xA3\x3E\x05"), QByteArray("\xB4\x40\x7F"), QByteArray("\xC5\x07"),
                   QByteArray("\xD6\x63"), QByteArray("\xEF\x01\x40")});
    MidiParser parser;
    std::vector<MidiMessage> read;
    for (const Received &message : takeMessages()) {
        for (const std::uint8_t byte : message.bytes) {
            if (const auto complete = parser.take(byte))
                read.push_back(*complete);
        }
    }
    EXPECT_THAT(read, ElementsAre(MidiMessage{Kind::NoteOff, 2, 60, 10},
                                  MidiMessage{Kind::NoteOn, 3, 61, 100},
                                  MidiMessage{Kind::KeyPressure, 4, 62, 5},
                                  MidiMessage{Kind::Controller, 5, 64, 127},
                                  MidiMessage{Kind::Program, 6, 7, 0},
                                  MidiMessage{Kind::ChannelPressure, 7, 0, 99},
                                  MidiMessage{Kind::PitchBend, 16, 0, 8193}));
}

TEST_F(Sequencer, ClocksAndSignsOfLifeWakeNobody)
{
    fake.plug(20, u"FS-2"_s, u"FS-2"_s);
    ASSERT_TRUE(input.open(*this));
    fake.send(20, {QByteArray("\xF8"), QByteArray("\xFE"), QByteArray("\xFA")});
    EXPECT_EQ(input.read(1), MidiInput::Rest::Nothing);
    EXPECT_TRUE(takeMessages().empty());
}

TEST_F(Sequencer, MessagesCarryTheTimeAtWhichTheyWereSentHoweverLateTheyAreRead)
{
    fake.plug(20, u"FS-2"_s, u"FS-2"_s);
    ASSERT_TRUE(input.open(*this));
    std::vector<std::chrono::microseconds> errors;
    for (int press = 0; press < 50; ++press) {
        const std::chrono::milliseconds age(10 * press);
        const auto before = now();
        fake.send(20, {FakeSequencer::controllerBytes(64, 127)}, 0, age);
        const auto after = now();
        const auto got = takeMessages();
        ASSERT_EQ(got.size(), 1U);
        errors.push_back(std::max({before - age - got[0].time, got[0].time - (after - age), {}}));
    }
    // The two clocks are read one after the other, and the machine may do something else between.
    std::ranges::sort(errors);
    const auto usual = errors[errors.size() / 2];
    std::printf("stamps: wrong by %lld us in the middle, %lld us at worst\n",
                static_cast<long long>(usual.count()),
                static_cast<long long>(errors.back().count()));
    EXPECT_LT(usual, std::chrono::milliseconds(3));
}

TEST_F(Sequencer, LostMessagesAndALostSequencerAreTold)
{
    ASSERT_TRUE(input.open(*this));
    fake.loseMessages();
    EXPECT_THAT(takeLog(), ElementsAre("lost"));
    fake.breakDown();
    EXPECT_EQ(input.read(10), MidiInput::Rest::Broken);
}

TEST_F(Sequencer, ReadsNoMoreThanItIsAskedFor)
{
    fake.plug(20, u"FS-2"_s, u"FS-2"_s);
    ASSERT_TRUE(input.open(*this));
    fake.send(20, std::vector<QByteArray>(100, FakeSequencer::controllerBytes(64, 127)));
    EXPECT_EQ(input.read(30), MidiInput::Rest::More);
    EXPECT_EQ(messages.size(), 30U);
    EXPECT_EQ(input.descriptors().size(), 1U);
    EXPECT_EQ(takeMessages().size(), 100U);
}

} // namespace
