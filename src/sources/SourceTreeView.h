#pragma once

#include <QList>
#include <QTreeView>
#include <QUrl>

namespace lyrabox {

/// The outline of a source tree. It asks whether a row can be expanded when it draws it, so that a
/// folder is listed on disk when its row is first shown and not before. Where the tree is empty, a
/// gray text says what can be done.
///
/// Under the left button the highlight follows the pointer, and selectionDidChange() comes when the
/// button is released. The looks of the rows are looked up anew when the window is activated, since
/// the user may have changed permissions elsewhere, and those of a row when it is selected.
class SourceTreeView : public QTreeView {
    Q_OBJECT

public:
    explicit SourceTreeView(QWidget *parent = nullptr);

    /// Shown while the tree has no rows.
    void setPlaceholderText(const QString &text);
    QString placeholderText() const { return m_placeholderText; }

    /// Whether folders can be dropped from the file manager.
    void setAcceptsFolders(bool accepts);

    /// Selects the row alone and makes it visible.
    void selectRow(const QModelIndex &index);

    /// The selected row's index; invalid for none.
    QModelIndex selectedRow() const;

    /// The row shown last, as far as everything is expanded; invalid in an empty tree.
    QModelIndex lastVisibleRow() const;

Q_SIGNALS:
    /// Another row is selected, or none. What acts on a selection listens to this and not to the
    /// selection model, which also tells of the rows that a drag passes.
    void selectionDidChange();

    void foldersDropped(const QList<QUrl> &folders);

protected:
    void drawBranches(QPainter *painter, const QRect &rect,
                      const QModelIndex &index) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

protected Q_SLOTS:
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;

private:
    void settleSelection();
    void announceSelection();

    QString m_placeholderText;
    bool m_acceptsFolders = false;
    bool m_leftButtonSelects = false;   ///< while the toolkit handles an event of the left button
    bool m_isUnsettled = false;         ///< the left button has changed the selection, and is held
    QPersistentModelIndex m_settledRow; ///< what was selected before
};

/// Those of `urls` that are local folders.
QList<QUrl> localFolders(const QList<QUrl> &urls);

} // namespace lyrabox
