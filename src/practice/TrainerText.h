#pragma once

#include "practice/TrainerSettings.h"

#include <QJsonObject>

/// The settings of the trainer in a practice file, see docs/practice-file.md. Any thread.
namespace lyrabox {

/// The object of the settings. Values that are those of TrainerSettings{} are left out.
QJsonObject trainerObject(const TrainerSettings &settings);

/// Settings as they were read.
struct TrainerReading {
    TrainerSettings settings;
    bool isWhole = true; ///< false if something was no valid value and another one was taken
};

/// Reads any object. Keys that are not known are ignored, because the object belongs to this
/// program. Odd values get the nearest valid one, or that of TrainerSettings{}.
TrainerReading readTrainer(const QJsonObject &object);

} // namespace lyrabox
