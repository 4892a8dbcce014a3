#include "fuzz/targets/FuzzTargets.h"
#include "pedals/PedalBoard.h"
#include "pedals/PedalSets.h"
#include "pedals/PedalText.h"
#include "pedals/SoftTakeOver.h"

#include <algorithm>
#include <set>

namespace lyrabox::fuzz {

namespace {

const std::vector<KeysOfCommand> &builtInKeys()
{
    static const std::vector<KeysOfCommand> keys{
        {.command = QStringLiteral("loop"), .keys = {QStringLiteral("L")}},
        {.command = QStringLiteral("play or pause"), .keys = {QStringLiteral("Space")}}};
    return keys;
}

void checkBoard(PedalBoard &board, PedalTime now)
{
    for (const PedalBoard::Command &command : board.takeCommands()) {
        require(!command.command.isEmpty(), "a command has a name");
        require(command.pressed <= now, "no press is in the future");
    }
    for (const PedalBoard::Move &move : board.takeMoves())
        require(move.position >= 0.0 && move.position <= 1.0, "a position has a range");
}

} // namespace

void midi(Bytes bytes)
{
    PedalMap map;
    require(addSet(map, PedalSet::TwoAndExpression, builtInKeys()), "a set has room");
    map.switches.push_back({.control = {.kind = PedalControl::Kind::Note, .number = 1},
                            .tap = QStringLiteral("a"),
                            .doubleTap = QStringLiteral("b"),
                            .hold = QStringLiteral("c")});
    map.switches.push_back(
        {.control = {.kind = PedalControl::Kind::Program}, .hold = QStringLiteral("d")});
    map.dials.push_back(
        {.control = {.kind = PedalControl::Kind::PitchBend}, .target = QStringLiteral("e")});
    PedalBoard board;
    board.setMap(map);
    MidiParser parser;
    PedalTime now{};
    std::size_t messages = 0;
    for (const std::uint8_t byte : bytes) {
        now += std::chrono::milliseconds(byte);
        const auto message = parser.take(byte);
        if (!message)
            continue;
        ++messages;
        require(message->channel >= 1 && message->channel <= 16, "a channel has a range");
        require(message->number >= 0 && message->number <= 127, "a number has a range");
        require(message->value >= 0 && message->value <= 16383, "a value has a range");
        board.take(byte & 1U, QStringLiteral("port"), *message, now);
        checkBoard(board, now);
    }
    noteBehaviour(std::min<std::size_t>(messages, 64));
    board.release(0);
    board.release(1);
    require(!board.isBusy() && !board.deadline(), "nothing stays stuck");
}

void pedals(Bytes bytes)
{
    const auto first = readPedals(byteArray(bytes));
    if (!first)
        return;
    const QByteArray written = pedalsText(first->map);
    if (written.size() > PedalLimits::fileBytes)
        return;
    const auto second = readPedals(written);
    require(second && second->isWhole && !second->isNewer, "what was written is read");
    require(pedalsText(second->map) == written, "it is written as it was read");
    noteBehaviour(first->map.switches.size() * 64 + first->map.dials.size() * 8 +
                  first->map.keys.size());
    PedalMap map = first->map;
    setKey(map, builtInKeys(), QStringLiteral("L"), QStringLiteral("play or pause"));
    std::set<QString> taken;
    for (const KeysOfCommand &entry : effectiveKeys(builtInKeys(), map)) {
        for (const QString &key : entry.keys)
            require(taken.insert(key).second, "no key has two commands");
    }
    PedalBoard board;
    board.setMap(map);
    PedalTime now{};
    for (const PedalSwitch &entry : map.switches) {
        const PedalControl &control = entry.control;
        const auto kind = control.kind == PedalControl::Kind::Note ? MidiMessage::Kind::NoteOn
                                                                   : MidiMessage::Kind::Controller;
        board.take(1, control.port, {kind, std::max(1, control.channel), control.number, 127}, now);
        now += std::chrono::seconds(1);
        board.advance(now);
    }
    checkBoard(board, now);
}

} // namespace lyrabox::fuzz
