#pragma once

#include "engine/LoopRange.h"
#include "platform/analysis/SongSamples.h"
#include "practice/BeatGrid.h"

#include <QPointF>

#include <cstdint>
#include <optional>

namespace lyrabox {

/// What the mouse does with loops on a wave, as pure decisions. Frames are those of the song.
namespace loopHands {

/// What a drag moves.
enum class Grip {
    Nothing, ///< a drag from here makes a new loop
    Start,
    End,
    Whole
};

/// Distances in points.
inline constexpr double reach = 5.0;     ///< of the ends of a loop
inline constexpr double snapReach = 6.0; ///< of places that an end snaps to
/// The shortest loop that a drag makes, in seconds.
inline constexpr double leastSeconds = 0.01;
/// After its end was moved, a loop plays from so many seconds before it.
inline constexpr double secondsBeforeEnd = 1.5;

/// What is at `point` if the loop reaches from `startX` to `endX`. Its bracket lies above
/// `bracketBottom`.
Grip gripAt(QPointF point, double startX, double endX, double bracketBottom);

/// A drag that began at the frame `from`.
struct Drag {
    Grip grip = Grip::Nothing;
    double from = 0.0;
    LoopRange loop{0, 0}; ///< as it was at the beginning; no matter with Grip::Nothing
};

/// What a drag snaps to: places at most so many frames away. More than a second is never searched.
struct Snap {
    Snap(std::uint64_t frames = 0, const BeatGrid *grid = nullptr) : reach(frames), beats(grid) {}

    std::uint64_t reach;   ///< 0: it snaps to nothing
    const BeatGrid *beats; ///< null if it does not snap to beats
};

/// Where something that is dragged to `frame` is placed, within the song: at the nearest beat that
/// is shown, or without one at the nearest attack, or at the nearest zero crossing of both
/// channels.
std::uint64_t placed(double frame, const Snap &snap, const SongSamples &song);

/// The loop of a drag that has come to the frame `to`, within the song. Its ends are placed as
/// placed() says. A whole loop keeps its length, and its start is placed. Nothing if a new loop
/// would be shorter than `leastSeconds`. Takes some milliseconds.
std::optional<LoopRange> dragged(const Drag &drag, double to, const Snap &snap,
                                 const SongSamples &song);

/// Where playback goes on after the drag, so that what has changed is heard at once.
std::uint64_t playedFrom(Grip grip, LoopRange loop, double sampleRate);

} // namespace loopHands
} // namespace lyrabox
