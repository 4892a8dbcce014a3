#include "app/shell/MainMenu.h"

#include "library/TrackTableModel.h"
#include "platform/ui/MenuText.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace lyrabox {

MainMenu::MainMenu(QMainWindow *window) : QObject(window), m_window(window)
{
    addFileMenu();
    addEditMenu();
    addViewMenu();
    addPlaybackMenu();
    addPracticeMenu();
    addSongMenu();
    addWindowMenu();
    addHelpMenu();
}

void MainMenu::addFileMenu()
{
    QMenu *file = addMenu(tr("&File"));
    addFolder = add(file, tr("&Add Folder…"), {Qt::CTRL | Qt::Key_O});
    chooseMusicLibrary =
        add(file, tr("Choose &Music Library…"), {Qt::CTRL | Qt::SHIFT | Qt::Key_O});
    file->addSeparator();
    quit = add(file, tr("&Quit"), {Qt::CTRL | Qt::Key_Q});
    quit->setMenuRole(QAction::QuitRole);
}

void MainMenu::addEditMenu()
{
    QMenu *edit = addMenu(tr("&Edit"));
    find = add(edit, tr("&Search Songs"), {Qt::CTRL | Qt::Key_F});
}

void MainMenu::addViewMenu()
{
    QMenu *view = addMenu(tr("&View"));
    songList = add(view, tr("Song &List"), {Qt::CTRL | Qt::Key_L});
    sourceList = add(view, tr("Playlists and &Folders"), {Qt::CTRL | Qt::Key_B});
    view->addSeparator();
    addSortColumns(view);
    includeSubfolders = add(view, tr("&Include Subfolders"));
    includeSubfolders->setCheckable(true);
    view->addSeparator();
    practicePane = add(view, tr("&Practice Pane"), {practicePaneKey});
    practicePane->setCheckable(true);
}

void MainMenu::addPlaybackMenu()
{
    QMenu *playback = addMenu(tr("&Playback"));
    playPause = add(playback, tr("&Play or Pause"), {Qt::Key_Space});
    next = add(playback, tr("&Next Song"), {Qt::CTRL | Qt::Key_Right});
    previous = add(playback, tr("P&revious Song"), {Qt::CTRL | Qt::Key_Left});
    skipBack = add(playback, tr("&Back 5 Seconds"), {Qt::SHIFT | Qt::Key_Left});
    skipForward = add(playback, tr("For&ward 5 Seconds"), {Qt::SHIFT | Qt::Key_Right});
    shuffle = add(playback, tr("S&huffle"), {Qt::CTRL | Qt::Key_R});
    shuffle->setCheckable(true);
    playback->addSeparator();
    loop = add(playback, tr("&Loop"), {Qt::Key_L});
    playback->addSeparator();
    faster = add(playback, tr("&Faster"), {Qt::Key_Equal, Qt::Key_Plus});
    slower = add(playback, tr("&Slower"), {Qt::Key_Minus});
    normalSpeed = add(playback, tr("N&ormal Speed"), {Qt::Key_0});
    playback->addSeparator();
    pitchUp = add(playback, tr("Pitch &Up"), {Qt::Key_BracketRight});
    pitchDown = add(playback, tr("Pitch &Down"), {Qt::Key_BracketLeft});
    originalPitch = add(playback, tr("Or&iginal Pitch"), {Qt::Key_Backslash});
    playback->addSeparator();
    volumeUp = add(playback, tr("Loud&er"), {Qt::CTRL | Qt::Key_Up});
    volumeDown = add(playback, tr("&Quieter"), {Qt::CTRL | Qt::Key_Down});

    for (QAction *step :
         {faster, slower, pitchUp, pitchDown, volumeUp, volumeDown, skipBack, skipForward})
        step->setAutoRepeat(true);
}

void MainMenu::addPracticeMenu()
{
    practiceMenu = addMenu(tr("Pract&ice"));
    practiceMenu->menuAction()->setVisible(false);
    QMenu *submenu = nullptr;
    for (const PracticeCommandEntry &entry : practiceEntries) {
        if (entry.beginsGroup)
            practiceMenu->addSeparator();
        if (entry.submenu.isEmpty())
            submenu = nullptr;
        else if (submenu == nullptr || submenu->title() != entry.submenu)
            submenu = addSubmenu(practiceMenu, entry.submenu);
        QAction *action = add(submenu != nullptr ? submenu : practiceMenu, entry.text, entry.keys);
        action->setCheckable(entry.isCheckable);
        action->setAutoRepeat(entry.repeats);
        action->setEnabled(false);
        if (entry.reach == PracticeCommandEntry::Reach::Pane)
            action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        practiceActions.append(action);
    }
    for (const QMenu *menu : practiceMenu->findChildren<QMenu *>())
        menu->menuAction()->setEnabled(false);
}

