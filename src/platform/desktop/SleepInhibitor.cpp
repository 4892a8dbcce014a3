#include "platform/desktop/SleepInhibitor.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString requestInterface = u"org.freedesktop.portal.Request"_s;
const QString saverService = u"org.freedesktop.ScreenSaver"_s;
const QString saverPath = u"/org/freedesktop/ScreenSaver"_s;

QDBusMessage saverCall(const QString &method, const QVariantList &arguments)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(saverService, saverPath, saverService, method);
    call.setArguments(arguments);
    return call;
}

} // namespace

SleepInhibitor::SleepInhibitor(const QDBusConnection &bus, QString application, QString reason)
    : m_bus(bus), m_application(std::move(application)), m_reason(std::move(reason))
{
    watch(portalService);
    watch(saverService);
}

SleepInhibitor::~SleepInhibitor()
{
    m_wanted = false;
    release();
}

void SleepInhibitor::watch(const QString &service)
{
    // No sender is given, because the toolkit would wait for the bus to resolve its name.
    m_bus.connect(QString(), u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s,
                  u"NameOwnerChanged"_s, {service}, QString(), this,
                  SLOT(ownerChanged(QString, QString, QString)));
}

void SleepInhibitor::setWanted(bool wanted)
{
    if (std::exchange(m_wanted, wanted) == wanted)
        return;
    if (wanted)
        ask();
    else
        release();
}

void SleepInhibitor::ask()
{
    ++m_round;
    m_asking = true;
    askPortal();
}

void SleepInhibitor::askPortal()
{
    constexpr uint suspendAndIdle = 4 | 8;
    // The token determines the request's path in advance. So the subscription is in place before
    // the answer can come, and the request can be closed whatever the answer is.
    const QString token = u"lyrabox%1"_s.arg(m_round);
    m_request =
        portalPath + u"/request/"_s + m_bus.baseService().mid(1).replace(u'.', u'_') + u'/' + token;
    m_bus.connect(QString(), m_request, requestInterface, u"Response"_s, this,
                  SLOT(portalResponded(uint, QVariantMap)));

    QDBusMessage call = QDBusMessage::createMethodCall(
        portalService, portalPath, u"org.freedesktop.portal.Inhibit"_s, u"Inhibit"_s);
    call.setArguments({QString(), suspendAndIdle,
                       QVariantMap{{u"handle_token"_s, token}, {u"reason"_s, m_reason}}});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, m_patience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, round = m_round, request = m_request](QDBusPendingCallWatcher *answer) {
                answer->deleteLater();
                const QDBusPendingReply<QDBusObjectPath> reply = *answer;
                const bool late = round != m_round || !m_wanted;
                if (late || reply.isError())
                    closeRequest(request); // the portal may still have granted it
                if (late || m_holder != Holder::Nobody)
                    return;
                if (reply.isError()) {
                    portalFailed();
                    return;
                }
                m_asking = false;
                m_holder = Holder::Portal;
            });
}

void SleepInhibitor::portalResponded(uint code, const QVariantMap &)
{
    // Only the signal of the current request is connected.
    if (code == 0 || !m_wanted || m_holder == Holder::ScreenSaver)
        return;
    m_holder = Holder::Nobody;
    ++m_round; // the method's reply, if it comes later, belongs to a refused request
    portalFailed();
}

void SleepInhibitor::portalFailed()
{
    m_bus.disconnect(QString(), m_request, requestInterface, u"Response"_s, this,
                     SLOT(portalResponded(uint, QVariantMap)));
    askScreenSaver();
}

void SleepInhibitor::askScreenSaver()
{
    m_asking = true;
    const QDBusMessage call = saverCall(u"Inhibit"_s, {m_application, m_reason});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, round = m_round](QDBusPendingCallWatcher *answer) {
                answer->deleteLater();
                const QDBusPendingReply<uint> reply = *answer;
                if (round != m_round || !m_wanted) {
                    if (!reply.isError())
                        m_bus.send(saverCall(u"UnInhibit"_s, {reply.value()}));
                    return;
                }
                m_asking = false;
                if (reply.isError())
                    return;
                m_holder = Holder::ScreenSaver;
                m_cookie = reply.value();
            });
}

void SleepInhibitor::release()
{
    ++m_round;
    m_asking = false;
    m_bus.disconnect(QString(), m_request, requestInterface, u"Response"_s, this,
                     SLOT(portalResponded(uint, QVariantMap)));
    switch (std::exchange(m_holder, Holder::Nobody)) {
    case Holder::Portal:
        closeRequest(m_request);
        break;
    case Holder::ScreenSaver:
        m_bus.send(saverCall(u"UnInhibit"_s, {m_cookie}));
        break;
    case Holder::Nobody:
        break;
    }
}

void SleepInhibitor::closeRequest(const QString &path)
{
    m_bus.send(QDBusMessage::createMethodCall(portalService, path, requestInterface, u"Close"_s));
}

void SleepInhibitor::ownerChanged(const QString &name, const QString &, const QString &newOwner)
{
    const bool isHolder = (m_holder == Holder::Portal && name == portalService) ||
                          (m_holder == Holder::ScreenSaver && name == saverService);
    if (isHolder)
        m_holder = Holder::Nobody; // the new owner of the name has no inhibition of ours
    const bool mayHelp = isHolder || !newOwner.isEmpty();
    if (m_wanted && mayHelp && m_holder == Holder::Nobody && !m_asking)
        ask();
}

} // namespace lyrabox
