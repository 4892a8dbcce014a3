#include "pedals/PedalBoard.h"
#include "pedals/SoftTakeOver.h"

#include <gmock/gmock.h>

#include <string>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = MidiMessage::Kind;

namespace {

constexpr PedalTime ms(int milliseconds)
{
    return std::chrono::milliseconds(milliseconds);
}

class Pedals : public testing::Test {
protected:
    static constexpr std::uint32_t device = 20;

    static PedalControl controller(int number) { return {.number = number}; }

    void assign(const PedalControl &control, const QString &tap, const QString &doubleTap = {},
                const QString &hold = {})
    {
        PedalMap map = board.map();
        map.switches.push_back(
            {.control = control, .tap = tap, .doubleTap = doubleTap, .hold = hold});
        board.setMap(map);
    }

    auto send(Kind kind, int number, int value, int time, std::uint32_t from = device,
              const QString &port = u"FS-2"_s, int channel = 1)
    {
        return board.take(from, port, {kind, channel, number, value}, ms(time));
    }

    /// The commands since the last call: "loop 100", with the time of the press.
    std::vector<std::string> commands()
    {
        std::vector<std::string> texts;
        for (const PedalBoard::Command &command : board.takeCommands())
            texts.push_back(command.command.toStdString() + ' ' +
                            std::to_string(command.pressed.count() / 1000));
        return texts;
    }

