#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <chrono>
#include <map>
#include <utility>
#include <vector>

namespace lyrabox::test {

/// A test's end of the stand-in for the system's MIDI sequencer (StandInSequencer.cpp). Devices are
/// plugged in and out here, and sent from.
class FakeSequencer {
public:
    FakeSequencer();
    ~FakeSequencer();
    FakeSequencer(const FakeSequencer &) = delete;
    FakeSequencer &operator=(const FakeSequencer &) = delete;

    /// The value of LYRABOX_STAND_IN_SEQUENCER, by which the stand-in finds this object.
    QString path() const { return m_folder.filePath(QStringLiteral("seq")); }

    /// Makes a machine without a sequencer one that has it, or the other way round. There is one at
    /// first. Applies to those who open it afterwards.
    void setPresent(bool present);

    /// Plugs a device in: a client with one port.
    void plug(int client, const QString &clientName, const QString &portName, int port = 0);
    void unplug(int client);

    /// Sends messages from a port, all at once. The time of each is that of the call, or so much
    /// earlier, as if nobody had read them meanwhile.
    void send(int client, const std::vector<QByteArray> &messages, int port = 0,
              std::chrono::milliseconds age = {}) const;
    /// A switch of a common pedal, on channel 1.
    void press(int client, int controller = 64) const;
    void release(int client, int controller = 64) const;
    static QByteArray controllerBytes(int controller, int value);

    /// The reader is told that messages were lost.
    void loseMessages() const { tell("lost"); }
    /// The sequencer goes away.
    void breakDown();

    /// Whether somebody receives from the device now.
    bool isReceivedFrom(int client, int port = 0) const;
    /// The same, after waiting up to 20 s for it.
    bool comesToBeReceived(int client, int port = 0) const;
    /// Whether the sequencer was ever opened.
    bool wasOpened() const { return log().contains("open\n"); }

private:
    void tell(const QByteArray &text) const;
    void writePorts() const;
    /// What was done to the sequencer: "open", "connect 20:0", "end 20:0", "close".
    QByteArray log() const;

    QTemporaryDir m_folder;
    int m_socket;
    bool m_isPresent = true;
    std::map<std::pair<int, int>, QByteArray> m_ports;
};

} // namespace lyrabox::test
