#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>

class QDBusPendingCall;

namespace lyrabox {

/// Keeps the desktop from sleeping and its screen from going dark while it is wanted: through the
/// desktop portal, or where there is none or it refuses, through org.freedesktop.ScreenSaver. No
/// call waits for an answer; what cannot be had is done without. When the service that keeps the
/// promise goes away, it is asked for anew. Main thread.
class SleepInhibitor : public QObject {
    Q_OBJECT

public:
    /// `application` is the program's name, `reason` what a user reads who asks why.
    SleepInhibitor(const QDBusConnection &bus, QString application, QString reason);
    /// Gives back what is held.
    ~SleepInhibitor() override;

    void setWanted(bool wanted);
    bool isWanted() const { return m_wanted; }

    /// Who keeps the desktop awake now.
    enum class Holder { Nobody, Portal, ScreenSaver };
    Holder holder() const { return m_holder; }

    /// How long the portal may take before the screen saver is asked; milliseconds.
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
    quint64 m_round = 0; ///< answers to earlier rounds are late
    QString m_request;   ///< the portal's object for the present round
    uint m_cookie = 0;
};

} // namespace lyrabox