    PedalBoard board;
};

TEST_F(Pedals, SwitchesAreOnFrom64AndOffBelow56)
{
    assign(controller(64), u"loop"_s);
    for (const int value : {0, 30, 63})
        EXPECT_FALSE(send(Kind::Controller, 64, value, 0));
    EXPECT_TRUE(send(Kind::Controller, 64, 64, 100));
    for (const int value : {127, 60, 56, 64, 127})
        EXPECT_FALSE(send(Kind::Controller, 64, value, 200)) << value;
    send(Kind::Controller, 64, 55, 300);
    EXPECT_TRUE(send(Kind::Controller, 64, 90, 400));
    EXPECT_THAT(commands(), ElementsAre("loop 100", "loop 400"));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(Pedals, NotesAndProgramsAreSwitches)
{
    assign({.kind = PedalControl::Kind::Note, .number = 60}, u"loop"_s, {}, u"train"_s);
    assign({.kind = PedalControl::Kind::Program, .number = 3}, u"next"_s);
    send(Kind::NoteOn, 60, 1, 0);
    send(Kind::NoteOff, 60, 0, 100);
    send(Kind::NoteOn, 61, 100, 200);
    send(Kind::Program, 3, 0, 300);
    send(Kind::Program, 2, 0, 400);
    send(Kind::Program, 3, 0, 500);
    EXPECT_THAT(commands(), ElementsAre("loop 0", "next 300", "next 500"));
    send(Kind::NoteOn, 60, 1, 1000);
    board.advance(ms(1499));
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(board.deadline(), ms(1500));
    board.advance(ms(1500));
    EXPECT_THAT(commands(), ElementsAre("train 1000"));
    EXPECT_FALSE(board.deadline());
}

TEST_F(Pedals, ATapCarriesTheTimeAndTheNumberOfItsPress)
{
    assign(controller(64), u"mark"_s, u"next"_s);
    const auto press = send(Kind::Controller, 64, 127, 1000);
    send(Kind::Controller, 64, 0, 1100);
    ASSERT_EQ(board.deadline(), ms(1350));
    board.advance(ms(1350));
    EXPECT_THAT(board.takeCommands(),
                ElementsAre(PedalBoard::Command{u"mark"_s, ms(1000), press.value()}));
    send(Kind::Controller, 64, 127, 2000);
    send(Kind::Controller, 64, 0, 2100);
    const auto second = send(Kind::Controller, 64, 127, 2200);
    EXPECT_THAT(board.takeCommands(),
                ElementsAre(PedalBoard::Command{u"next"_s, ms(2200), second.value()}));
}

TEST_F(Pedals, TheMoreExactControlCounts)
{
    assign(controller(64), u"any"_s);
    assign({.channel = 2, .number = 64}, u"channel"_s);
    assign({.port = u"FS-2"_s, .number = 64}, u"port"_s);
    send(Kind::Controller, 64, 127, 0, 1, u"Other"_s, 1);
    send(Kind::Controller, 64, 127, 100, 1, u"Other"_s, 2);
    send(Kind::Controller, 64, 127, 200, 2, u"FS-2"_s, 2);
    send(Kind::Controller, 64, 127, 300, 2, u"FS-2"_s, 3);
    EXPECT_THAT(commands(), ElementsAre("any 0", "channel 100", "port 200"))
        << "the last one comes from a switch that is held already";
}

TEST_F(Pedals, TwoDevicesOfOneNameAreHeldApart)
{
    assign(controller(64), u"loop"_s);
    EXPECT_TRUE(send(Kind::Controller, 64, 127, 0, 20));
    EXPECT_TRUE(send(Kind::Controller, 64, 127, 100, 24));
    board.release(20);
    EXPECT_TRUE(board.isBusy()) << "the other one is held";
    send(Kind::Controller, 64, 0, 200, 24);
    EXPECT_FALSE(board.isBusy());
}

TEST_F(Pedals, WhatIsUnpluggedWhileItIsHeldIsLetGoWithoutACommand)
{
    assign(controller(64), u"loop"_s, u"next"_s, u"train"_s);
    for (int time = 0; time < 100'000; time += 1000) {
        EXPECT_TRUE(send(Kind::Controller, 64, 127, time));
        board.release(device);
        board.advance(ms(time + 900));
        EXPECT_FALSE(board.isBusy());
        EXPECT_FALSE(board.deadline());
    }
    EXPECT_THAT(commands(), IsEmpty());
    send(Kind::Controller, 64, 127, 200'000);
    send(Kind::Controller, 64, 0, 200'100);
    board.advance(ms(200'400));
    EXPECT_THAT(commands(), ElementsAre("loop 200000"));
}

TEST_F(Pedals, ASwitchWhoseReleaseWasLostWorksAgain)
{
    assign({.kind = PedalControl::Kind::Note, .number = 60}, u"loop"_s);
    send(Kind::NoteOn, 60, 100, 0);
    send(Kind::NoteOn, 60, 100, 500);
    EXPECT_THAT(commands(), ElementsAre("loop 0", "loop 500"));
}

TEST_F(Pedals, AFloodOfOneSwitchIsNoMoreThanFeetCanDo)
{
    assign(controller(64), u"mark"_s);
    for (int event = 0; event < 10'000; ++event) // in a second
        board.take(device, u"FS-2"_s, {Kind::Controller, 1, 64, event % 2 == 0 ? 127 : 0},
                   PedalTime(event * 100));
    EXPECT_LE(commands().size(), 70U);
}

TEST_F(Pedals, DialsThatAreMovedManyTimesGiveOneValue)
{
    PedalMap map;
    map.dials = {
        {.control = controller(11), .target = u"volume"_s},
        {.control = controller(20), .target = u"speed"_s, .form = PedalDial::Form::Offset},
        {.control = controller(21), .target = u"speed"_s, .form = PedalDial::Form::SignBit},
        {.control = controller(22), .target = u"speed"_s, .form = PedalDial::Form::TwosComplement}};
    board.setMap(map);
    for (int value = 0; value < 128; ++value)
        send(Kind::Controller, 11, value, value);
    for (const int value : {65, 65, 66, 63})
        send(Kind::Controller, 20, value, 200);
    for (const int value : {1, 65, 67})
        send(Kind::Controller, 21, value, 200);
    for (const int value : {1, 2, 127, 126})
        send(Kind::Controller, 22, value, 200);
    const auto moves = board.takeMoves();
    ASSERT_EQ(moves.size(), 4U);
    EXPECT_EQ(moves[0].target, u"volume"_s);
    EXPECT_DOUBLE_EQ(moves[0].position, 1.0);
    EXPECT_EQ(moves[1].steps, 3);
    EXPECT_EQ(moves[2].steps, -3);
    EXPECT_EQ(moves[3].steps, 0);
    EXPECT_TRUE(board.takeMoves().empty());
}

TEST_F(Pedals, TimesThatGoBackCountAsTheLatest)
{
    assign(controller(64), u"loop"_s, {}, u"train"_s);
    send(Kind::Controller, 64, 127, 1000);
    send(Kind::Controller, 64, 0, 900);
    EXPECT_THAT(commands(), ElementsAre("loop 1000"));
}

TEST(SoftTakeOver, LeavesTheValueUntilThePedalReachesIt)
{
    SoftTakeOver pedal;
    EXPECT_FALSE(pedal.move(0.0, 0.7));
    EXPECT_FALSE(pedal.move(0.5, 0.7));
    EXPECT_EQ(pedal.move(0.69, 0.7), 0.69);
    EXPECT_EQ(pedal.move(0.2, 0.69), 0.2) << "from now on it may jump";
    EXPECT_EQ(pedal.move(1.0, 0.2), 1.0);
}

TEST(SoftTakeOver, TakesOverWhenThePedalPassesTheValueInOneMove)
{
    SoftTakeOver pedal;
    EXPECT_FALSE(pedal.move(0.1, 0.5));
    EXPECT_EQ(pedal.move(0.9, 0.5), 0.9);
}

TEST(SoftTakeOver, LetsGoWhenSomethingElseChangesTheValue)
{
    SoftTakeOver pedal;
    EXPECT_EQ(pedal.move(0.5, 0.5), 0.5);
    EXPECT_FALSE(pedal.move(0.6, 0.9)) << "the slider was moved to 0.9";
    EXPECT_FALSE(pedal.move(0.7, 0.9));
    EXPECT_EQ(pedal.move(0.95, 0.9), 0.95);
}

TEST(SoftTakeOver, AValueThatIsRoundedStaysTakenOver)
{
    SoftTakeOver pedal;
    EXPECT_TRUE(pedal.move(0.5, 0.5));
    pedal.setReached(0.48);
    EXPECT_TRUE(pedal.move(0.7, 0.48));
}

} // namespace
