#include "app/practice/LoopRows.h"

#include "app/practice/LoopListModel.h"
#include "app/practice/WaveColors.h"
#include "platform/ui/Theme.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPainter>

namespace lyrabox {

namespace {

constexpr int signWidth = 20; // before the name
constexpr double dotRadius = 4.0;
constexpr double flagWidth = 8.0;
constexpr double flagHalf = 5.0; // half its height

const LoopListModel &listOf(const QModelIndex &index)
{
    return *static_cast<const LoopListModel *>(index.model());
}

QRect besideSign(const QStyleOptionViewItem &option)
{
    QRect rect = option.rect;
    if (option.direction == Qt::RightToLeft)
        rect.setRight(rect.right() - signWidth);
    else
        rect.setLeft(rect.left() + signWidth);
    return rect;
}

void drawSign(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index,
              bool emphasized)
{
    const LoopListModel &list = listOf(index);
    const PracticeLoop *loop = list.loop(index.row());
    const bool isMirrored = option.direction == Qt::RightToLeft;
    const double x = isMirrored ? option.rect.right() + 1 - signWidth / 2.0
                                : option.rect.left() + signWidth / 2.0;
    const QPointF middle(x, option.rect.top() + (option.rect.height() - 1) / 2.0);
    QColor color = loop != nullptr ? waveColors::loopColor(loop->colour) : waveColors::marker;
    if (list.isBeyondSong(index.row()))
        color = Theme::disabledText;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(emphasized ? Theme::surface : color);
    if (loop != nullptr) {
        painter.drawEllipse(middle, dotRadius, dotRadius);
    } else {
        // Time runs from left to right in every language, so a flag never points to the left.
        const double left = middle.x() - flagWidth / 2.0;
        painter.drawPolygon(QPolygonF{{left, middle.y() - flagHalf},
                                      {left + flagWidth, middle.y()},
                                      {left, middle.y() + flagHalf}});
    }
    painter.restore();
}

} // namespace

LoopRows::LoopRows(QAbstractItemView *view) : LB_TableRowView(view, Separators::Hairline) {}

/// The loop that is called up has the accent colour while it is selected, whoever has the keyboard.
void LoopRows::drawInterior(QPainter &painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index, bool emphasized) const
{
    const LoopListModel &list = listOf(index);
    const bool isCalledUp = list.calledUp() == list.id(index.row());
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    if (isCalledUp && !isSelected)
        painter.fillRect(option.rect.adjusted(0, 0, 0, -1), waveColors::loopBackground);
    else if (isCalledUp)
        drawSelectionInRect(painter, option.rect, true);
    const bool isBright = emphasized || (isCalledUp && isSelected);
    QStyleOptionViewItem inner = option;
    if (index.column() == LoopListModel::Name) {
        drawSign(painter, option, index, isBright);
        inner.rect = besideSign(option);
    }
    LB_TableRowView::drawInterior(painter, inner, index, isBright);
}

QWidget *LoopRows::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                const QModelIndex &index) const
{
    auto *editor = new QLineEdit(parent);
    editor->setMaxLength(static_cast<int>(PracticeLimits::nameLength));
    editor->setFrame(false);
    editor->setAutoFillBackground(true);
    editor->setPlaceholderText(index.data(Qt::DisplayRole).toString());
    editor->setAccessibleName(LoopListModel::tr("Name"));
    return editor;
}

void LoopRows::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                    const QModelIndex &) const
{
    editor->setGeometry(besideSign(option).adjusted(0, 0, 0, -1));
}

} // namespace lyrabox
