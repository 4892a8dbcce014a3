#pragma once

#include <QtGlobal>

namespace lyrabox {

/// Asks the display server whether the key with this native code is down now. False where it
/// cannot be asked: other systems than X mark a held key's repeats themselves. Main thread; takes a
/// round trip to the server.
bool isKeyDownOnDisplay(quint32 nativeScanCode);

} // namespace lyrabox
