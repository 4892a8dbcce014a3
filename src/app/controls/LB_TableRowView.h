#pragma once

#include <QStyledItemDelegate>

class QAbstractItemView;

/// Draws the rows of every list and tree: a flat selection over the whole row, white text on the
/// emphasized one, always plain text on one line.
class LB_TableRowView : public QStyledItemDelegate {
    Q_OBJECT

public:
    enum SelectionHighlightStyle {
        SelectionHighlightStyleNone = -1,
        SelectionHighlightStyleRegular = 0
    };

    /// Whether a hairline follows each row. Rows with one are the track table's, a little higher
    /// than others.
    enum class Separators { None, Hairline };

    explicit LB_TableRowView(QAbstractItemView *view, Separators separators = Separators::None);

    /// Makes a new LB_TableRowView, owned by `view`, draw all of the view, and gives the view the
    /// row height, selection by whole rows and the flat look that go with it.
    static LB_TableRowView *install(QAbstractItemView *view,
                                    Separators separators = Separators::None);

    /// Fills `rect` in accent blue when `emphasized`, else in line gray; nothing for the style
    /// none.
    static void drawSelectionInRect(QPainter &painter, const QRect &rect, bool emphasized,
                                    SelectionHighlightStyle style = SelectionHighlightStyleRegular);

    /// Whether the rows of `view` are emphasized: it has the keyboard.
    static bool isEmphasized(const QWidget *view);

    SelectionHighlightStyle selectionHighlightStyle() const { return m_style; }
    void setSelectionHighlightStyle(SelectionHighlightStyle style);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    /// Draws the cell over its ground: its text, after its icon where it has one.
    virtual void drawInterior(QPainter &painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index, bool emphasized) const;

private:
    Separators m_separators;
    SelectionHighlightStyle m_style = SelectionHighlightStyleRegular;
};
