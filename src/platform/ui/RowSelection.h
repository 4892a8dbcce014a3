#pragma once

#include <QModelIndex>

class QAbstractItemView;

namespace lyrabox {

/// Selects the row of `index`, deselects all others and makes it the current row. Does nothing if
/// `index` is invalid. Main thread.
void selectRow(const QAbstractItemView &view, const QModelIndex &index);

} // namespace lyrabox
