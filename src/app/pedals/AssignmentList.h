#pragma once

#include "app/pedals/PedalAssignments.h"

#include <vector>

/// What a command or a value is assigned to, piece by piece.
namespace lyrabox {

/// One key, one gesture of a switch, or one dial.
struct Assignment {
    enum class Kind { Key, Switch, Dial };

    Kind kind = Kind::Key;
    QKeySequence key = {};
    PedalControl control = {};
    PedalGesture gesture = PedalGesture::Tap;

    bool operator==(const Assignment &) const = default;
};

/// All that a command or a value is assigned to now.
std::vector<Assignment> assignmentsOf(const PedalAssignments &pedals, const QString &id);

/// The assignment for people: "Ctrl+K", "Controller 64 of FS-2 (hold)".
QString assignmentText(const Assignment &assignment);

/// Takes an assignment out of a map, also a built-in key.
void removeAssignment(PedalMap &map, const std::vector<KeysOfCommand> &builtIn,
                      const Assignment &assignment);

/// "Controller 64 of FS-2".
QString controlName(const PedalControl &control);

} // namespace lyrabox
