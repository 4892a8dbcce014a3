#include "app/shell/PracticeStand.h"

#include "app/practice/PracticeKeys.h"
#include "app/practice/PracticePane.h"
#include "app/shell/ProgramParts.h"
#include "app/stand/StandCommands.h"

namespace lyrabox {

namespace {

/// The keys of the transport and of the pane work in the view, too.
StandView *makeView(ProgramParts &parts, const PracticePane *pane, StandCommands *commands)
{
    parts.standView = std::make_unique<StandView>(
        StandSource(parts.audio.get(), parts.songPractice.get(), parts.metronome.get(), pane),
        &parts.mainWindow);
    StandView *view = parts.standView.get();
    parts.mainUi.transportView->addWindow(view);
    if (auto *keys = parts.menu->findChild<PracticeKeys *>())
        keys->addWindow(view);
    QObject::connect(view, &StandView::shownChanged, commands, &StandCommands::setShown);
    return view;
}

} // namespace

void addPracticeStand(ProgramParts &parts, PracticePane *pane)
{
    auto *commands = new StandCommands(pane);
    pane->addCommands(commands);
    QObject::connect(commands, &StandCommands::standViewWanted, pane,
                     [&parts, pane, commands](bool shown) {
                         if (!parts.standView && shown)
                             makeView(parts, pane, commands);
                         if (shown)
                             parts.standView->showFullScreen();
                         else if (parts.standView)
                             parts.standView->close();
                     });
    // Without the pane its commands are off, and nothing could be done in the view.
    QObject::connect(parts.practice.get(), &PaneSite::shownChanged, pane, [&parts](bool shown) {
        if (!shown && parts.standView)
            parts.standView->close();
    });
}

} // namespace lyrabox
