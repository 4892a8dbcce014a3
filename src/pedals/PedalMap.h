#pragma once

#include "pedals/PedalControl.h"
#include "pedals/SwitchGestures.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

/// What pedals and keys do. Commands are named by identifiers, which this layer does not know: a
/// map may name commands that this version of the program does not have.
namespace lyrabox {

/// A switch and the commands of its gestures. Empty: none.
struct PedalSwitch {
    PedalControl control;
    QString tap = {};
    QString doubleTap = {};
    QString hold = {};
    QJsonObject unknown = {}; ///< what a file has besides

    QString &command(PedalGesture gesture);
    const QString &command(PedalGesture gesture) const;
    GesturesInUse inUse() const;
    bool operator==(const PedalSwitch &) const = default;
};

/// A pedal or knob that sets a value.
struct PedalDial {
    enum class Form {
        Position,       ///< 0 to 127, or a pitch bend
        TwosComplement, ///< steps: 1 is one up, 127 is one down
        Offset,         ///< steps: 65 is one up, 63 is one down
        SignBit         ///< steps: 1 is one up, 65 is one down
    };

    PedalControl control;
    QString target = {}; ///< the identifier of the value
    Form form = Form::Position;
    QJsonObject unknown = {};

    bool operator==(const PedalDial &) const = default;
};

/// The user's keys of a command, as texts of key sequences that are the same in every language.
struct CommandKeys {
    QString command;
    QStringList keys = {};
    bool replaces = false; ///< the built-in keys of the command do not work
    QJsonObject unknown = {};

    bool operator==(const CommandKeys &) const = default;
};

/// All assignments, in the order of the file.
struct PedalMap {
    std::vector<PedalSwitch> switches = {};
    std::vector<PedalDial> dials = {};
    std::vector<CommandKeys> keys = {};
    QJsonObject unknown = {};

    /// Whether MIDI is needed at all.
    bool hasMidi() const { return !switches.empty() || !dials.empty(); }
    bool isEmpty() const { return !hasMidi() && keys.empty(); }

    /// What means a control that was sent, the most specific if there are several. Null if nothing
    /// does.
    const PedalSwitch *switchOf(const PedalControl &sent) const;
    const PedalDial *dialOf(const PedalControl &sent) const;

    bool operator==(const PedalMap &) const = default;
};

/// What a map holds at most.
struct PedalLimits {
    static constexpr std::size_t switches = 200;
    static constexpr std::size_t dials = 100;
    static constexpr std::size_t commands = 500; ///< that have keys
    static constexpr qsizetype keys = 8;         ///< of one command
    static constexpr qsizetype textLength = 200; ///< of a port, a command or a key
    static constexpr qsizetype fileBytes = 256 * 1024;
};

/// Gives a gesture of a switch a command, in place of the one that it has, and removes a dial of
/// the same control. An empty command takes the gesture away. False if the map is full.
bool setSwitch(PedalMap &map, const PedalControl &control, PedalGesture gesture,
               const QString &command);

/// Makes a control set a value, in place of what it does now. False if the map is full.
bool setDial(PedalMap &map, const PedalControl &control, PedalDial::Form form,
             const QString &target);

/// Removes a dial.
void removeDial(PedalMap &map, const PedalControl &control);

/// A command and the keys that work for it.
struct KeysOfCommand {
    QString command;
    QStringList keys;

    bool operator==(const KeysOfCommand &) const = default;
};

/// The keys of all commands: the built-in ones, and those of the map. No key has two commands. One
/// that the user gave to a command leaves the commands that have it built in. If a map gives it to
/// two, the first one counts. Keys of unknown commands are ignored.
std::vector<KeysOfCommand> effectiveKeys(const std::vector<KeysOfCommand> &builtIn,
                                         const PedalMap &map);

/// Changes the map so that a key works for `command` only, or for none if `command` is empty. Only
/// what differs from the built-in keys is noted. False if the map is full.
bool setKey(PedalMap &map, const std::vector<KeysOfCommand> &builtIn, const QString &key,
            const QString &command);

} // namespace lyrabox
