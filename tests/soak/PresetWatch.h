#pragma once

#include "settings/EqPreset.h"

#include <QStringList>

namespace lyrabox::soak {

/// The names of the presets that have gone since the first call although nobody removed them: one
/// of the user's goes only when the popover that asked about it is closed, one that ships with the
/// program never. What is lost stays so. Called often enough, each question is seen. Main thread.
QStringList lostPresets(const EqPresetList &presets);

} // namespace lyrabox::soak
