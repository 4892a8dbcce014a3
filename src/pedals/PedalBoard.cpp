#include "pedals/PedalBoard.h"

#include <algorithm>
#include <utility>

namespace lyrabox {

namespace {

enum class Way { None, Down, Up, Both };

/// What a message means for a switch.
Way wayOf(const MidiMessage &message, bool isOn)
{
    switch (message.kind) {
    case MidiMessage::Kind::NoteOn:
        return Way::Down;
    case MidiMessage::Kind::NoteOff:
        return Way::Up;
    case MidiMessage::Kind::Program:
        return Way::Both; // it is never let go
    case MidiMessage::Kind::Controller:
    case MidiMessage::Kind::ChannelPressure:
        if (!isOn && message.value >= PedalBoard::on)
            return Way::Down;
        return isOn && message.value < PedalBoard::off ? Way::Up : Way::None;
    case MidiMessage::Kind::KeyPressure:
    case MidiMessage::Kind::PitchBend:
        break;
    }
    return Way::None;
}

constexpr int middle = 64;
constexpr int mostValue = 127;
constexpr int mostBend = 16383;

int stepsOf(PedalDial::Form form, int value)
{
    switch (form) {
    case PedalDial::Form::Offset:
        return value - middle;
    case PedalDial::Form::SignBit:
        return value < middle ? value : middle - value;
    case PedalDial::Form::TwosComplement:
        return value < middle ? value : value - 2 * middle;
    case PedalDial::Form::Position:
        break;
    }
    return 0;
}

} // namespace

void PedalBoard::setMap(PedalMap map)
{
    m_map = std::move(map);
    m_switches.clear();
    m_commands.clear();
    m_moves.clear();
}

std::optional<PedalBoard::PressNumber> PedalBoard::take(std::uint32_t device, const QString &port,
                                                        const MidiMessage &message, PedalTime time)
{
    advance(time);
    const PedalControl sent = controlOf(message, port);
    const PedalSwitch *found = m_map.switchOf(sent);
    const PedalDial *dial = m_map.dialOf(sent);
    // Whichever names the control more exactly.
    if (dial != nullptr &&
        (found == nullptr || specificity(dial->control) > specificity(found->control))) {
        turn(*dial, message);
        return std::nullopt;
    }
    if (found == nullptr)
        return std::nullopt;
    const SwitchKey key{device, static_cast<std::size_t>(found - m_map.switches.data())};
    const auto known = m_switches.find(key);
    const Way way = wayOf(message, known != m_switches.end() && known->second.isOn);
    if (way == Way::Up)
        letGo(key, m_now);
    if (way != Way::Down && way != Way::Both)
        return std::nullopt;
    const auto number = press(key, m_now);
    if (way == Way::Both)
        letGo(key, m_now);
    return number;
}

std::optional<PedalBoard::PressNumber> PedalBoard::press(const SwitchKey &key, PedalTime time)
{
    Switch &state = m_switches[key];
    const bool chatters = state.press != 0 && time - state.pressed < SwitchGestures::chatterTime;
    // The message of letting go may have been lost.
    if (std::exchange(state.isOn, true) && !chatters)
        state.gestures.cancel();
    const auto gesture = state.gestures.press(time, m_map.switches[key.second].inUse());
    if (chatters)
        return std::nullopt;
    state.press = ++m_lastPress;
    state.pressed = time;
    finish(key, gesture);
    return m_lastPress;
}

void PedalBoard::letGo(const SwitchKey &key, PedalTime time)
{
    const auto found = m_switches.find(key);
    if (found == m_switches.end())
        return;
    found->second.isOn = false;
    finish(key, found->second.gestures.release(time));
}

void PedalBoard::finish(const SwitchKey &key, std::optional<PedalGesture> gesture)
{
    if (!gesture)
        return;
    const Switch &state = m_switches.at(key);
    m_commands.push_back({.command = m_map.switches[key.second].command(*gesture),
                          .pressed = state.pressed,
                          .press = state.press});
}

void PedalBoard::turn(const PedalDial &dial, const MidiMessage &message)
{
    auto move = std::ranges::find(m_moves, dial.control, &Move::control);
    if (move == m_moves.end()) {
        m_moves.push_back({.control = dial.control, .target = dial.target, .form = dial.form});
        move = m_moves.end() - 1;
    }
    const int most = message.kind == MidiMessage::Kind::PitchBend ? mostBend : mostValue;
    if (dial.form == PedalDial::Form::Position) {
        move->position = static_cast<double>(message.value) / most;
        move->lowest = std::min(move->lowest, move->position);
        move->highest = std::max(move->highest, move->position);
    } else {
        move->steps += stepsOf(dial.form, message.value);
    }
}

void PedalBoard::release(std::uint32_t device)
{
    std::erase_if(m_switches, [device](const auto &entry) { return entry.first.first == device; });
}

void PedalBoard::advance(PedalTime now)
{
    m_now = std::max(m_now, now);
    for (auto &[key, state] : m_switches)
        finish(key, state.gestures.advance(m_now));
}

std::optional<PedalTime> PedalBoard::deadline() const
{
    std::optional<PedalTime> result;
    for (const auto &[key, state] : m_switches) {
        const auto deadline = state.gestures.deadline();
        if (deadline && (!result || *deadline < *result))
            result = deadline;
    }
    return result;
}

std::vector<PedalBoard::Command> PedalBoard::takeCommands()
{
    return std::exchange(m_commands, {});
}

std::vector<PedalBoard::Move> PedalBoard::takeMoves()
{
    return std::exchange(m_moves, {});
}

bool PedalBoard::isBusy() const
{
    return std::ranges::any_of(m_switches, [](const auto &entry) {
        return entry.second.isOn || !entry.second.gestures.isIdle();
    });
}

} // namespace lyrabox
