#pragma once

#include <QProxyStyle>

class LB_TableRowView;

/// Lets the selection of a tree reach over the indentation, and draws the triangles that open its
/// branches.
class RowStyle : public QProxyStyle {
public:
    explicit RowStyle(const LB_TableRowView *rows);

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;

private:
    /// Owned by the same view as the style.
    const LB_TableRowView *m_rows;
};
