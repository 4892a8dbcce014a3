#pragma once

#include <QString>

#include <optional>

namespace lyrabox {

/// The row to scroll to so that `playingRow` appears near the middle. None if it is visible
/// already. `firstVisible` and `visibleCount` describe the rows in view, `rowCount` is the number
/// of all rows. Rows count from 0. Any thread.
std::optional<int> scrollTarget(int playingRow, int firstVisible, int visibleCount, int rowCount);

/// A column's title with an arrow for the direction of the sort. Replaces an arrow that it already
/// has.
QString sortedColumnTitle(const QString &title, bool ascending);

} // namespace lyrabox
