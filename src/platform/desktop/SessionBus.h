#pragma once

#include <QDBusConnection>
#include <QObject>

#include <chrono>
#include <functional>

namespace lyrabox {

/// Whether the message bus at `address`, as DBUS_SESSION_BUS_ADDRESS has it, begins to talk within
/// `patience`. The toolkit itself waits for the session bus when the program starts, for half a
/// minute at worst; a bus that fails here is better not named to it. An address of another kind
/// than a local socket counts as one that answers.
bool busAnswers(const QByteArray &address, std::chrono::milliseconds patience);

/// Connects to the desktop's session bus on a thread of its own, since a bus that does not answer
/// holds up whoever asks, and calls `ready` on the thread of `context` once it is there. Never
/// called without a bus, nor after `context` is gone.
void connectToSessionBus(QObject *context, std::function<void(const QDBusConnection &bus)> ready);

} // namespace lyrabox
