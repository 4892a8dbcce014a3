#include "navigation/TransportView.h"

#include "app/controls/LB_Slider.h"
#include "navigation/LB_NavigationView.h"
#include "navigation/NavigationAccessible.h"
#include "navigation/SeekButton.h"
#include "platform/ui/KeyRepeat.h"
#include "platform/ui/Popover.h"
#include "platform/ui/SegmentedControl.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTreeView>

namespace lyrabox {

FocusKind focusKind(const QWidget *focus)
{
    if (focus == nullptr)
        return FocusKind::Other;
    if (takesText(focus))
        return FocusKind::Text;
    if (qobject_cast<const QAbstractButton *>(focus) != nullptr)
        return FocusKind::Button;
    if (qobject_cast<const LB_Slider *>(focus) != nullptr ||
        qobject_cast<const LB_NavigationView *>(focus) != nullptr ||
        qobject_cast<const QTreeView *>(focus) != nullptr ||
        qobject_cast<const SegmentedControl *>(focus) != nullptr ||
        qobject_cast<const QMenu *>(focus) != nullptr ||
        qobject_cast<const QMenuBar *>(focus) != nullptr ||
        focus->objectName() == QLatin1String("divider"))
        return FocusKind::Arrows;
    return FocusKind::Other;
}

bool transportTakesKey(int key, FocusKind focus)
{
    switch (focus) {
    case FocusKind::Text:
        return false;
    case FocusKind::Button:
        return key != Qt::Key_Space;
    case FocusKind::Arrows:
        return key == Qt::Key_Space;
    case FocusKind::Other:
        break;
    }
    return true;
}

namespace {

bool isInPopover(const QWidget *widget)
{
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (qobject_cast<const Popover *>(widget) != nullptr)
            return true;
    }
    return false;
}

} // namespace

TransportView::TransportView(QWidget *parent) : QWidget(parent)
{
    installAccessibleNavigation();
    setFocusPolicy(Qt::ClickFocus);
    qApp->installEventFilter(this);
}

void TransportView::setButtons(SeekButton *backward, SeekButton *forward)
{
    m_backward = backward;
    m_forward = forward;
}

void TransportView::addWindow(const QWidget *window)
{
    m_otherWindows.append(window);
}

bool TransportView::servesWindow(const QWidget *other) const
{
    return other == window() || m_otherWindows.contains(other);
}

bool TransportView::eventFilter(QObject *watched, QEvent *event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if ((!isOverride && event->type() != QEvent::KeyPress) || m_backward == nullptr)
        return false;
    const auto *widget = qobject_cast<const QWidget *>(watched);
    if (widget == nullptr || QApplication::activePopupWidget() != nullptr)
        return false;
    auto *key = static_cast<QKeyEvent *>(event);
    // A key that the focused widget does not use goes on to its parents, but is still meant for
    // that widget.
    const QWidget *keyboard = QApplication::focusWidget();
    const FocusKind focus = focusKind(keyboard != nullptr ? keyboard : widget);
    if (isOverride) {
        // Space is a shortcut of the menu, but a button reached with Tab needs it.
        if (key->key() == Qt::Key_Space && !transportTakesKey(Qt::Key_Space, focus))
            key->accept();
        return false;
    }
    if (!servesWindow(widget->window()) || !transportTakesKey(key->key(), focus) ||
        isInPopover(keyboard) || (key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    return m_backward->performKeyEquivalent(key) || m_forward->performKeyEquivalent(key);
}

} // namespace lyrabox
