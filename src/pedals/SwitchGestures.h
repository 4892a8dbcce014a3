#pragma once

#include <chrono>
#include <optional>

namespace lyrabox {

/// A time of the steady clock. Only differences are meaningful.
using PedalTime = std::chrono::microseconds;

enum class PedalGesture { Tap, DoubleTap, Hold };

/// Which gestures of a switch have a command.
struct GesturesInUse {
    bool tap = false;
    bool doubleTap = false;
    bool hold = false;

    bool operator==(const GesturesInUse &) const = default;
};

/// Tells the gestures of one switch apart. It waits only as long as it must: a switch that has
/// nothing but a tap acts when it is pressed, and one with a tap and a hold when it is let go. It
/// has no clock of its own. All times must be given in order. One thread at a time.
class SwitchGestures {
public:
    /// From the press on.
    static constexpr PedalTime holdTime = std::chrono::milliseconds(500);
    /// From the first press to the second.
    static constexpr PedalTime doubleTapTime = std::chrono::milliseconds(350);
    /// A press that comes sooner than this after the one before is the contact that chatters.
    static constexpr PedalTime chatterTime = std::chrono::milliseconds(15);

    /// The switch goes down. `inUse` holds until the gesture is complete. Call advance() first.
    /// Each of these three functions returns the gesture that it completes, if any.
    std::optional<PedalGesture> press(PedalTime time, GesturesInUse inUse);
    std::optional<PedalGesture> release(PedalTime time);
    /// Time passes.
    std::optional<PedalGesture> advance(PedalTime now);

    /// When advance() completes a gesture, unless something else happens before. None if it
    /// doesn't.
    std::optional<PedalTime> deadline() const;

    /// The switch is gone, perhaps while it was held. The unfinished gesture is dropped.
    void cancel() { m_state = State::Idle; }

    /// Whether nothing is going on.
    bool isIdle() const { return m_state == State::Idle; }

private:
    enum class State {
        Idle,
        Down,  ///< pressed, and it may become any gesture
        Spent, ///< pressed, and its gesture is complete
        Up     ///< let go, and a second press would make a double tap
    };

    std::optional<PedalGesture> finish(PedalGesture gesture, State next);

    State m_state = State::Idle;
    GesturesInUse m_inUse;
    PedalTime m_pressed{};
    bool m_wasPressed = false;
};

} // namespace lyrabox
