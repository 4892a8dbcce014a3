#pragma once

#include "app/controls/LB_TableRowView.h"

namespace lyrabox {

/// Draws the rows of a LoopList: a dot in the loop's colour or a marker's flag before the name, and
/// a tint behind the loop that is called up. Edits names in place, as plain text. Main thread.
class LoopRows : public LB_TableRowView {
    Q_OBJECT

public:
    explicit LoopRows(QAbstractItemView *view);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

protected:
    void drawInterior(QPainter &painter, const QStyleOptionViewItem &option,
                      const QModelIndex &index, bool emphasized) const override;
};

} // namespace lyrabox
