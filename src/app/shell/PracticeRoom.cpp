// The practice pane: its place in the window, its menu and its keys.

#include "app/practice/PracticeKeys.h"
#include "app/practice/PracticePane.h"
#include "app/shell/PracticeExport.h"
#include "app/shell/PracticeFilesRoom.h"
#include "app/shell/PracticeHistory.h"
#include "app/shell/PracticeStand.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/Room.h"
#include "platform/audio/DecodingModule.h"

#include <QAction>
#include <QMenu>

#include <algorithm>

namespace lyrabox {

namespace {

void build(ProgramParts &) {}

QAction *actionOf(const MainMenu *menu, PracticeCommand command, int argument = 0)
{
    const auto entry = std::ranges::find_if(menu->practiceEntries, [&](const auto &other) {
        return other.command == command && other.argument == argument;
    });
    return menu->practiceActions.at(entry - menu->practiceEntries.begin());
}

/// Enables the commands that would do something now, and sets their check marks. None does anything
/// while the pane is not visible.
void updateCommands(const MainMenu *menu, const PaneSite *site)
{
    for (qsizetype index = 0; index < menu->practiceActions.size(); ++index) {
        const PracticeCommandEntry &entry = menu->practiceEntries.at(index);
        QAction *action = menu->practiceActions.at(index);
        const PracticePane *pane = site->pane();
        action->setEnabled(site->isShown() && pane->canPerform(entry.command, entry.argument));
        if (entry.isCheckable)
            action->setChecked(pane != nullptr && pane->isChecked(entry.command, entry.argument));
    }
    for (const QMenu *submenu : menu->practiceMenu->findChildren<QMenu *>()) {
        const QList<QAction *> actions = submenu->actions();
        submenu->menuAction()->setEnabled(std::ranges::any_of(actions, &QAction::isEnabled));
    }
}

/// The commands and their keys work while the pane is visible.
void connectCommands(const ProgramParts &parts)
{
    MainMenu *menu = parts.menu;
    PaneSite *site = parts.practice.get();
    for (qsizetype index = 0; index < menu->practiceActions.size(); ++index) {
        const PracticeCommandEntry &entry = menu->practiceEntries.at(index);
        const auto perform = [site, command = entry.command, argument = entry.argument] {
            if (site->pane() != nullptr)
                site->pane()->perform(command, argument);
        };
        QObject::connect(menu->practiceActions.at(index), &QAction::triggered, site, perform);
    }
    auto *keys = new PracticeKeys(
        [menu](int number) { actionOf(menu, PracticeCommand::PlayLoop, number)->trigger(); }, menu);
    keys->addWindow(&parts.mainWindow);
    keys->addWindow(&parts.eqWindow);
    QObject::connect(menu, &MainMenu::keysChanged, keys,
                     [menu, keys] { keys->setEntries(menu->practiceEntriesNow()); });
    QObject::connect(site, &PaneSite::shownChanged, menu, [menu, site, keys](bool shown) {
        updateCommands(menu, site);
        menu->setPracticeKeysWork(shown);
        keys->setActive(shown);
    });
}

PracticePane *makePane(ProgramParts &parts, QWidget *parent)
{
    const auto seek = [&parts](quint64 frame) { parts.mainUi.navigationView->seekToFrame(frame); };
    parts.songPractice =
        std::make_unique<SongPractice>(parts.audio.get(), seek, practiceFolder(),
                                       [] { return decodingModule().makeSongReader(); });
    SongPractice *practice = parts.songPractice.get();
    practice->setOpen(true);
    parts.metronome = std::make_unique<Metronome>(parts.audio.get(), practice);
    parts.songSound = std::make_unique<SongSound>(parts.audio.get(), practice);
    auto *pane = new PracticePane(parts.audio.get(), practice, parts.metronome.get(),
                                  parts.songSound.get(), seek, parent);
    addPracticeHistory(parts, pane);
    addPracticeExport(parts, pane);
    addPracticeStand(parts, pane);
    addPracticeSharing(parts, pane);
    MainMenu *menu = parts.menu;
    const PaneSite *site = parts.practice.get();
    QObject::connect(pane, &PracticePane::commandsChanged, menu,
                     [menu, site] { updateCommands(menu, site); });
    for (qsizetype index = 0; index < menu->practiceActions.size(); ++index) {
        if (menu->practiceEntries.at(index).reach == PracticeCommandEntry::Reach::Pane)
            pane->addAction(menu->practiceActions.at(index));
    }
    return pane;
}

void connectRoom(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    MainMenu *menu = parts.menu;
    parts.practice =
        std::make_unique<PaneSite>(ui.centralWidgetLayout, ui.splitView,
                                   [&parts](QWidget *parent) { return makePane(parts, parent); });
    PaneSite *site = parts.practice.get();
    QObject::connect(menu->practicePane, &QAction::triggered, site, &PaneSite::setOpen);
    QObject::connect(site, &PaneSite::openChanged, menu, [&parts, menu](bool open) {
        menu->practicePane->setChecked(open);
        menu->practiceMenu->menuAction()->setVisible(open);
        parts.songPractice->setOpen(open);
    });
    connectCommands(parts);
    for (QAction *action : {menu->songList, menu->sourceList, menu->find, menu->showCurrentSong})
        QObject::connect(action, &QAction::triggered, site, &PaneSite::showLists);
    site->restore();
}

} // namespace

const Room practiceRoom{.build = build, .connect = connectRoom};

} // namespace lyrabox
