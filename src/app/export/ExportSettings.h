#pragma once

#include "platform/audio/SongWriter.h"

#include <QString>

/// What is remembered of exports, in the user defaults. Main thread.
namespace lyrabox::exportSettings {

/// The folder of the last export, else the desktop's folder for music, else the home folder.
QString folder();
void setFolder(const QString &path);

/// The format of the last export, else FLAC.
SongFormat format();
void setFormat(SongFormat format);

} // namespace lyrabox::exportSettings
