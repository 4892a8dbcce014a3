#pragma once

#include "app/pedals/MenuCommand.h"
#include "app/practice/PracticeCommands.h"

#include <QHash>
#include <QList>
#include <QObject>

class QAction;
class QMainWindow;
class QMenu;

namespace lyrabox {

/// The menu bar of the main window. It creates the commands and their shortcuts, one function per
/// menu; the rooms (Room.h) connect them. Shortcuts work in both windows. Single keys go to a text
/// field instead if one has the keyboard. Main thread.
class MainMenu : public QObject {
    Q_OBJECT

public:
    /// Fills the menu bar of `window`, which owns this object and all actions.
    explicit MainMenu(QMainWindow *window);

    QAction *addFolder;
    QAction *chooseMusicLibrary;
    QAction *quit;

    QAction *find;

    QAction *songList;
    QAction *sourceList;
    /// Checked while the list is not sorted.
    QAction *sortOwnOrder;
    /// One action per column, in the order of the song table. The action's data is the column. The
    /// column that the list is sorted by is checked.
    QList<QAction *> sortColumns;
    QAction *reverseOrder;
    QAction *includeSubfolders;
    QAction *practicePane;

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

    /// Hidden while the practice pane is closed.
    QMenu *practiceMenu;
    /// practiceCommands(), and an action for each of them, partly in submenus. They are disabled
    /// until the pane is shown.
    const QList<PracticeCommandEntry> practiceEntries = practiceCommands();
    QList<QAction *> practiceActions;

    /// practiceEntries with the keys that the commands have now.
    QList<PracticeCommandEntry> practiceEntriesNow() const;

    /// Every command of the menu bar, in its order.
    QList<MenuCommand> commands() const;

    /// Call it when shortcuts were changed.
    void noteChangedKeys();

    /// While the keys of the practice pane work, the titles of the menu bar give up the mnemonics
    /// that are such keys: Alt with a letter.
    void setPracticeKeysWork(bool work);

    QAction *saveSettings;
    QAction *removeSettings;
    QAction *showCurrentSong;

    QAction *mainWindow;
    QAction *eqWindow;
    QAction *pedals;
    QAction *closeWindow;

    QAction *keys;
    QAction *checkForUpdates;
    QAction *emailSupport;
    QAction *openWebsite;
    QAction *about;

Q_SIGNALS:
    /// Some commands have other keys.
    void keysChanged();

private:
    void addFileMenu();
    void addEditMenu();
    void addViewMenu();
    void addPlaybackMenu();
    void addPracticeMenu();
    void addSongMenu();
    void addWindowMenu();
    void addHelpMenu();
    QMenu *addMenu(const QString &title);
    static QMenu *addSubmenu(QMenu *menu, const QString &title);
    void addSortColumns(QMenu *view);
    QAction *add(QMenu *menu, const QString &text, const QList<QKeySequence> &shortcuts = {});

    QMainWindow *m_window;
    bool m_practiceKeysWork = false;
    QHash<QAction *, QString> m_titles; ///< with the mnemonics that were given up
};

} // namespace lyrabox
