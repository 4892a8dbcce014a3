#pragma once

#include <QStringList>

namespace lyrabox::soak {

/// What holds of the program at every moment between two events, however it came there, and does
/// not: one sentence each, none when all is well. What is coalesced or glides may break one for
/// less than a second. Main thread.
QStringList brokenInvariants();

/// Writes the settings files as the end of the program does, for whoever looks into them. Main
/// thread.
void writeSettings();

} // namespace lyrabox::soak
