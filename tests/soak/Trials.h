#pragma once

#include <QStringList>

namespace lyrabox::soak {

/// Uses of the program that only it can judge, through its own commands and buttons. Each leaves
/// the program as a user would leave it who had done the same, and returns one sentence for each
/// thing that is wrong. Main thread.

/// Goes back from 100 % and pitch 0 by the steps that led away from them, after a reset and after
/// whatever came before.
QStringList normalIsReachable();

/// Chooses View > Sort By > Own Order. Nothing is wrong where there is no such command.
QStringList ownOrderIsReachable();

/// Chooses a command of the menu bar by its text in English; whether it is there and enabled.
bool chooseCommand(const QString &text);

} // namespace lyrabox::soak
