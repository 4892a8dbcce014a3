#pragma once

#include <QList>
#include <QObject>

class QAction;
class QMainWindow;
class QMenu;

namespace lyrabox {

/// The menu bar of the main window. It holds the commands and shows their shortcuts; what they do
/// is connected by the composition root. Shortcuts work in both windows; single keys are left to a
/// text field that has the keyboard.
class MainMenu : public QObject {
    Q_OBJECT

public:
    /// Fills the menu bar of `window`, which owns all of it.
    explicit MainMenu(QMainWindow *window);

    QAction *addFolder;
    QAction *chooseMusicLibrary;
    QAction *quit;

    QAction *find;

    QAction *songList;
    QAction *sourceList;
    /// Checked while the list is in the order in which it was built.
    QAction *sortOwnOrder;
    /// In the order of the song table's columns, each with its column as data; the one that the
    /// list is sorted by is checked.
    QList<QAction *> sortColumns;
    QAction *reverseOrder;
    QAction *includeSubfolders;

    QAction *playPause;
    QAction *next;
    QAction *previous;
    QAction *skipBack;
    QAction *skipForward;
    QAction *shuffle;
    QAction *loop;
    QAction *slower;
    QAction *faster;
    QAction *normalSpeed;
    QAction *pitchDown;
    QAction *pitchUp;
    QAction *originalPitch;
    QAction *volumeUp;
    QAction *volumeDown;

    QAction *saveSettings;
    QAction *removeSettings;
    QAction *showCurrentSong;

    QAction *mainWindow;
    QAction *eqWindow;
    QAction *closeWindow;

    QAction *keys;
    QAction *checkForUpdates;
    QAction *emailSupport;
    QAction *openWebsite;
    QAction *about;

private:
    QMenu *addMenu(const QString &title);
    void addSortColumns(QMenu *view);
    QAction *add(QMenu *menu, const QString &text, const QList<QKeySequence> &shortcuts = {});

    QMainWindow *m_window;
};

} // namespace lyrabox
