#include "platform/ui/SplitView.h"

#include "platform/ui/Accessibility.h"
#include "platform/ui/Theme.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>

namespace lyrabox {

namespace {
constexpr int handleWidth = 7; // takes the mouse; the visible divider is a hairline
constexpr int keyStep = 8;
constexpr int pageStep = 40;
} // namespace

SplitView::SplitView(QWidget *parent) : QWidget(parent), m_handle(new QWidget(this))
{
    installAccessibleControls();
    m_handle->setFocusPolicy(Qt::TabFocus);
    m_handle->setObjectName(QStringLiteral("divider"));
    m_handle->setAccessibleName(tr("Divider"));
    m_handle->setCursor(Qt::SplitHCursor);
    m_handle->installEventFilter(this);
}

void SplitView::setPanes(QWidget *left, QWidget *right)
{
    m_left = left;
    m_right = right;
    left->setParent(this);
    right->setParent(this);
    left->show();
    right->show();
    m_handle->raise();
    if (m_delegate != nullptr)
        m_delegate->splitViewResizeSubviewsWithOldSize(this, size());
    arrange();
}

void SplitView::setDelegate(SplitViewDelegate *delegate)
{
    m_delegate = delegate;
}

double SplitView::minimumDividerPosition() const
{
    return m_delegate != nullptr ? m_delegate->splitViewConstrainMinCoordinateOfSubviewAt(0.0, 0)
                                 : 0.0;
}

double SplitView::maximumDividerPosition() const
{
    const double proposed = width() - dividerThickness;
    const double maximum = m_delegate != nullptr
                               ? m_delegate->splitViewConstrainMaxCoordinateOfSubviewAt(proposed, 0)
                               : proposed;
    return std::max(minimumDividerPosition(), maximum);
}

void SplitView::setDividerPosition(double position)
{
    if (m_left == nullptr || m_right == nullptr)
        return;
    const int left =
        static_cast<int>(std::clamp(position, minimumDividerPosition(), maximumDividerPosition()));
    m_left->setGeometry(0, 0, left, height());
    m_right->setGeometry(left + dividerThickness, 0, std::max(0, width() - dividerThickness - left),
                         height());
    arrange();
    update();
    Q_EMIT dividerMoved(left);
    QAccessibleValueChangeEvent event(m_handle, left);
    QAccessible::updateAccessibility(&event);
}

void SplitView::arrange()
{
    if (m_left != nullptr && layoutDirection() == Qt::RightToLeft) {
        m_left->move(width() - m_left->width(), 0);
        m_right->move(0, 0);
    }
    const int handle = dividerPosition() - handleWidth / 2;
    m_handle->setGeometry(mirrored(handle, handleWidth), 0, handleWidth, height());
}

int SplitView::mirrored(int x, int extent) const
{
    return layoutDirection() == Qt::RightToLeft ? width() - x - extent : x;
}

int SplitView::dividerPosition() const
{
    return m_left != nullptr ? m_left->width() : 0;
}

QSize SplitView::minimumSizeHint() const
{
    const QSize left = m_left != nullptr ? m_left->minimumSizeHint() : QSize(0, 0);
    const QSize right = m_right != nullptr ? m_right->minimumSizeHint() : QSize(0, 0);
    return {left.width() + dividerThickness + right.width(),
            std::max(left.height(), right.height())};
}

void SplitView::resizeEvent(QResizeEvent *event)
{
    if (m_delegate != nullptr && m_left != nullptr)
        m_delegate->splitViewResizeSubviewsWithOldSize(this, event->oldSize());
    arrange();
}

void SplitView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LayoutDirectionChange || m_left == nullptr)
        return;
    m_left->move(0, 0);
    m_right->move(dividerPosition() + dividerThickness, 0);
    arrange();
}

void SplitView::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(
        QRect(mirrored(dividerPosition(), dividerThickness), 0, dividerThickness, height()),
        palette().color(QPalette::Mid));
}

bool SplitView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_handle)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_grabOffset =
            static_cast<int>(static_cast<QMouseEvent *>(event)->position().x()) - handleWidth / 2;
        return true;
    case QEvent::MouseMove: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if ((mouse->buttons() & Qt::LeftButton) != 0)
            setDividerPosition(
                mirrored(m_handle->mapToParent(mouse->position().toPoint()).x() - m_grabOffset, 1));
        return true;
    }
    case QEvent::KeyPress: {
        const int step = layoutDirection() == Qt::RightToLeft ? -keyStep : keyStep;
        switch (static_cast<QKeyEvent *>(event)->key()) {
        case Qt::Key_Left:
            setDividerPosition(dividerPosition() - step);
            return true;
        case Qt::Key_Right:
            setDividerPosition(dividerPosition() + step);
            return true;
        case Qt::Key_PageDown:
            setDividerPosition(dividerPosition() - pageStep);
            return true;
        case Qt::Key_PageUp:
            setDividerPosition(dividerPosition() + pageStep);
            return true;
        case Qt::Key_Home:
            setDividerPosition(minimumDividerPosition());
            return true;
        case Qt::Key_End:
            setDividerPosition(maximumDividerPosition());
            return true;
        default:
            break;
        }
        break;
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        m_handle->update();
        break;
    case QEvent::Paint:
        if (m_handle->hasFocus()) {
            QPainter painter(m_handle);
            drawFocusRing(painter, m_handle->rect(), 2.0);
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace lyrabox
