// The practice pane: its place in the window, its menu and its keys.

#include "app/practice/PracticePane.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/Room.h"
#include "platform/audio/DecodingModule.h"

#include <QAction>
#include <QMenu>

namespace lyrabox {

namespace {

void build(ProgramParts &) {}

/// The commands and their keys work while the pane is visible.
void connectCommands(const MainMenu *menu, PaneSite *site)
{
    for (QAction *action : menu->practiceActions) {
        QObject::connect(action, &QAction::triggered, site, [site, action] {
            if (site->pane() != nullptr)
                site->pane()->perform(static_cast<PracticeCommand>(action->data().toInt()));
        });
        if (action->data().toInt() == static_cast<int>(PracticeCommand::Follow))
            action->setChecked(true);
    }
    QObject::connect(site, &PaneSite::shownChanged, menu, [menu](bool shown) {
        for (QAction *action : menu->practiceActions)
            action->setEnabled(shown);
    });
}

void showFollowing(const MainMenu *menu, bool follows)
{
    for (QAction *action : menu->practiceActions) {
        if (action->data().toInt() == static_cast<int>(PracticeCommand::Follow))
            action->setChecked(follows);
    }
}

void connectRoom(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    MainMenu *menu = parts.menu;
    const auto makePane = [&parts, menu](QWidget *parent) {
        const auto seek = [&parts](quint64 frame) {
            parts.mainUi.navigationView->seekToFrame(frame);
        };
        parts.songPractice =
            std::make_unique<SongPractice>(parts.audio.get(), seek, practiceFolder(),
                                           [] { return decodingModule().makeSongReader(); });
        SongPractice *practice = parts.songPractice.get();
        practice->setOpen(true);
        auto *pane = new PracticePane(parts.audio.get(), practice, seek, parent);
        QObject::connect(pane, &PracticePane::followingChanged, menu,
                         [menu](bool follows) { showFollowing(menu, follows); });
        return pane;
    };
    parts.practice = std::make_unique<PaneSite>(ui.centralWidgetLayout, ui.splitView, makePane);
    PaneSite *site = parts.practice.get();
    QObject::connect(menu->practicePane, &QAction::triggered, site, &PaneSite::setOpen);
    QObject::connect(site, &PaneSite::openChanged, menu, [&parts, menu](bool open) {
        menu->practicePane->setChecked(open);
        menu->practiceMenu->menuAction()->setVisible(open);
        parts.songPractice->setOpen(open);
    });
    connectCommands(menu, site);
    for (QAction *action : {menu->songList, menu->sourceList, menu->find, menu->showCurrentSong})
        QObject::connect(action, &QAction::triggered, site, &PaneSite::showLists);
    site->restore();
}

} // namespace

const Room practiceRoom{.build = build, .connect = connectRoom};

} // namespace lyrabox
