#include "app/shell/FileDrop.h"

#include <QAbstractScrollArea>
#include <QDropEvent>
#include <QMimeData>

namespace lyrabox {

namespace {

QList<QUrl> localFiles(const QDropEvent &event)
{
    QList<QUrl> files;
    for (const QUrl &url : event.mimeData()->urls()) {
        if (url.isLocalFile())
            files.append(url);
    }
    return files;
}

} // namespace

FileDrop::FileDrop(QAbstractScrollArea *view, std::function<void(const QList<QUrl> &urls)> dropped)
    : QObject(view), m_dropped(std::move(dropped))
{
    view->setAcceptDrops(true);
    view->viewport()->setAcceptDrops(true);
    view->viewport()->installEventFilter(this);
}

FileDrop::FileDrop(QWidget *widget, std::function<void(const QList<QUrl> &urls)> dropped)
    : QObject(widget), m_dropped(std::move(dropped))
{
    widget->setAcceptDrops(true);
    widget->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        break;
    default:
        return QObject::eventFilter(watched, event);
    }
    auto *drop = static_cast<QDropEvent *>(event);
    const QList<QUrl> files = localFiles(*drop);
    if (files.isEmpty()) {
        drop->ignore();
        return true;
    }
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (event->type() == QEvent::Drop)
        m_dropped(files);
    return true;
}

} // namespace lyrabox
