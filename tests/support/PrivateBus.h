#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>

namespace lyrabox::test {

/// A message bus that belongs to the test. No service is on it and none is started automatically.
/// Errors add a test failure. Main thread only.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    /// The value for DBUS_SESSION_BUS_ADDRESS.
    QString address() const { return m_address; }

    /// A new connection, which is closed with the bus.
    QDBusConnection connect(const QString &name);

    /// Kills the bus.
    void kill();

    /// Calls a method and waits for the answer while the event loop runs.
    static QDBusMessage call(const QDBusConnection &connection, const QString &service,
                             const QString &path, const QString &interface, const QString &method,
                             const QVariantList &arguments = {});

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

/// A socket that accepts connections and never answers. Errors add a test failure.
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

/// A service that handles every call by a function. The function returns true if it has replied or
/// if there should be no reply.
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
