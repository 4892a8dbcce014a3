#include "platform/ui/RowSelection.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

void lyrabox::selectRow(const QAbstractItemView &view, const QModelIndex &index)
{
    if (index.isValid())
        view.selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                          QItemSelectionModel::Rows);
}
