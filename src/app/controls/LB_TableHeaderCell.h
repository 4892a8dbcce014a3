#pragma once

#include <QHeaderView>

/// The header of a table. Its sections are flat; the highlighted section has the accent colour and
/// shows the arrow of its sort order. The arrow is the last character of the section's title; other
/// sections hide it. Main thread.
class LB_TableHeaderCell : public QHeaderView {
    Q_OBJECT

public:
    explicit LB_TableHeaderCell(Qt::Orientation orientation = Qt::Horizontal,
                                QWidget *parent = nullptr);

    /// The section that is highlighted; -1 for none.
    int highlightedSection() const { return m_highlighted; }
    void setHighlightedSection(int section);

    QSize sizeHint() const override;

    /// Draw one section in `frame`. `arrow` is U+25B2, U+25BC, or null for none.
    static void drawInterior(QPainter &painter, const QRectF &frame, const QString &text,
                             Qt::Alignment alignment);
    static void highlight(QPainter &painter, const QRectF &frame, const QString &text,
                          Qt::Alignment alignment, QChar arrow = {});

protected:
    void paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    int m_highlighted = -1;
};

namespace lyrabox {

/// `text` without spaces and sort arrows (U+25B2, U+25BC) at both ends.
QString trimmedHeaderText(const QString &text);

/// The sort arrow at the end of `text`; null if there is none.
QChar headerArrow(const QString &text);

} // namespace lyrabox
