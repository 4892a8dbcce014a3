// What lets both windows be used without a mouse beyond the transport's keys: the lists, their
// columns and their context menus.

#include "app/shell/Composition.h"
#include "app/shell/MainMenu.h"
#include "platform/ui/ListEndKeys.h"

#include <QAction>
#include <QApplication>

namespace lyrabox {

namespace {

/// Added to the view's context menu. A key works while the view has the keyboard.
QAction *addContextAction(QWidget *view, const QString &text, const QKeySequence &key = {})
{
    auto *action = new QAction(text, view);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setAutoRepeat(false);
    view->addAction(action);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    return action;
}

} // namespace

void Composition::connectViewMenu()
{
    new ListEndKeys(m_main.trackTableView);
    new ListEndKeys(m_eq.presetTableView);

    connect(m_menu->songList, &QAction::triggered, m_main.trackTableView, [this] {
        m_appDelegate.toggleMainWindow();
        m_main.trackTableView->setFocus(Qt::ShortcutFocusReason);
    });
    connect(m_menu->sourceList, &QAction::triggered, m_main.sourceTabView, [this] {
        m_appDelegate.toggleMainWindow();
        const bool folders = m_main.tabSelector->selectedSegment() == LB_SourceTabView::FolderTab;
        QWidget *list = folders ? m_main.folderOutlineView : m_main.playlistOutlineView;
        list->setFocus(Qt::ShortcutFocusReason);
    });

    const auto checkSortedColumn = [this] {
        const int sorted = m_tracks.highlightedColumn();
        for (QAction *column : m_menu->sortColumns)
            column->setChecked(column->data().toInt() == sorted);
        m_menu->sortOwnOrder->setChecked(m_tracks.isInOwnOrder());
        m_menu->reverseOrder->setEnabled(sorted >= 0);
    };
    for (QAction *column : m_menu->sortColumns) {
        connect(column, &QAction::triggered, &m_tracks, [this, column, checkSortedColumn] {
            m_tracks.sortByColumn(column->data().toInt());
            checkSortedColumn(); // choosing the checked one unchecks it
        });
    }
    connect(m_menu->sortOwnOrder, &QAction::triggered, &m_tracks, [this, checkSortedColumn] {
        m_tracks.sortByOwnOrder();
        checkSortedColumn();
    });
    connect(m_menu->reverseOrder, &QAction::triggered, &m_tracks,
            [this] { m_tracks.sortByColumn(m_tracks.highlightedColumn()); });
    connect(&m_tracks, &LB_TrackController::sorted, m_menu, checkSortedColumn);
    checkSortedColumn();
    connect(m_menu->includeSubfolders, &QAction::triggered, &m_tracks,
            &LB_TrackController::setIncludesSubfolders);
    connect(&m_tracks, &LB_TrackController::includesSubfoldersChanged, m_menu->includeSubfolders,
            &QAction::setChecked);

    const auto skip = [this](double seconds) {
        return [this, seconds] { m_main.navigationView->seekBySeconds(seconds); };
    };
    connect(m_menu->skipBack, &QAction::triggered, m_main.navigationView,
            skip(-LB_NavigationView::keyStepSeconds));
    connect(m_menu->skipForward, &QAction::triggered, m_main.navigationView,
            skip(LB_NavigationView::keyStepSeconds));
    connect(m_menu->closeWindow, &QAction::triggered, this, [] {
        if (QWidget *window = QApplication::activeWindow())
            window->close();
    });
}

void Composition::buildContextMenus()
{
    QAction *play = addContextAction(
        m_main.trackTableView, tr("Play") + QChar::Tabulation +
                                   QKeySequence(Qt::Key_Return).toString(QKeySequence::NativeText));
    connect(play, &QAction::triggered, &m_tracks, &LB_TrackController::trackSelectedForPlayback);
    m_main.trackTableView->addAction(m_menu->showCurrentSong);

    QWidget *folders = m_main.folderOutlineView;
    folders->addAction(m_menu->addFolder);
    QAction *removeFolder = addContextAction(folders, tr("Remove Folder…"), Qt::Key_Delete);
    connect(removeFolder, &QAction::triggered, m_main.addRemoveButtons, [this] {
        m_main.addRemoveButtons->pressCellWithTag(LB_FolderSourceController::RemoveTag);
    });
    const auto showWhetherRemovable = [this, removeFolder] {
        removeFolder->setEnabled(m_folders.canRemoveSelectedFolder());
    };
    connect(&m_folders, &LB_FolderSourceController::selectedFolderChanged, removeFolder,
            showWhetherRemovable);
    showWhetherRemovable();

    // One button does both; which of the two the selected preset decides.
    QAction *addPreset = addContextAction(m_eq.presetTableView, tr("Add Preset…"), Qt::Key_Insert);
    QAction *removePreset =
        addContextAction(m_eq.presetTableView, tr("Remove Preset…"), Qt::Key_Delete);
    for (QAction *action : {addPreset, removePreset})
        connect(action, &QAction::triggered, m_eq.addRemoveButton, &QAbstractButton::click);
    const auto showWhichPreset = [this, addPreset, removePreset] {
        const std::optional<EqPreset> &preset = m_equalizer.currentPreset();
        addPreset->setEnabled(preset && preset->persistent);
        removePreset->setEnabled(preset && !preset->persistent);
    };
    connect(m_eq.presetTableView->selectionModel(), &QItemSelectionModel::selectionChanged,
            addPreset, showWhichPreset);
    showWhichPreset();
}

} // namespace lyrabox
