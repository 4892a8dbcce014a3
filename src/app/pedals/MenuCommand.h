#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

class QAction;

namespace lyrabox {

/// A command of the menu bar, as pedals and keys name it.
struct MenuCommand {
    QString id;    ///< the same in every language and every version
    QString group; ///< the menu that has it, and its submenu
    QString name;
    QAction *action = nullptr;
    QList<QKeySequence> builtIn = {}; ///< its keys as long as the user changes nothing
};

/// The text of a key that files use.
QString keyName(const QKeySequence &key);

} // namespace lyrabox
