#pragma once

#include "platform/analysis/SongAnchor.h"

#include <QJsonValue>
#include <QString>

/// The anchors of a song as practice files write them, see docs/practice-file.md. Any thread.
namespace lyrabox {

/// The place of an anchor, a space, and its words in base 64: "0:04.00000 3q2+7w...".
QString anchorText(const SongAnchor &anchor);

/// The anchors of an array of such texts. None unless it has anchorsOfSong of them, in the order of
/// their places, and all are valid.
SongAnchors anchorsOf(const QJsonValue &array);

} // namespace lyrabox
