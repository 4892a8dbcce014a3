#pragma once

#include <QDBusConnection>
#include <QObject>

#include <chrono>
#include <functional>

namespace lyrabox {

/// Whether the message bus at `address` begins to answer within `patience`. `address` has the form
/// of DBUS_SESSION_BUS_ADDRESS; if it is not a local socket, the bus counts as one that answers.
/// Blocks for `patience` at most.
///
/// At its start the toolkit waits up to half a minute for the session bus. So a bus that does not
/// answer should be hidden from the toolkit.
bool busAnswers(const QByteArray &address, std::chrono::milliseconds patience);

/// Connects to the desktop's session bus on a thread of its own, because a bus that does not answer
/// blocks its caller. Then calls `ready` on the thread of `context`. If there is no bus, or if
/// `context` has been destroyed, `ready` is not called. Does not block.
void connectToSessionBus(QObject *context, std::function<void(const QDBusConnection &bus)> ready);

/// The same for the machine's system bus. One that does not answer within two seconds counts as
/// absent. Its address is in DBUS_SYSTEM_BUS_ADDRESS; without that variable it is the usual one.
void connectToSystemBus(QObject *context, std::function<void(const QDBusConnection &bus)> ready);

} // namespace lyrabox
