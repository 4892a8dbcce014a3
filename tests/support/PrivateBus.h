#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>

namespace lyrabox::test {

/// A message bus of the test's own, on which nobody is and nothing is started by itself. What fails
/// adds a test failure. Main thread only.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    /// What DBUS_SESSION_BUS_ADDRESS has to be.
    QString address() const { return m_address; }

    /// A connection of one's own; closed with the bus.
    QDBusConnection connect(const QString &name);

    /// Ends the bus without any farewell.
    void kill();

    /// Calls a method and waits for the answer, with the event loop running.
    static QDBusMessage call(const QDBusConnection &connection, const QString &service,
                             const QString &path, const QString &interface, const QString &method,
                             const QVariantList &arguments = {});

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

/// A socket on which everyone is let in and nobody is answered. What fails adds a test failure.
class SilentSocket {
public:
    explicit SilentSocket(QString path);
    ~SilentSocket();
    SilentSocket(const SilentSocket &) = delete;
    SilentSocket &operator=(const SilentSocket &) = delete;

    QString path() const { return m_path; }

private:
    QString m_path;
    int m_socket;
};

/// A service that answers every call by a function: true when it has replied, or wants no reply to
/// be sent.
class FakeService : public QDBusVirtualObject {
public:
    using Answer = std::function<bool(const QDBusMessage &, const QDBusConnection &)>;
    FakeService(const QDBusConnection &bus, const QString &name, Answer answer);
    ~FakeService() override;

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusConnection m_bus;
    QString m_name;
    Answer m_answer;
};

} // namespace lyrabox::test
