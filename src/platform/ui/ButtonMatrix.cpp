#include "platform/ui/ButtonMatrix.h"

#include "platform/ui/Accessibility.h"
#include "platform/ui/MatrixCell.h"

#include <QHBoxLayout>

namespace lyrabox {

ButtonMatrix::ButtonMatrix(QWidget *parent) : QWidget(parent)
{
    installAccessibleControls();
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QAbstractButton *ButtonMatrix::addCell(int tag, const QString &text, const QString &accessibleName,
                                       const NamedImage &image)
{
    auto *cell = new MatrixCell(image, this);
    cell->setText(text);
    cell->setToolTip(accessibleName);
    cell->setAccessibleName(accessibleName);
    if (!m_cells.empty())
        static_cast<MatrixCell *>(m_cells.back().button)->setIsLast(false);
    cell->setIsFirst(m_cells.empty());
    m_cells.push_back({tag, cell});
    layout()->addWidget(cell);
    connect(cell, &QAbstractButton::clicked, this, [this, tag] {
        m_selectedTag = tag;
        Q_EMIT pressed(this);
    });
    return cell;
}

QAbstractButton *ButtonMatrix::cellWithTag(int tag) const
{
    for (const Cell &cell : m_cells) {
        if (cell.tag == tag)
            return cell.button;
    }
    return nullptr;
}

void ButtonMatrix::pressCellWithTag(int tag)
{
    if (QAbstractButton *cell = cellWithTag(tag))
        cell->click();
}

} // namespace lyrabox
