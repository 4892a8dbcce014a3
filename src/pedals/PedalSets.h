#pragma once

#include "pedals/PedalMap.h"

/// Ready-made assignments of common pedals.
namespace lyrabox {

enum class PedalSet {
    TwoSwitches,     ///< a double pedal of a keyboard, or a foot controller in that mode:
                     ///< controllers 64 and 67
    PageKeys,        ///< a page turner that sends Page Up and Page Down
    ArrowKeys,       ///< one that sends Up and Down
    TwoAndExpression ///< two switches, and an expression pedal: controller 11
};

/// The identifiers of commands that the sets use.
struct PedalSetCommands {
    QString playOrPause = {};
    QString loop = {};
    QString nextLoop = {};
    QString train = {};
    QString volume = {}; ///< a value
};

/// The identifiers of this program.
PedalSetCommands usualSetCommands();

/// Adds a set to a map. What its switches, dials and keys did before is replaced; everything else
/// stays. False if the map is full.
bool addSet(PedalMap &map, PedalSet set, const std::vector<KeysOfCommand> &builtIn,
            const PedalSetCommands &commands = usualSetCommands());

} // namespace lyrabox
