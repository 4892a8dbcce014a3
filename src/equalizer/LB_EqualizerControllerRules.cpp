// The parts of LB_EqualizerController that need no window: steps, ids and the order of the presets.

#include "equalizer/LB_EqualizerController.h"
#include "platform/ui/StepTags.h"

#include <QCollator>

#include <algorithm>

using lyrabox::EqPresetList;
using lyrabox::EqPresetRef;

namespace lyrabox {

namespace {
constexpr float levelStep = 1.0F; // dB
} // namespace

float levelAfterStep(float level, int cellTag)
{
    switch (cellTag) {
    case StepDown:
        level -= levelStep;
        break;
    case StepReset:
        level = 0.0F;
        break;
    case StepUp:
        level += levelStep;
        break;
    default:
        break;
    }
    return equalizerLevelRange.clamped(level);
}

qint64 nextPresetId(const EqPresetList &presets)
{
    qint64 largest = -1;
    for (const EqPresetRef &preset : presets)
        largest = std::max(largest, preset->id);
    return largest + 1;
}

} // namespace lyrabox

EqPresetList LB_EqualizerController::arrangeObjects(const EqPresetList &presets)
{
    QCollator standard;
    standard.setNumericMode(true);
    standard.setCaseSensitivity(Qt::CaseInsensitive);
    QCollator names;
    names.setCaseSensitivity(Qt::CaseInsensitive);

    EqPresetList arranged = presets;
    std::stable_sort(arranged.begin(), arranged.end(),
                     [&](const EqPresetRef &a, const EqPresetRef &b) {
                         if (a->persistent.has_value() != b->persistent.has_value())
                             return a->persistent.has_value();
                         if (a->persistent) {
                             const int order = standard.compare(*a->persistent, *b->persistent);
                             if (order != 0)
                                 return order > 0;
                         }
                         return names.compare(a->name, b->name) < 0;
                     });
    return arranged;
}
