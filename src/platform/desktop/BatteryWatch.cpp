#include "platform/desktop/BatteryWatch.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

const QString service = u"org.freedesktop.UPower"_s;
const QString machinePath = u"/org/freedesktop/UPower"_s;
const QString machineInterface = u"org.freedesktop.UPower"_s;
/// UPower's sum of all batteries, as desktops show it.
const QString batteryPath = u"/org/freedesktop/UPower/devices/DisplayDevice"_s;
const QString batteryInterface = u"org.freedesktop.UPower.Device"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

} // namespace

BatteryWatch::BatteryWatch(const QDBusConnection &bus, QObject *parent)
    : QObject(parent), m_bus(bus)
{
    // No sender is given, because the toolkit would wait for the bus to resolve its name.
    for (const QString &path : {machinePath, batteryPath})
        m_bus.connect(QString(), path, propertiesInterface, u"PropertiesChanged"_s, this,
                      SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
    m_bus.connect(QString(), u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s,
                  u"NameOwnerChanged"_s, {service}, QString(), this,
                  SLOT(ownerChanged(QString, QString, QString)));
    askAll();
}

void BatteryWatch::askAll()
{
    ask(machinePath, machineInterface);
    ask(batteryPath, batteryInterface);
}

void BatteryWatch::ask(const QString &path, const QString &interface)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, path, propertiesInterface, u"GetAll"_s);
    call.setArguments({interface});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, round = m_round](QDBusPendingCallWatcher *answer) {
                answer->deleteLater();
                const QDBusPendingReply<QVariantMap> reply = *answer;
                if (round == m_round && !reply.isError())
                    take(reply.value());
            });
}

void BatteryWatch::propertiesChanged(const QString &interface, const QVariantMap &changed,
                                     const QStringList &invalidated)
{
    if (interface != machineInterface && interface != batteryInterface)
        return;
    take(changed);
    if (!invalidated.isEmpty())
        askAll();
}

void BatteryWatch::ownerChanged(const QString &, const QString &, const QString &newOwner)
{
    ++m_round;
    m_isOnBattery = false;
    m_isPresent = true;
    m_charge.reset();
    take({});
    if (!newOwner.isEmpty())
        askAll();
}

void BatteryWatch::take(const QVariantMap &properties)
{
    m_isOnBattery = properties.value(u"OnBattery"_s, m_isOnBattery).toBool();
    m_isPresent = properties.value(u"IsPresent"_s, m_isPresent).toBool();
    if (const QVariant charge = properties.value(u"Percentage"_s); charge.isValid())
        m_charge = charge.toDouble();
    const bool isLow = m_isOnBattery && m_isPresent && m_charge && *m_charge < lowCharge;
    if (std::exchange(m_isLow, isLow) != isLow)
        Q_EMIT lowChanged(isLow);
}

} // namespace lyrabox