void MainMenu::setPracticeKeysWork(bool work)
{
    m_practiceKeysWork = work;
    for (auto [title, text] : m_titles.asKeyValueRange())
        title->setText(text);
    m_titles.clear();
    if (!work)
        return;
    QList<QKeySequence> taken;
    for (const QAction *action : practiceActions)
        taken += action->shortcuts();
    for (QAction *title : m_window->menuBar()->actions()) {
        if (!taken.contains(QKeySequence::mnemonic(title->text())))
            continue;
        m_titles.insert(title, title->text());
        title->setText(QString(title->text()).remove(u'&'));
    }
}

void MainMenu::addSongMenu()
{
    QMenu *song = addMenu(tr("&Song"));
    saveSettings = add(song, tr("&Keep Speed and Pitch"), {Qt::CTRL | Qt::Key_S});
    removeSettings = add(song, tr("&Forget Speed and Pitch"), {Qt::CTRL | Qt::SHIFT | Qt::Key_S});
    song->addSeparator();
    showCurrentSong = add(song, tr("&Show Playing Song"), {Qt::CTRL | Qt::Key_J});
}

void MainMenu::addWindowMenu()
{
    QMenu *windows = addMenu(tr("&Window"));
    mainWindow = add(windows, tr("&Lyrabox"), {Qt::CTRL | Qt::Key_1});
    mainWindow->setCheckable(true);
    eqWindow = add(windows, tr("&Equalizer"), {Qt::CTRL | Qt::Key_2});
    eqWindow->setCheckable(true);
    pedals = add(windows, tr("&Pedals and Keys…"), {Qt::CTRL | Qt::Key_4});
    windows->addSeparator();
    closeWindow = add(windows, tr("&Close Window"), {Qt::CTRL | Qt::Key_W});
}

void MainMenu::addHelpMenu()
{
    QMenu *help = addMenu(tr("&Help"));
    keys = add(help, tr("&Keys"), {QKeySequence::HelpContents});
    help->addSeparator();
    emailSupport = add(help, tr("&Email Support…"));
    openWebsite = add(help, tr("&Website"));
    checkForUpdates = add(help, tr("&Check for Updates…"));
    help->addSeparator();
    about = add(help, tr("&About Lyrabox"));
    about->setMenuRole(QAction::AboutRole);
}

QMenu *MainMenu::addMenu(const QString &title)
{
    QMenu *menu = m_window->menuBar()->addMenu(title);
    // Assistive technologies use the name of the menu, not its title.
    menu->setAccessibleName(withoutMnemonic(title));
    return menu;
}

void MainMenu::addSortColumns(QMenu *view)
{
    QMenu *menu = addSubmenu(view, tr("&Sort By"));
    sortOwnOrder = add(menu, tr("&Own Order"));
    sortOwnOrder->setCheckable(true);
    menu->addSeparator();
    const auto addColumn = [&](int column, const QString &text) {
        QAction *action = add(menu, text);
        action->setCheckable(true);
        action->setData(column);
        sortColumns.append(action);
    };
    addColumn(TrackTableModel::IsPlaying, tr("&Playing"));
    addColumn(TrackTableModel::Title, tr("&Title"));
    addColumn(TrackTableModel::Artist, tr("&Artist"));
    addColumn(TrackTableModel::Album, tr("A&lbum"));
    addColumn(TrackTableModel::DurationSeconds, tr("T&ime"));
    addColumn(TrackTableModel::HasSettings, tr("&Kept Speed and Pitch"));
    menu->addSeparator();
    reverseOrder = add(menu, tr("&Reverse Order"));
}

QMenu *MainMenu::addSubmenu(QMenu *menu, const QString &title)
{
    QMenu *submenu = menu->addMenu(title);
    submenu->setAccessibleName(withoutMnemonic(title));
    return submenu;
}

QAction *MainMenu::add(QMenu *menu, const QString &text, const QList<QKeySequence> &shortcuts)
{
    QAction *action = menu->addAction(text);
    action->setShortcuts(shortcuts);
    action->setShortcutContext(Qt::ApplicationShortcut);
    action->setAutoRepeat(false);
    return action;
}

} // namespace lyrabox
