#include "app/shell/CommandLine.h"
#include "app/shell/Composition.h"
#include "app/shell/FirstPaint.h"
#include "app/shell/Languages.h"
#include "app/shell/ProgramIcon.h"
#include "app/shell/SingleInstance.h"
#include "engine/AudioEngine.h"
#include "platform/audio/DecodingModule.h"
#include "platform/audio/OutputModule.h"
#include "platform/desktop/SessionBus.h"
#include "platform/foundation/TerminationSignals.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/Application.h"
#include "platform/ui/DesktopWindows.h"
#include "platform/ui/FontConfiguration.h"
#include "platform/ui/Theme.h"
#include "settings/SettingsFolder.h"

#include <QApplication>
#include <QMessageBox>
#include <QScopeGuard>
#include <QSessionManager>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <memory>
#include <thread>

using lyrabox::CommandLine;

namespace {

constexpr int exitWrongUse = 2;
constexpr std::chrono::seconds busPatience(2);

/// Reports that another process runs but does not answer, both on the terminal and in an alert,
/// because the program may have been started from either.
int reportUnresponsiveInstance()
{
    const QString text =
        QCoreApplication::translate("main", "Lyrabox is running already but does not answer.");
    std::fprintf(stderr, "lyrabox: %s\n", qPrintable(text));
    QApplication::setWindowIcon(lyrabox::programIcon());
    QMessageBox(QMessageBox::Critical, QApplication::applicationDisplayName(), text).exec();
    return EXIT_FAILURE;
}

/// Terminated in order if the toolkit ends the process with exit(), for example after the display
/// server has died.
lyrabox::Composition *runningComposition = nullptr;

void terminateComposition()
{
    if (runningComposition != nullptr)
        runningComposition->terminate();
}

} // namespace

/// Starts the program, or hands its command line over to the running process.
int main(int argc, char **argv)
{
    // Help and version need no display.
    const CommandLine::Task task = lyrabox::readCommandLine(argc, argv).task;
    if (task == CommandLine::Task::ShowHelp || task == CommandLine::Task::ShowVersion) {
        QCoreApplication application(argc, argv);
        lyrabox::installLanguage(application);
        const QString text = task == CommandLine::Task::ShowHelp ? lyrabox::commandLineHelp()
                                                                 : lyrabox::versionText();
        return std::fputs(qPrintable(text), stdout) < 0 ? EXIT_FAILURE : EXIT_SUCCESS;
    }

    const std::jthread fonts(&lyrabox::readFontConfiguration);
    // The toolkit would wait for a bus that does not answer.
    if (!lyrabox::busAnswers(qgetenv("DBUS_SESSION_BUS_ADDRESS"), busPatience))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    const QString activationToken = lyrabox::takeActivationToken();
    lyrabox::Application application(argc, argv); // removes the toolkit's own options
    const CommandLine line = lyrabox::readCommandLine(argc, argv);
    if (line.task == CommandLine::Task::ReportUnknownOption) {
        std::fprintf(stderr, "lyrabox: unknown option %s\n%s", qPrintable(line.unknownOption),
                     qPrintable(lyrabox::commandLineHelp()));
        return exitWrongUse;
    }
    QApplication::setApplicationName(QStringLiteral("Lyrabox"));
    QApplication::setApplicationDisplayName(QStringLiteral("Lyrabox"));
    QApplication::setDesktopFileName(QStringLiteral("org.lyrabox.Lyrabox"));
    QApplication::setApplicationVersion(QStringLiteral(LYRABOX_VERSION));

    // Modules are loaded one after the other. The windows wait for the output module, so it comes
    // first. The decoders follow here only if songs will be opened before the first picture.
    const bool opensSongs =
        !line.urls.isEmpty() ||
        !lyrabox::userDefaults().value(lyrabox::defaultsKey::folderPath).toString().isEmpty();
    const std::jthread modules([opensSongs] {
        lyrabox::outputModule();
        if (opensSongs)
            lyrabox::decodingModule();
    });
    lyrabox::installLanguage(application);
    lyrabox::applyApplicationTheme();

    // If the folder cannot be created, the settings controller reports it.
    const lyrabox::SettingsFolder folder = lyrabox::makeSettingsFolder();
    lyrabox::SingleInstance instance(folder.isThere() ? folder.url->toLocalFile() : QString());
    switch (instance.claim({.urls = line.urls, .activationToken = activationToken})) {
    case lyrabox::SingleInstance::Role::First:
        break;
    case lyrabox::SingleInstance::Role::Second:
        return EXIT_SUCCESS;
    case lyrabox::SingleInstance::Role::Unanswered:
        return reportUnresponsiveInstance();
    }

    // Connecting to the sound server takes as long as building the windows, so both happen in
    // parallel.
    std::future<lyrabox::Status> engine =
        std::async(std::launch::async, &lyrabox::engine::buildAudioSystem);
    bool hasSound = true;
    LB_AudioController::FatalErrorHandling fatal = LB_AudioController::alertAndQuit();
    fatal.terminate = [&hasSound] { hasSound = false; };
    fatal.present = [show = fatal.present](const QString &text, const QString &suggestion) {
        QApplication::setWindowIcon(lyrabox::programIcon());
        show(text, suggestion);
    };
    // exit() rather than quit(). quit() asks every window first, and does nothing if only the alert
    // runs an event loop.
    const lyrabox::TerminationSignals signals_([] { QApplication::exit(); });
    lyrabox::Composition composition;
    auto audio = std::make_unique<LB_AudioController>(fatal, std::move(engine));
    if (!hasSound)
        return EXIT_FAILURE;

    composition.setAudio(std::move(audio));
    QObject::connect(&application, &QApplication::aboutToQuit, &composition,
                     &lyrabox::Composition::terminate);
    QObject::connect(&application, &QApplication::commitDataRequest, &composition,
                     [](QSessionManager &session) {
                         session.setRestartHint(QSessionManager::RestartIfRunning);
                     });
    composition.launch();
    runningComposition = &composition;
    const auto resetRunning = qScopeGuard([] { runningComposition = nullptr; });
    std::atexit(terminateComposition);
    lyrabox::exitWhenDisplayIsLost();
    if (lyrabox::TerminationSignals::haveCome()) { // before there was an event loop to leave
        composition.terminate();
        return EXIT_SUCCESS;
    }
    // Opening files may take long, so the window is shown first.
    lyrabox::afterFirstPaint(composition.mainWindow(), [&] {
        if (!activationToken.isEmpty())
            composition.bringToFront(activationToken);
        composition.open(line.urls);
        instance.setHandler([&composition](const lyrabox::SingleInstance::Request &request) {
            composition.bringToFront(request.activationToken);
            composition.open(request.urls);
        });
    });
    return QApplication::exec();
}
