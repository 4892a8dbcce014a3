// The commands of the menu bar by their identifiers, which files of pedals and keys use.

#include "app/shell/MainMenu.h"
#include "platform/ui/MenuText.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace lyrabox {

namespace {

using Member = QAction *MainMenu::*;

struct Identifier {
    Member action;
    QLatin1StringView id;
};

/// A name that was once used stays what it is.
constexpr Identifier identifiers[] = {
    {&MainMenu::addFolder, QLatin1StringView("add folder")},
    {&MainMenu::chooseMusicLibrary, QLatin1StringView("choose music library")},
    {&MainMenu::quit, QLatin1StringView("quit")},
    {&MainMenu::find, QLatin1StringView("search")},
    {&MainMenu::songList, QLatin1StringView("song list")},
    {&MainMenu::sourceList, QLatin1StringView("source list")},
    {&MainMenu::sortOwnOrder, QLatin1StringView("sort by own order")},
    {&MainMenu::reverseOrder, QLatin1StringView("reverse order")},
    {&MainMenu::includeSubfolders, QLatin1StringView("include subfolders")},
    {&MainMenu::practicePane, QLatin1StringView("practice pane")},
    {&MainMenu::playPause, QLatin1StringView("play or pause")},
    {&MainMenu::next, QLatin1StringView("next song")},
    {&MainMenu::previous, QLatin1StringView("previous song")},
    {&MainMenu::skipBack, QLatin1StringView("skip back")},
    {&MainMenu::skipForward, QLatin1StringView("skip forward")},
    {&MainMenu::shuffle, QLatin1StringView("shuffle")},
    {&MainMenu::loop, QLatin1StringView("loop")},
    {&MainMenu::slower, QLatin1StringView("slower")},
    {&MainMenu::faster, QLatin1StringView("faster")},
    {&MainMenu::normalSpeed, QLatin1StringView("normal speed")},
    {&MainMenu::pitchDown, QLatin1StringView("pitch down")},
    {&MainMenu::pitchUp, QLatin1StringView("pitch up")},
    {&MainMenu::originalPitch, QLatin1StringView("original pitch")},
    {&MainMenu::volumeUp, QLatin1StringView("louder")},
    {&MainMenu::volumeDown, QLatin1StringView("quieter")},
    {&MainMenu::saveSettings, QLatin1StringView("keep song settings")},
    {&MainMenu::removeSettings, QLatin1StringView("forget song settings")},
    {&MainMenu::showCurrentSong, QLatin1StringView("show playing song")},
    {&MainMenu::mainWindow, QLatin1StringView("main window")},
    {&MainMenu::eqWindow, QLatin1StringView("equalizer")},
    {&MainMenu::pedals, QLatin1StringView("pedals and keys")},
    {&MainMenu::closeWindow, QLatin1StringView("close window")},
    {&MainMenu::keys, QLatin1StringView("keys")},
    {&MainMenu::checkForUpdates, QLatin1StringView("check for updates")},
    {&MainMenu::emailSupport, QLatin1StringView("email support")},
    {&MainMenu::openWebsite, QLatin1StringView("website")},
    {&MainMenu::about, QLatin1StringView("about")},
};

constexpr QLatin1StringView sortIdentifiers[] = {
    QLatin1StringView("sort by playing"), QLatin1StringView("sort by title"),
    QLatin1StringView("sort by artist"),  QLatin1StringView("sort by album"),
    QLatin1StringView("sort by time"),    QLatin1StringView("sort by settings")};

QString idOf(const MainMenu &menu, const QAction *action)
{
    for (const Identifier &each : identifiers) {
        if (menu.*each.action == action)
            return each.id;
    }
    for (qsizetype index = 0; index < menu.sortColumns.size(); ++index) {
        if (menu.sortColumns.at(index) == action)
            return sortIdentifiers[index];
    }
    for (qsizetype index = 0; index < menu.practiceActions.size(); ++index) {
        if (menu.practiceActions.at(index) == action)
            return menu.practiceEntries.at(index).id();
    }
    return {};
}

void collect(const MainMenu &owner, const QMenu *menu, const QString &group,
             QList<MenuCommand> &commands)
{
    for (QAction *action : menu->actions()) {
        if (const QMenu *submenu = action->menu(); submenu != nullptr) {
            collect(owner, submenu,
                    MainMenu::tr("%1 > %2").arg(group, withoutMnemonic(submenu->title())),
                    commands);
        } else if (const QString id = idOf(owner, action); !id.isEmpty()) {
            commands.append({.id = id,
                             .group = group,
                             .name = withoutMnemonic(action->text()),
                             .action = action});
        }
    }
}

} // namespace

QList<MenuCommand> MainMenu::commands() const
{
    QList<MenuCommand> commands;
    for (const QAction *title : m_window->menuBar()->actions()) {
        // Not its text: the mnemonic may have been given up.
        if (const QMenu *menu = title->menu(); menu != nullptr)
            collect(*this, menu, menu->accessibleName(), commands);
    }
    return commands;
}

QList<PracticeCommandEntry> MainMenu::practiceEntriesNow() const
{
    QList<PracticeCommandEntry> entries = practiceEntries;
    for (qsizetype index = 0; index < entries.size(); ++index)
        entries[index].keys = practiceActions.at(index)->shortcuts();
    return entries;
}

void MainMenu::noteChangedKeys()
{
    setPracticeKeysWork(m_practiceKeysWork);
    Q_EMIT keysChanged();
}

} // namespace lyrabox
