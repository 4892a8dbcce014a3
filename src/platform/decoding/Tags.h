#pragma once

#include "platform/decoding/Container.h"

#include <QByteArray>
#include <QMap>
#include <QString>

namespace lyrabox::decoding {

/// Decodes a tag's text as UTF-8. Invalid bytes are replaced, the length is limited to 64 KB, and
/// NULs and surrounding spaces are removed. Any thread.
QString tagText(const char *bytes);

/// See SongReader::infoDictionary().
QMap<QString, QString> infoDictionaryOf(const Container &container);

/// See SongReader::albumArtwork(). Prefers a front cover to other pictures.
QByteArray albumArtworkOf(const Container &container);

} // namespace lyrabox::decoding
