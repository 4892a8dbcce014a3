#pragma once

#include "platform/ui/NamedImage.h"

#include <QWidget>

#include <vector>

class QAbstractButton;

namespace lyrabox {

/// A row of joined push buttons, each with a tag. A press selects its cell and sends pressed().
class ButtonMatrix : public QWidget {
    Q_OBJECT

public:
    explicit ButtonMatrix(QWidget *parent = nullptr);

    /// Appends a cell that shows `text`, or `image` where it is given. `accessibleName` is also its
    /// tool tip.
    QAbstractButton *addCell(int tag, const QString &text, const QString &accessibleName,
                             const NamedImage &image = {});

    /// The tag of the cell pressed last; -1 before the first press.
    int selectedTag() const { return m_selectedTag; }

    /// Null when there is no such cell.
    QAbstractButton *cellWithTag(int tag) const;

    /// Presses the cell with the tag, as a click would; nothing when there is none or it is
    /// disabled.
    void pressCellWithTag(int tag);

Q_SIGNALS:
    /// The selected cell has changed to the one pressed.
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
