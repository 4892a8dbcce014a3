#include "sources/SourceTreeView.h"

#include "sources/SourceTreeModel.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>

namespace lyrabox {

namespace {
constexpr int placeholderMargin = 16;
constexpr qreal triangleSize = 8.0;
constexpr int rowIndentation = 18;
} // namespace

QList<QUrl> localFolders(const QList<QUrl> &urls)
{
    QList<QUrl> folders;
    for (const QUrl &url : urls) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isDir())
            folders.append(url);
    }
    return folders;
}

SourceTreeView::SourceTreeView(QWidget *parent) : QTreeView(parent)
{
    setIndentation(rowIndentation);
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setExpandsOnDoubleClick(true);
}

void SourceTreeView::setPlaceholderText(const QString &text)
{
    m_placeholderText = text;
    viewport()->update();
}

void SourceTreeView::setAcceptsFolders(bool accepts)
{
    m_acceptsFolders = accepts;
    setAcceptDrops(accepts);
    viewport()->setAcceptDrops(accepts);
}

void SourceTreeView::selectRow(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

QModelIndex SourceTreeView::selectedRow() const
{
    const QModelIndexList rows = selectionModel() != nullptr ? selectionModel()->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? QModelIndex() : rows.first();
}

QModelIndex SourceTreeView::lastVisibleRow() const
{
    QModelIndex last;
    while (isExpanded(last) || !last.isValid()) {
        const int rows = model()->rowCount(last);
        if (rows == 0)
            break;
        last = model()->index(rows - 1, 0, last);
    }
    return last;
}

void SourceTreeView::drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const
{
    const auto *tree = qobject_cast<const SourceTreeModel *>(model());
    if (tree == nullptr || !tree->isExpandable(index))
        return;
    const QRectF box(rect.right() - indentation() + 1, rect.top(), indentation(), rect.height());
    QPainterPath triangle;
    triangle.moveTo(-triangleSize / 2, -triangleSize / 2);
    triangle.lineTo(triangleSize / 2, 0);
    triangle.lineTo(-triangleSize / 2, triangleSize / 2);
    triangle.closeSubpath();
    const bool emphasized = selectionModel()->isSelected(index) && hasFocus();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(box.center());
    if (isExpanded(index))
        painter->rotate(90);
    else if (isRightToLeft())
        painter->rotate(180);
    painter->scale(0.9, 0.75);
    painter->fillPath(triangle, emphasized ? QColor(Qt::white) : QColor(0x7f, 0x8c, 0x8d));
    painter->restore();
}

void SourceTreeView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    if (m_placeholderText.isEmpty() || (model() != nullptr && model()->rowCount() > 0))
        return;
    QPainter painter(viewport());
    painter.setPen(QColor(0x6b, 0x77, 0x7a));
    painter.drawText(viewport()->rect().adjusted(placeholderMargin, placeholderMargin, -placeholderMargin,
                                                 -placeholderMargin),
                     static_cast<int>(Qt::AlignTop | Qt::AlignHCenter) | Qt::TextWordWrap, m_placeholderText);
}

void SourceTreeView::dragEnterEvent(QDragEnterEvent *event)
{
    if (m_acceptsFolders && !localFolders(event->mimeData()->urls()).isEmpty())
        event->acceptProposedAction();
}

void SourceTreeView::dragMoveEvent(QDragMoveEvent *event)
{
    event->acceptProposedAction();
}

void SourceTreeView::dropEvent(QDropEvent *event)
{
    const QList<QUrl> folders = localFolders(event->mimeData()->urls());
    if (!m_acceptsFolders || folders.isEmpty())
        return;
    event->acceptProposedAction();
    Q_EMIT foldersDropped(folders);
}

} // namespace lyrabox
