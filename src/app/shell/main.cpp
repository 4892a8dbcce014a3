#include "app/shell/Composition.h"
#include "app/shell/Languages.h"
#include "app/shell/SingleInstance.h"
#include "platform/foundation/TerminationSignals.h"
#include "platform/ui/Theme.h"

#include <QApplication>
#include <QSessionManager>

#include <cstdlib>
#include <memory>

/// Starts the program. It takes no command line of its own.
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lyrabox"));
    QApplication::setApplicationDisplayName(QStringLiteral("Lyrabox"));
    QApplication::setDesktopFileName(QStringLiteral("lyrabox"));
    QApplication::setApplicationVersion(QStringLiteral(LYRABOX_VERSION));
    lyrabox::installLanguage(application);
    lyrabox::applyApplicationTheme(application);

    LB_SettingsController settingsFolder; // only to find the folder that the lock lies in
    const std::optional<QUrl> folder = settingsFolder.applicationSupportDirectory();
    lyrabox::SingleInstance instance(folder ? folder->toLocalFile() : QString());
    if (instance.claim() == lyrabox::SingleInstance::Role::Second)
        return EXIT_SUCCESS;

    bool hasSound = true;
    LB_AudioController::FatalErrorHandling fatal = LB_AudioController::alertAndQuit();
    fatal.terminate = [&hasSound] { hasSound = false; };
    const lyrabox::TerminationSignals signals_([] { QApplication::quit(); });
    auto audio = std::make_unique<LB_AudioController>(fatal);
    if (!hasSound)
        return EXIT_FAILURE;

    lyrabox::Composition composition(std::move(audio));
    QObject::connect(&application, &QApplication::aboutToQuit, &composition,
                     &lyrabox::Composition::terminate);
    QObject::connect(&application, &QApplication::commitDataRequest, &composition,
                     [](QSessionManager &session) {
                         session.setRestartHint(QSessionManager::RestartIfRunning);
                     });
    composition.launch();
    instance.setHandler([&composition](const QList<QUrl> &urls) {
        composition.bringToFront();
        composition.open(urls);
    });
    return QApplication::exec();
}
