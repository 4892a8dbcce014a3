#pragma once

#include "practice/PracticeRecord.h"

#include <QList>
#include <QTableView>

#include <functional>
#include <optional>
#include <utility>

class QMenu;

namespace lyrabox {

class EmptyViewText;
class LoopListModel;
class Popover;
class PracticeStore;

/// The list of loops and markers. Return or a double-click plays, F2 or a slow click renames in
/// place, Delete deletes what is selected, as one step. The context menu has the rest. Main thread.
class LoopList : public QTableView {
    Q_OBJECT

public:
    /// `store` must outlive the list.
    explicit LoopList(PracticeStore *store, QWidget *parent = nullptr);
    ~LoopList() override;

    LoopListModel *rows() const { return m_rows; }

    /// Marks the loop that is called up, and selects it. With none, a loop that was called up is
    /// not selected any more.
    void setCalledUp(std::optional<PracticeId> id);
    /// The length of the song; 0 if it is unknown.
    void setSongFrames(std::uint64_t frames);
    /// A speed in percent and a pitch in cents.
    struct Sound {
        int speed = 100;
        int pitch = 0;
    };
    /// Tells the sound that "Keep Speed and Pitch" keeps.
    void setSoundSource(std::function<Sound()> sound) { m_sound = std::move(sound); }
    /// What the list says while it is empty.
    void setEmptyText(const QString &text);

    /// The selected loops and markers, from top to bottom.
    QList<PracticeId> selectedIds() const;
    /// The one that commands for a single row apply to; none if no row is selected.
    std::optional<PracticeId> currentId() const;
    /// Selects only this one, and scrolls to it. With none, or one that is not there, nothing is
    /// selected.
    void selectId(std::optional<PracticeId> id);

    void playCurrent();
    /// Opens the editor of a name.
    void rename(PracticeId id);
    void deleteSelection();

    /// The context menu for the selection. The caller owns it.
    QMenu *makeMenu();

Q_SIGNALS:
    void playRequested(lyrabox::PracticeId loop);
    void seekRequested(lyrabox::PracticeId marker);
    /// currentId() may be another one.
    void selectionMoved();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;

private:
    void setUp();
    void showRows();
    void fitColumns();
    void play(int row);
    QList<PracticeLoop> selectedLoops() const;
    void changeLoops(const std::function<void(PracticeLoop &)> &change);
    void addColors(QMenu *menu);
    void addSound(QMenu *menu);
    void editNote(PracticeId id);

    PracticeStore *m_store;
    LoopListModel *m_rows;
    EmptyViewText *m_emptyText;
    QString m_emptyTextShown;
    Popover *m_notePanel = nullptr; ///< made when it is first needed
    std::function<Sound()> m_sound;
};

} // namespace lyrabox
