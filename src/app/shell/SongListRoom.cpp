// The table of songs: its search, its order, its menu commands and its context menu.

#include "app/controls/LB_InvertibleImageCellView.h"
#include "app/controls/LB_TableHeaderCell.h"
#include "app/controls/LB_TableRowView.h"
#include "app/shell/ContextActions.h"
#include "app/shell/FileDrop.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/Room.h"
#include "library/TrackCountTextTransformer.h"
#include "library/TrackTableModel.h"
#include "platform/ui/EmptyViewText.h"
#include "platform/ui/ListEndKeys.h"

#include <QAction>
#include <QCoreApplication>

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::Composition)
};

void build(ProgramParts &parts)
{
    QTableView *table = parts.mainUi.trackTableView;
    auto *header = new LB_TableHeaderCell(Qt::Horizontal, table);
    table->setHorizontalHeader(header);
    parts.tracks.setTrackTableView(table);
    QObject::connect(&parts.tracks, &LB_TrackController::highlightedColumnChanged, header,
                     &LB_TableHeaderCell::setHighlightedSection);
    auto *images = new LB_InvertibleImageCellView(table, LB_TableRowView::Separators::Hairline);
    table->setItemDelegateForColumn(TrackTableModel::IsPlaying, images);
    table->setItemDelegateForColumn(TrackTableModel::HasSettings, images);
    parts.mainUi.trackCountField->setForegroundRole(QPalette::PlaceholderText);
    new ListEndKeys(table);
}

void connectTable(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    LB_TrackController *tracks = &parts.tracks;
    QObject::connect(ui.searchField, &QLineEdit::textChanged, tracks,
                     [&ui, tracks] { tracks->searchTextEntered(ui.searchField); });
    new FileDrop(ui.trackTableView, [&parts](const QList<QUrl> &urls) { parts.open(urls); });

    const auto showCount = [&ui](quint64 count) {
        ui.trackCountField->setText(TrackCountTextTransformer::transformedValue(count));
    };
    QObject::connect(tracks, &LB_TrackController::trackCountChanged, ui.trackCountField, showCount);
    showCount(0);
    auto *emptyText = new EmptyViewText(ui.trackTableView);
    QObject::connect(tracks, &LB_TrackController::emptyTextChanged, emptyText,
                     &EmptyViewText::showText);
    emptyText->showText(tracks->emptyText());
}

void connectOrder(MainMenu *menu, LB_TrackController *tracks)
{
    const auto checkSortedColumn = [menu, tracks] {
        const int sorted = tracks->highlightedColumn();
        for (QAction *column : menu->sortColumns)
            column->setChecked(column->data().toInt() == sorted);
        menu->sortOwnOrder->setChecked(tracks->isInOwnOrder());
        menu->reverseOrder->setEnabled(sorted >= 0);
    };
    // After each command as well, because choosing a checked item unchecks it.
    for (QAction *column : menu->sortColumns) {
        QObject::connect(column, &QAction::triggered, tracks, [tracks, column, checkSortedColumn] {
            tracks->sortByColumn(column->data().toInt());
            checkSortedColumn();
        });
    }
    QObject::connect(menu->sortOwnOrder, &QAction::triggered, tracks, [tracks, checkSortedColumn] {
        tracks->sortByOwnOrder();
        checkSortedColumn();
    });
    QObject::connect(menu->reverseOrder, &QAction::triggered, tracks,
                     [tracks] { tracks->sortByColumn(tracks->highlightedColumn()); });
    QObject::connect(tracks, &LB_TrackController::sorted, menu, checkSortedColumn);
    checkSortedColumn();
    QObject::connect(menu->includeSubfolders, &QAction::triggered, tracks,
                     &LB_TrackController::setIncludesSubfolders);
    QObject::connect(tracks, &LB_TrackController::includesSubfoldersChanged,
                     menu->includeSubfolders, &QAction::setChecked);
}

void connectCommands(ProgramParts &parts)
{
    const MainMenu &menu = *parts.menu;
    QTableView *table = parts.mainUi.trackTableView;
    QObject::connect(menu.songList, &QAction::triggered, table, [&parts, table] {
        parts.appDelegate.toggleMainWindow();
        table->setFocus(Qt::ShortcutFocusReason);
    });
    SearchField *search = parts.mainUi.searchField;
    QObject::connect(menu.find, &QAction::triggered, search, [&parts, search] {
        parts.appDelegate.toggleMainWindow();
        search->setFocus(Qt::ShortcutFocusReason);
        search->selectAll();
    });
    QObject::connect(menu.showCurrentSong, &QAction::triggered, &parts.tracks,
                     &LB_TrackController::scrollToCurrentTrack);

    const QString returnKey = QKeySequence(Qt::Key_Return).toString(QKeySequence::NativeText);
    QAction *play = addContextAction(table, Text::tr("Play") + QChar::Tabulation + returnKey);
    QObject::connect(play, &QAction::triggered, &parts.tracks,
                     &LB_TrackController::trackSelectedForPlayback);
    table->addAction(menu.showCurrentSong);
}

void connectRoom(ProgramParts &parts)
{
    parts.tracks.setQueue(&parts.queue);
    parts.tracks.setSettings(&parts.settings);
    connectTable(parts);
    connectOrder(parts.menu, &parts.tracks);
    connectCommands(parts);
}

} // namespace

const Room songListRoom{.build = build, .connect = connectRoom};

} // namespace lyrabox
