#include "support/sequencer/FakeSequencer.h"

#include "support/Processes.h"

#include <QFile>

#include <cstdio>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace lyrabox::test {

FakeSequencer::FakeSequencer() : m_socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0))
{
    writePorts();
}

FakeSequencer::~FakeSequencer()
{
    ::close(m_socket);
}

void FakeSequencer::setPresent(bool present)
{
    m_isPresent = present;
    writePorts();
}

void FakeSequencer::breakDown()
{
    setPresent(false);
    tell("gone");
}

void FakeSequencer::writePorts() const
{
    const QString name = path() + QStringLiteral(".ports");
    if (!m_isPresent) {
        QFile::remove(name);
        return;
    }
    QFile file(name + QStringLiteral(".new"));
    if (!file.open(QIODevice::WriteOnly))
        return;
    for (const auto &[address, names] : m_ports)
        file.write(QByteArray::number(address.first) + ' ' + QByteArray::number(address.second) +
                   ' ' + names + '\n');
    file.close();
    std::rename(QFile::encodeName(file.fileName()).constData(),
                QFile::encodeName(name).constData());
}

/// Blocks while the other end has much to read. Without another end nothing happens.
void FakeSequencer::tell(const QByteArray &text) const
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, QFile::encodeName(path()).constData(),
                 sizeof address.sun_path - 1);
    [[maybe_unused]] const auto sent =
        ::sendto(m_socket, text.constData(), static_cast<std::size_t>(text.size()), 0,
                 reinterpret_cast<const sockaddr *>(&address), sizeof address);
}

void FakeSequencer::plug(int client, const QString &clientName, const QString &portName, int port)
{
    const QByteArray names = clientName.toUtf8() + '\t' + portName.toUtf8();
    m_ports[{client, port}] = names;
    writePorts();
    tell("plug " + QByteArray::number(client) + ' ' + QByteArray::number(port) + ' ' + names);
}

void FakeSequencer::unplug(int client)
{
    std::erase_if(m_ports, [client](const auto &entry) { return entry.first.first == client; });
    writePorts();
    tell("unplug " + QByteArray::number(client));
}

void FakeSequencer::send(int client, const std::vector<QByteArray> &messages, int port,
                         std::chrono::milliseconds age) const
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch() - age;
    const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(time).count();
    QByteArray text = "midi " + QByteArray::number(client) + ' ' + QByteArray::number(port) + ' ' +
                      QByteArray::number(static_cast<qlonglong>(nanoseconds)) + ' ';
    for (const QByteArray &message : messages)
        text += message;
    tell(text);
}

void FakeSequencer::press(int client, int controller) const
{
    send(client, {controllerBytes(controller, 127)});
}

void FakeSequencer::release(int client, int controller) const
{
    send(client, {controllerBytes(controller, 0)});
}

QByteArray FakeSequencer::controllerBytes(int controller, int value)
{
    const char bytes[] = {static_cast<char>(0xB0), static_cast<char>(controller),
                          static_cast<char>(value)};
    return {bytes, sizeof bytes};
}

QByteArray FakeSequencer::log() const
{
    QFile file(path() + QStringLiteral(".log"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool FakeSequencer::isReceivedFrom(int client, int port) const
{
    const QByteArray address = QByteArray::number(client) + ':' + QByteArray::number(port) + '\n';
    const QByteArray done = log();
    const qsizetype connected = done.lastIndexOf("connect " + address);
    return connected > done.lastIndexOf("end " + address) &&
           connected > done.lastIndexOf("close\n");
}

bool FakeSequencer::comesToBeReceived(int client, int port) const
{
    return waitUntil([&] { return isReceivedFrom(client, port); });
}

} // namespace lyrabox::test
