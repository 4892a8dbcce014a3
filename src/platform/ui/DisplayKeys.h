#pragma once

#include <QtGlobal>

namespace lyrabox {

/// Asks the X server whether the key with this native scan code is down now. Returns false if there
/// is no X server to ask; other display servers mark the repeats of a held key themselves. Main
/// thread. Takes one round trip to the server.
bool isKeyDownOnDisplay(quint32 nativeScanCode);

} // namespace lyrabox
