#include "app/controls/LB_PopUpButtonCell.h"

#include <QKeyEvent>
#include <QMenu>

LB_PopUpButtonCell::LB_PopUpButtonCell(QWidget *parent)
    : StateButton(parent), m_menu(new QMenu(this))
{
    connect(m_menu, &QMenu::aboutToHide, this, [this] { setHighlighted(false); });
}

void LB_PopUpButtonCell::drawImage(QPainter &painter, const QRect &rect)
{
    const bool alternate = isHighlighted() && !alternateImage().isNull();
    drawCentered(painter, alternate ? alternateImage() : image(), rect);
}

void LB_PopUpButtonCell::mousePressEvent(QMouseEvent *event)
{
    // The menu opens on the press, so that the user can drag to an item.
    if (event->button() == Qt::LeftButton && isEnabled())
        openMenu();
}

void LB_PopUpButtonCell::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
    case Qt::Key_Up:
        openMenu();
        break;
    default:
        StateButton::keyPressEvent(event);
    }
}

void LB_PopUpButtonCell::nextCheckState()
{
    openMenu();
}

void LB_PopUpButtonCell::openMenu()
{
    setHighlighted(true);
    const QSize size = m_menu->sizeHint();
    // Aligned with the button's right edge, because the button is at the right end of its row.
    m_menu->popup(mapToGlobal(QPoint(width() - size.width(), -size.height() - 2)));
}
