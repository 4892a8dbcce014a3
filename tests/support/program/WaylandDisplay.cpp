#include "support/program/WaylandDisplay.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QThread>

#include <gtest/gtest.h>

#include <pwd.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

// The pace of a person. Programs lose input that comes faster.
constexpr int betweenKeys = 15;
constexpr int betweenClicks = 40;

QByteArray settings(QSize size)
{
    return "xwayland disable\n"
           "output * resolution " +
           QByteArray::number(size.width()) + 'x' + QByteArray::number(size.height()) +
           "\n"
           "default_border none\n"
           "default_floating_border none\n"
           "for_window [title=\".*\"] floating enable, border none\n"
           "focus_follows_mouse no\n"
           "focus_on_window_activation focus\n";
}

/// The windows in one part of the compositor's tree.
void collectWindows(const QJsonObject &node, QList<QJsonObject> *windows)
{
    if (node.contains("pid"_L1))
        windows->append(node);
    for (const auto &name : {"nodes"_L1, "floating_nodes"_L1}) {
        for (const QJsonValue &child : node.value(name).toArray())
            collectWindows(child.toObject(), windows);
    }
}

QList<QJsonObject> windowsOf(const QJsonDocument &tree)
{
    QList<QJsonObject> windows;
    collectWindows(tree.object(), &windows);
    return windows;
}

QString identifierOf(const QJsonObject &window)
{
    return QString::number(window.value("id"_L1).toInt());
}

/// Whether every thread of the process is idle. A program learns in its event loop that the
/// compositor has given it the keyboard; until then its shortcuts do nothing.
bool isQuiet(int process)
{
    const QDir threads(u"/proc/%1/task"_s.arg(process));
    for (int look = 0; look < 2; ++look) {
        for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            QFile file(threads.filePath(thread + u"/stat"_s));
            if (!file.open(QIODevice::ReadOnly))
                continue; // the thread has ended
            const QByteArray line = file.readAll();
            const QByteArray running = ") R";
            if (line.contains(running))
                return false;
        }
    }
    return true;
}

QRect rectangle(const QJsonObject &object)
{
    return {object.value("x"_L1).toInt(), object.value("y"_L1).toInt(),
            object.value("width"_L1).toInt(), object.value("height"_L1).toInt()};
}

} // namespace

