#include "app/shell/Composition.h"

#include "app/shell/BuildSettings.h"
#include "app/shell/FileDrop.h"
#include "app/shell/FirstPaint.h"
#include "app/shell/MainMenu.h"
#include "app/shell/MediaPlayerBridge.h"
#include "app/shell/OpenRequest.h"
#include "app/shell/ProgramIcon.h"
#include "app/shell/UpdateDialog.h"
#include "app/shell/WindowMemory.h"
#include "engine/AudioEngine.h"
#include "library/TrackCountTextTransformer.h"
#include "platform/audio/DecodingModule.h"
#include "platform/desktop/SessionBus.h"
#include "platform/foundation/DiskPatience.h"
#include "platform/foundation/Machine.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/DesktopWindows.h"
#include "platform/ui/EmptyViewText.h"
#include "platform/ui/NamedImage.h"
#include "platform/ui/TabOrder.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMenu>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {
const QString mainWindowName = u"mainWindow"_s;
const QString eqWindowName = u"eqWindow"_s;
const QString trackTableName = u"trackTable"_s;
constexpr std::chrono::milliseconds soundCheckInterval{1000};
} // namespace

Composition::Composition()
{
    m_main.setupUi(&m_mainWindow);
    m_eq.setupUi(&m_eqWindow);
    m_menu = new MainMenu(&m_mainWindow);
    m_sourcePopover = new Popover(&m_mainWindow);
    m_presetPopover = new Popover(&m_eqWindow);
    buildCells();
    applyLooks();
}

Composition::~Composition()
{
    files::setSilenceEndHandler({});
}

void Composition::setAudio(std::unique_ptr<LB_AudioController> audio)
{
    m_audio = std::move(audio);
    setOutlets();
    connectProgress();
    connectTransport();
    connectLists();
    connectEqualizer();
    connectMenu();
    connectViewMenu();
    buildContextMenus();
    orderTabStops(&m_mainWindow);
    orderTabStops(&m_eqWindow);
}

void Composition::launch()
{
    windowMemory::restoreWindow(&m_mainWindow, mainWindowName);
    m_placesEqWindow = !windowMemory::restoreWindow(&m_eqWindow, eqWindowName);

    m_isLaunching = true;
    m_main.sourceTabView->awakeFromNib();
    m_audio->awakeFromNib();
    m_queue.awakeFromNib();
    m_main.navigationView->awakeFromNib();
    m_main.seekBackwardButton->awakeFromNib();
    m_main.seekForwardButton->awakeFromNib();
    m_equalizer.awakeFromNib();
    windowMemory::restoreColumns(m_main.trackTableView->horizontalHeader(), trackTableName);
    updateMenu();

    m_isLaunching = false;
    showMainWindow();
    m_mainWindow.update(); // what waits for the first picture waits for one from now on
    NotificationCenter::defaultCenter().post(notification::applicationDidFinishLaunching);
    m_volumes = std::make_unique<VolumeWatcher>();
    // A disk that answers again is as good as one that has come.
    files::setSilenceEndHandler([] {
        if (QCoreApplication *application = QCoreApplication::instance())
            QMetaObject::invokeMethod(application, [] {
                NotificationCenter::defaultCenter().post(notification::volumeDidMount);
            });
    });
    m_updater.setCurrentVersion(QStringLiteral(LYRABOX_VERSION));
    m_updater.setFeedURL(QUrl(updateFeedAddress()));
    m_updater.setPresenter(updateDialogs(
        &m_mainWindow, [](const QUrl &url) { return QDesktopServices::openUrl(url); }));
    afterFirstPaint(&m_mainWindow, [] { QApplication::setWindowIcon(programIcon()); });
    // The network, and what makes connections to it secure, takes as long to set up as the windows.
    afterFirstPaint(&m_mainWindow, [this] { m_updater.setAutomaticallyChecksForUpdates(true); });
    afterFirstPaint(&m_mainWindow, [this] { connectDesktop(); });
    afterFirstPaint(&m_mainWindow, [this] { loadDecoders(); });
    // Half of a processor's time at the start would be its.
    afterFirstPaint(&m_mainWindow, &engine::prepareForPlayback);
}

/// In the background, so that the first song need not wait for it.
void Composition::loadDecoders()
{
    const auto load = [this] {
        const QString failure = decodingModule().failure();
        if (failure.isEmpty())
            return;
        QMetaObject::invokeMethod(this, [this, failure] {
            m_main.errorField->setText(tr("Songs cannot be opened (%1)").arg(failure));
        });
    };
    m_decoderLoading = startThread(load);
    if (!m_decoderLoading.joinable())
        load();
}

