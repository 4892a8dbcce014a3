#pragma once

#include "platform/foundation/PropertyList.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace lyrabox {

/// One equalizer preset. A copy of the record shares its levels with the original: an edit of
/// either is seen by both. Assign a new vector to part them.
struct EqPreset {
    static constexpr int bands = 10;

    qint64 id = 0; ///< 0 is the manual preset
    QString name;
    std::shared_ptr<std::vector<float>>
        levels;                        ///< dB, lowest band first; never null, `bands` entries
    std::optional<QString> persistent; ///< present on presets that ship with the application
    PropertyList::Dictionary others;   ///< what the file holds under keys not known here
};

using EqPresetRef = std::shared_ptr<EqPreset>;
using EqPresetList = std::vector<EqPresetRef>;

} // namespace lyrabox
