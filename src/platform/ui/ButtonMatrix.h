#pragma once

#include "platform/ui/NamedImage.h"

#include <QWidget>

#include <vector>

class QAbstractButton;

namespace lyrabox {

/// A row of joined push buttons. Each has a tag, a number that identifies it. A press selects the
/// cell and sends pressed(). Main thread.
class ButtonMatrix : public QWidget {
    Q_OBJECT

public:
    explicit ButtonMatrix(QWidget *parent = nullptr);

    /// Appends a cell that shows `image`, or `text` if the image is null. `accessibleName` is also
    /// the cell's tool tip. The matrix owns the returned button.
    QAbstractButton *addCell(int tag, const QString &text, const QString &accessibleName,
                             const NamedImage &image = {});

    /// The tag of the cell that was pressed last; -1 before the first press.
    int selectedTag() const { return m_selectedTag; }

    /// The first cell with the tag; null if there is none.
    QAbstractButton *cellWithTag(int tag) const;

    /// Presses the cell with the tag, as a click would. Does nothing if there is none or it is
    /// disabled.
    void pressCellWithTag(int tag);

Q_SIGNALS:
    /// The user or pressCellWithTag() pressed a cell. selectedTag() is already its tag.
    void pressed(lyrabox::ButtonMatrix *sender);

private:
    struct Cell {
        int tag;
        QAbstractButton *button;
    };
    std::vector<Cell> m_cells;
    int m_selectedTag = -1;
};

} // namespace lyrabox
