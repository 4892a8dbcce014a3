// The menu's commands. A command that a control has as well works through the control, so that both
// stay alike.

#include "app/shell/Composition.h"
#include "app/shell/HelpText.h"
#include "app/shell/MainMenu.h"
#include "platform/foundation/MusicLibrary.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/ui/StepTags.h"

#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>

namespace lyrabox {

namespace {

constexpr float volumeStep = 0.05F;

} // namespace

void Composition::connectMenu()
{
    LB_AudioController *audio = m_audio.get();
    const auto press = [this](QAction *action, ButtonMatrix *matrix, int tag) {
        connect(action, &QAction::triggered, matrix,
                [matrix, tag] { matrix->pressCellWithTag(tag); });
    };
    const auto click = [this](QAction *action, QAbstractButton *button) {
        connect(action, &QAction::triggered, button, &QAbstractButton::click);
    };
    click(m_menu->playPause, m_main.playPauseButton);
    click(m_menu->loop, m_main.loopButton);
    click(m_menu->shuffle, m_main.shuffleButton);
    press(m_menu->slower, m_main.playbackSpeedMatrix, StepDown);
    press(m_menu->normalSpeed, m_main.playbackSpeedMatrix, StepReset);
    press(m_menu->faster, m_main.playbackSpeedMatrix, StepUp);
    press(m_menu->pitchDown, m_main.playbackPitchMatrix, StepDown);
    press(m_menu->originalPitch, m_main.playbackPitchMatrix, StepReset);
    press(m_menu->pitchUp, m_main.playbackPitchMatrix, StepUp);
    connect(m_menu->next, &QAction::triggered, &m_queue, &LB_QueueController::playNextTrack);
    connect(m_menu->previous, &QAction::triggered, &m_queue, [this] {
        if (m_queue.canPlayPreviousTrack())
            m_queue.playPreviousTrack();
    });
    connect(m_menu->volumeUp, &QAction::triggered, audio, [audio] {
        audio->setOutputVolume(std::min(1.0F, audio->outputVolume() + volumeStep));
    });
    connect(m_menu->volumeDown, &QAction::triggered, audio, [audio] {
        audio->setOutputVolume(std::max(0.0F, audio->outputVolume() - volumeStep));
    });

    connect(m_menu->saveSettings, &QAction::triggered, audio, &LB_AudioController::saveSettings);
    connect(m_menu->removeSettings, &QAction::triggered, audio,
            &LB_AudioController::removeSettings);
    connect(m_menu->showCurrentSong, &QAction::triggered, &m_tracks,
            &LB_TrackController::scrollToCurrentTrack);
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, notification::currentTrackChanged, [this] { updateMenu(); });
    // Not the notification of the settings: the record follows them only after it.
    connect(audio, &LB_AudioController::songSettingsShown, this, &Composition::updateMenu);

    connect(m_menu->addFolder, &QAction::triggered, &m_folders, [this] {
        m_appDelegate.toggleMainWindow();
        m_main.sourceTabView->showTab(LB_SourceTabView::FolderTab);
        m_folders.addFolder(m_main.addRemoveButtons);
    });
    connect(m_menu->chooseMusicLibrary, &QAction::triggered, this, &Composition::chooseLibrary);
    connect(m_menu->quit, &QAction::triggered, qApp, &QApplication::quit);
    connect(&m_appDelegate, &LB_AppDelegate::mainWindowClosed, qApp, &QApplication::quit,
            Qt::QueuedConnection);
    connect(m_menu->find, &QAction::triggered, m_main.searchField, [this] {
        m_appDelegate.toggleMainWindow();
        m_main.searchField->setFocus(Qt::ShortcutFocusReason);
        m_main.searchField->selectAll();
    });

    connect(m_menu->mainWindow, &QAction::triggered, &m_appDelegate, [this] {
        m_menu->mainWindow->setChecked(
            m_mainWindow.isActiveWindow()); // the window's state decides, not the click
        m_appDelegate.toggleMainWindow();
    });
    connect(m_menu->eqWindow, &QAction::triggered, &m_appDelegate, [this] {
        m_menu->eqWindow->setChecked(m_eqWindow.isActiveWindow());
        showEqualizer();
    });
    connect(m_menu->emailSupport, &QAction::triggered, &m_appDelegate,
            &LB_AppDelegate::emailSupport);
    connect(m_menu->openWebsite, &QAction::triggered, &m_appDelegate, &LB_AppDelegate::openWebsite);
    connect(m_menu->checkForUpdates, &QAction::triggered, &m_updater, &SUUpdater::checkForUpdates);
    connect(m_menu->keys, &QAction::triggered, this,
            [this] { showHelp(tr("Keys"), keysHelpText()); });
    connect(m_menu->about, &QAction::triggered, this,
            [this] { showHelp(tr("About Lyrabox"), aboutText()); });
}

void Composition::updateMenu()
{
    const bool loaded = m_audio->currentTrack() != nullptr;
    for (QAction *action : {m_menu->loop, m_menu->next, m_menu->previous, m_menu->saveSettings,
                            m_menu->showCurrentSong, m_menu->skipBack, m_menu->skipForward})
        action->setEnabled(loaded);
    m_menu->removeSettings->setEnabled(loaded && m_audio->currentTrack()->hasSettings);
}

void Composition::showHelp(const QString &title, const QString &text)
{
    QMessageBox box(&m_mainWindow);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(title);
    box.setInformativeText(text);
    box.exec();
}

void Composition::chooseLibrary()
{
    const QString file =
        QFileDialog::getOpenFileName(&m_mainWindow, tr("Choose Music Library"), QString(),
                                     tr("Music libraries (*.xml *.plist);;All files (*)"));
    if (file.isEmpty())
        return;
    if (chooseMusicLibrary(file))
        showHelp(tr("Music library chosen"),
                 tr("Its playlists are shown from the next start of Lyrabox on."));
    else
        showHelp(tr("The music library could not be chosen"),
                 tr("The preferences could not be written."));
}

} // namespace lyrabox
