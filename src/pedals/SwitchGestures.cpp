#include "pedals/SwitchGestures.h"

namespace lyrabox {

std::optional<PedalGesture> SwitchGestures::finish(PedalGesture gesture, State next)
{
    m_state = next;
    const bool hasCommand = gesture == PedalGesture::Tap         ? m_inUse.tap
                            : gesture == PedalGesture::DoubleTap ? m_inUse.doubleTap
                                                                 : m_inUse.hold;
    return hasCommand ? std::optional(gesture) : std::nullopt;
}

std::optional<PedalGesture> SwitchGestures::press(PedalTime time, GesturesInUse inUse)
{
    const bool chatters = m_wasPressed && time - m_pressed < chatterTime;
    if (chatters) {
        // It was not really let go.
        if (m_state == State::Up)
            m_state = State::Down;
        return std::nullopt;
    }
    const bool isSecond = m_state == State::Up;
    m_wasPressed = true;
    m_pressed = time;
    if (isSecond)
        return finish(PedalGesture::DoubleTap, State::Spent);
    m_inUse = inUse;
    if (!inUse.doubleTap && !inUse.hold)
        return finish(PedalGesture::Tap, State::Spent);
    m_state = State::Down;
    return std::nullopt;
}

std::optional<PedalGesture> SwitchGestures::release(PedalTime time)
{
    if (m_state == State::Spent)
        m_state = State::Idle;
    if (m_state != State::Down)
        return std::nullopt;
    if (m_inUse.hold && time - m_pressed >= holdTime)
        return finish(PedalGesture::Hold, State::Idle);
    if (m_inUse.doubleTap && time - m_pressed < doubleTapTime) {
        m_state = State::Up;
        return std::nullopt;
    }
    return finish(PedalGesture::Tap, State::Idle);
}

std::optional<PedalGesture> SwitchGestures::advance(PedalTime now)
{
    if (const auto end = deadline(); !end || now < *end)
        return std::nullopt;
    if (m_state == State::Up)
        return finish(PedalGesture::Tap, State::Idle);
    return finish(m_inUse.hold ? PedalGesture::Hold : PedalGesture::Tap, State::Spent);
}

std::optional<PedalTime> SwitchGestures::deadline() const
{
    if (m_state == State::Up)
        return m_pressed + doubleTapTime;
    if (m_state == State::Down)
        return m_pressed + (m_inUse.hold ? holdTime : doubleTapTime);
    return std::nullopt;
}

} // namespace lyrabox
