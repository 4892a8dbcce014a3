#include "platform/ui/SplitView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>

namespace lyrabox {

namespace {
constexpr int handleWidth = 7; // the divider is a hairline; what takes the mouse is wider
constexpr int keyStep = 8;
} // namespace

SplitView::SplitView(QWidget *parent) : QWidget(parent), m_handle(new QWidget(this))
{
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
    placeHandle();
}

void SplitView::setDelegate(SplitViewDelegate *delegate)
{
    m_delegate = delegate;
}

void SplitView::setDividerPosition(double position)
{
    if (m_left == nullptr || m_right == nullptr)
        return;
    double least = 0.0;
    double greatest = width() - dividerThickness;
    if (m_delegate != nullptr) {
        least = m_delegate->splitViewConstrainMinCoordinateOfSubviewAt(least, 0);
        greatest = m_delegate->splitViewConstrainMaxCoordinateOfSubviewAt(greatest, 0);
    }
    const int left = static_cast<int>(std::clamp(position, least, std::max(least, greatest)));
    m_left->setGeometry(0, 0, left, height());
    m_right->setGeometry(left + dividerThickness, 0, std::max(0, width() - dividerThickness - left),
                         height());
    placeHandle();
    update();
    Q_EMIT dividerMoved(left);
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
    placeHandle();
}

void SplitView::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(QRect(dividerPosition(), 0, dividerThickness, height()),
                            palette().color(QPalette::Mid));
}

void SplitView::placeHandle()
{
    m_handle->setGeometry(dividerPosition() - handleWidth / 2, 0, handleWidth, height());
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
            setDividerPosition(m_handle->mapToParent(mouse->position().toPoint()).x() -
                               m_grabOffset);
        return true;
    }
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key != Qt::Key_Left && key != Qt::Key_Right)
            break;
        setDividerPosition(dividerPosition() + (key == Qt::Key_Left ? -keyStep : keyStep));
        return true;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace lyrabox
