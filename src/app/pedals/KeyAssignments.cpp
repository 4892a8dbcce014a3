#include "app/pedals/KeyAssignments.h"

#include "platform/ui/KeyRepeat.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <array>
#include <utility>

namespace lyrabox {

namespace {

constexpr Qt::KeyboardModifiers commandModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

constexpr std::array movingKeys{Qt::Key_Left,   Qt::Key_Right,   Qt::Key_Up,     Qt::Key_Down,
                                Qt::Key_Home,   Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown,
                                Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,
                                Qt::Key_Escape, Qt::Key_Space};

constexpr std::array editingKeys{Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Up,     Qt::Key_Down,
                                 Qt::Key_Home,   Qt::Key_End,       Qt::Key_Delete, Qt::Key_Insert,
                                 Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Enter,  Qt::Key_Escape,
                                 Qt::Key_Tab,    Qt::Key_Backtab};

bool isTyped(Qt::Key key)
{
    return key < Qt::Key_Escape; // the others have no character
}

} // namespace

QString keyName(const QKeySequence &key)
{
    return key.toString(QKeySequence::PortableText);
}

QKeySequence keyOf(const QKeyEvent &event)
{
    switch (event.key()) {
    case 0:
    case Qt::Key_unknown:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
        return {};
    default:
        return QKeyCombination(event.modifiers() & ~Qt::KeypadModifier,
                               static_cast<Qt::Key>(event.key()));
    }
}

bool isNeededForText(const QKeySequence &key)
{
    const QKeyCombination combination = key[0];
    return (combination.keyboardModifiers() & commandModifiers) == Qt::NoModifier &&
           (isTyped(combination.key()) || std::ranges::count(editingKeys, combination.key()) > 0);
}

bool isNeededInMenus(const QKeySequence &key)
{
    const QKeyCombination combination = key[0];
    return combination.keyboardModifiers() == Qt::NoModifier &&
           std::ranges::count(movingKeys, combination.key()) > 0;
}

bool isAssignable(const QKeySequence &key)
{
    const QKeyCombination combination = key[0];
    const bool hasModifier = (combination.keyboardModifiers() & commandModifiers) != Qt::NoModifier;
    switch (combination.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false;
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return hasModifier;
    default:
        return !key.isEmpty();
    }
}

KeyAssignments::KeyAssignments(QList<MenuCommand> commands, QObject *parent)
    : QObject(parent), m_commands(std::move(commands))
{
    for (MenuCommand &command : m_commands) {
        command.builtIn = command.action->shortcuts();
        KeysOfCommand keys{.command = command.id, .keys = {}};
        for (const QKeySequence &key : std::as_const(command.builtIn))
            keys.keys.append(keyName(key));
        m_builtIn.push_back(std::move(keys));
    }
}

const MenuCommand *KeyAssignments::command(const QString &id) const
{
    const auto found = std::ranges::find(m_commands, id, &MenuCommand::id);
    return found != m_commands.end() ? &*found : nullptr;
}

void KeyAssignments::apply(const PedalMap &map)
{
    PedalMap named = map;
    // A key may be written in several ways.
    for (CommandKeys &entry : named.keys) {
        for (QString &key : entry.keys)
            key = keyName(QKeySequence::fromString(key, QKeySequence::PortableText));
        entry.keys.removeAll(QString());
    }
    m_learnt.clear();
    const std::vector<KeysOfCommand> effective = effectiveKeys(m_builtIn, named);
    for (std::size_t index = 0; index < effective.size(); ++index) {
        const MenuCommand &command = m_commands.at(static_cast<qsizetype>(index));
        QList<QKeySequence> keys;
        for (const QString &name : effective[index].keys) {
            const QKeySequence key(name, QKeySequence::PortableText);
            if (!command.builtIn.contains(key)) {
                // A file may say what cannot be learnt.
                if (key.count() != 1 || !isAssignable(key))
                    continue;
                m_learnt.append(key);
            }
            keys.append(key);
        }
        if (command.action->shortcuts() != keys)
            command.action->setShortcuts(keys);
    }
    qApp->removeEventFilter(this);
    if (!m_learnt.isEmpty())
        qApp->installEventFilter(this);
}

const MenuCommand *KeyAssignments::commandOf(const QKeySequence &key) const
{
    for (const MenuCommand &command : m_commands) {
        if (command.action->shortcuts().contains(key))
            return &command;
    }
    return nullptr;
}

bool KeyAssignments::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride || !watched->isWidgetType())
        return false;
    auto &press = static_cast<QKeyEvent &>(*event);
    const QKeySequence key = keyOf(press);
    if (key.isEmpty() || !m_learnt.contains(key))
        return false;
    const QWidget *focus = QApplication::focusWidget();
    const bool isInMenu = QApplication::activePopupWidget() != nullptr && isNeededInMenus(key);
    const bool isInText = isNeededForText(key) &&
                          takesText(focus != nullptr ? focus : static_cast<QWidget *>(watched));
    if (!isInMenu && !isInText)
        return false;
    press.accept();
    return true;
}

} // namespace lyrabox