void Composition::connectDesktop()
{
    connectToSessionBus(this, [this](const QDBusConnection &bus) {
        if (m_terminated)
            return;
        m_desktop = std::make_unique<MediaPlayerBridge>(
            MediaPlayerBridge::Player{
                .audio = m_audio.get(),
                .queue = &m_queue,
                .tracks = &m_tracks,
                .navigation = m_main.navigationView,
                .playPauseButton = m_main.playPauseButton,
                .loopButton = m_main.loopButton,
                .shuffleButton = m_main.shuffleButton,
                .speedSlider = m_main.playbackSpeedSlider,
                .raise = [this] { bringToFront(); },
                .quit = &QApplication::quit,
                .open = [this](const QList<QUrl> &urls) { open(urls); },
            },
            bus);
    });
}

void Composition::showEqualizer()
{
    if (std::exchange(m_placesEqWindow, false)) {
        // The first time, over the upper part of the main window, so that the transport stays in
        // sight.
        const QRect main = m_mainWindow.geometry();
        m_eqWindow.move(main.center().x() - m_eqWindow.width() / 2, main.top());
    }
    m_appDelegate.toggleEqWindow();
}

void Composition::bringToFront(const QString &activationToken)
{
    lyrabox::bringToFront(&m_mainWindow, activationToken);
}

void Composition::terminate()
{
    if (std::exchange(m_terminated, true))
        return;
    m_decoderLoading = {}; // its end is waited for
    windowMemory::saveWindow(&m_mainWindow, mainWindowName);
    if (!m_placesEqWindow) // it has a place only once it was opened
        windowMemory::saveWindow(&m_eqWindow, eqWindowName);
    windowMemory::saveDivider(m_main.splitView);
    windowMemory::saveColumns(m_main.trackTableView->horizontalHeader(), trackTableName);
    NotificationCenter::defaultCenter().post(notification::applicationWillTerminate);
    userDefaults().sync();
    m_audio->setIsRunning(false);
    m_desktop.reset();
}

void Composition::open(const QList<QUrl> &urls)
{
    OpenRequest request = classify(urls);
    if (!request.folders.isEmpty()) {
        m_main.sourceTabView->showTab(LB_SourceTabView::FolderTab);
        m_folders.addFolders(request.folders);
    }
    QList<QUrl> silent;
    const bool plays =
        !request.files.isEmpty() && m_tracks.showAndPlayFiles(request.files, &silent) > 0;
    if (plays)
        m_main.sourceTabView->selectNoSource();
    for (const QUrl &file : silent)
        request.refused.append({file.fileName(), OpenRequest::Refusal::NotAudio});
    if (request.refused.isEmpty())
        return;
    // Last, since a song that starts clears the line; one that did not has left its own message.
    QStringList messages{refusalText(request.refused)};
    if (plays && !m_main.errorField->text().isEmpty())
        messages.prepend(m_main.errorField->text());
    m_main.errorField->setText(messages.join(u"; "_s));
}

void Composition::showSoundProblem()
{
    const QString problem = m_audio->soundProblem();
    // Other messages stay when the sound comes back.
    const bool showsEarlier =
        !m_shownSoundProblem.isEmpty() && m_main.errorField->text() == m_shownSoundProblem;
    if (!problem.isEmpty() || showsEarlier)
        m_main.errorField->setText(problem);
    m_shownSoundProblem = problem;
    // The server may stop in mid song, when nobody asks it for anything.
    if (!m_audio->isRunning())
        m_soundCheck.stop();
    else if (!m_soundCheck.isActive())
        m_soundCheck.start(soundCheckInterval);
}

