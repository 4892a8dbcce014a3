#include "platform/midi/MidiReceiver.h"

#include "platform/midi/MidiModule.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace lyrabox {

MidiReceiver::MidiReceiver(MakeInput makeInput, const QString &devices, QObject *parent)
    : QObject(parent), m_makeInput(std::move(makeInput)), m_devices(devices)
{
    if (!m_makeInput)
        m_makeInput = [] { return midiModule().makeMidiInput(); };
}

MidiReceiver::~MidiReceiver() = default;

void MidiReceiver::setWanted(bool wanted)
{
    if (std::exchange(m_isWanted, wanted) == wanted)
        return;
    if (wanted)
        open();
    else
        close();
}

void MidiReceiver::open()
{
    if (m_input != nullptr || !m_isWanted)
        return;
    m_input = m_makeInput();
    if (m_input == nullptr)
        return;
    if (!m_input->open(*this)) {
        m_input.reset();
        waitForSequencer();
        return;
    }
    m_watcher.reset();
    for (const int descriptor : m_input->descriptors()) {
        auto notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
        connect(notifier.get(), &QSocketNotifier::activated, this, &MidiReceiver::readTurn);
        m_notifiers.push_back(std::move(notifier));
    }
    Q_EMIT portsChanged();
}

void MidiReceiver::close()
{
    m_watcher.reset();
    m_notifiers.clear();
    m_input.reset();
    m_continues = false;
    for (const MidiPort &port : std::exchange(m_ports, {}))
        Q_EMIT released(port.device);
    Q_EMIT portsChanged();
}

/// The system makes the folder when it knows its first sound device.
void MidiReceiver::waitForSequencer()
{
    if (m_watcher != nullptr)
        return;
    m_watcher = std::make_unique<QFileSystemWatcher>();
    const QString parent = QFileInfo(m_devices).path();
    m_watcher->addPath(QFileInfo::exists(m_devices) ? m_devices : parent);
    const auto tryAgain = [this] {
        if (QFileInfo::exists(m_devices) && !m_watcher->directories().contains(m_devices))
            m_watcher->addPath(m_devices);
        open();
    };
    // Not in the watcher's own call, because it is deleted when the sequencer is there.
    connect(m_watcher.get(), &QFileSystemWatcher::directoryChanged, this, tryAgain,
            Qt::QueuedConnection);
}

void MidiReceiver::readTurn()
{
    m_continues = false;
    readNow();
}

bool MidiReceiver::readNow()
{
    // What a message does may open a dialog, and its event loop may come here.
    if (m_input == nullptr || m_isReading)
        return true;
    m_isReading = true;
    const MidiInput::Rest rest = m_input->read(eventsPerTurn);
    m_isReading = false;
    if (rest == MidiInput::Rest::Broken) {
        close();
        waitForSequencer();
    } else if (rest == MidiInput::Rest::More && !std::exchange(m_continues, true)) {
        // The descriptors do not tell of what the library has read already.
        QMetaObject::invokeMethod(this, &MidiReceiver::readTurn, Qt::QueuedConnection);
    }
    Q_EMIT turnEnded();
    return rest != MidiInput::Rest::More;
}

void MidiReceiver::portFound(const MidiPort &port)
{
    const auto known = std::ranges::find(m_ports, port.device, &MidiPort::device);
    if (known != m_ports.end())
        *known = port;
    else
        m_ports.append(port);
    Q_EMIT portsChanged();
}

void MidiReceiver::portGone(std::uint32_t device)
{
    m_ports.removeIf([device](const MidiPort &port) { return port.device == device; });
    Q_EMIT released(device);
    Q_EMIT portsChanged();
}

void MidiReceiver::received(std::uint32_t device, std::span<const std::uint8_t> bytes,
                            std::chrono::microseconds time)
{
    const auto port = std::ranges::find(m_ports, device, &MidiPort::device);
    if (port == m_ports.end())
        return;
    const QByteArray data(reinterpret_cast<const char *>(bytes.data()),
                          static_cast<qsizetype>(bytes.size()));
    Q_EMIT messageReceived(*port, data, time.count());
}

void MidiReceiver::messagesLost()
{
    for (const MidiPort &port : std::as_const(m_ports))
        Q_EMIT released(port.device);
}

} // namespace lyrabox
