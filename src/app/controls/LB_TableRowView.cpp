#include "app/controls/LB_TableRowView.h"

#include "app/controls/RowStyle.h"
#include "platform/ui/OneLine.h"
#include "platform/ui/Theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QIcon>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>
#include <QTreeView>

namespace Theme = lyrabox::Theme;

namespace {

/// Padding of a cell in a table with columns; the header uses the same.
constexpr int columnPadding = 3;
/// Padding of a row in a list without columns.
constexpr int listPadding = 14;
/// Padding of a row in a tree, after the indentation.
constexpr int treePadding = 9;
constexpr int iconSize = 16;
constexpr int iconGap = 6;
constexpr int indentation = 18;

void setUpTable(QTableView *table, int rowHeight)
{
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setCornerButtonEnabled(false);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setTabKeyNavigation(false);
    QHeaderView *rows = table->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setMinimumSectionSize(rowHeight);
    rows->setDefaultSectionSize(rowHeight);
}

void setUpTree(QTreeView *tree)
{
    tree->setUniformRowHeights(true);
    tree->setIndentation(indentation);
    tree->setHeaderHidden(true);
    tree->setAnimated(false);
}

} // namespace

LB_TableRowView::LB_TableRowView(QAbstractItemView *view, Separators separators)
    : QStyledItemDelegate(view), m_separators(separators)
{}

LB_TableRowView *LB_TableRowView::install(QAbstractItemView *view, Separators separators)
{
    auto *rows = new LB_TableRowView(view, separators);
    view->setItemDelegate(rows);
    auto *style = new RowStyle(rows);
    style->setParent(view);
    view->setStyle(style);
    // In a window with a style sheet, the scroll bars would take over the style of the view.
    for (QScrollBar *bar : {view->horizontalScrollBar(), view->verticalScrollBar()})
        bar->setStyle(QApplication::style());
    view->setFrameShape(QFrame::NoFrame);
    view->setAlternatingRowColors(false);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setTextElideMode(Qt::ElideRight);
    if (auto *table = qobject_cast<QTableView *>(view))
        setUpTable(table, rows->sizeHint({}, {}).height());
    if (auto *tree = qobject_cast<QTreeView *>(view))
        setUpTree(tree);
    return rows;
}

void LB_TableRowView::drawSelectionInRect(QPainter &painter, const QRect &rect, bool emphasized,
                                          SelectionHighlightStyle style)
{
    if (style != SelectionHighlightStyleNone)
        painter.fillRect(rect, emphasized ? Theme::accent : Theme::lineGray);
}

bool LB_TableRowView::isEmphasized(const QWidget *view)
{
    return view && view->hasFocus();
}

void LB_TableRowView::setSelectionHighlightStyle(SelectionHighlightStyle style)
{
    m_style = style;
}

void LB_TableRowView::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    painter->save();
    painter->setClipRect(option.rect);
    const bool selected =
        option.state.testFlag(QStyle::State_Selected) && m_style != SelectionHighlightStyleNone;
    const bool emphasized = selected && isEmphasized(option.widget);
    if (selected)
        drawSelectionInRect(*painter, option.rect, emphasized, m_style);
    if (m_separators == Separators::Hairline && !selected)
        painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                          Theme::hairline);
    drawInterior(*painter, option, index, emphasized);
    const bool current = option.state.testFlag(QStyle::State_HasFocus);
    if (current && !option.state.testFlag(QStyle::State_Selected) && isEmphasized(option.widget))
        lyrabox::drawFocusRing(*painter, option.rect, 2.0);
    painter->restore();
}

void LB_TableRowView::drawInterior(QPainter &painter, const QStyleOptionViewItem &option,
                                   const QModelIndex &index, bool emphasized) const
{
    const bool isTree = qobject_cast<const QTreeView *>(option.widget) != nullptr;
    const int listMargin = isTree ? treePadding : listPadding;
    const int padding = m_separators == Separators::Hairline ? columnPadding : listMargin;
    QRect area = option.rect.adjusted(padding, 0, -padding, 0);

    const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
    if (!icon.isNull()) {
        const QRect iconRect = QStyle::visualRect(
            option.direction, area,
            QRect(area.left(), area.top() + (area.height() - iconSize) / 2, iconSize, iconSize));
        icon.paint(&painter, iconRect, Qt::AlignCenter,
                   emphasized ? QIcon::Selected : QIcon::Normal);
        if (option.direction == Qt::RightToLeft)
            area.setRight(iconRect.left() - 1 - iconGap);
        else
            area.setLeft(iconRect.right() + 1 + iconGap);
    }

    const QVariant font = index.data(Qt::FontRole);
    painter.setFont(font.isValid() ? font.value<QFont>() : option.font);
    const QVariant foreground = index.data(Qt::ForegroundRole);
    const QColor own = foreground.isValid() ? foreground.value<QBrush>().color() : Theme::text;
    painter.setPen(emphasized ? Theme::surface : own);
    const QVariant alignment = index.data(Qt::TextAlignmentRole);
    const Qt::Alignment side = QStyle::visualAlignment(
        option.direction, alignment.isValid() ? Qt::Alignment(alignment.toInt()) : Qt::AlignLeft);
    const QString text = lyrabox::oneLine(displayText(index.data(Qt::DisplayRole), option.locale));
    const QString line = painter.fontMetrics().elidedText(text, option.textElideMode, area.width(),
                                                          Qt::TextSingleLine);
    painter.drawText(area,
                     int((side & Qt::AlignHorizontal_Mask) | Qt::AlignAbsolute | Qt::AlignVCenter) |
                         Qt::TextSingleLine,
                     line);
}

QSize LB_TableRowView::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const int height =
        m_separators == Separators::Hairline ? Theme::rowHeight : Theme::sourceRowHeight;
    if (!index.isValid())
        return {0, height};
    return {QStyledItemDelegate::sizeHint(option, index).width() + 2 * columnPadding, height};
}
