#include "app/controls/RowStyle.h"

#include "app/controls/LB_TableRowView.h"
#include "platform/ui/Theme.h"

#include <QPainter>
#include <QStyleOption>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Draws a triangle in the middle of `rect`. It points down if the branch is open, otherwise
/// towards its text.
void drawBranchTriangle(QPainter &painter, const QRectF &rect, bool open, bool mirrored,
                        const QColor &colour)
{
    constexpr double half = 3.5;
    // Moved away from the edge of the view, towards the text.
    constexpr double shift = 5.0;
    const QPointF middle = rect.center() + QPointF(mirrored ? -shift : shift, 0.0);
    QPolygonF triangle;
    if (open) {
        triangle << QPointF(-half, -2.5) << QPointF(half, -2.5) << QPointF(0.0, half);
    } else {
        const double side = mirrored ? -1.0 : 1.0;
        triangle << QPointF(-2.5 * side, -half) << QPointF(half * side, 0.0)
                 << QPointF(-2.5 * side, half);
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(triangle.translated(middle));
    painter.restore();
}

} // namespace

RowStyle::RowStyle(const LB_TableRowView *rows) : QProxyStyle(u"Fusion"_s), m_rows(rows) {}

int RowStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                        QStyleHintReturn *returnData) const
{
    if (hint == SH_ItemView_ShowDecorationSelected)
        return 1;
    if (hint == SH_ItemView_ActivateItemOnSingleClick)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

void RowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                             QPainter *painter, const QWidget *widget) const
{
    const bool selected =
        option->state.testFlag(State_Selected) &&
        m_rows->selectionHighlightStyle() != LB_TableRowView::SelectionHighlightStyleNone;
    const bool emphasized = LB_TableRowView::isEmphasized(widget);
    switch (element) {
    case PE_PanelItemViewRow:
        if (selected)
            LB_TableRowView::drawSelectionInRect(*painter, option->rect, emphasized);
        return;
    case PE_IndicatorBranch:
        if (option->state.testFlag(State_Children))
            drawBranchTriangle(*painter, option->rect, option->state.testFlag(State_Open),
                               option->direction == Qt::RightToLeft,
                               selected && emphasized ? lyrabox::Theme::surface
                                                      : lyrabox::Theme::disabledText);
        return;
    case PE_FrameFocusRect:
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}
