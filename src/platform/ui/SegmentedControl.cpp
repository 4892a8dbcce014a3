#include "platform/ui/SegmentedControl.h"

#include "platform/ui/Accessibility.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace lyrabox {

namespace {
constexpr int sideMargin = 14;
constexpr double dimmedOpacity = 0.5;
} // namespace

SegmentedControl::SegmentedControl(QWidget *parent) : QWidget(parent)
{
    installAccessibleControls();
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SegmentedControl::setSegments(const QStringList &titles)
{
    m_segments = titles;
    m_selected =
        std::clamp(m_selected, 0, static_cast<int>(std::max<qsizetype>(titles.size(), 1)) - 1);
    updateGeometry();
    update();
}

void SegmentedControl::setSelectedSegment(int index)
{
    if (index < 0 || index >= m_segments.size() || index == m_selected)
        return;
    m_selected = index;
    update();
    QAccessibleEvent event(this, QAccessible::Selection);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
}

void SegmentedControl::pressSegment(int index)
{
    if (index < 0 || index >= m_segments.size())
        return;
    setSelectedSegment(index);
    Q_EMIT pressed(this);
}

QSize SegmentedControl::sizeHint() const
{
    int widest = 0;
    for (const QString &title : m_segments)
        widest = std::max(widest, fontMetrics().horizontalAdvance(title));
    return {static_cast<int>(m_segments.size()) * (widest + 2 * sideMargin), Theme::controlHeight};
}

QSize SegmentedControl::minimumSizeHint() const
{
    return {static_cast<int>(m_segments.size()) * 2 * sideMargin, Theme::controlHeight};
}

QRect SegmentedControl::segmentRect(int index) const
{
    const int count = std::max(1, static_cast<int>(m_segments.size()));
    const int position = layoutDirection() == Qt::RightToLeft ? count - 1 - index : index;
    const int left = width() * position / count;
    return {left, 0, width() * (position + 1) / count - left, height()};
}

void SegmentedControl::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(dimmedOpacity);
    drawControlBox(painter, rect(), Theme::radius);
    QPainterPath box;
    box.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Theme::radius, Theme::radius);
    for (int index = 0; index < m_segments.size(); ++index) {
        const QRect segment = segmentRect(index);
        const bool selected = index == m_selected;
        if (selected) {
            QPainterPath filled;
            filled.addRect(segment);
            painter.fillPath(box.intersected(filled), Theme::accent);
        } else if (index > 0 && index - 1 != m_selected) {
            const bool mirrored = layoutDirection() == Qt::RightToLeft;
            painter.fillRect(QRect(mirrored ? segment.right() : segment.left(), 1, 1, height() - 2),
                             Theme::hairline);
        }
        painter.setPen(selected ? Theme::surface : Theme::secondaryText);
        const QString title =
            fontMetrics().elidedText(m_segments.at(index), Qt::ElideRight, segment.width() - 8);
        painter.drawText(segment, Qt::AlignCenter | Qt::TextSingleLine, title);
    }
    painter.setOpacity(1.0);
    if (hasFocus())
        drawFocusRing(painter, rect(), Theme::radius);
}

void SegmentedControl::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    for (int index = 0; index < m_segments.size(); ++index) {
        if (!segmentRect(index).contains(event->position().toPoint()))
            continue;
        pressSegment(index);
        return;
    }
}

void SegmentedControl::keyPressEvent(QKeyEvent *event)
{
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int backKey = mirrored ? Qt::Key_Right : Qt::Key_Left;
    const int forwardKey = mirrored ? Qt::Key_Left : Qt::Key_Right;
    const int key = event->key();
    int target = m_selected;
    if (key == Qt::Key_Home)
        target = 0;
    else if (key == Qt::Key_End)
        target = static_cast<int>(m_segments.size()) - 1;
    else if (key == backKey || key == Qt::Key_Up || key == Qt::Key_PageUp)
        target = m_selected - 1;
    else if (key == forwardKey || key == Qt::Key_Down || key == Qt::Key_PageDown)
        target = m_selected + 1;
    else {
        QWidget::keyPressEvent(event);
        return;
    }
    if (target != m_selected)
        pressSegment(target);
}

} // namespace lyrabox
