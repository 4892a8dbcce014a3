#include "app/pedals/PedalPlayer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

namespace {

/// Presses whose commands are still to come. A command comes with its switch's next press at the
/// latest.
constexpr std::size_t mostFrames = 512;

} // namespace

PedalTime PedalPlayer::steadyNow()
{
    return std::chrono::duration_cast<PedalTime>(
        std::chrono::steady_clock::now().time_since_epoch());
}

PedalPlayer::PedalPlayer(Hooks hooks, MidiReceiver::MakeInput makeInput, QObject *parent)
    : QObject(parent), m_hooks(std::move(hooks)), m_receiver(std::move(makeInput))
{
    if (!m_hooks.now)
        m_hooks.now = &PedalPlayer::steadyNow;
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &PedalPlayer::timeOut);
    connect(&m_receiver, &MidiReceiver::messageReceived, this, &PedalPlayer::take);
    connect(&m_receiver, &MidiReceiver::turnEnded, this, &PedalPlayer::carryOut);
    connect(&m_receiver, &MidiReceiver::portsChanged, this, &PedalPlayer::portsChanged);
    connect(&m_receiver, &MidiReceiver::released, this, [this](quint32 device) {
        m_parsers.erase(device);
        m_board.release(device);
    });
}

PedalPlayer::~PedalPlayer()
{
    m_receiver.disconnect(this);
}

void PedalPlayer::setMap(const PedalMap &map)
{
    m_board.setMap(map);
    m_frames.clear();
    m_takeOvers.clear();
    m_timer.stop();
    m_receiver.setWanted(m_isLearning || map.hasMidi());
}

void PedalPlayer::setLearning(bool learning)
{
    if (std::exchange(m_isLearning, learning) == learning)
        return;
    // What is held now is let go while nothing listens to it.
    setMap(PedalMap(m_board.map()));
}

void PedalPlayer::take(const MidiPort &port, const QByteArray &bytes, qint64 time)
{
    MidiParser &parser = m_parsers[port.device];
    for (const char byte : bytes) {
        const auto message = parser.take(static_cast<std::uint8_t>(byte));
        if (!message)
            continue;
        if (m_isLearning) {
            Q_EMIT heard(controlOf(*message, port.name), *message);
            continue;
        }
        const PedalTime pressed(time);
        const auto press = m_board.take(port.device, port.name, *message, pressed);
        if (!press)
            continue;
        const PedalTime age = std::max(PedalTime{}, m_hooks.now() - pressed);
        m_frames[*press] = m_hooks.heardFrame(age);
        if (m_frames.size() > mostFrames)
            m_frames.erase(m_frames.begin());
    }
}

void PedalPlayer::carryOut()
{
    for (const PedalBoard::Move &each : m_board.takeMoves())
        move(each);
    for (const PedalBoard::Command &command : m_board.takeCommands()) {
        const auto frame = m_frames.find(command.press);
        if (frame == m_frames.end())
            continue;
        m_hooks.perform(command.command, frame->second, command.pressed);
    }
    const auto deadline = m_board.deadline();
    if (!deadline) {
        m_timer.stop();
        return;
    }
    const PedalTime wait = std::max(PedalTime{}, *deadline - m_hooks.now());
    m_timer.start(std::chrono::ceil<std::chrono::milliseconds>(wait));
}

void PedalPlayer::move(const PedalBoard::Move &move)
{
    const auto found = m_hooks.values.find(move.target);
    if (found == m_hooks.values.end())
        return;
    const Value &value = found->second;
    const double before = value.get();
    if (move.form != PedalDial::Form::Position) {
        if (move.steps != 0)
            value.set(before + move.steps * value.step);
        return;
    }
    SoftTakeOver &takeOver = m_takeOvers[move.control.port + controlText(move.control) +
                                         QString::number(move.control.channel)];
    takeOver.passBy(move.lowest);
    takeOver.passBy(move.highest);
    if (const auto wanted = takeOver.move(move.position, before)) {
        value.set(*wanted);
        takeOver.setReached(value.get());
    }
}

/// What has arrived, but was not read, may have ended what is waited for.
void PedalPlayer::timeOut()
{
    if (!m_receiver.readNow())
        return; // another turn follows, which comes here again
    m_board.advance(m_hooks.now());
    carryOut();
}

} // namespace lyrabox
