#pragma once

#include <QString>

#include <optional>

namespace lyrabox {

/// The row to scroll to so that `playingRow` lands near the middle of what is visible; none when it
/// is visible. `firstVisible` and `visibleCount` are the rows in view, `rowCount` all of them.
std::optional<int> scrollTarget(int playingRow, int firstVisible, int visibleCount, int rowCount);

/// A column's title with the arrow of the sort's direction, instead of an arrow that it may carry
/// already.
QString sortedColumnTitle(const QString &title, bool ascending);

} // namespace lyrabox
