#include "sources/SourceTreeView.h"

#include "platform/ui/RowSelection.h"
#include "sources/SourceTreeModel.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScopedValueRollback>

#include <utility>

namespace lyrabox {

namespace {
constexpr int placeholderMargin = 16;
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
    viewport()->setAutoFillBackground(false); // Shows the background of the pane.
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex &index) {
        if (!m_isUnsettled && index == selectedRow())
            Q_EMIT selectedRowClicked();
    });
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
    lyrabox::selectRow(*this, index);
    scrollTo(index);
}

QModelIndex SourceTreeView::selectedRow() const
{
    const QModelIndexList rows =
        selectionModel() != nullptr ? selectionModel()->selectedRows() : QModelIndexList();
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

void SourceTreeView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Asterisk) {
        // QTreeView would expand everything below, which would list the whole disk.
        if (currentIndex().isValid() && model()->hasChildren(currentIndex()))
            expand(currentIndex());
        return;
    }
    const bool moves = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    // Before a row is selected, the first row has the keyboard focus. An arrow key selects it.
    if (moves && !selectedRow().isValid() && currentIndex().isValid())
        selectRow(currentIndex());
    else
        QTreeView::keyPressEvent(event);
}

void SourceTreeView::mousePressEvent(QMouseEvent *event)
{
    const bool isLeft = event->button() == Qt::LeftButton;
    if (!isLeft)
        settleSelection(); // The context menu applies to the highlighted row.
    const QScopedValueRollback<bool> selects(m_leftButtonSelects, isLeft);
    QTreeView::mousePressEvent(event);
}

void SourceTreeView::mouseMoveEvent(QMouseEvent *event)
{
    const QScopedValueRollback<bool> selects(m_leftButtonSelects, true);
    QTreeView::mouseMoveEvent(event);
}

void SourceTreeView::mouseReleaseEvent(QMouseEvent *event)
{
    {
        const QScopedValueRollback<bool> selects(m_leftButtonSelects, true);
        QTreeView::mouseReleaseEvent(event);
    }
    if (event->button() == Qt::LeftButton)
        settleSelection();
}

void SourceTreeView::focusOutEvent(QFocusEvent *event)
{
    QTreeView::focusOutEvent(event);
    settleSelection(); // The release may go to another widget.
}

void SourceTreeView::hideEvent(QHideEvent *event)
{
    QTreeView::hideEvent(event);
    settleSelection();
}

bool SourceTreeView::event(QEvent *event)
{
    if (auto *tree = qobject_cast<SourceTreeModel *>(model());
        tree != nullptr && event->type() == QEvent::WindowActivate) {
        tree->forgetLooks();
        viewport()->update();
    }
    return QTreeView::event(event);
}

void SourceTreeView::selectionChanged(const QItemSelection &selected,
                                      const QItemSelection &deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (!m_leftButtonSelects) {
        m_isUnsettled = false;
        announceSelection();
    } else if (!std::exchange(m_isUnsettled, true)) {
        m_settledRow = deselected.isEmpty() ? QModelIndex() : deselected.indexes().first();
    }
}

void SourceTreeView::settleSelection()
{
    if (std::exchange(m_isUnsettled, false) && selectedRow() != m_settledRow)
        announceSelection();
}

void SourceTreeView::announceSelection()
{
    if (auto *tree = qobject_cast<SourceTreeModel *>(model()))
        tree->forgetLooks(selectedRow());
    Q_EMIT selectionDidChange();
}

void SourceTreeView::drawBranches(QPainter *painter, const QRect &rect,
                                  const QModelIndex &index) const
{
    const auto *tree = qobject_cast<const SourceTreeModel *>(model());
    if (tree == nullptr || !tree->isExpandable(index))
        return;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = QRect(rect.right() - indentation() + 1, rect.top(), indentation(), rect.height());
    option.state |= QStyle::State_Item | QStyle::State_Children;
    option.state.setFlag(QStyle::State_Open, isExpanded(index));
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, painter, this);
}

void SourceTreeView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    if (m_placeholderText.isEmpty() || (model() != nullptr && model()->rowCount() > 0))
        return;
    QPainter painter(viewport());
    painter.setPen(QColor(0x6b, 0x77, 0x7a));
    painter.drawText(viewport()->rect().adjusted(placeholderMargin, placeholderMargin,
                                                 -placeholderMargin, -placeholderMargin),
                     static_cast<int>(Qt::AlignTop | Qt::AlignHCenter) | Qt::TextWordWrap,
                     m_placeholderText);
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
