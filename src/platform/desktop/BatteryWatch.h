#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace lyrabox {

/// Tells whether the machine runs on a battery that is nearly empty. It asks UPower on the system
/// bus and follows its changes. Without UPower, without a battery and until the first answer, the
/// battery is not low. No call waits for an answer. Main thread only.
class BatteryWatch : public QObject {
    Q_OBJECT

public:
    /// Below this charge, in percent, a battery in use is low.
    static constexpr double lowCharge = 20.0;

    explicit BatteryWatch(const QDBusConnection &bus, QObject *parent = nullptr);

    bool isLow() const { return m_isLow; }

Q_SIGNALS:
    void lowChanged(bool isLow);

private Q_SLOTS:
    void propertiesChanged(const QString &interface, const QVariantMap &changed,
                           const QStringList &invalidated);
    void ownerChanged(const QString &name, const QString &oldOwner, const QString &newOwner);

private:
    void ask(const QString &path, const QString &interface);
    void askAll();
    void take(const QVariantMap &properties);

    QDBusConnection m_bus;
    bool m_isOnBattery = false;
    bool m_isPresent = true;
    std::optional<double> m_charge; ///< percent
    quint64 m_round = 0;            ///< distinguishes answers of an owner that has gone
    bool m_isLow = false;
};

} // namespace lyrabox
