#include "app/shell/ContextActions.h"

#include <QAction>
#include <QWidget>

namespace lyrabox {

QAction *addContextAction(QWidget *view, const QString &text, const QKeySequence &key)
{
    auto *action = new QAction(text, view);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setAutoRepeat(false);
    view->addAction(action);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    return action;
}

} // namespace lyrabox
