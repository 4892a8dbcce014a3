#pragma once

#include "engine/LoopRange.h"
#include "practice/BeatGrid.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace lyrabox {

/// What a wave shows of a grid, and what snaps to it, as pure decisions. Frames are those of the
/// song.
namespace beatMarks {

/// Beats nearer together than this are not drawn, in points; bars likewise.
inline constexpr double leastDistance = 7.0;
/// From the number of a bar to the next one.
inline constexpr double labelDistance = 56.0;

/// Whether a beat at a frame is shown, and snapped to: it is known, or it follows the last known
/// beat, or comes before the first, by a bar at most.
bool isShown(const BeatGrid &grid, double frame);

/// The length of the bar at a frame, in beats. The grid must not be empty.
int beatsPerBarAt(const BeatGrid &grid, std::uint64_t frame);

/// The shown beat nearest to a frame, at most `reach` frames away.
std::optional<std::uint64_t> nearestBeat(const BeatGrid &grid, double frame, double reach);

/// Which beats are drawn where a point of the view has so many frames. It is one decision for the
/// whole song, so that the picture does not change while it moves.
struct Density {
    bool hasBeats = false; ///< or only first beats of bars
    int bars = 1;          ///< one bar of so many is drawn
    int labels = 1;        ///< likewise its number
};
Density density(const BeatGrid &grid, double framesPerPoint);

/// A line, in columns of a wave.
struct Line {
    std::int64_t column = 0;
    bool isBar = false;

    bool operator==(const Line &) const = default;
};

/// The lines of the columns from `first` up to, but not including, `end`. A column has
/// `columnFrames` frames. Without labels, as for a suggestion, no line is that of a bar.
std::vector<Line> lines(const BeatGrid &grid, const Density &density, double columnFrames,
                        std::int64_t first, std::int64_t end, bool hasBars = true);

/// The number of a bar at its first beat.
struct Label {
    double frame = 0.0;
    int bar = 1;
};

/// The numbers to show between two frames.
std::vector<Label> labels(const BeatGrid &grid, const Density &density, double from, double to);

/// Where the beats are lost. `sounding` is the part of the song with notes: before and behind the
/// grid, only what lies in it counts, if it is longer than a bar.
std::vector<LoopRange> lostParts(const BeatGrid &grid, LoopRange sounding);

} // namespace beatMarks
} // namespace lyrabox
