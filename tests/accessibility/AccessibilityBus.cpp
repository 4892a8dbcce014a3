#include "accessibility/AccessibilityBus.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusVariant>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

constexpr int patienceMilliseconds = 20'000;
const QString accessibleInterface = u"org.a11y.atspi.Accessible"_s;
const QString valueInterface = u"org.a11y.atspi.Value"_s;
const QString actionInterface = u"org.a11y.atspi.Action"_s;
const QString registryService = u"org.a11y.atspi.Registry"_s;
const QString sessionName = u"session of the test"_s;
const QString busName = u"accessibility of the test"_s;

} // namespace

Accessible::Accessible(QDBusConnection bus, QString service, QString path)
    : m_bus(std::move(bus)), m_service(std::move(service)), m_path(std::move(path))
{}

QDBusMessage Accessible::call(const QString &interface, const QString &method,
                              const QVariantList &arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_service, m_path, interface, method);
    message.setArguments(arguments);
    return m_bus.call(message, QDBus::Block, patienceMilliseconds);
}

QVariant Accessible::property(const QString &interface, const QString &name) const
{
    const QDBusMessage reply =
        call(u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {interface, name});
    return reply.type() == QDBusMessage::ReplyMessage
               ? reply.arguments().value(0).value<QDBusVariant>().variant()
               : QVariant();
}

QString Accessible::role() const
{
    return call(accessibleInterface, u"GetRoleName"_s).arguments().value(0).toString();
}

QString Accessible::name() const
{
    return property(accessibleInterface, u"Name"_s).toString();
}

QString Accessible::description() const
{
    return property(accessibleInterface, u"Description"_s).toString();
}

bool Accessible::has(AccessibleState state) const
{
    constexpr int bits = 32;
    const auto states =
        qdbus_cast<QList<quint32>>(call(accessibleInterface, u"GetState"_s).arguments().value(0));
    const int number = static_cast<int>(state);
    return (states.value(number / bits) >> (number % bits) & 1U) != 0;
}

QList<Accessible> Accessible::children() const
{
    const QDBusMessage reply = call(accessibleInterface, u"GetChildren"_s);
    QList<Accessible> children;
    if (reply.type() != QDBusMessage::ReplyMessage)
        return children;
    const auto list = reply.arguments().value(0).value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        if (path.path() != u"/org/a11y/atspi/null"_s)
            children.append(Accessible(m_bus, service, path.path()));
    }
    list.endArray();
    return children;
}

namespace {

std::optional<double> number(const QVariant &variant)
{
    return variant.isValid() ? std::optional(variant.toDouble()) : std::nullopt;
}

} // namespace

std::optional<double> Accessible::value() const
{
    return number(property(valueInterface, u"CurrentValue"_s));
}

std::optional<double> Accessible::minimum() const
{
    return number(property(valueInterface, u"MinimumValue"_s));
}

std::optional<double> Accessible::maximum() const
{
    return number(property(valueInterface, u"MaximumValue"_s));
}

void Accessible::setValue(double value) const
{
    const QDBusMessage reply =
        call(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
             {valueInterface, u"CurrentValue"_s, QVariant::fromValue(QDBusVariant(value))});
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
}

QString Accessible::text() const
{
    return call(u"org.a11y.atspi.Text"_s, u"GetText"_s, {0, -1}).arguments().value(0).toString();
}

bool Accessible::setText(const QString &text) const
{
    return call(u"org.a11y.atspi.EditableText"_s, u"SetTextContents"_s, {text})
        .arguments()
        .value(0)
        .toBool();
}

bool Accessible::takeKeyboard() const
{
    return call(u"org.a11y.atspi.Component"_s, u"GrabFocus"_s).arguments().value(0).toBool();
}

bool Accessible::selectRow(int row) const
{
    return call(u"org.a11y.atspi.Table"_s, u"AddRowSelection"_s, {row})
        .arguments()
        .value(0)
        .toBool();
}

