#pragma once

#include "app/export/ExportQueue.h"
#include "app/export/ExportWindow.h"
#include "app/pedals/PedalsWindow.h"
#include "app/practice/HistoryWindow.h"
#include "app/practice/Metronome.h"
#include "app/practice/PaneSite.h"
#include "app/practice/PracticeDiary.h"
#include "app/practice/SongPractice.h"
#include "app/practice/SongSound.h"
#include "app/shell/InputAfterWait.h"
#include "app/shell/LB_AppDelegate.h"
#include "app/shell/MainMenu.h"
#include "app/stand/StandView.h"
#include "engine/LB_AudioController.h"
#include "engine/ReadySongs.h"
#include "equalizer/LB_EqualizerController.h"
#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "library/SongsAhead.h"
#include "platform/ui/Popover.h"
#include "platform/updates/SUUpdater.h"
#include "settings/LB_SettingsController.h"
#include "sources/LB_FolderSourceController.h"
#include "sources/LB_PlaylistSourceController.h"

#include "ui_EqualizerWindow.h"
#include "ui_MainWindow.h"

#include <QMainWindow>

#include <functional>
#include <memory>

namespace lyrabox {

/// The windows, the menu and the controllers of the program. The composition root owns them and
/// hands them to every room (Room.h). Members are destroyed from the last to the first, so the
/// windows outlive the controllers. Main thread.
struct ProgramParts {
    ProgramParts()
    {
        mainUi.setupUi(&mainWindow);
        eqUi.setupUi(&eqWindow);
        menu = new MainMenu(&mainWindow);
        sourcePopover = new Popover(&mainWindow);
        presetPopover = new Popover(&eqWindow);
    }

    QMainWindow mainWindow;
    QMainWindow eqWindow;
    Ui::MainWindow mainUi;    ///< the widgets of the main window, owned by it
    Ui::EqualizerWindow eqUi; ///< the widgets of the equalizer window, owned by it
    MainMenu *menu;           ///< owned by the main window
    Popover *sourcePopover;   ///< owned by the main window
    Popover *presetPopover;   ///< owned by the equalizer window

    LB_AppDelegate appDelegate;
    LB_SettingsController settings;
    std::unique_ptr<LB_AudioController> audio; ///< null until the engine is built
    LB_QueueController queue;
    LB_TrackController tracks;
    LB_EqualizerController equalizer;
    LB_PlaylistSourceController playlists;
    LB_FolderSourceController folders;
    SUUpdater updater;
    std::unique_ptr<engine::ReadySongs> readySongs; ///< null if it is turned off
    std::unique_ptr<SongsAhead> songsAhead;         ///< null if it is turned off
    std::unique_ptr<SongPractice> songPractice;     ///< null until the practice pane is first shown
    std::unique_ptr<Metronome> metronome;           ///< made together with `songPractice`
    std::unique_ptr<SongSound> songSound;           ///< made together with `songPractice`
    std::unique_ptr<PracticeDiary> practiceDiary;   ///< made together with `songPractice`
    std::unique_ptr<HistoryWindow> historyWindow;   ///< null until it is first shown
    std::unique_ptr<ExportQueue> exportQueue;       ///< made together with `exportWindow`
    std::unique_ptr<ExportWindow> exportWindow;     ///< null until it is first shown
    std::unique_ptr<PaneSite> practice;             ///< made together with `audio`
    std::unique_ptr<StandView> standView;           ///< null until it is first shown

    /// Made together with `audio`.
    std::unique_ptr<PedalAssignments> pedals;
    std::unique_ptr<PedalsWindow> pedalsWindow; ///< null until it is first shown
    std::unique_ptr<InputAfterWait> inputAfterWait;

    /// Opens files and adds folders, as Composition::open() does. Set before the rooms connect.
    std::function<void(const QList<QUrl> &urls)> open;

    /// True until the equalizer window is first opened, unless its position was remembered.
    bool eqWindowNeedsPosition = false;
};

} // namespace lyrabox