WaylandDisplay::WaylandDisplay()
{
    QFile file(m_folder.filePath(u"settings"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(settings(size)) < 0)
        ADD_FAILURE() << "no settings for the compositor";
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);

    const passwd *nobody = geteuid() == 0 ? getpwnam("nobody") : nullptr;
    const bool isRoot = nobody != nullptr;
    const uid_t user = isRoot ? nobody->pw_uid : getuid();
    const gid_t group = isRoot ? nobody->pw_gid : getgid();
    const QByteArray folder = QFile::encodeName(m_folder.path());
    if (isRoot &&
        (::chown(folder.constData(), user, group) != 0 || ::chmod(folder.constData(), 0711) != 0))
        ADD_FAILURE() << "the compositor's folder cannot be made";
    m_compositor.setChildProcessModifier([=] {
        // These are raw system calls. The library's functions would also change the threads of the
        // parent, whose memory this process shares.
        if (isRoot) {
            syscall(SYS_setgroups, 0, nullptr);
            syscall(SYS_setresgid, group, group, group);
            syscall(SYS_setresuid, user, user, user);
            umask(0); // the program may run as another user without root's rights
        }
        prctl(PR_SET_PDEATHSIG, SIGKILL);
    });

    const QString socket = m_folder.filePath(u"sway"_s);
    QProcessEnvironment environment;
    environment.insert(u"PATH"_s, qEnvironmentVariable("PATH"));
    environment.insert(u"HOME"_s, m_folder.path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
    environment.insert(u"SWAYSOCK"_s, socket);
    environment.insert(u"WLR_BACKENDS"_s, u"headless"_s);
    environment.insert(u"WLR_RENDERER"_s, u"pixman"_s);
    environment.insert(u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s);
    m_compositor.setProcessEnvironment(environment);
    m_compositor.setStandardOutputFile(QProcess::nullDevice());
    m_compositor.setStandardErrorFile(m_folder.filePath(u"log"_s));
    m_compositor.start(u"sway"_s, {u"--config"_s, file.fileName()});
    const bool runs = waitUntil([&] {
        return m_compositor.state() == QProcess::NotRunning ||
               (QFile::exists(socket) && m_sway.connectTo(socket) &&
                !m_sway.tree().object().value("nodes"_L1).toArray().isEmpty());
    });
    if (!runs || m_compositor.state() == QProcess::NotRunning) {
        QFile log(m_folder.filePath(u"log"_s));
        const QByteArray told = log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
        ADD_FAILURE() << "the compositor does not start: "
                      << m_compositor.errorString().toStdString() << "\n"
                      << told.toStdString();
    }
    m_client = std::make_unique<WaylandClient>(m_folder.filePath(u"wayland-1"_s), size);
    m_client->moveTo({size.width() - 1, size.height() - 1}); // out of the pictures
}

WaylandDisplay::~WaylandDisplay()
{
    m_client.reset();
    m_compositor.terminate();
    if (m_compositor.state() != QProcess::NotRunning &&
        !m_compositor.waitForFinished(patienceMilliseconds))
        m_compositor.kill();
}

void WaylandDisplay::addTo(QProcessEnvironment &environment) const
{
    environment.insert(u"WAYLAND_DISPLAY"_s, m_folder.filePath(u"wayland-1"_s));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    environment.insert(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    environment.remove(u"DISPLAY"_s);
    // The toolkit's Wayland plugin leaks some objects at its end. It is unloaded by then, so the
    // leak search has no name that a suppression could match. Other faults are still found.
    if (const QString options = qEnvironmentVariable("ASAN_OPTIONS"); !options.isEmpty())
        environment.insert(u"ASAN_OPTIONS"_s, options + u":detect_leaks=0"_s);
}

void WaylandDisplay::kill()
{
    m_compositor.kill();
    m_compositor.waitForFinished(patienceMilliseconds);
}

QImage WaylandDisplay::screen() const
{
    return m_client->picture();
}

QString WaylandDisplay::findWindow(const QString &titlePattern) const
{
    const QRegularExpression pattern(titlePattern);
    for (const QJsonObject &window : windowsOf(m_sway.tree())) {
        if (window.value("visible"_L1).toBool() &&
            pattern.match(window.value("name"_L1).toString()).hasMatch())
            return identifierOf(window);
    }
    return {};
}

QJsonObject WaylandDisplay::window(const QString &identifier) const
{
    for (const QJsonObject &window : windowsOf(m_sway.tree())) {
        if (identifierOf(window) == identifier)
            return window;
    }
    return {};
}

void WaylandDisplay::moveWindow(const QString &window, const QRect &frame)
{
    run(u"[con_id=%1] resize set width %2 px height %3 px, move absolute position %4 px %5 px"_s
            .arg(window)
            .arg(frame.width())
            .arg(frame.height())
            .arg(frame.x())
            .arg(frame.y()));
}

QRect WaylandDisplay::frameOf(const QString &window) const
{
    return rectangle(this->window(window).value("rect"_L1).toObject());
}

QString WaylandDisplay::activeWindow() const
{
    for (const QJsonObject &window : windowsOf(m_sway.tree())) {
        if (window.value("focused"_L1).toBool())
            return isQuiet(window.value("pid"_L1).toInt()) ? identifierOf(window) : QString();
    }
    return {};
}

void WaylandDisplay::minimize(const QString &)
{
    ADD_FAILURE() << "this compositor cannot minimize windows";
}

void WaylandDisplay::moveTo(QPoint point)
{
    m_client->moveTo(point);
}

void WaylandDisplay::press()
{
    m_client->setButton(true);
}

void WaylandDisplay::release()
{
    m_client->setButton(false);
}

void WaylandDisplay::click(QPoint point, int times)
{
    m_client->moveTo(point);
    for (int i = 0; i < times; ++i) {
        press();
        QThread::msleep(betweenKeys);
        release();
        QThread::msleep(betweenClicks);
    }
}

void WaylandDisplay::wheel(QPoint point, int notches)
{
    m_client->moveTo(point);
    for (int i = 0; i < std::abs(notches); ++i) {
        m_client->turnWheel(notches > 0);
        QThread::msleep(betweenClicks);
    }
}

void WaylandDisplay::key(const QString &name, int times)
{
    const QStringList keys = name.split(u'+');
    for (int i = 0; i < times; ++i) {
        for (const QString &key : keys)
            keyDown(key);
        for (auto key = keys.crbegin(); key != keys.crend(); ++key)
            keyUp(*key);
    }
}

void WaylandDisplay::keyDown(const QString &name)
{
    m_client->setKey(name, true);
    QThread::msleep(betweenKeys);
}

void WaylandDisplay::keyUp(const QString &name)
{
    m_client->setKey(name, false);
    QThread::msleep(betweenKeys);
}

void WaylandDisplay::type(const QString &text)
{
    for (const QChar character : text) {
        m_client->typeCharacter(character);
        QThread::msleep(betweenKeys);
    }
}

QString WaylandDisplay::applicationOf(const QString &window) const
{
    return this->window(window).value("app_id"_L1).toString();
}

QString WaylandDisplay::activationToken()
{
    // The compositor gives a token to the programs that it starts. Versions before 1.8 do not; they
    // accept one from any program instead.
    const QString file = m_folder.filePath(u"token"_s);
    QFile::remove(file);
    run(u"exec 'printf %s \"$XDG_ACTIVATION_TOKEN\" > %1.part && mv %1.part %1'"_s.arg(file));
    EXPECT_TRUE(waitUntil([&] { return QFile::exists(file); })) << "the compositor starts nothing";
    QFile token(file);
    const QByteArray text = token.open(QIODevice::ReadOnly) ? token.readAll() : QByteArray();
    return text.isEmpty() ? m_client->activationToken() : QString::fromUtf8(text);
}

void WaylandDisplay::run(const QString &commands)
{
    EXPECT_TRUE(m_sway.run(commands)) << "the compositor cannot " << commands.toStdString();
}

} // namespace lyrabox::test
