#include "app/practice/LoopEdits.h"

#include "platform/analysis/Attacks.h"
#include "practice/SongTime.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace lyrabox::loopEdits {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::LoopEdits)
};

constexpr double lateSeconds = 0.25;  // before a place that was pressed
constexpr double earlySeconds = 0.05; // behind it

std::uint64_t framesOf(double seconds)
{
    return static_cast<std::uint64_t>(std::llround(seconds * static_cast<double>(practiceRate)));
}

constexpr auto leastFrames = static_cast<std::uint64_t>(loopHands::leastSeconds * practiceRate);

/// A marker set by hand lies this far from the start of its loop at most.
constexpr std::uint64_t markerReach = practiceRate / 4;

std::uint64_t distance(std::uint64_t a, std::uint64_t b)
{
    return a > b ? a - b : b - a;
}

/// The name of the nearest marker at `frame`; empty if there is none.
QString markerName(const PracticeRecord &record, std::uint64_t frame)
{
    const PracticeMarker *nearest = nullptr;
    for (const PracticeMarker &marker : record.markers) {
        const std::uint64_t reached =
            nearest != nullptr ? distance(nearest->at, frame) : markerReach + 1;
        if (!marker.name.isEmpty() && distance(marker.at, frame) < reached)
            nearest = &marker;
    }
    return nearest != nullptr ? nearest->name : QString();
}

QString freeName(const PracticeRecord &record)
{
    for (std::size_t number = record.loops.size() + 1;; ++number) {
        QString name = Text::tr("Loop %1").arg(number);
        if (std::ranges::find(record.loops, name, &PracticeLoop::name) == record.loops.end())
            return name;
    }
}

} // namespace

PracticeLoop keptLoop(const PracticeRecord &record, LoopRange range)
{
    PracticeLoop loop;
    loop.name = markerName(record, range.start);
    if (loop.name.isEmpty())
        loop.name = freeName(record);
    loop.from = range.start;
    loop.to = range.end;
    loop.colour = static_cast<int>(record.loops.size() % PracticeLimits::colours) + 1;
    return loop;
}

LoopRange moved(LoopRange loop, loopHands::Grip grip, int milliseconds, std::uint64_t songFrames)
{
    if (loop.end <= loop.start || loop.end > songFrames)
        return loop;
    const std::uint64_t way = framesOf(std::abs(milliseconds) / 1000.0);
    const std::uint64_t length = loop.end - loop.start;
    const std::uint64_t spare = length - std::min(length, leastFrames);
    const bool isEarlier = milliseconds < 0;
    const std::uint64_t beforeStart = std::min(way, loop.start);
    const std::uint64_t behindEnd = std::min(way, songFrames - loop.end);
    const auto shifted = [isEarlier](std::uint64_t place, std::uint64_t by) {
        return isEarlier ? place - by : place + by;
    };
    switch (grip) {
    case loopHands::Grip::Start:
        loop.start = shifted(loop.start, isEarlier ? beforeStart : std::min(way, spare));
        break;
    case loopHands::Grip::End:
        loop.end = shifted(loop.end, isEarlier ? std::min(way, spare) : behindEnd);
        break;
    case loopHands::Grip::Whole: {
        const std::uint64_t by = isEarlier ? beforeStart : behindEnd;
        loop = {.start = shifted(loop.start, by), .end = shifted(loop.end, by)};
        break;
    }
    case loopHands::Grip::Nothing:
        break;
    }
    return loop;
}

