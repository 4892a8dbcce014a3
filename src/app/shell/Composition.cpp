#include "app/shell/Composition.h"

#include "app/shell/BuildSettings.h"
#include "app/shell/FirstPaint.h"
#include "app/shell/MediaPlayerBridge.h"
#include "app/shell/OpenRequest.h"
#include "app/shell/PracticeFilesRoom.h"
#include "app/shell/ProgramIcon.h"
#include "app/shell/Room.h"
#include "app/shell/UpdateDialog.h"
#include "app/shell/WindowMemory.h"
#include "engine/AudioEngine.h"
#include "platform/audio/DecodingModule.h"
#include "platform/desktop/BatteryWatch.h"
#include "platform/desktop/SessionBus.h"
#include "platform/foundation/DiskPatience.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/DesktopWindows.h"
#include "platform/ui/TabOrder.h"

#include <QApplication>
#include <QDesktopServices>
#include <QTimer>

#include <chrono>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr std::chrono::seconds updateDelay{3};
const QString mainWindowName = u"mainWindow"_s;
const QString eqWindowName = u"eqWindow"_s;
const QString trackTableName = u"trackTable"_s;

/// Every room of the program, in the order in which it is wired. The practice room is the first,
/// because it brings the lists back before another room's command gives them the keyboard.
const Room *const rooms[] = {&practiceRoom,   &transportRoom, &songListRoom, &sourceRoom,
                             &readySongsRoom, &equalizerRoom, &pedalRoom,    &windowRoom};

} // namespace

Composition::Composition()
{
    m_parts.open = [this](const QList<QUrl> &urls) { open(urls); };
    for (const Room *room : rooms)
        room->build(m_parts);
}

Composition::~Composition()
{
    files::setSilenceEndHandler({});
}

void Composition::setAudio(std::unique_ptr<LB_AudioController> audio)
{
    m_parts.audio = std::move(audio);
    connectProgress();
    connectStopping();
    for (const Room *room : rooms)
        room->connect(m_parts);
    orderTabStops(&m_parts.mainWindow);
    orderTabStops(&m_parts.eqWindow);
}

void Composition::launch()
{
    windowMemory::restoreWindow(&m_parts.mainWindow, mainWindowName);
    m_parts.eqWindowNeedsPosition = !windowMemory::restoreWindow(&m_parts.eqWindow, eqWindowName);
    m_isLaunching = true;
    awakeControllers();
    m_isLaunching = false;
    showMainWindow();
    m_parts.mainWindow.update(); // it may have been painted already, which would not count as first
    NotificationCenter::defaultCenter().post(notification::applicationDidFinishLaunching);

    m_volumes = std::make_unique<VolumeWatcher>();
    // A disk that answers again counts as a disk that was mounted.
    files::setSilenceEndHandler([] {
        if (QCoreApplication *application = QCoreApplication::instance())
            QMetaObject::invokeMethod(application, [] {
                NotificationCenter::defaultCenter().post(notification::volumeDidMount);
            });
    });
    QWidget *window = &m_parts.mainWindow;
    prepareUpdater();
    afterFirstPaint(window, [] { QApplication::setWindowIcon(programIcon()); });
    // Setting up the network and TLS takes as long as building the windows, and a musician who
    // presses Play at once should not wait for it.
    QTimer::singleShot(updateDelay, &m_parts.updater,
                       [this] { m_parts.updater.setAutomaticallyChecksForUpdates(true); });
    afterFirstPaint(window, [this] { connectDesktop(); });
    afterFirstPaint(window, [this] { watchBattery(); });
    afterFirstPaint(window, [this] { loadDecoders(); });
    // Warming up costs half a core, so it waits until the first picture.
    afterFirstPaint(window, &engine::prepareForPlayback);
}

void Composition::awakeControllers()
{
    Ui::MainWindow &ui = m_parts.mainUi;
    ui.sourceTabView->awakeFromNib();
    m_parts.audio->awakeFromNib();
    m_parts.queue.awakeFromNib();
    ui.navigationView->awakeFromNib();
    ui.seekBackwardButton->awakeFromNib();
    ui.seekForwardButton->awakeFromNib();
    m_parts.equalizer.awakeFromNib();
    windowMemory::restoreColumns(ui.trackTableView->horizontalHeader(), trackTableName);
}

