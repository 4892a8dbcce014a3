#pragma once

#include "app/pedals/MenuCommand.h"
#include "pedals/PedalMap.h"

#include <QObject>

class QKeyEvent;

namespace lyrabox {

/// The key of an event, without the mark of the numeric keypad. Empty for a modifier alone.
QKeySequence keyOf(const QKeyEvent &event);

/// Whether the key is needed where it would be pressed: for typing in a text field, or for moving
/// in an open menu. Then it is no shortcut.
bool isNeededForText(const QKeySequence &key);
bool isNeededInMenus(const QKeySequence &key);

/// Whether the key may be assigned. Keys that operate every window may not.
bool isAssignable(const QKeySequence &key);

/// Gives the commands of the menu the keys that a map says, in addition to their own or instead of
/// them. A learnt key that a text field or an open menu needs belongs to that. Main thread.
class KeyAssignments : public QObject {
    Q_OBJECT

public:
    /// The actions of the commands must outlive this object.
    explicit KeyAssignments(QList<MenuCommand> commands, QObject *parent = nullptr);

    const QList<MenuCommand> &commands() const { return m_commands; }
    /// Null if there is none.
    const MenuCommand *command(const QString &id) const;

    /// The built-in keys of all commands.
    const std::vector<KeysOfCommand> &builtIn() const { return m_builtIn; }

    /// Sets the keys of all commands.
    void apply(const PedalMap &map);

    /// The command that has the key now. Null if there is none.
    const MenuCommand *commandOf(const QKeySequence &key) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QList<MenuCommand> m_commands;
    std::vector<KeysOfCommand> m_builtIn;
    QList<QKeySequence> m_learnt; ///< that are not built in where they work
};

} // namespace lyrabox
