#pragma once

#include "app/practice/LoopHands.h"
#include "engine/LoopRange.h"
#include "platform/analysis/SongSamples.h"
#include "practice/PracticeRecord.h"

#include <cstdint>
#include <optional>

namespace lyrabox {

/// What the keys do with loops and markers, as pure decisions. Frames are those of the song.
namespace loopEdits {

/// The loop that a record gets for `range`: with the name of the marker that it starts at, or else
/// "Loop 3", and with the next colour.
PracticeLoop keptLoop(const PracticeRecord &record, LoopRange range);

/// `loop` with what `grip` says moved by so many milliseconds, as far as the song permits. An end
/// stops where the loop would get shorter than loopHands::leastSeconds, and nothing moves if
/// `songFrames` is less than the loop's end.
LoopRange moved(LoopRange loop, loopHands::Grip grip, int milliseconds, std::uint64_t songFrames);

/// The same by so many beats of a grid that is not empty: a place between two beats comes to lie
/// between two others. A whole loop keeps its length in beats, and stays if it would pass an end of
/// the song.
LoopRange movedByBeats(LoopRange loop, loopHands::Grip grip, int beats, const BeatGrid &grid,
                       std::uint64_t songFrames);

/// The loop with both ends at the attacks that were meant. People press late, so they are searched
/// from 250 ms before an end to 50 ms behind it, in the time that passes at `speed` (1.0 is
/// normal). An end without an attack stays, and both do if nothing would be left between them.
/// Takes some milliseconds.
LoopRange tidied(LoopRange loop, const SongSamples &song, double speed);

/// The second half of a loop. The shortest loops stay as they are.
LoopRange secondHalf(LoopRange loop);

/// The loop with its end twice as far from its start, or at the end of the song.
LoopRange twiceAsLong(LoopRange loop, std::uint64_t songFrames);

/// The next loop of the list, or the one before, after the one that is called up; else after the
/// frame `position`. Loops beyond the song's end are skipped. None behind the last and before the
/// first one.
std::optional<PracticeId> neighbourLoop(const PracticeRecord &record,
                                        std::optional<PracticeId> calledUp, std::uint64_t position,
                                        std::uint64_t songFrames, bool isNext);

/// The next marker after the frame `position`, or the last one more than `reach` frames before it.
/// None beyond the song's end.
std::optional<PracticeId> neighbourMarker(const PracticeRecord &record, std::uint64_t position,
                                          std::uint64_t songFrames, std::uint64_t reach,
                                          bool isNext);

/// The loop with the name and the places of `loop`; null if there is none.
const PracticeLoop *sameLoop(const PracticeRecord &record, const PracticeLoop &loop);

} // namespace loopEdits
} // namespace lyrabox
