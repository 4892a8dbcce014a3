#include "support/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {

namespace {

constexpr int patienceMilliseconds = 20'000;

const QByteArray settings = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir=%1</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

PrivateBus::PrivateBus()
{
    const QString file = m_folder.filePath(u"bus.conf"_s);
    QFile config(file);
    EXPECT_TRUE(config.open(QIODevice::WriteOnly));
    config.write(QByteArray(settings).replace("%1", m_folder.path().toUtf8()));
    config.close();
    m_daemon.setStandardErrorFile(QProcess::nullDevice());
    m_daemon.start(u"dbus-daemon"_s, {u"--config-file="_s + file, u"--nofork"_s, u"--nopidfile"_s,
                                      u"--print-address"_s});
    EXPECT_TRUE(m_daemon.waitForReadyRead(patienceMilliseconds))
        << "the message bus does not start";
    m_address = QString::fromUtf8(m_daemon.readLine().trimmed());
}

PrivateBus::~PrivateBus()
{
    for (const QString &name : m_connections)
        QDBusConnection::disconnectFromBus(name);
    kill();
}

QDBusConnection PrivateBus::connect(const QString &name)
{
    m_connections.append(name);
    QDBusConnection connection = QDBusConnection::connectToBus(m_address, name);
    EXPECT_TRUE(connection.isConnected());
    return connection;
}

void PrivateBus::kill()
{
    m_daemon.kill();
    m_daemon.waitForFinished(patienceMilliseconds);
}

QDBusMessage PrivateBus::call(const QDBusConnection &connection, const QString &service,
                              const QString &path, const QString &interface, const QString &method,
                              const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall pending = connection.asyncCall(message, patienceMilliseconds);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); }, patienceMilliseconds))
        << qPrintable(method);
    return pending.reply();
}

SilentSocket::SilentSocket(QString path)
    : m_path(std::move(path)), m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const QByteArray name = QFile::encodeName(m_path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    EXPECT_LT(static_cast<std::size_t>(name.size()), sizeof address.sun_path);
    std::copy(name.begin(), name.end(), address.sun_path);
    EXPECT_EQ(::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    EXPECT_EQ(::listen(m_socket, 10), 0);
}

SilentSocket::~SilentSocket()
{
    ::close(m_socket);
}

FakeService::FakeService(const QDBusConnection &bus, const QString &name, Answer answer)
    : m_bus(bus), m_name(name), m_answer(std::move(answer))
{
    EXPECT_TRUE(m_bus.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath));
    EXPECT_TRUE(m_bus.registerService(m_name));
}

FakeService::~FakeService()
{
    m_bus.unregisterObject(u"/"_s);
    m_bus.unregisterService(m_name);
}

bool FakeService::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    return m_answer(message, connection);
}

} // namespace lyrabox::test