bool Accessible::act(const QString &action) const
{
    const int count = property(actionInterface, u"NActions"_s).toInt();
    for (int index = 0; index < count; ++index) {
        if (call(actionInterface, u"GetName"_s, {index}).arguments().value(0).toString() == action)
            return call(actionInterface, u"DoAction"_s, {index}).arguments().value(0).toBool();
    }
    return false;
}

QList<Accessible> Accessible::tree() const
{
    QList<Accessible> all{*this};
    for (qsizetype next = 0; next < all.size(); ++next)
        all.append(all.at(next).children());
    return all;
}

Accessible Accessible::find(const QString &role, const QString &name) const
{
    for (const Accessible &object : tree()) {
        if (object.name() == name && object.role() == role)
            return object;
    }
    return {};
}

AccessibilityBus::AccessibilityBus(const VirtualDisplay &display)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    display.addTo(environment);
    environment.insert(u"HOME"_s, m_folder.path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
    environment.remove(u"AT_SPI_BUS_ADDRESS"_s);
    m_daemon.setProcessEnvironment(environment);
    m_daemon.setStandardErrorFile(QProcess::nullDevice());
    dieWithTheTest(m_daemon);
    m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    if (!m_daemon.waitForReadyRead(patienceMilliseconds)) {
        ADD_FAILURE() << "the session bus does not start: " << m_daemon.errorString().toStdString();
        return;
    }
    m_address = QString::fromUtf8(m_daemon.readLine().trimmed());
    m_session = QDBusConnection::connectToBus(m_address, sessionName);
    const QDBusMessage reply = m_session.call(QDBusMessage::createMethodCall(
        u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s));
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    m_bus = QDBusConnection::connectToBus(reply.arguments().value(0).toString(), busName);
    EXPECT_TRUE(m_bus.isConnected());
}

AccessibilityBus::~AccessibilityBus()
{
    m_bus = QDBusConnection(QString());
    m_session = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(busName);
    QDBusConnection::disconnectFromBus(sessionName);
    m_daemon.terminate(); // its services end with it
    m_daemon.waitForFinished(patienceMilliseconds);
}

Accessible AccessibilityBus::application(const QString &name)
{
    const Accessible desktop(m_bus, registryService, u"/org/a11y/atspi/accessible/root"_s);
    Accessible found;
    EXPECT_TRUE(waitUntil([&] {
        for (const Accessible &application : desktop.children()) {
            if (application.name() == name)
                found = application;
        }
        return found.isValid();
    })) << name.toStdString()
        << " is not on the accessibility bus";
    return found;
}

void AccessibilityBus::listen()
{
    for (const QString &event :
         {u"Object:StateChanged"_s, u"Object:PropertyChange:AccessibleName"_s,
          u"Object:PropertyChange:AccessibleValue"_s}) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(registryService, u"/org/a11y/atspi/registry"_s,
                                           u"org.a11y.atspi.Registry"_s, u"RegisterEvent"_s);
        message << event;
        const QDBusMessage reply = m_bus.call(message);
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    }
    for (const QString &kind : {u"StateChanged"_s, u"PropertyChange"_s})
        EXPECT_TRUE(m_bus.connect(QString(), QString(), u"org.a11y.atspi.Event.Object"_s, kind,
                                  this, SLOT(eventCame(QDBusMessage))));
}

void AccessibilityBus::eventCame(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    m_events.append({message.path(), message.member(), arguments.value(0).toString(),
                     arguments.value(1).toInt()});
}

bool AccessibilityBus::waitForEvent(const std::function<bool(const AccessibleEvent &)> &matches,
                                    double seconds)
{
    return waitUntil(
        [&] {
            QCoreApplication::processEvents();
            return std::any_of(m_events.cbegin(), m_events.cend(), matches);
        },
        seconds);
}

} // namespace lyrabox::test
