#include "platform/ui/Popover.h"

#include "platform/ui/Accessibility.h"
#include "platform/ui/Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>

#include <algorithm>

namespace lyrabox {

namespace {

constexpr int arrowLength = 9;
constexpr int arrowHalfWidth = 9;
constexpr int shadow = 4;
constexpr int border = 1;
constexpr int cornerRadius = 7;
/// The space that the panel adds on each side of the content. It holds the arrow.
constexpr int margin = arrowLength + border;
constexpr int windowGap = 2;

bool isHorizontal(Popover::Edge edge)
{
    return edge == Popover::Edge::MinX || edge == Popover::Edge::MaxX;
}

Popover::Edge opposite(Popover::Edge edge)
{
    switch (edge) {
    case Popover::Edge::MinX:
        return Popover::Edge::MaxX;
    case Popover::Edge::MaxX:
        return Popover::Edge::MinX;
    case Popover::Edge::MinY:
        return Popover::Edge::MaxY;
    case Popover::Edge::MaxY:
        break;
    }
    return Popover::Edge::MinY;
}

QPoint positionAt(const QSize &size, const QRect &anchor, Popover::Edge edge)
{
    const QPoint centre = anchor.center();
    switch (edge) {
    case Popover::Edge::MinX:
        return {anchor.left() - size.width(), centre.y() - size.height() / 2};
    case Popover::Edge::MaxX:
        return {anchor.right() + 1, centre.y() - size.height() / 2};
    case Popover::Edge::MinY:
        return {centre.x() - size.width() / 2, anchor.top() - size.height()};
    case Popover::Edge::MaxY:
        break;
    }
    return {centre.x() - size.width() / 2, anchor.bottom() + 1};
}

bool fits(const QRect &frame, const QRect &window, Popover::Edge edge)
{
    return isHorizontal(edge) ? frame.left() >= window.left() && frame.right() <= window.right()
                              : frame.top() >= window.top() && frame.bottom() <= window.bottom();
}

QList<QWidget *> focusableIn(const QWidget *root)
{
    QList<QWidget *> found;
    for (QWidget *widget = root->nextInFocusChain(); widget && widget != root;
         widget = widget->nextInFocusChain()) {
        if (root->isAncestorOf(widget) && widget->isVisibleTo(root) && widget->isEnabled() &&
            (widget->focusPolicy() & Qt::TabFocus) != 0)
            found.append(widget);
    }
    return found;
}

} // namespace

PopoverPlacement placePopover(const QSize &size, const QRect &anchor, const QRect &window,
                              Popover::Edge preferred)
{
    Popover::Edge edge = preferred;
    QRect frame(positionAt(size, anchor, edge), size);
    if (!fits(frame, window, edge)) {
        const QRect other(positionAt(size, anchor, opposite(edge)), size);
        if (fits(other, window, opposite(edge))) {
            edge = opposite(edge);
            frame = other;
        }
    }
    const QRect inner = window.adjusted(windowGap, windowGap, -windowGap, -windowGap);
    frame.moveRight(std::min(frame.right(), inner.right()));
    frame.moveBottom(std::min(frame.bottom(), inner.bottom()));
    frame.moveLeft(std::max(frame.left(), inner.left()));
    frame.moveTop(std::max(frame.top(), inner.top()));
    frame = frame.intersected(inner);
    const bool horizontal = isHorizontal(edge);
    const int length = horizontal ? frame.height() : frame.width();
    const int wanted =
        horizontal ? anchor.center().y() - frame.top() : anchor.center().x() - frame.left();
    const int room = margin + cornerRadius + arrowHalfWidth;
    return {frame, edge, length > 2 * room ? std::clamp(wanted, room, length - room) : length / 2};
}

Popover::Popover(QWidget *parent) : QWidget(parent)
{
    installAccessibleControls();
    hide();
    setFocusPolicy(Qt::NoFocus);
}

Popover::~Popover()
{
    if (m_shown)
        qApp->removeEventFilter(this);
}

void Popover::setContentView(QWidget *view)
{
    if (m_contentView == view)
        return;
    if (m_contentView) {
        m_contentView->hide();
        m_contentView->deleteLater();
    }
    m_contentView = view;
    if (!view)
        return;
    m_contentSize = view->size();
    view->setParent(this);
    view->show();
    if (m_shown)
        place();
}

void Popover::setContentSize(const QSize &size)
{
    m_contentSize = size;
    if (m_shown)
        place();
}

void Popover::layoutContent()
{
    if (m_contentView)
        m_contentView->setGeometry(rect().adjusted(margin, margin, -margin, -margin));
}

void Popover::place()
{
    QWidget *window = parentWidget();
    if (!window || !m_anchor)
        return;
    const QRect anchor(m_anchor->mapTo(window, QPoint()), m_anchor->size());
    const QSize size = m_contentSize + QSize(2 * margin, 2 * margin);
    const PopoverPlacement placement = placePopover(size, anchor, window->rect(), m_preferredEdge);
    m_edge = placement.edge;
    m_arrowOffset = placement.arrowOffset;
    setGeometry(placement.frame);
    layoutContent();
    update();
}

void Popover::showRelativeTo(QWidget *anchor, Edge preferredEdge)
{
    if (!anchor)
        return;
    if (!m_shown) {
        m_previousFocus = anchor->window()->focusWidget(); // even if another window is active
        qApp->installEventFilter(this);
    }
    m_anchor = anchor;
    m_preferredEdge = preferredEdge;
    setParent(anchor->window());
    // For assistive technologies the panel is named after the question that it asks.
    const auto *question = m_contentView ? m_contentView->findChild<QLabel *>() : nullptr;
    if (question == nullptr)
        setAccessibleName({});
    else
        setAccessibleName(question->accessibleName().isEmpty() ? question->text()
                                                               : question->accessibleName());
    m_shown = true;
    place();
    show();
    raise();
    const QList<QWidget *> controls = focusableIn(this);
    if (!controls.isEmpty())
        controls.first()->setFocus(Qt::TabFocusReason);
}

void Popover::showContent(QWidget *content, QWidget *anchor, Edge preferredEdge)
{
    setContentView(content);
    setContentSize(content->size());
    showRelativeTo(anchor, preferredEdge);
}

void Popover::closePopover()
{
    if (!m_shown)
        return;
    m_shown = false;
    qApp->removeEventFilter(this);
    const QWidget *focus = window()->focusWidget();
    const bool hadFocus = focus && isAncestorOf(focus);
    hide();
    if (hadFocus && m_previousFocus && m_previousFocus->isVisible())
        m_previousFocus->setFocus(Qt::OtherFocusReason);
    Q_EMIT closed();
}

bool Popover::eventFilter(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto *widget = qobject_cast<QWidget *>(object);
        const bool inside = widget && (widget == this || isAncestorOf(widget));
        const bool onAnchor =
            widget && m_anchor && (widget == m_anchor || m_anchor->isAncestorOf(widget));
        // Menus and completion lists of the content are separate windows.
        if (widget && !inside && !onAnchor && widget->window() == window())
            closePopover();
        break;
    }
    case QEvent::Resize:
    case QEvent::Move:
        if (object == parentWidget() || object == m_anchor)
            place();
        break;
    case QEvent::Hide:
        if (object == m_anchor || object == parentWidget())
            closePopover();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(object, event);
}