LoopRange movedByBeats(LoopRange loop, loopHands::Grip grip, int beats, const BeatGrid &grid,
                       std::uint64_t songFrames)
{
    if (loop.end <= loop.start || loop.end > songFrames)
        return loop;
    const auto shifted = [&](std::uint64_t place) {
        return std::round(grid.frameOfBeats(grid.beatsAt(static_cast<double>(place)) + beats));
    };
    const auto frames = static_cast<double>(songFrames);
    const auto least = static_cast<double>(leastFrames);
    const double start = shifted(loop.start);
    const double end = shifted(loop.end);
    switch (grip) {
    case loopHands::Grip::Start: {
        // A loop that is shorter than the shortest stays as long as it is.
        const double latest =
            std::max(static_cast<double>(loop.start), static_cast<double>(loop.end) - least);
        loop.start = static_cast<std::uint64_t>(std::clamp(start, 0.0, latest));
        break;
    }
    case loopHands::Grip::End: {
        const double earliest =
            std::min(static_cast<double>(loop.end), static_cast<double>(loop.start) + least);
        loop.end = static_cast<std::uint64_t>(std::clamp(end, earliest, frames));
        break;
    }
    case loopHands::Grip::Whole:
        if (start >= 0.0 && end <= frames && end >= start + least)
            loop = {.start = static_cast<std::uint64_t>(start),
                    .end = static_cast<std::uint64_t>(end)};
        break;
    case loopHands::Grip::Nothing:
        break;
    }
    return loop;
}

LoopRange tidied(LoopRange loop, const SongSamples &song, double speed)
{
    const std::uint64_t before = framesOf(lateSeconds * speed);
    const std::uint64_t after = framesOf(earlySeconds * speed);
    const auto placed = [&](std::uint64_t frame) {
        const std::optional<Attack> attack = nearestAttack(song, frame, before, after);
        return attack ? attack->frame : frame;
    };
    const LoopRange tidy{.start = placed(loop.start), .end = placed(loop.end)};
    return tidy.end < tidy.start + leastFrames ? loop : tidy;
}

LoopRange secondHalf(LoopRange loop)
{
    if (loop.end < loop.start + 2 * leastFrames)
        return loop;
    return {.start = loop.start + (loop.end - loop.start) / 2, .end = loop.end};
}

LoopRange twiceAsLong(LoopRange loop, std::uint64_t songFrames)
{
    if (loop.end <= loop.start || loop.end > songFrames)
        return loop;
    const std::uint64_t added = std::min(loop.end - loop.start, songFrames - loop.end);
    return {.start = loop.start, .end = loop.end + added};
}

std::optional<PracticeId> neighbourLoop(const PracticeRecord &record,
                                        std::optional<PracticeId> calledUp, std::uint64_t position,
                                        std::uint64_t songFrames, bool isNext)
{
    const auto isFree = [&](const PracticeLoop &loop) {
        return loop.isWithin(songFrames) && loop.id != calledUp;
    };
    const auto begin = record.loops.begin();
    const auto end = record.loops.end();
    // The first one behind the position, or the loop that is called up.
    auto middle = calledUp
                      ? std::ranges::find(record.loops, *calledUp, &PracticeLoop::id)
                      : std::ranges::upper_bound(record.loops, position, {}, &PracticeLoop::from);
    if (isNext) {
        const auto found = std::find_if(middle, end, isFree);
        return found == end ? std::nullopt : std::optional(found->id);
    }
    while (middle != begin) {
        --middle;
        if (isFree(*middle))
            return middle->id;
    }
    return std::nullopt;
}

std::optional<PracticeId> neighbourMarker(const PracticeRecord &record, std::uint64_t position,
                                          std::uint64_t songFrames, std::uint64_t reach,
                                          bool isNext)
{
    std::optional<PracticeId> found;
    for (const PracticeMarker &marker : record.markers) {
        if (marker.at >= songFrames)
            break;
        if (isNext && marker.at > position)
            return marker.id;
        if (!isNext && marker.at + reach < position)
            found = marker.id;
    }
    return found;
}

const PracticeLoop *sameLoop(const PracticeRecord &record, const PracticeLoop &loop)
{
    const auto found = std::ranges::find_if(record.loops, [&](const PracticeLoop &other) {
        return other.name == loop.name && other.from == loop.from && other.to == loop.to;
    });
    return found == record.loops.end() ? nullptr : &*found;
}

} // namespace lyrabox::loopEdits
