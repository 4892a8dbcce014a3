#pragma once

#include "app/controls/LB_TableRowView.h"

/// Draws a column of images. Images come in pairs, a name and the same name followed by "Light",
/// which is shown on the dark ground of an emphasized selected row.
class LB_InvertibleImageCellView : public LB_TableRowView {
    Q_OBJECT

public:
    /// The model answers this role with the name of the cell's image, "" for none.
    static constexpr int imageNameRole = Qt::UserRole + 1;

    using LB_TableRowView::LB_TableRowView;

    /// `name` without any "Light", followed by "Light" on a dark ground.
    static QString imageNameForBackgroundStyle(const QString &name, bool dark);

protected:
    void drawInterior(QPainter &painter, const QStyleOptionViewItem &option,
                      const QModelIndex &index, bool emphasized) const override;
};
