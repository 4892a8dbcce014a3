#include "platform/ui/MatrixCell.h"

#include "platform/ui/Accessibility.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QPainter>

namespace lyrabox {

namespace {
constexpr int naturalWidth = 25;
constexpr int minCellWidth = 14;
constexpr int naturalHeight = 24;
constexpr int minCellHeight = 20;
constexpr double dimmedOpacity = 0.4;
} // namespace

MatrixCell::MatrixCell(const NamedImage &image, QWidget *parent)
    : QAbstractButton(parent), m_image(image)
{
    installAccessibleControls();
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void MatrixCell::setIsFirst(bool first)
{
    m_first = first;
    update();
}

void MatrixCell::setIsLast(bool last)
{
    m_last = last;
    update();
}

QSize MatrixCell::sizeHint() const
{
    const int text =
        m_image.isNull() ? fontMetrics().horizontalAdvance(this->text()) : m_image.size().width();
    return {qMax(naturalWidth, text + 10), naturalHeight};
}

QSize MatrixCell::minimumSizeHint() const
{
    return {minCellWidth, minCellHeight};
}

void MatrixCell::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    painter.setClipRect(rect());
    // At a joined side the box extends beyond the cell, so only the ends of the row are rounded.
    QRectF box = rect();
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const bool isLeftEnd = mirrored ? m_last : m_first;
    const bool isRightEnd = mirrored ? m_first : m_last;
    if (!isLeftEnd)
        box.setLeft(box.left() - 2.0 * Theme::radius);
    if (!isRightEnd)
        box.setRight(box.right() + 2.0 * Theme::radius);
    drawControlBox(painter, box, Theme::radius, isDown());
    if (!isLeftEnd)
        painter.fillRect(QRectF(0.0, 1.0, 1.0, height() - 2.0), Theme::hairline);
    if (!isEnabled())
        painter.setOpacity(dimmedOpacity);
    if (m_image.isNull()) {
        painter.setPen(Theme::text);
        painter.drawText(rect(), Qt::AlignCenter, text());
    } else {
        const QPoint position((width() - m_image.size().width()) / 2,
                              (height() - m_image.size().height()) / 2);
        m_image.draw(painter, position);
    }
    painter.setOpacity(1.0);
    if (hasFocus())
        drawFocusRing(painter, rect(), Theme::radius - 1.0);
}

} // namespace lyrabox
