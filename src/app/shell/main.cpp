#include "app/shell/CommandLine.h"
#include "app/shell/Composition.h"
#include "app/shell/EngineStart.h"
#include "app/shell/FirstPaint.h"
#include "app/shell/Languages.h"
#include "app/shell/ProgramIcon.h"
#include "app/shell/SingleInstance.h"
#include "platform/audio/DecodingModule.h"
#include "platform/audio/OutputModule.h"
#include "platform/desktop/SessionBus.h"
#include "platform/foundation/Machine.h"
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
constexpr std::chrono::seconds busTimeout(2);

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

/// The composition that the handler of exit() terminates. The toolkit calls exit(), for example,
/// after the display server has died.
lyrabox::Composition *runningComposition = nullptr;

void terminateComposition()
{
    if (runningComposition != nullptr)
        runningComposition->terminate();
}

/// Prints the text that `task` asks for. It needs no display.
int printText(CommandLine::Task task, int &argc, char **argv)
{
    QCoreApplication application(argc, argv);
    lyrabox::installLanguage(application);
    const QString text =
        task == CommandLine::Task::ShowHelp ? lyrabox::commandLineHelp() : lyrabox::versionText();
    return std::fputs(qPrintable(text), stdout) < 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}

void nameApplication()
{
    QApplication::setApplicationName(QStringLiteral("Lyrabox"));
    QApplication::setApplicationDisplayName(QStringLiteral("Lyrabox"));
    QApplication::setDesktopFileName(QStringLiteral("org.lyrabox.Lyrabox"));
    QApplication::setApplicationVersion(QStringLiteral(LYRABOX_VERSION));
}

/// Loads the modules in the background, one after the other. The windows wait for the output
/// module, so it comes first. The decoders follow here only if songs will be opened before the
/// first picture. If no thread can be started, the code that first needs a module loads it.
std::jthread loadModules(const CommandLine &line)
{
    const bool opensSongs =
        !line.urls.isEmpty() ||
        !lyrabox::userDefaults().value(lyrabox::defaultsKey::folderPath).toString().isEmpty();
    return lyrabox::startThread([opensSongs] {
        lyrabox::outputModule();
        if (opensSongs)
            lyrabox::decodingModule();
    });
}

/// The engine's controller. Null if the engine could not be built; the user has then seen an alert.
std::unique_ptr<LB_AudioController> makeAudio(std::future<lyrabox::Status> engine)
{
    const auto hasSound = std::make_shared<bool>(true); // the controller keeps the functions
    const LB_AudioController::FatalErrorHandling fatal{
        .present =
            [](const QString &text, const QString &suggestion) {
                QApplication::setWindowIcon(lyrabox::programIcon());
                LB_AudioController::showAlert(text, suggestion);
            },
        .terminate = [hasSound] { *hasSound = false; },
    };
    auto audio = std::make_unique<LB_AudioController>(fatal, std::move(engine));
    return *hasSound ? std::move(audio) : nullptr;
}

/// Runs the program and carries out this process's own request. Other processes send theirs through
/// `instance`. Returns the exit code.
int run(QApplication &application, lyrabox::SingleInstance &instance,
        const lyrabox::SingleInstance::Request &start)
{
    // Connecting to the sound server takes as long as building the windows, so both happen in
    // parallel.
    lyrabox::EngineStart engine = lyrabox::startEngine();
    // exit() rather than quit(). quit() asks every window first, and does nothing if only the alert
    // runs an event loop.
    const lyrabox::TerminationSignals signals_([] { QApplication::exit(); });
    lyrabox::Composition composition;
    std::unique_ptr<LB_AudioController> audio = makeAudio(std::move(engine.status));
    if (!audio)
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
        if (!start.activationToken.isEmpty())
            composition.bringToFront(start.activationToken);
        composition.open(start.urls);
        instance.setHandler([&composition](const lyrabox::SingleInstance::Request &request) {
            composition.bringToFront(request.activationToken);
            composition.open(request.urls);
        });
    });
    return QApplication::exec();
}

} // namespace

/// Starts the program, or hands its command line over to the running process.
int main(int argc, char **argv)
{
    const CommandLine::Task task = lyrabox::readCommandLine(argc, argv).task;
    if (task == CommandLine::Task::ShowHelp || task == CommandLine::Task::ShowVersion)
        return printText(task, argc, argv);

    // Without a thread, the toolkit reads the fonts when it needs them.
    const std::jthread fonts = lyrabox::startThread(&lyrabox::readFontConfiguration);
    // The toolkit would wait for a bus that does not answer.
    if (!lyrabox::busAnswers(qgetenv("DBUS_SESSION_BUS_ADDRESS"), busTimeout))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    const QString activationToken = lyrabox::takeActivationToken();
    lyrabox::Application application(argc, argv); // removes the toolkit's own options
    const CommandLine line = lyrabox::readCommandLine(argc, argv);
    if (line.task == CommandLine::Task::ReportUnknownOption) {
        std::fprintf(stderr, "lyrabox: unknown option %s\n%s", qPrintable(line.unknownOption),
                     qPrintable(lyrabox::commandLineHelp()));
        return exitWrongUse;
    }
    nameApplication();
    const std::jthread modules = loadModules(line);
    lyrabox::installLanguage(application);
    lyrabox::applyApplicationTheme();

    // If the folder cannot be created, the settings controller reports it.
    const lyrabox::SettingsFolder folder = lyrabox::makeSettingsFolder();
    lyrabox::SingleInstance instance(folder.isThere() ? folder.url->toLocalFile() : QString());
    const lyrabox::SingleInstance::Request start{line.urls, activationToken};
    switch (instance.claim(start)) {
    case lyrabox::SingleInstance::Role::First:
        break;
    case lyrabox::SingleInstance::Role::Second:
        return EXIT_SUCCESS;
    case lyrabox::SingleInstance::Role::Unanswered:
        return reportUnresponsiveInstance();
    }
    return run(application, instance, start);
}
