#pragma once

#include <QList>
#include <QTreeView>
#include <QUrl>

namespace lyrabox {

/// The view of a source tree. A folder is listed on disk when its row is first drawn, because the
/// view then asks whether it can be expanded. An empty tree shows a gray placeholder text.
///
/// While the left button is held, the highlight follows the pointer; selectionDidChange() is
/// emitted on release. The icons and text styles of all rows are read again when the window is
/// activated, because the user may have changed permissions elsewhere. Those of a single row are
/// read again when it is selected. Main thread.
class SourceTreeView : public QTreeView {
    Q_OBJECT

public:
    explicit SourceTreeView(QWidget *parent = nullptr);

    /// Sets the text that is shown while the tree has no rows.
    void setPlaceholderText(const QString &text);
    QString placeholderText() const { return m_placeholderText; }

    /// Sets whether folders can be dropped from the file manager.
    void setAcceptsFolders(bool accepts);

    /// Selects only this row and makes it visible.
    void selectRow(const QModelIndex &index);

    /// The index of the selected row, or an invalid index.
    QModelIndex selectedRow() const;

    /// The last row when scrolled to the end, given what is expanded. Invalid in an empty tree.
    QModelIndex lastVisibleRow() const;

Q_SIGNALS:
    /// The selected row has changed. Listen to this signal, not to the selection model, which also
    /// reports rows that a drag passes.
    void selectionDidChange();

    /// The row that is already selected was clicked.
    void selectedRowClicked();

    /// Folders were dropped on the view; see setAcceptsFolders().
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
    bool m_leftButtonSelects = false;   ///< True while QTreeView handles an event of the left
                                        ///< button.
    bool m_isUnsettled = false;         ///< The left button is held and has changed the selection.
    QPersistentModelIndex m_settledRow; ///< The row that was selected before.
};

/// Returns the local folders among `urls`.
QList<QUrl> localFolders(const QList<QUrl> &urls);

} // namespace lyrabox
