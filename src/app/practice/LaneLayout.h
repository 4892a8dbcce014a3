#pragma once

#include "app/practice/LoopHands.h"
#include "app/practice/WaveScale.h"
#include "practice/PracticeRecord.h"

#include <QPointF>

#include <functional>
#include <optional>
#include <vector>

namespace lyrabox {

/// Where the lane above a wave shows loops and markers, as pure decisions. Places are points.
namespace laneLayout {

inline constexpr double flagWidth = 9.0;
inline constexpr double nameGap = 4.0;      ///< before and after a name
inline constexpr double leastName = 24.0;   ///< a narrower name is not shown
inline constexpr double mostName = 160.0;   ///< of a marker
inline constexpr double flagDistance = 4.0; ///< flags that are nearer together are one

/// The room of a name; no width if it is not shown.
struct NameRoom {
    double left = 0.0;
    double width = 0.0;

    bool operator==(const NameRoom &) const = default;
};

/// A loop. Its ends may lie beyond the edges.
struct Bracket {
    PracticeId id = 0; ///< 0 if the loop is not kept
    double left = 0.0;
    double right = 0.0;
    int colour = 1; ///< as PracticeLoop::colour
    bool sounds = false;
    bool isWithin = true; ///< the song
    NameRoom name = {};
};

/// A marker.
struct Flag {
    PracticeId id = 0;
    double x = 0.0;
    NameRoom name = {};
};

/// What can be seen. Later ones are drawn above earlier ones: short brackets above long ones, and
/// the one that sounds above all.
struct Lane {
    std::vector<Bracket> brackets;
    std::vector<Flag> flags; ///< from left to right
};

/// The loop that sounds; `id` is 0 if it is not kept.
struct Sounding {
    LoopRange range;
    PracticeId id = 0;
};

/// The part of a song that the lane shows.
struct View {
    WaveScale scale;
    double width = 0.0;           ///< of the lane
    double ratio = 1.0;           ///< device pixels per point; everything lies on whole ones
    std::uint64_t songFrames = 0; ///< 0 if unknown
};

/// The width of the name of a loop or a marker.
using NameWidth = std::function<double(PracticeId)>;

/// Finds a place for everything that can be seen. Names do not overlap each other, nor flags.
Lane lay(const PracticeRecord &record, const View &view, const std::optional<Sounding> &sounding,
         const NameWidth &nameWidth);

/// What lies at a point of the lane.
struct Hit {
    enum class Kind {
        Nothing,
        Marker,
        Loop,
        Sounding, ///< the bracket of the loop that sounds, or one of its ends
    };
    Kind kind = Kind::Nothing;
    PracticeId id = 0;
    loopHands::Grip grip = loopHands::Grip::Nothing; ///< of a loop

    bool operator==(const Hit &) const = default;
};

Hit hitAt(const Lane &lane, double x);

} // namespace laneLayout
} // namespace lyrabox
