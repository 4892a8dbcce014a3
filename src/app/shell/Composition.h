#pragma once

#include "app/shell/InputAfterWait.h"
#include "app/shell/LB_AppDelegate.h"
#include "engine/LB_AudioController.h"
#include "equalizer/LB_EqualizerController.h"
#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "platform/foundation/VolumeWatcher.h"
#include "platform/ui/Popover.h"
#include "platform/updates/SUUpdater.h"
#include "settings/LB_SettingsController.h"
#include "sources/LB_FolderSourceController.h"
#include "sources/LB_PlaylistSourceController.h"

#include "ui_EqualizerWindow.h"
#include "ui_MainWindow.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>
#include <thread>

namespace lyrabox {

class MainMenu;
class MediaPlayerBridge;
class ProgressPanel;

/// The composition root: it builds both windows and every controller, sets every outlet, connects
/// every action, and wakes them in the fixed start-up order. Nothing else in the program knows
/// everybody. Main thread; one object.
class Composition : public QObject {
    Q_OBJECT

public:
    /// Builds the windows. Nothing here needs the engine, which may be built meanwhile.
    Composition();
    ~Composition() override;

    /// Connects everything to `audio`, whose engine is built, and takes it over. Once, before
    /// launch().
    void setAudio(std::unique_ptr<LB_AudioController> audio);

    /// Wakes the controllers, shows the main window and announces that the program has launched.
    /// Where the first list takes longer than a quarter of a second, the window shows before it.
    void launch();

    /// The window that afterFirstPaint() is to wait for.
    QWidget *mainWindow() { return &m_mainWindow; }

    /// Remembers the windows and announces that the program ends. Once.
    void terminate();

    /// Brings the main window to the front.
    void bringToFront(const QString &activationToken = {});

    /// Makes audio files the list of songs and plays the first; adds folders to the folder list.
    /// What is neither is named in the message line, and the list stays when there is no audio.
    void open(const QList<QUrl> &urls);

private:
    void buildCells();
    void setOutlets();
    void connectTransport();
    void closeSongMenus();
    void connectLists();
    void connectEqualizer();
    void connectMenu();
    void connectViewMenu();
    void buildContextMenus();
    void connectProgress();
    void connectDesktop();
    void applyLooks();
    void updateMenu();
    void showSoundProblem();
    void dressSleepingTransport();
    void showMainWindow();
    void paintWhileLaunching();
    void showEqualizer();
    void loadDecoders();
    void chooseLibrary();
    void showHelp(const QString &title, const QString &text);

    QMainWindow m_mainWindow;
    QMainWindow m_eqWindow;
    Ui::MainWindow m_main;
    Ui::EqualizerWindow m_eq;
    MainMenu *m_menu;

    LB_AppDelegate m_appDelegate;
    LB_SettingsController m_settings;
    std::unique_ptr<LB_AudioController> m_audio;
    LB_QueueController m_queue;
    LB_TrackController m_tracks;
    LB_EqualizerController m_equalizer;
    LB_PlaylistSourceController m_playlists;
    LB_FolderSourceController m_folders;
    SUUpdater m_updater;
    std::unique_ptr<VolumeWatcher> m_volumes;
    Popover *m_sourcePopover;
    Popover *m_presetPopover;
    ProgressPanel *m_progress = nullptr;
    std::unique_ptr<InputAfterWait> m_inputAfterWait;
    std::unique_ptr<MediaPlayerBridge> m_desktop; ///< none without a session bus
    QTimer m_soundCheck;                          ///< while a song plays
    QString m_shownSoundProblem;                  ///< as the message line shows it
    bool m_placesEqWindow = false;
    bool m_isLaunching = false;
    bool m_terminated = false;
    std::jthread m_decoderLoading; ///< uses what stands above
};

} // namespace lyrabox
