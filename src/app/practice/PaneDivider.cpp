#include "app/practice/PaneDivider.h"

#include "app/practice/PaneLayout.h"
#include "app/practice/WaveAccessible.h"
#include "platform/ui/Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace lyrabox {

namespace {
constexpr int keyStep = 8;
constexpr int pageStep = 40;
} // namespace

PaneDivider::PaneDivider(QWidget *parent) : QWidget(parent)
{
    installAccessibleWave();
    // The name by which the transport knows the widgets that need the arrow keys.
    setObjectName(QStringLiteral("divider"));
    setAccessibleName(tr("Height of the practice pane"));
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::SizeVerCursor);
    setFixedHeight(thickness);
}

void PaneDivider::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), 1), Theme::lineGray);
    if (hasFocus())
        drawFocusRing(painter, rect(), 2.0);
}

void PaneDivider::mousePressEvent(QMouseEvent *event)
{
    m_pressedY = event->globalPosition().y();
    m_pressedHeight = m_paneHeight;
}

void PaneDivider::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        Q_EMIT heightWanted(m_pressedHeight + static_cast<int>(std::lround(
                                                  m_pressedY - event->globalPosition().y())));
}

void PaneDivider::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        Q_EMIT heightWanted(m_paneHeight + keyStep);
        break;
    case Qt::Key_Down:
        Q_EMIT heightWanted(m_paneHeight - keyStep);
        break;
    case Qt::Key_PageUp:
        Q_EMIT heightWanted(m_paneHeight + pageStep);
        break;
    case Qt::Key_PageDown:
        Q_EMIT heightWanted(m_paneHeight - pageStep);
        break;
    case Qt::Key_Home:
        Q_EMIT heightWanted(paneLayout::maximumHeight);
        break;
    case Qt::Key_End:
        Q_EMIT heightWanted(paneLayout::minimumHeight);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void PaneDivider::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void PaneDivider::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}

PaneDividerAccessible::PaneDividerAccessible(PaneDivider *divider)
    : QAccessibleWidget(divider, QAccessible::Splitter)
{}

PaneDivider *PaneDividerAccessible::divider() const
{
    return static_cast<PaneDivider *>(widget());
}

void *PaneDividerAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant PaneDividerAccessible::currentValue() const
{
    return divider()->paneHeight();
}

void PaneDividerAccessible::setCurrentValue(const QVariant &value)
{
    Q_EMIT divider()->heightWanted(value.toInt());
}

QVariant PaneDividerAccessible::maximumValue() const
{
    return paneLayout::maximumHeight;
}

QVariant PaneDividerAccessible::minimumValue() const
{
    return paneLayout::minimumHeight;
}

} // namespace lyrabox