void Composition::prepareUpdater()
{
    SUUpdater &updater = m_parts.updater;
    updater.setCurrentVersion(QStringLiteral(LYRABOX_VERSION));
    updater.setFeedURL(QUrl(updateFeedAddress()));
    updater.setPresenter(updateDialogs(
        &m_parts.mainWindow, [](const QUrl &url) { return QDesktopServices::openUrl(url); }));
}

/// Loads the decoders in the background, so that the first song does not wait for them.
void Composition::loadDecoders()
{
    if (m_terminated)
        return;
    const auto showFailure = [this](const QString &failure) {
        if (!failure.isEmpty())
            m_parts.mainUi.errorField->setText(tr("Songs cannot be opened (%1)").arg(failure));
    };
    // The first song waits for this job, so it has the priority of the main thread.
    m_background = std::make_unique<BackgroundRunner>(BackgroundRunner::Priority::Normal);
    const auto load = [](const std::stop_token &) { return decodingModule().failure(); };
    if (!m_background->run(load, showFailure))
        showFailure(decodingModule().failure());
}

void Composition::connectDesktop()
{
    connectToSessionBus(this, [this](const QDBusConnection &bus) {
        if (m_terminated)
            return;
        Ui::MainWindow &ui = m_parts.mainUi;
        m_desktop = std::make_unique<MediaPlayerBridge>(
            MediaPlayerBridge::Player{
                .audio = m_parts.audio.get(),
                .queue = &m_parts.queue,
                .tracks = &m_parts.tracks,
                .navigation = ui.navigationView,
                .playPauseButton = ui.playPauseButton,
                .shuffleButton = ui.shuffleButton,
                .raise = [this] { bringToFront(); },
                .quit = &QApplication::quit,
                .open = m_parts.open,
            },
            bus);
    });
}

/// A battery that is nearly empty is not spent on decoding in advance.
void Composition::watchBattery()
{
    connectToSystemBus(this, [this](const QDBusConnection &bus) {
        SongsAhead *songs = m_parts.songsAhead.get();
        if (songs == nullptr)
            return;
        m_battery = std::make_unique<BatteryWatch>(bus);
        connect(m_battery.get(), &BatteryWatch::lowChanged, songs, &SongsAhead::setBatteryIsLow);
    });
}

void Composition::bringToFront(const QString &activationToken)
{
    lyrabox::bringToFront(&m_parts.mainWindow, activationToken);
}

void Composition::terminate()
{
    if (std::exchange(m_terminated, true))
        return;
    m_background.reset(); // joins the thread
    m_parts.songsAhead.reset();
    m_parts.readySongs.reset(); // ends the decoding
    windowMemory::saveWindow(&m_parts.mainWindow, mainWindowName);
    if (!m_parts.eqWindowNeedsPosition)
        windowMemory::saveWindow(&m_parts.eqWindow, eqWindowName);
    windowMemory::saveDivider(m_parts.mainUi.splitView);
    windowMemory::saveColumns(m_parts.mainUi.trackTableView->horizontalHeader(), trackTableName);
    NotificationCenter::defaultCenter().post(notification::applicationWillTerminate);
    userDefaults().sync();
    m_parts.audio->setIsRunning(false);
    m_desktop.reset();
}

void Composition::open(const QList<QUrl> &urls)
{
    LB_SourceTabView *sources = m_parts.mainUi.sourceTabView;
    OpenRequest request = classify(urls);
    if (request.folders.isEmpty())
        request.files = openPracticeFiles(m_parts, request.files);
    if (!request.folders.isEmpty()) {
        sources->showTab(LB_SourceTabView::FolderTab);
        m_parts.folders.addFolders(request.folders);
    }
    QList<QUrl> notAudio;
    const bool plays =
        !request.files.isEmpty() && m_parts.tracks.showAndPlayFiles(request.files, &notAudio) > 0;
    if (plays)
        sources->selectNoSource();
    for (const QUrl &file : notAudio)
        request.refused.append({file.fileName(), OpenRequest::Refusal::NotAudio});
    if (request.refused.isEmpty())
        return;
    // Last, because a song that starts clears the line. If it did not start, the line already has a
    // message, which is kept.
    QLabel *line = m_parts.mainUi.errorField;
    QStringList messages{refusalText(request.refused)};
    if (plays && !line->text().isEmpty())
        messages.prepend(line->text());
    line->setText(messages.join(u"; "_s));
}

} // namespace lyrabox