void Composition::setOutlets()
{
    m_audio->setAlbumArtImageView(m_main.albumArtImageView);
    m_audio->setArtistField(m_main.artistField);
    m_audio->setTitleField(m_main.titleField);
    m_audio->setLoopButton(m_main.loopButton);
    m_audio->setPlayPauseButton(m_main.playPauseButton);
    m_audio->setSeekBackwardButton(m_main.seekBackwardButton);
    m_audio->setSeekForwardButton(m_main.seekForwardButton);
    m_audio->setOutputVolumeSlider(m_main.outputVolumeSlider);
    m_audio->setPlaybackPitchMatrix(m_main.playbackPitchMatrix);
    m_audio->setPlaybackPitchSlider(m_main.playbackPitchSlider);
    m_audio->setPlaybackPitchTextField(m_main.playbackPitchTextField);
    m_audio->setPlaybackSpeedMatrix(m_main.playbackSpeedMatrix);
    m_audio->setPlaybackSpeedSlider(m_main.playbackSpeedSlider);
    m_audio->setPlaybackSpeedTextField(m_main.playbackSpeedTextField);
    m_audio->setSettings(&m_settings);
    m_audio->setSettingsPopup(m_main.settingsPopup);

    m_queue.setAudio(m_audio.get());
    m_queue.setErrorField(m_main.errorField);

    m_tracks.setQueue(&m_queue);
    m_tracks.setSettings(&m_settings);

    m_main.navigationView->setAudio(m_audio.get());
    m_main.navigationView->setQueue(&m_queue);
    m_main.seekBackwardButton->setNavView(m_main.navigationView);
    m_main.seekForwardButton->setNavView(m_main.navigationView);
    m_main.transportView->setButtons(m_main.seekBackwardButton, m_main.seekForwardButton);
    m_main.transportView->addWindow(&m_eqWindow);

    m_equalizer.setAppDelegate(&m_appDelegate);
    m_equalizer.setAudio(m_audio.get());
    m_equalizer.setSettings(&m_settings);
    m_equalizer.setEqWindow(&m_eqWindow);
    m_equalizer.setSliders(m_eq.sliders);
    m_equalizer.setBoxes(m_eq.boxes);
    m_equalizer.setStepControls(m_eq.stepControls);
    m_equalizer.setPopover(m_presetPopover);
    m_equalizer.setAddRemoveButton(m_eq.addRemoveButton);
    m_equalizer.setPresetTableView(m_eq.presetTableView);

    m_playlists.setTracks(&m_tracks);
    m_playlists.setPlaylistOutlineView(m_main.playlistOutlineView);

    m_folders.setAppDelegate(&m_appDelegate);
    m_folders.setSettings(&m_settings);
    m_folders.setTracks(&m_tracks);
    m_folders.setPopover(m_sourcePopover);
    m_folders.setFolderOutlineView(m_main.folderOutlineView);

    m_main.sourceTabView->setTabSelector(m_main.tabSelector);
    m_main.sourceTabView->setAddRemoveButtons(m_main.addRemoveButtons);
    m_main.sourceTabView->setFolderController(&m_folders);
    m_main.sourceTabView->setPlaylistController(&m_playlists);

    m_appDelegate.setMainWindow(&m_mainWindow);
    m_appDelegate.setEqWindow(&m_eqWindow);
    m_appDelegate.setMainWindowMenuItem(m_menu->mainWindow);
    m_appDelegate.setEqWindowMenuItem(m_menu->eqWindow);
    m_appDelegate.setSearchField(m_main.searchField);
    m_appDelegate.setSplitView(m_main.splitView);
    m_appDelegate.setTransportView(m_main.transportView);
    m_main.splitView->setDelegate(&m_appDelegate);
    m_main.splitView->setPanes(m_main.sourcePane, m_main.trackPane);
}