void Popover::mousePressEvent(QMouseEvent *event)
{
    // A click on the panel must not reach the controls behind it.
    event->accept();
}

void Popover::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        closePopover();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // The content got the key first, and may have closed the panel.
        if (m_shown)
            pressDefaultButton();
        break;
    default:
        break;
    }
    // Keys that the content does not use must not reach the window.
    event->accept();
}

void Popover::pressDefaultButton()
{
    const QList<QPushButton *> buttons = findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->isDefault() && button->isVisibleTo(this)) {
            button->click();
            return;
        }
    }
}

bool Popover::focusNextPrevChild(bool next)
{
    const QList<QWidget *> controls = focusableIn(this);
    if (controls.isEmpty())
        return true;
    const qsizetype present = controls.indexOf(QApplication::focusWidget());
    const qsizetype count = controls.size();
    const qsizetype target = present < 0 ? 0 : (present + (next ? 1 : count - 1)) % count;
    controls.at(target)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void Popover::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF panel =
        QRectF(rect()).adjusted(arrowLength, arrowLength, -arrowLength, -arrowLength);
    QPolygonF arrow;
    const double offset = m_arrowOffset;
    switch (m_edge) {
    case Edge::MaxX:
        arrow << QPointF(panel.left() + 1, offset - arrowHalfWidth) << QPointF(0.5, offset)
              << QPointF(panel.left() + 1, offset + arrowHalfWidth);
        break;
    case Edge::MinX:
        arrow << QPointF(panel.right() - 1, offset - arrowHalfWidth)
              << QPointF(width() - 0.5, offset)
              << QPointF(panel.right() - 1, offset + arrowHalfWidth);
        break;
    case Edge::MaxY:
        arrow << QPointF(offset - arrowHalfWidth, panel.top() + 1) << QPointF(offset, 0.5)
              << QPointF(offset + arrowHalfWidth, panel.top() + 1);
        break;
    case Edge::MinY:
        arrow << QPointF(offset - arrowHalfWidth, panel.bottom() - 1)
              << QPointF(offset, height() - 0.5)
              << QPointF(offset + arrowHalfWidth, panel.bottom() - 1);
        break;
    }
    QPainterPath body;
    body.addRoundedRect(panel.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    QPainterPath tip;
    tip.addPolygon(arrow);
    tip.closeSubpath();
    const QPainterPath outline = body.united(tip);
    for (int ring = shadow; ring > 0; --ring) {
        painter.setPen(QPen(QColor(0x2C, 0x3E, 0x50, 10), 2.0 * ring));
        painter.drawPath(outline.translated(0.0, 1.0));
    }
    painter.setPen(QPen(Theme::lineGray, 1.0));
    painter.setBrush(Theme::window);
    painter.drawPath(outline);
}

} // namespace lyrabox
