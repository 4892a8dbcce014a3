#include "platform/desktop/SessionBus.h"

#include <QThread>

#include <algorithm>
#include <optional>
#include <utility>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {
const QString sessionConnectionName = u"lyrabox-desktop"_s;
const QString systemConnectionName = u"lyrabox-system"_s;
constexpr const char *systemAddressVariable = "DBUS_SYSTEM_BUS_ADDRESS";
constexpr const char *usualSystemAddress = "unix:path=/var/run/dbus/system_bus_socket";
constexpr std::chrono::seconds systemBusPatience(2);

/// The local socket in a bus address; none if the address has another kind or is malformed.
std::optional<sockaddr_un> socketOf(const QByteArray &address)
{
    const QByteArray prefix = "unix:path=";
    const QByteArray path = address.mid(prefix.size()).split(',').front();
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    if (!address.startsWith(prefix) || address.contains(';') || path.contains('%') ||
        static_cast<std::size_t>(path.size()) >= sizeof place.sun_path)
        return std::nullopt;
    std::copy(path.begin(), path.end(), place.sun_path);
    return place;
}

/// Calls `connect` on a thread of its own, then `ready` with the connection of that name.
void connectOnThread(QObject *context, const QString &name, const std::function<void()> &connect,
                     std::function<void(const QDBusConnection &bus)> ready)
{
    auto *thread = QThread::create(connect);
    QObject::connect(thread, &QThread::finished, context, [name, ready = std::move(ready)] {
        const QDBusConnection bus(name);
        if (bus.isConnected())
            ready(bus);
    });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}
} // namespace

bool busAnswers(const QByteArray &address, std::chrono::milliseconds patience)
{
    const std::optional<sockaddr_un> place = socketOf(address);
    if (!place)
        return true;
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0)
        return false;
    // Every conversation with a bus begins with the id of the user.
    const QByteArray greeting =
        QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(::getuid()).toHex() + "\r\n";
    const auto *const target = reinterpret_cast<const sockaddr *>(&*place);
    bool answers = ::connect(socket, target, sizeof *place) == 0 &&
                   ::send(socket, greeting.constData(), static_cast<std::size_t>(greeting.size()),
                          MSG_NOSIGNAL) == greeting.size();
    if (answers) {
        pollfd waiting{.fd = socket, .events = POLLIN, .revents = 0};
        char first = 0;
        answers = ::poll(&waiting, 1, static_cast<int>(patience.count())) == 1 &&
                  ::recv(socket, &first, 1, 0) == 1;
    }
    ::close(socket);
    return answers;
}

void connectToSessionBus(QObject *context, std::function<void(const QDBusConnection &bus)> ready)
{
    const auto connect = [] {
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, sessionConnectionName);
    };
    connectOnThread(context, sessionConnectionName, connect, std::move(ready));
}

void connectToSystemBus(QObject *context, std::function<void(const QDBusConnection &bus)> ready)
{
    const auto connect = [] {
        const QByteArray given = qgetenv(systemAddressVariable);
        if (busAnswers(given.isEmpty() ? QByteArray(usualSystemAddress) : given, systemBusPatience))
            QDBusConnection::connectToBus(QDBusConnection::SystemBus, systemConnectionName);
    };
    connectOnThread(context, systemConnectionName, connect, std::move(ready));
}

} // namespace lyrabox
