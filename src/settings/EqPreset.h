#pragma once

#include "platform/foundation/PropertyList.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace lyrabox {

/// One equalizer preset. A copy shares its levels with the original, so a change to one changes
/// both. To separate them, assign a new vector.
struct EqPreset {
    static constexpr int bands = 10;

    qint64 id = 0; ///< 0 is the manual preset
    QString name;
    std::shared_ptr<std::vector<float>>
        levels;                        ///< dB, lowest band first; never null, `bands` entries
    std::optional<QString> persistent; ///< set for presets that ship with the program
    PropertyList::Dictionary others;   ///< members of the file whose keys are unknown
};

using EqPresetRef = std::shared_ptr<EqPreset>;
using EqPresetList = std::vector<EqPresetRef>;

} // namespace lyrabox
