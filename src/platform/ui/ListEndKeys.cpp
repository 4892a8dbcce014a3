#include "platform/ui/ListEndKeys.h"

#include <QAbstractItemView>
#include <QKeyEvent>

#include <algorithm>

namespace lyrabox {

ListEndKeys::ListEndKeys(QAbstractItemView *view) : QObject(view), m_view(view)
{
    view->installEventFilter(this);
}

bool ListEndKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<const QKeyEvent *>(event);
    const bool isEndKey = key->key() == Qt::Key_Home || key->key() == Qt::Key_End;
    const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::KeypadModifier;
    const QAbstractItemModel *model = m_view->model();
    if (!isEndKey || modifiers != Qt::NoModifier || model == nullptr || model->rowCount() == 0)
        return QObject::eventFilter(watched, event);
    const int row = key->key() == Qt::Key_Home ? 0 : model->rowCount() - 1;
    m_view->setCurrentIndex(model->index(row, std::max(0, m_view->currentIndex().column())));
    return true;
}

} // namespace lyrabox
