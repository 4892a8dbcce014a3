#pragma once

#include <QKeySequence>
#include <QString>

class QAction;
class QWidget;

namespace lyrabox {

/// Adds an action to the context menu of `view`, which owns it. Its key works while the view has
/// the keyboard, and does not repeat. Main thread.
QAction *addContextAction(QWidget *view, const QString &text, const QKeySequence &key = {});

} // namespace lyrabox
