#pragma once

#include "platform/decoding/AudioFileReaderContainer.h"

#include <QByteArray>
#include <QMap>
#include <QString>

namespace lyrabox {

/// A tag's text: UTF-8 with what is invalid replaced, cut to a sane length, without NULs and
/// surrounding blanks.
QString tagText(const char *bytes);

/// See AudioFileReader::infoDictionary().
QMap<QString, QString> infoDictionaryOf(const AudioFileReaderContainer &container);

/// See AudioFileReader::albumArtwork(); a front cover goes before other pictures.
QByteArray albumArtworkOf(const AudioFileReaderContainer &container);

} // namespace lyrabox
