#include "platform/ui/Application.h"

#include "platform/ui/DisplayKeys.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QWidget>

namespace lyrabox {

namespace {

bool shortcutRepeats(const QObject *owner)
{
    if (const auto *action = qobject_cast<const QAction *>(owner))
        return action->autoRepeat();
    if (const auto *shortcut = qobject_cast<const QShortcut *>(owner))
        return shortcut->autoRepeat();
    return false; // the mnemonic of a menu or a button
}

/// Whether the key is for the menu that is open. A command with the same key must not take it.
bool belongsToMenu(const QKeyEvent &key)
{
    const Qt::KeyboardModifiers others = ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (qobject_cast<const QMenu *>(QApplication::activePopupWidget()) == nullptr ||
        (key.modifiers() & others) != Qt::NoModifier)
        return false;
    const bool chooses = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    const bool isLetter = !key.text().isEmpty() && key.text().front().isLetterOrNumber();
    return chooses || isLetter || key.key() == Qt::Key_Delete;
}

/// The widget that receives a key event which the toolkit delivers to `receiver`, a window or a
/// widget. Null if no widget has the keyboard.
const QWidget *keyboardOwner(const QObject *receiver)
{
    if (receiver->isWidgetType())
        return static_cast<const QWidget *>(receiver);
    if (const QWidget *popup = QApplication::activePopupWidget())
        return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
    return QApplication::focusWidget();
}

} // namespace

Application::Application(int &argc, char **argv)
    : QApplication(argc, argv), m_keyRepeat(std::make_unique<KeyRepeat>(&isKeyDownOnDisplay))
{}

Application::~Application() = default;

void Application::setKeyQuery(KeyRepeat::KeyQuery isDown)
{
    m_keyRepeat = std::make_unique<KeyRepeat>(std::move(isDown));
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        if (event != m_passing)
            return notifyOfKey(receiver, static_cast<QKeyEvent *>(event));
        break;
    case QEvent::Shortcut:
        if (m_shortcutRepeats && !shortcutRepeats(receiver))
            return true;
        break;
    default:
        break;
    }
    return QApplication::notify(receiver, event);
}

bool Application::notifyOfKey(QObject *receiver, QKeyEvent *event)
{
    const bool repeats = m_keyRepeat->isRepeat(receiver, *event);
    if (const KeyRepeat::Release missed = m_keyRepeat->takeMissedRelease();
        missed.event && missed.receiver)
        pass(missed.receiver, missed.event.get());
    if (event->type() == QEvent::ShortcutOverride) {
        m_shortcutRepeats = repeats;
        if (belongsToMenu(*event)) {
            event->accept();
            return true;
        }
    }
    if (!repeats)
        return pass(receiver, event);
    if (event->type() == QEvent::KeyPress &&
        !keyActsWhileHeld(event->key(), keyboardOwner(receiver))) {
        event->accept();
        return true;
    }
    if (event->isAutoRepeat())
        return pass(receiver, event);
    QKeyEvent marked(event->type(), event->key(), event->modifiers(), event->nativeScanCode(),
                     event->nativeVirtualKey(), event->nativeModifiers(), event->text(), true,
                     static_cast<quint16>(event->count()), event->device());
    marked.setTimestamp(event->timestamp());
    marked.setAccepted(event->isAccepted());
    const bool handled = pass(receiver, &marked);
    event->setAccepted(marked.isAccepted());
    return handled;
}

bool Application::pass(QObject *receiver, QKeyEvent *event)
{
    const QScopedValueRollback<const QEvent *> passing(m_passing, event);
    return QApplication::notify(receiver, event);
}

} // namespace lyrabox