void Composition::connectTransport()
{
    LB_AudioController *audio = m_audio.get();
    connect(m_main.playPauseButton, &QAbstractButton::clicked, audio, [this, audio] {
        if (m_inputAfterWait->pressMeansPlay())
            m_main.playPauseButton->setState(1);
        audio->playPauseButtonPressed(m_main.playPauseButton);
    });
    connect(m_main.loopButton, &QAbstractButton::clicked, audio,
            [this, audio] { audio->loopButtonPressed(m_main.loopButton); });
    connect(m_main.playbackSpeedMatrix, &ButtonMatrix::pressed, audio,
            &LB_AudioController::speedButtonPressed);
    connect(m_main.playbackSpeedSlider, &LB_Slider::moved, audio,
            &LB_AudioController::speedSliderMoved);
    connect(m_main.playbackSpeedTextField, &NumberField::entered, audio,
            &LB_AudioController::speedTextChanged);
    connect(m_main.playbackPitchMatrix, &ButtonMatrix::pressed, audio,
            &LB_AudioController::pitchButtonPressed);
    connect(m_main.playbackPitchSlider, &LB_Slider::moved, audio,
            &LB_AudioController::pitchSliderMoved);
    connect(m_main.playbackPitchTextField, &NumberField::entered, audio,
            &LB_AudioController::pitchTextChanged);

    // The volume slider and the volume are tied to each other.
    connect(m_main.outputVolumeSlider, &LB_Slider::moved, audio,
            [audio](LB_Slider *slider) { audio->setOutputVolume(slider->floatValue()); });
    connect(audio, &LB_AudioController::outputVolumeChanged, m_main.outputVolumeSlider,
            [this](float volume) { m_main.outputVolumeSlider->setFloatValue(volume); });

    // A song that starts clears the line, and Play is where a user wonders.
    connect(audio, &LB_AudioController::soundProblemChanged, this, &Composition::showSoundProblem);
    connect(audio, &LB_AudioController::runningChanged, this, &Composition::showSoundProblem);
    connect(&m_soundCheck, &QTimer::timeout, this, &Composition::showSoundProblem);

    m_main.settingsPopup->menu()->addAction(m_menu->saveSettings);
    m_main.settingsPopup->menu()->addAction(m_menu->removeSettings);
    NotificationCenter::defaultCenter().addObserver(this, notification::currentTrackChanged,
                                                    [this] { closeSongMenus(); });

    // And so are the shuffle button and the queue's mode.
    connect(m_main.shuffleButton, &QAbstractButton::clicked, &m_queue, [this] {
        m_queue.setIsShuffling(m_main.shuffleButton->state() == 1);
        m_queue.shuffleButtonPressed(m_main.shuffleButton);
    });
    connect(&m_queue, &LB_QueueController::isShufflingChanged, m_main.shuffleButton,
            [this](bool shuffling) {
                m_main.shuffleButton->setState(shuffling ? 1 : 0);
                m_menu->shuffle->setChecked(shuffling);
            });
}

/// What they would keep or forget is of the song that was there when they were opened.
void Composition::closeSongMenus()
{
    for (QObject *holder : m_menu->removeSettings->associatedObjects()) {
        auto *menu = qobject_cast<QMenu *>(holder);
        if (menu != nullptr && menu->isVisible())
            menu->close();
    }
}

void Composition::connectLists()
{
    connect(m_main.tabSelector, &SegmentedControl::pressed, m_main.sourceTabView,
            &LB_SourceTabView::segmentedControlPressed);
    connect(m_main.addRemoveButtons, &ButtonMatrix::pressed, &m_folders,
            &LB_FolderSourceController::addRemoveButtonPressed);
    const auto bindRemoveButton = [this] {
        m_main.addRemoveButtons->cellWithTag(LB_FolderSourceController::RemoveTag)
            ->setEnabled(m_folders.canRemoveSelectedFolder());
    };
    connect(&m_folders, &LB_FolderSourceController::selectedFolderChanged, m_main.addRemoveButtons,
            bindRemoveButton);
    bindRemoveButton();

    connect(m_main.searchField, &QLineEdit::textChanged, &m_tracks,
            [this] { m_tracks.searchTextEntered(m_main.searchField); });
    new FileDrop(m_main.trackTableView, [this](const QList<QUrl> &urls) { open(urls); });
    const auto showCount = [this](quint64 count) {
        m_main.trackCountField->setText(TrackCountTextTransformer::transformedValue(count));
    };
    connect(&m_tracks, &LB_TrackController::trackCountChanged, m_main.trackCountField, showCount);
    showCount(0);
    auto *emptyText = new EmptyViewText(m_main.trackTableView);
    connect(&m_tracks, &LB_TrackController::emptyTextChanged, emptyText, &EmptyViewText::showText);
    emptyText->showText(m_tracks.emptyText());
}

void Composition::connectEqualizer()
{
    connect(m_eq.addRemoveButton, &QAbstractButton::clicked, &m_equalizer,
            [this] { m_equalizer.addRemoveButtonPressed(m_eq.addRemoveButton); });
    for (LB_Slider *slider : m_eq.sliders->findChildren<LB_Slider *>())
        connect(slider, &LB_Slider::moved, &m_equalizer,
                &LB_EqualizerController::sliderValueChanged);
    for (NumberField *box : m_eq.boxes->findChildren<NumberField *>()) {
        connect(box, &NumberField::entered, &m_equalizer, &LB_EqualizerController::boxValueChanged);
        // Tab goes on to the next box; Return leaves the boxes.
        connect(box, &QLineEdit::returnPressed, &m_equalizer,
                &LB_EqualizerController::controlTextDidEndEditing);
    }
    for (ButtonMatrix *steps : m_eq.stepControls->findChildren<ButtonMatrix *>())
        connect(steps, &ButtonMatrix::pressed, &m_equalizer,
                &LB_EqualizerController::eqButtonPressed);
}

} // namespace lyrabox
