#pragma once

#include "practice/BeatGrid.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

/// Anchors as practice files write them, see docs/practice-file.md. Any thread.
namespace lyrabox {

/// An anchor such as "0:12.70410 7.1" or "0:40.00000 21.1 bar 3 lost". The length of the bar is
/// written if it is not `beatsPerBar`, that of the anchor before.
QString beatAnchorText(const BeatAnchor &anchor, int beatsPerBar);

/// The grid of anchors in any order, of which those without a length of their own have that of the
/// anchor before them, and the first of all `beatsPerBar`. `isWhole` becomes false if a text is no
/// anchor, or if one is left out of the grid; it stays as it is otherwise.
BeatGrid beatGridOf(const std::vector<QString> &anchors, int beatsPerBar, bool &isWhole);

} // namespace lyrabox
