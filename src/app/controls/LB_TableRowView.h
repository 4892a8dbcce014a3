#pragma once

#include <QStyledItemDelegate>

class QAbstractItemView;

/// Draws the rows of every list and tree: a flat selection over the whole row, white text in an
/// emphasized row. Texts are always plain and on one line. Main thread.
class LB_TableRowView : public QStyledItemDelegate {
    Q_OBJECT

public:
    enum SelectionHighlightStyle {
        SelectionHighlightStyleNone = -1,
        SelectionHighlightStyleRegular = 0
    };

    /// Whether a hairline follows each row. Rows with hairlines belong to the track table and are a
    /// little higher than others.
    enum class Separators { None, Hairline };

    explicit LB_TableRowView(QAbstractItemView *view, Separators separators = Separators::None);

    /// Makes a new LB_TableRowView draw all rows of `view`, which owns it. Also sets the row
    /// height, the selection by whole rows and the flat look. A table gets all its settings here,
    /// except for its columns and header.
    static LB_TableRowView *install(QAbstractItemView *view,
                                    Separators separators = Separators::None);

    /// Fills `rect` in accent blue if `emphasized`, otherwise in line gray. Draws nothing for
    /// SelectionHighlightStyleNone.
    static void drawSelectionInRect(QPainter &painter, const QRect &rect, bool emphasized,
                                    SelectionHighlightStyle style = SelectionHighlightStyleRegular);

    /// Whether the rows of `view` are emphasized. They are while the view has the keyboard focus.
    static bool isEmphasized(const QWidget *view);

    SelectionHighlightStyle selectionHighlightStyle() const { return m_style; }
    void setSelectionHighlightStyle(SelectionHighlightStyle style);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    /// Draws the content of a cell over its background: the icon, if there is one, and the text.
    virtual void drawInterior(QPainter &painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index, bool emphasized) const;

private:
    Separators m_separators;
    SelectionHighlightStyle m_style = SelectionHighlightStyleRegular;
};
