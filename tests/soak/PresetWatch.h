#pragma once

#include "settings/EqPreset.h"

#include <QStringList>

namespace lyrabox::soak {

/// Returns the names of presets that have disappeared since the first call without being removed. A
/// user's preset may only go after its popover has been closed; a shipped one may never go. A lost
/// preset stays on the list. Call it often enough to see each question. Main thread.
QStringList lostPresets(const EqPresetList &presets);

} // namespace lyrabox::soak
