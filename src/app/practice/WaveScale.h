#pragma once

#include "engine/LoopRange.h"

#include <cstdint>

namespace lyrabox {

/// Which part of a song a wave shows. Frames may be fractions, and may lie outside the song.
struct WaveScale {
    double first = 0.0;          ///< the frame at the left edge
    double framesPerPoint = 1.0; ///< above 0

    double frameAt(double x) const { return first + x * framesPerPoint; }
    double xOf(double frame) const { return (frame - first) / framesPerPoint; }

    bool operator==(const WaveScale &) const = default;
};

/// A song of `frames` frames in a view that is `width` points wide. Decides what the view can show.
/// Any part of the song can be brought under the line, and no more than the whole song is shown.
class WaveArea {
public:
    /// Where the line stands while the wave moves: a part of the width.
    static constexpr double linePart = 0.38;
    /// The closest that the user can look at a song.
    static constexpr double leastFramesPerPoint = 0.25;

    /// A width of less than one point counts as one.
    WaveArea(std::uint64_t frames, double width);

    /// The whole song, from edge to edge.
    WaveScale wholeSong() const;
    /// `seconds` of a song at `rate` frames per second, or the whole song if it is shorter, with
    /// `line` under the line.
    WaveScale seconds(double seconds, double rate, double line) const;
    /// The loop with some room on both sides.
    WaveScale loop(LoopRange range) const;
    /// `scale` with `factor` times the frames; below 1 is closer. The frame at `x` stays at its
    /// place if the ends of the song permit it.
    WaveScale zoomed(WaveScale scale, double factor, double x) const;
    /// `scale` moved by `points`; positive numbers show what comes later.
    WaveScale scrolled(WaveScale scale, double points) const;
    /// `scale` with `frame` under the line. While the whole song is shown, it does not move.
    WaveScale following(WaveScale scale, double frame) const;
    /// `scale` with the song in the view as far as possible, for a song or a width that is new.
    WaveScale inside(WaveScale scale) const;

private:
    double m_frames;
    double m_width;
};

} // namespace lyrabox
