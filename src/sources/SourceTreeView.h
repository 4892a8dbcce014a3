#pragma once

#include <QList>
#include <QTreeView>
#include <QUrl>

namespace lyrabox {

/// The outline of a source tree. It asks whether a row can be expanded when it draws it, so that a
/// folder is listed on disk when its row is first shown and not before. Where the tree is empty, a
/// gray text says what can be done.
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
    void foldersDropped(const QList<QUrl> &folders);

protected:
    void drawBranches(QPainter *painter, const QRect &rect,
                      const QModelIndex &index) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QString m_placeholderText;
    bool m_acceptsFolders = false;
};

/// Those of `urls` that are local folders.
QList<QUrl> localFolders(const QList<QUrl> &urls);

} // namespace lyrabox
