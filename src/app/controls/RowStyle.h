#pragma once

#include <QProxyStyle>

class LB_TableRowView;

/// The style of a list or tree. It extends the selection of a tree over the indentation, and draws
/// the triangles that open the branches. Main thread.
class RowStyle : public QProxyStyle {
public:
    explicit RowStyle(const LB_TableRowView *rows);

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;

private:
    /// Not owned; the same view owns both.
    const LB_TableRowView *m_rows;
};
