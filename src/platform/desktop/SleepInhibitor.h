#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>

class QDBusPendingCall;

namespace lyrabox {

/// While it is wanted, keeps the desktop from sleeping and its screen from going dark. It asks the
/// desktop portal; if there is none or it refuses, it asks org.freedesktop.ScreenSaver. If both
/// fail, nothing is inhibited. If the service that inhibits sleep leaves the bus, the request is
/// made again. No call waits for an answer. Main thread only.
class SleepInhibitor : public QObject {
    Q_OBJECT

public:
    /// The desktop may show both texts: the program's name, and why it inhibits sleep.
    SleepInhibitor(const QDBusConnection &bus, QString application, QString reason);
    /// Ends the inhibition.
    ~SleepInhibitor() override;

    /// Starts or ends the inhibition. Does nothing if nothing changes.
    void setWanted(bool wanted);

    /// Which service keeps the desktop awake now.
    enum class Holder { Nobody, Portal, ScreenSaver };
    Holder holder() const { return m_holder; }

    /// How many milliseconds the portal has to answer before the screen saver is asked; 10,000 by
    /// default.
    void setPatience(int milliseconds) { m_patience = milliseconds; }

private Q_SLOTS:
    void portalResponded(uint code, const QVariantMap &results);
    void ownerChanged(const QString &name, const QString &oldOwner, const QString &newOwner);

private:
    void ask();
    void askPortal();
    void portalFailed();
    void askScreenSaver();
    void release();
    void closeRequest(const QString &path);
    void watch(const QString &service);

    QDBusConnection m_bus;
    QString m_application;
    QString m_reason;
    int m_patience = 10'000;
    bool m_wanted = false;
    Holder m_holder = Holder::Nobody;
    bool m_asking = false;
    quint64 m_round = 0; ///< distinguishes answers to earlier requests
    QString m_request;   ///< the portal's object for the current request
    uint m_cookie = 0;
};

} // namespace lyrabox
