#pragma once

#include "pedals/PedalMap.h"
#include "pedals/SwitchGestures.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace lyrabox {

/// Turns the messages of MIDI devices into commands and values, as a PedalMap says. It has no clock
/// and no device of its own. All times must be given in order; an earlier one counts as the latest.
/// One thread at a time.
class PedalBoard {
public:
    /// A controller is on from `on` up, and off below `off`.
    static constexpr int on = 64;
    static constexpr int off = 56;

    /// Numbers presses, so that the caller can note what was heard at each.
    using PressNumber = std::uint64_t;

    /// A gesture that was made.
    struct Command {
        QString command;
        PedalTime pressed; ///< the time of the press that decided it
        PressNumber press;

        bool operator==(const Command &) const = default;
    };

    /// A dial that was moved.
    struct Move {
        PedalControl control; ///< as in the map
        QString target;
        PedalDial::Form form = PedalDial::Form::Position;
        double position = 0.0; ///< of a dial that has positions, 0 to 1
        double lowest = 1.0;   ///< of all its positions since the last call
        double highest = 0.0;
        int steps = 0; ///< of the others; positive is up

        bool operator==(const Move &) const = default;
    };

    /// What is held or half done is dropped.
    void setMap(PedalMap map);
    const PedalMap &map() const { return m_map; }

    /// A device sends a message. `device` tells devices with the same port name apart. Returns the
    /// number of the press if the message presses a switch of the map.
    std::optional<PressNumber> take(std::uint32_t device, const QString &port,
                                    const MidiMessage &message, PedalTime time);

    /// A device is gone, or messages of it were lost: what it holds is let go, without a command.
    void release(std::uint32_t device);

    /// Time passes.
    void advance(PedalTime now);

    /// When advance() must be called at the latest. None: not until something is pressed.
    std::optional<PedalTime> deadline() const;

    /// The commands since the last call, in order.
    std::vector<Command> takeCommands();
    /// The dials that were moved since the last call, each with its last position, or with the sum
    /// of its steps.
    std::vector<Move> takeMoves();

    /// Whether some switch is down, or waits for a second press. For tests.
    bool isBusy() const;

private:
    struct Switch {
        SwitchGestures gestures;
        bool isOn = false;
        PressNumber press = 0;
        PedalTime pressed{};
    };
    /// A device and the place of the switch in the map.
    using SwitchKey = std::pair<std::uint32_t, std::size_t>;

    void finish(const SwitchKey &key, std::optional<PedalGesture> gesture);
    std::optional<PressNumber> press(const SwitchKey &key, PedalTime time);
    void letGo(const SwitchKey &key, PedalTime time);
    void turn(const PedalDial &dial, const MidiMessage &message);

    PedalMap m_map;
    std::map<SwitchKey, Switch> m_switches;
    PedalTime m_now{};
    PressNumber m_lastPress = 0;
    std::vector<Command> m_commands;
    std::vector<Move> m_moves;
};

} // namespace lyrabox
