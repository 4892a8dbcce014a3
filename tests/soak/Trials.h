#pragma once

#include <QStringList>

namespace lyrabox::soak {

/// Trials of commands and buttons whose outcome only the program itself can judge. Each leaves the
/// program as a user would after the same actions. Each returns one sentence per fault. Main
/// thread.

/// Returns to 100 % and pitch 0: by the same number of steps back, after a reset, and from the
/// current value.
QStringList normalIsReachable();

/// Chooses View > Sort By > Own Order. No fault if the command does not exist.
QStringList ownOrderIsReachable();

/// Chooses a command of the menu bar by its English text. Returns whether it exists and is enabled.
bool chooseCommand(const QString &text);

} // namespace lyrabox::soak
