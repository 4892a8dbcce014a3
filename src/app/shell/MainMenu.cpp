#include "app/shell/MainMenu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace lyrabox {

MainMenu::MainMenu(QMainWindow *window) : QObject(window), m_window(window)
{
    QMenuBar *bar = window->menuBar();

    QMenu *file = bar->addMenu(tr("&File"));
    addFolder = add(file, tr("&Add Folder…"), {Qt::CTRL | Qt::Key_O});
    chooseMusicLibrary =
        add(file, tr("Choose &Music Library…"), {Qt::CTRL | Qt::SHIFT | Qt::Key_O});
    file->addSeparator();
    quit = add(file, tr("&Quit"), {Qt::CTRL | Qt::Key_Q});
    quit->setMenuRole(QAction::QuitRole);

    QMenu *edit = bar->addMenu(tr("&Edit"));
    find = add(edit, tr("&Search Songs"), {Qt::CTRL | Qt::Key_F});

    QMenu *playback = bar->addMenu(tr("&Playback"));
    playPause = add(playback, tr("&Play or Pause"), {Qt::Key_Space});
    next = add(playback, tr("&Next Song"), {Qt::CTRL | Qt::Key_Right});
    previous = add(playback, tr("P&revious Song"), {Qt::CTRL | Qt::Key_Left});
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

    for (QAction *step : {faster, slower, pitchUp, pitchDown, volumeUp, volumeDown})
        step->setAutoRepeat(true);

    QMenu *song = bar->addMenu(tr("&Song"));
    saveSettings = add(song, tr("&Keep Speed and Pitch"), {Qt::CTRL | Qt::Key_S});
    removeSettings = add(song, tr("&Forget Speed and Pitch"), {Qt::CTRL | Qt::SHIFT | Qt::Key_S});
    song->addSeparator();
    showCurrentSong = add(song, tr("&Show Playing Song"), {Qt::CTRL | Qt::Key_J});

    QMenu *windows = bar->addMenu(tr("&Window"));
    mainWindow = add(windows, tr("&Lyrabox"), {Qt::CTRL | Qt::Key_1});
    mainWindow->setCheckable(true);
    eqWindow = add(windows, tr("&Equalizer"), {Qt::CTRL | Qt::Key_2});
    eqWindow->setCheckable(true);

    QMenu *help = bar->addMenu(tr("&Help"));
    keys = add(help, tr("&Keys"), {QKeySequence::HelpContents});
    help->addSeparator();
    emailSupport = add(help, tr("&Email Support…"));
    openWebsite = add(help, tr("&Website"));
    checkForUpdates = add(help, tr("&Check for Updates…"));
    help->addSeparator();
    about = add(help, tr("&About Lyrabox"));
    about->setMenuRole(QAction::AboutRole);
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
