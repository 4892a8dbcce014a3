#pragma once

#include "engine/LoopRange.h"

#include <QtGlobal>

#include <chrono>
#include <optional>

class LB_AudioController;

namespace lyrabox {

/// The place in the song, and the time, at which something was pressed that is carried out now. A
/// key is carried out when it is pressed. A pedal may come later: its tap waits for a second one.
struct PressedPlace {
    quint64 frame = 0;                   ///< that was heard
    std::chrono::milliseconds time = {}; ///< as monotonicTime()
};

/// While it exists, what is carried out was pressed at this place. Main thread.
class PressedPlaceScope {
public:
    explicit PressedPlaceScope(const PressedPlace &place);
    ~PressedPlaceScope();
    PressedPlaceScope(const PressedPlaceScope &) = delete;
    PressedPlaceScope &operator=(const PressedPlaceScope &) = delete;

private:
    std::optional<PressedPlace> m_outer;
};

/// The place of what is being carried out. Main thread.
PressedPlace pressedPlace(const LB_AudioController *audio);

/// The frame that was heard `age` before `heard` was, if nothing but a loop's jump came between.
/// `speed` is 1 for normal.
quint64 frameHeardBefore(quint64 heard, std::chrono::microseconds age, double speed,
                         const std::optional<LoopRange> &loop);

} // namespace lyrabox
