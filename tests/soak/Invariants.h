#pragma once

#include <QStringList>

namespace lyrabox::soak {

/// Checks the conditions that must hold between any two events. Returns one sentence per violation;
/// none if all is well. Coalesced updates and animations may violate one for less than a second.
/// Main thread.
QStringList brokenInvariants();

/// Writes the settings files as the program does at its end. Main thread.
void writeSettings();

} // namespace lyrabox::soak
