#include "platform/ui/DesktopWindows.h"

#include <QGuiApplication>
#include <QThread>
#include <QWidget>

#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr unsigned long patienceSeconds = 30;
constexpr const char *tokenVariable = "XDG_ACTIVATION_TOKEN";

bool isOnWayland()
{
    return QGuiApplication::platformName().startsWith("wayland"_L1);
}

QtMessageHandler earlierHandler = nullptr;

/// Receives the toolkit's warning that the connection is lost, on the thread that noticed it. The
/// toolkit ends the process after this.
void listenForLoss(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (earlierHandler != nullptr)
        earlierHandler(type, context, text);
    if (type != QtWarningMsg || !text.startsWith("The Wayland connection "_L1) || qApp == nullptr)
        return;
    if (QThread::currentThread() == qApp->thread())
        std::exit(EXIT_FAILURE);
    // While this thread sleeps, the main thread ends the process, unless it hangs.
    QMetaObject::invokeMethod(qApp, [] { std::exit(EXIT_FAILURE); });
    QThread::sleep(patienceSeconds);
}

} // namespace

bool programPlacesWindows()
{
    return !isOnWayland();
}

QString takeActivationToken()
{
    const QString token = qEnvironmentVariable(tokenVariable);
    qunsetenv(tokenVariable);
    return token;
}

void bringToFront(QWidget *window, const QString &token)
{
    if (window == nullptr)
        return;
    if (window->isMinimized())
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    // The toolkit takes the token only from the environment.
    const bool hasToken = isOnWayland() && !token.isEmpty();
    if (hasToken)
        qputenv(tokenVariable, token.toUtf8());
    window->activateWindow();
    if (hasToken)
        qunsetenv(tokenVariable);
}

void exitWhenDisplayIsLost()
{
    if (earlierHandler == nullptr)
        earlierHandler = qInstallMessageHandler(&listenForLoss);
}

} // namespace lyrabox
