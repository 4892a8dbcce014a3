#pragma once

#include "platform/midi/MidiInput.h"

#include <QFileSystemWatcher>
#include <QList>
#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <vector>

namespace lyrabox {

/// Receives MIDI on the main loop while it is wanted, and gives the rest of the program its turn
/// however much arrives. Where there is no sequencer it waits for one, without asking again and
/// again. Main thread.
class MidiReceiver : public QObject, private MidiInput::Listener {
    Q_OBJECT

public:
    using MakeInput = std::function<std::unique_ptr<MidiInput>()>;

    /// So many events are read before everything else has its turn.
    static constexpr int eventsPerTurn = 64;

    /// `makeInput` is called when MIDI is first wanted; it may return null. By default it opens the
    /// program's module. `devices` is the folder that changes when a sequencer appears.
    explicit MidiReceiver(MakeInput makeInput = {},
                          const QString &devices = QStringLiteral("/dev/snd"),
                          QObject *parent = nullptr);
    ~MidiReceiver() override;

    /// Begins or ends receiving. Nothing is open at first.
    void setWanted(bool wanted);
    bool isOpen() const { return m_input != nullptr; }

    /// The ports that are there now, in the order in which they appeared.
    const QList<MidiPort> &ports() const { return m_ports; }

    /// Reads what has arrived up to now, as far as one turn goes. False if there is more.
    bool readNow();

Q_SIGNALS:
    /// A message; `time` is of the steady clock, in microseconds.
    void messageReceived(const lyrabox::MidiPort &port, const QByteArray &bytes, qint64 time);
    /// What the device holds is let go.
    void released(quint32 device);
    void portsChanged();
    /// A turn of messages was delivered.
    void turnEnded();

private:
    void portFound(const MidiPort &port) override;
    void portGone(std::uint32_t device) override;
    void received(std::uint32_t device, std::span<const std::uint8_t> bytes,
                  std::chrono::microseconds time) override;
    void messagesLost() override;

    void open();
    void close();
    void waitForSequencer();
    void readTurn();

    MakeInput m_makeInput;
    QString m_devices;
    bool m_isWanted = false;
    bool m_continues = false; ///< a turn is due although no descriptor may tell
    bool m_isReading = false;
    std::unique_ptr<MidiInput> m_input;
    std::vector<std::unique_ptr<QSocketNotifier>> m_notifiers;
    std::unique_ptr<QFileSystemWatcher> m_watcher; ///< while a sequencer is waited for
    QList<MidiPort> m_ports;
};

} // namespace lyrabox
