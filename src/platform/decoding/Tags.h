#pragma once

#include "platform/decoding/Container.h"

#include <QByteArray>
#include <QMap>
#include <QString>

namespace lyrabox::decoding {

/// A tag's text: UTF-8 with what is invalid replaced, cut to a sane length, without NULs and
/// surrounding blanks.
QString tagText(const char *bytes);

/// See AudioFileReader::infoDictionary().
QMap<QString, QString> infoDictionaryOf(const Container &container);

/// See AudioFileReader::albumArtwork(); a front cover goes before other pictures.
QByteArray albumArtworkOf(const Container &container);

} // namespace lyrabox::decoding
