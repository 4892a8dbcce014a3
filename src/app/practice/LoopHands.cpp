#include "app/practice/LoopHands.h"

#include "app/practice/BeatMarks.h"
#include "platform/analysis/Attacks.h"
#include "platform/analysis/ZeroCrossings.h"

#include <algorithm>
#include <cmath>

namespace lyrabox::loopHands {

namespace {

constexpr double longestSnapSeconds = 1.0;

std::uint64_t insideSong(double frame, const SongSamples &song)
{
    return static_cast<std::uint64_t>(
        std::clamp(std::round(frame), 0.0, static_cast<double>(song.frames())));
}

std::optional<LoopRange> newLoop(const Drag &drag, double to, const Snap &snap, std::uint64_t least,
                                 const SongSamples &song)
{
    const std::uint64_t start = placed(std::min(drag.from, to), snap, song);
    const std::uint64_t end = placed(std::max(drag.from, to), snap, song);
    if (end < start + least)
        return {};
    return LoopRange{start, end};
}

/// The loop with its start at `start`, as far as the song permits.
LoopRange moved(LoopRange loop, std::uint64_t start, const SongSamples &song)
{
    const std::uint64_t length = std::min(loop.end - loop.start, song.frames());
    const std::uint64_t inside = std::min(start, song.frames() - length);
    return {inside, inside + length};
}

} // namespace

Grip gripAt(QPointF point, double startX, double endX, double bracketBottom)
{
    const double fromStart = std::abs(point.x() - startX);
    const double fromEnd = std::abs(point.x() - endX);
    if (std::min(fromStart, fromEnd) <= reach)
        return fromStart < fromEnd ? Grip::Start : Grip::End;
    const bool isBetween = point.x() > startX && point.x() < endX;
    return isBetween && point.y() < bracketBottom ? Grip::Whole : Grip::Nothing;
}

std::uint64_t placed(double frame, const Snap &snap, const SongSamples &song)
{
    const std::uint64_t place = insideSong(frame, song);
    // In a view of hours, a few points are minutes, and a search would take seconds.
    const auto longest = static_cast<std::uint64_t>(longestSnapSeconds * song.sampleRate);
    const std::uint64_t reached = std::min(snap.reach, longest);
    if (reached == 0)
        return place;
    if (snap.beats != nullptr) {
        const auto beat = beatMarks::nearestBeat(*snap.beats, static_cast<double>(place),
                                                 static_cast<double>(reached));
        if (beat && *beat <= song.frames())
            return *beat;
    }
    if (const auto attack = nearestAttack(song, place, reached, reached))
        return attack->frame;
    return nearestZeroCrossing(song, place, reached);
}

std::optional<LoopRange> dragged(const Drag &drag, double to, const Snap &snap,
                                 const SongSamples &song)
{
    const auto least = static_cast<std::uint64_t>(leastSeconds * song.sampleRate);
    LoopRange loop = drag.loop;
    const double by = to - drag.from;
    switch (drag.grip) {
    case Grip::Start:
        // An end keeps its distance from the pointer, which may have taken it beside its place.
        loop.start = placed(static_cast<double>(loop.start) + by, snap, song);
        loop.start = std::min(loop.start, loop.end - std::min(loop.end, least));
        return loop;
    case Grip::End:
        loop.end = placed(static_cast<double>(loop.end) + by, snap, song);
        loop.end = std::max(loop.end, std::min(loop.start + least, song.frames()));
        return loop;
    case Grip::Whole:
        return moved(loop, placed(static_cast<double>(loop.start) + by, snap, song), song);
    case Grip::Nothing:
        break;
    }
    return newLoop(drag, to, snap, least, song);
}

std::uint64_t playedFrom(Grip grip, LoopRange loop, double sampleRate)
{
    if (grip != Grip::End)
        return loop.start;
    const auto before = static_cast<std::uint64_t>(secondsBeforeEnd * sampleRate);
    return std::max(loop.start, loop.end - std::min(loop.end, before));
}

} // namespace lyrabox::loopHands
