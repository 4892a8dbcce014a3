#pragma once

#include "pedals/PedalBoard.h"
#include "pedals/SoftTakeOver.h"
#include "platform/midi/MidiReceiver.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <map>

namespace lyrabox {

/// Carries out what pedals say: receives MIDI while a map needs it or one is learnt, and gives the
/// commands with what was heard when they were pressed. Main thread.
class PedalPlayer : public QObject {
    Q_OBJECT

public:
    /// A value that dials set, from 0 to 1 for the whole way of a pedal.
    struct Value {
        QString name; ///< for people
        std::function<double()> get;
        std::function<void(double)> set;
        double step = 0.01; ///< of dials that send steps
    };

    /// What the player asks, and what it tells.
    struct Hooks {
        /// The frame that was heard such a time ago.
        std::function<quint64(std::chrono::microseconds age)> heardFrame;
        /// A command was given. `frame` was heard at the press, and `pressed` is its time.
        std::function<void(const QString &command, quint64 frame, PedalTime pressed)> perform;
        /// By their identifiers.
        std::map<QString, Value> values;
        /// The steady clock.
        std::function<PedalTime()> now;
    };

    PedalPlayer(Hooks hooks, MidiReceiver::MakeInput makeInput = {}, QObject *parent = nullptr);
    ~PedalPlayer() override;

    /// What pedals do from now on.
    void setMap(const PedalMap &map);
    const PedalMap &map() const { return m_board.map(); }

    /// While a pedal is learnt, messages are told of and do nothing.
    void setLearning(bool learning);

    const QList<MidiPort> &ports() const { return m_receiver.ports(); }
    bool isOpen() const { return m_receiver.isOpen(); }

    /// The steady clock.
    static PedalTime steadyNow();

Q_SIGNALS:
    /// While learning: a device sent something.
    void heard(const lyrabox::PedalControl &control, const lyrabox::MidiMessage &message);
    void portsChanged();

private:
    void take(const MidiPort &port, const QByteArray &bytes, qint64 time);
    void carryOut();
    void move(const PedalBoard::Move &move);
    void timeOut();

    Hooks m_hooks;
    PedalBoard m_board;
    std::map<quint32, MidiParser> m_parsers;             ///< by device
    std::map<PedalBoard::PressNumber, quint64> m_frames; ///< heard at the latest presses
    std::map<QString, SoftTakeOver> m_takeOvers;         ///< by control
    bool m_isLearning = false;
    QTimer m_timer;
    MidiReceiver m_receiver; ///< last, because it tells the others when it closes
};

} // namespace lyrabox
