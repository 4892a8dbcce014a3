// The sources of songs: folders and playlists, with their menu commands and context menu.

#include "app/controls/LB_TableRowView.h"
#include "app/shell/ContextActions.h"
#include "app/shell/HelpText.h"
#include "app/shell/Looks.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/Room.h"
#include "platform/foundation/MusicLibrary.h"
#include "platform/ui/Theme.h"

#include <QAction>
#include <QCoreApplication>
#include <QFileDialog>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::Composition)
};

void build(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    ui.addRemoveButtons->addCell(LB_FolderSourceController::AddTag, {}, Text::tr("Add a folder"),
                                 NamedImage(u"PlusButton"_s));
    ui.addRemoveButtons->addCell(LB_FolderSourceController::RemoveTag, {},
                                 Text::tr("Remove the folder"), NamedImage(u"MinusButton"_s));
    ui.tabSelector->setSegments({Text::tr("Playlists"), Text::tr("Folders")});
    looks::fill(ui.sourcePane, Theme::sidebar);
    LB_TableRowView::install(ui.playlistOutlineView);
    LB_TableRowView::install(ui.folderOutlineView);
}

void setOutlets(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    parts.playlists.setTracks(&parts.tracks);
    parts.playlists.setPlaylistOutlineView(ui.playlistOutlineView);

    parts.folders.setAppDelegate(&parts.appDelegate);
    parts.folders.setSettings(&parts.settings);
    parts.folders.setTracks(&parts.tracks);
    parts.folders.setPopover(parts.sourcePopover);
    parts.folders.setFolderOutlineView(ui.folderOutlineView);

    ui.sourceTabView->setTabSelector(ui.tabSelector);
    ui.sourceTabView->setAddRemoveButtons(ui.addRemoveButtons);
    ui.sourceTabView->setFolderController(&parts.folders);
    ui.sourceTabView->setPlaylistController(&parts.playlists);
}

void connectControls(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    LB_FolderSourceController *folders = &parts.folders;
    QObject::connect(ui.tabSelector, &SegmentedControl::pressed, ui.sourceTabView,
                     &LB_SourceTabView::segmentedControlPressed);
    QObject::connect(ui.addRemoveButtons, &ButtonMatrix::pressed, folders,
                     &LB_FolderSourceController::addRemoveButtonPressed);

    ButtonMatrix *buttons = ui.addRemoveButtons;
    ui.folderOutlineView->addAction(parts.menu->addFolder);
    QAction *remove =
        addContextAction(ui.folderOutlineView, Text::tr("Remove Folder…"), Qt::Key_Delete);
    QObject::connect(remove, &QAction::triggered, buttons, [buttons] {
        buttons->pressCellWithTag(LB_FolderSourceController::RemoveTag);
    });
    const auto updateRemove = [folders, buttons, remove] {
        const bool isRemovable = folders->canRemoveSelectedFolder();
        buttons->cellWithTag(LB_FolderSourceController::RemoveTag)->setEnabled(isRemovable);
        remove->setEnabled(isRemovable);
    };
    QObject::connect(folders, &LB_FolderSourceController::selectedFolderChanged, remove,
                     updateRemove);
    updateRemove();
}

void chooseLibrary(QWidget *window)
{
    const QString file =
        QFileDialog::getOpenFileName(window, Text::tr("Choose Music Library"), QString(),
                                     Text::tr("Music libraries (*.xml *.plist);;All files (*)"));
    if (file.isEmpty())
        return;
    if (chooseMusicLibrary(file))
        showHelp(window, Text::tr("Music library chosen"),
                 Text::tr("Its playlists are shown from the next start of Lyrabox on."));
    else
        showHelp(window, Text::tr("The music library could not be chosen"),
                 Text::tr("The preferences could not be written."));
}

void connectCommands(ProgramParts &parts)
{
    const MainMenu &menu = *parts.menu;
    Ui::MainWindow &ui = parts.mainUi;
    QObject::connect(menu.addFolder, &QAction::triggered, &parts.folders, [&parts, &ui] {
        parts.appDelegate.toggleMainWindow();
        ui.sourceTabView->showTab(LB_SourceTabView::FolderTab);
        parts.folders.addFolder(ui.addRemoveButtons);
    });
    QObject::connect(menu.chooseMusicLibrary, &QAction::triggered, &parts.mainWindow,
                     [&parts] { chooseLibrary(&parts.mainWindow); });
    QObject::connect(menu.sourceList, &QAction::triggered, ui.sourceTabView, [&parts, &ui] {
        parts.appDelegate.toggleMainWindow();
        const bool folders = ui.tabSelector->selectedSegment() == LB_SourceTabView::FolderTab;
        QWidget *list = folders ? ui.folderOutlineView : ui.playlistOutlineView;
        list->setFocus(Qt::ShortcutFocusReason);
    });
}

void connectRoom(ProgramParts &parts)
{
    setOutlets(parts);
    connectControls(parts);
    connectCommands(parts);
}

} // namespace

const Room sourceRoom{.build = build, .connect = connectRoom};

} // namespace lyrabox
