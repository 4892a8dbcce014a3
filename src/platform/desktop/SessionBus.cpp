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
const QString connectionName = u"lyrabox-desktop"_s;

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
    auto *thread = QThread::create(
        [] { QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName); });
    QObject::connect(thread, &QThread::finished, context, [ready = std::move(ready)] {
        const QDBusConnection bus(connectionName);
        if (bus.isConnected())
            ready(bus);
    });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

} // namespace lyrabox
