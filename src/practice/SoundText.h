#pragma once

#include "practice/PracticeRecord.h"

#include <QJsonObject>
#include <QJsonValue>

/// What a practice file says about the sound of the song, see docs/practice-file.md. Any thread.
namespace lyrabox {

/// The object `sound` with its unknown keys, without the keys whose values are the normal ones.
QJsonObject soundObject(const PracticeSound &sound);

/// Reads the object. False if something in it was dropped or changed because it is no valid value.
/// A value that is missing altogether is valid.
bool readSound(const QJsonValue &value, PracticeSound &sound);

} // namespace lyrabox
