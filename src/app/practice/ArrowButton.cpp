#include "app/practice/ArrowButton.h"

#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace lyrabox {

namespace {
constexpr int arrowWidth = 22;
constexpr double arrowHalf = 3.5;
} // namespace

ArrowButton::ArrowButton(const QString &text, QWidget *parent) : TextButton(text, parent) {}

QSize ArrowButton::sizeHint() const
{
    return TextButton::sizeHint() + QSize(arrowWidth, 0);
}

QRect ArrowButton::arrowRect() const
{
    return layoutDirection() == Qt::RightToLeft
               ? QRect(0, 0, arrowWidth, height())
               : QRect(width() - arrowWidth, 0, arrowWidth, height());
}

void ArrowButton::setWaiting(bool waiting)
{
    if (std::exchange(m_isWaiting, waiting) != waiting)
        update();
}

QColor ArrowButton::drawWaitingBox(QPainter &painter) const
{
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    drawControlBox(painter, rect(), Theme::radius, isDown());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Theme::accent, 2.0));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0), Theme::radius,
                            Theme::radius);
    painter.setPen(Theme::strongAccent);
    return Theme::strongAccent;
}

void ArrowButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const bool waits = isChecked() && m_isWaiting;
    const QColor ink = waits ? drawWaitingBox(painter) : drawBox(painter);
    const QRect arrow = arrowRect();
    const bool isAtRight = arrow.left() > 0;
    const QRect words = isAtRight ? rect().adjusted(0, 0, -arrow.width(), 0)
                                  : rect().adjusted(arrow.width(), 0, 0, 0);
    painter.drawText(words.adjusted(isAtRight ? 6 : 0, 0, isAtRight ? 0 : -6, 0),
                     Qt::AlignCenter | Qt::TextSingleLine, text());
    const double line = isAtRight ? arrow.left() + 0.5 : arrow.right() - 0.5;
    painter.setPen(isChecked() && !waits ? Theme::accentPressed : Theme::hairline);
    painter.drawLine(QPointF(line, 5.0), QPointF(line, height() - 5.0));
    const QPointF middle = QRectF(arrow).center();
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPolygon(QPolygonF{{middle.x() - arrowHalf, middle.y() - 2.0},
                                  {middle.x() + arrowHalf, middle.y() - 2.0},
                                  {middle.x(), middle.y() + 2.5}});
    drawFocus(painter);
}

void ArrowButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && isEnabled() &&
        arrowRect().contains(event->position().toPoint()))
        Q_EMIT settingsWanted();
    else
        TextButton::mousePressEvent(event);
}

void ArrowButton::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    Q_EMIT settingsWanted();
}

} // namespace lyrabox
