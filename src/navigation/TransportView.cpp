#include "navigation/TransportView.h"

#include "app/controls/LB_Slider.h"
#include "navigation/LB_NavigationView.h"
#include "navigation/NavigationAccessible.h"
#include "navigation/SeekButton.h"
#include "platform/ui/SegmentedControl.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTreeView>

namespace lyrabox {

FocusKind focusKind(const QWidget *focus)
{
    if (focus == nullptr)
        return FocusKind::Other;
    if (const auto *edit = qobject_cast<const QLineEdit *>(focus))
        return edit->isReadOnly() ? FocusKind::Other : FocusKind::Text;
    if (focus->inherits("QTextEdit") || focus->inherits("QPlainTextEdit") ||
        qobject_cast<const QAbstractSpinBox *>(focus) != nullptr)
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
/// Keys that switch something to and fro.
bool isHeldOnce(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_L;
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

bool TransportView::isRepeat(const QKeyEvent *event) const
{
    // An X server repeats a held key as a release and a press with one timestamp. The toolkit marks
    // the pair as repeated only where the press had arrived when it looked at the release.
    return event->isAutoRepeat() ||
           (event->timestamp() != 0 && event->timestamp() == m_releaseTimestamp);
}

bool TransportView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyRelease)
        m_releaseTimestamp = static_cast<QKeyEvent *>(event)->timestamp();
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if ((!isOverride && event->type() != QEvent::KeyPress) || m_backward == nullptr)
        return false;
    const auto *widget = qobject_cast<const QWidget *>(watched);
    if (widget == nullptr || QApplication::activePopupWidget() != nullptr)
        return false;
    auto *key = static_cast<QKeyEvent *>(event);
    const FocusKind focus = focusKind(widget);
    if (isOverride) {
        // Space is a shortcut of the menu; a button that was reached with Tab keeps it all the
        // same.
        if (key->key() == Qt::Key_Space && !transportTakesKey(Qt::Key_Space, focus))
            key->accept();
        // Held, it is one press: neither the menu's shortcut nor the list gets what follows.
        else if (isHeldOnce(key->key()) && isRepeat(key) && focus != FocusKind::Text)
            key->accept();
        return false;
    }
    if (isHeldOnce(key->key()) && isRepeat(key) && transportTakesKey(key->key(), focus))
        return true;
    if (widget->window() != window() || !transportTakesKey(key->key(), focus) ||
        (key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    return m_backward->performKeyEquivalent(key) || m_forward->performKeyEquivalent(key);
}

} // namespace lyrabox
