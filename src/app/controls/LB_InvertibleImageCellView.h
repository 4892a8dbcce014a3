#pragma once

#include "app/controls/LB_TableRowView.h"

/// Draws a column of images. Images come in pairs: a name, and the same name followed by "Light".
/// The light image is shown on the dark background of an emphasized selected row. Main thread.
class LB_InvertibleImageCellView : public LB_TableRowView {
    Q_OBJECT

public:
    /// For this role the model returns the name of the cell's image, or "" for none.
    static constexpr int imageNameRole = Qt::UserRole + 1;

    using LB_TableRowView::LB_TableRowView;

    /// `name` without any "Light"; on a dark background, "Light" is then appended.
    static QString imageNameForBackgroundStyle(const QString &name, bool dark);

protected:
    void drawInterior(QPainter &painter, const QStyleOptionViewItem &option,
                      const QModelIndex &index, bool emphasized) const override;
};
