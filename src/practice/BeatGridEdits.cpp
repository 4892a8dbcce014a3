#include "practice/BeatGridEdits.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

namespace {

using Anchors = std::vector<BeatAnchor>;

/// Of a grid that can be scaled: those of eight hours.
constexpr double mostBeats = 100'000.0;

/// An anchor by its beat since the first anchor instead of by its bar.
struct Knot {
    std::int64_t beats = 0;
    std::uint64_t frame = 0;
    int beatsPerBar = 4;
    bool isLost = false;
};

std::vector<Knot> knotsOf(const BeatGrid &grid)
{
    std::vector<Knot> knots;
    for (const BeatAnchor &anchor : grid.anchors())
        knots.push_back({std::llround(grid.beatsAt(static_cast<double>(anchor.frame))),
                         anchor.frame, anchor.beatsPerBar, anchor.isLost});
    return knots;
}

/// Moves an anchor's bar and beat on, or back if `beats` is negative.
void count(BeatAnchor &anchor, std::int64_t beats)
{
    const std::int64_t inBar = anchor.beat - 1 + beats;
    std::int64_t bars = inBar / anchor.beatsPerBar;
    if (inBar % anchor.beatsPerBar < 0)
        --bars;
    anchor.bar += static_cast<int>(bars);
    anchor.beat = static_cast<int>(inBar - bars * anchor.beatsPerBar) + 1;
}

/// The anchors of knots, of which the first has that beat of its bar.
Anchors numbered(const std::vector<Knot> &knots, int firstBeat)
{
    Anchors anchors;
    BeatAnchor anchor{
        .bar = firstBeat == 1 ? 1 : 0, .beat = firstBeat, .beatsPerBar = knots.front().beatsPerBar};
    std::int64_t beats = knots.front().beats;
    for (const Knot &knot : knots) {
        count(anchor, knot.beats - beats);
        beats = knot.beats;
        anchor.frame = knot.frame;
        anchor.beatsPerBar = knot.beatsPerBar;
        anchor.isLost = knot.isLost;
        anchors.push_back(anchor);
    }
    return anchors;
}

std::uint64_t frameAt(const BeatGrid &grid, std::int64_t beats)
{
    return static_cast<std::uint64_t>(
        std::max<long long>(0, std::llround(grid.frameOfBeats(static_cast<double>(beats)))));
}

/// The first so many anchors, or those from an index on, with the bars numbered from there.
BeatGrid part(const Anchors &anchors, std::size_t from, std::size_t to)
{
    return BeatGrid({anchors.begin() + static_cast<std::ptrdiff_t>(from),
                     anchors.begin() + static_cast<std::ptrdiff_t>(to)});
}

/// The parts of a grid between which the beats are lost.
std::vector<BeatGrid> runsOf(const BeatGrid &grid)
{
    std::vector<BeatGrid> runs;
    const Anchors &anchors = grid.anchors();
    std::size_t from = 0;
    for (std::size_t i = 0; i < anchors.size(); ++i) {
        if (!anchors[i].isLost && i + 1 < anchors.size())
            continue;
        if (BeatGrid run = part(anchors, from, i + 1); !run.isEmpty())
            runs.push_back(std::move(run));
        from = i + 1;
    }
    return runs;
}

/// Puts anchors behind those that are there. The beats between are lost, and the bars go on with
/// about the number that they would have had.
void append(Anchors &anchors, const Anchors &more)
{
    if (!anchors.empty()) {
        const BeatGrid before(anchors);
        const BarPlace there = before.placeAt(static_cast<double>(more.front().frame));
        const int bar = std::max(anchors.back().bar + 1, there.bar);
        const int shift = bar - more.front().bar;
        anchors.back().isLost = true;
        for (BeatAnchor anchor : more) {
            anchor.bar += shift;
            anchors.push_back(anchor);
        }
    } else {
        anchors = more;
    }
}

/// The anchors, unless some of them would be left out of a grid.
BeatGrid gridOrElse(const Anchors &anchors, const BeatGrid &otherwise)
{
    BeatGrid grid(anchors);
    return !grid.isEmpty() && grid.anchors().size() == anchors.size() ? grid : otherwise;
}

BeatGrid scaledRun(const BeatGrid &run, double beatsOfEach)
{
    const BeatAnchor &first = run.anchors().front();
    // Beats from the first anchor to the first beat of a bar.
    const int toBar = first.beat == 1 ? 0 : first.beatsPerBar + 1 - first.beat;
    const double last = run.beatsAt(static_cast<double>(run.anchors().back().frame));
    std::vector<std::uint64_t> frames;
    std::size_t one = 0;
    if (last / beatsOfEach > mostBeats)
        return {};
    const auto begin = static_cast<std::int64_t>(std::ceil(-toBar / beatsOfEach - 1.0e-6));
    for (std::int64_t beat = begin;; ++beat) {
        const double place = toBar + static_cast<double>(beat) * beatsOfEach;
        if (place > last + 1.0e-6)
            break;
        if (beat == 0)
            one = frames.size();
        frames.push_back(static_cast<std::uint64_t>(
            std::max<long long>(0, std::llround(run.frameOfBeats(place)))));
    }
    return fittedGrid(frames, one, first.beatsPerBar);
}

} // namespace

BeatGrid scaledGrid(const BeatGrid &grid, BeatScale scale)
{
    const double beatsOfEach = scale == BeatScale::Half     ? 2.0
                               : scale == BeatScale::Double ? 0.5
                                                            : 2.0 / 3.0;
    Anchors anchors;
    for (const BeatGrid &run : runsOf(grid)) {
        const BeatGrid scaled = scaledRun(run, beatsOfEach);
        if (scaled.isEmpty())
            return grid;
        append(anchors, scaled.anchors());
    }
    return gridOrElse(anchors, grid);
}

BeatGrid shiftedGrid(const BeatGrid &grid, int beats)
{
    if (grid.isEmpty())
        return grid;
    const std::vector<Knot> knots = knotsOf(grid);
    // Where the length of the bars changes, an anchor is needed.
    std::vector<Knot> shifted;
    for (const Knot &knot : knots)
        shifted.push_back({knot.beats, knot.frame, 0, knot.isLost});
    for (std::size_t i = 1; i < knots.size(); ++i) {
        const std::int64_t at = knots[i].beats + beats;
        if (knots[i].beatsPerBar == knots[i - 1].beatsPerBar || at <= 0)
            continue;
        const auto next = std::find_if(shifted.begin(), shifted.end(),
                                       [at](const Knot &knot) { return knot.beats >= at; });
        if (next == shifted.end() || next->beats != at)
            shifted.insert(next, {at, frameAt(grid, at), 0, (next - 1)->isLost});
    }
    for (Knot &knot : shifted) {
        const auto after = std::find_if(knots.begin() + 1, knots.end(), [&](const Knot &other) {
            return other.beats + beats > knot.beats;
        });
        knot.beatsPerBar = (after - 1)->beatsPerBar;
    }
    BeatAnchor first = grid.anchors().front();
    first.beatsPerBar = shifted.front().beatsPerBar;
    count(first, -std::int64_t{beats});
    return gridOrElse(numbered(shifted, first.beat), grid);
}

BeatGrid gridWithBars(const BeatGrid &grid, std::uint64_t frame, int beatsPerBar)
{
    if (grid.isEmpty() || beatsPerBar < BeatGrid::shortestBar || beatsPerBar > BeatGrid::longestBar)
        return grid;
    std::vector<Knot> knots = knotsOf(grid);
    const BarPlace place = grid.placeAt(static_cast<double>(frame));
    const double start = grid.frameOf({.bar = place.bar, .beat = 1.0});
    const auto from = std::llround(grid.beatsAt(start));
    int firstBeat = grid.anchors().front().beat;
    if (from <= 0) {
        // The first anchor is in this bar or behind its beginning.
        firstBeat = static_cast<int>(-from % beatsPerBar) + 1;
    } else {
        const auto next = std::find_if(knots.begin(), knots.end(),
                                       [from](const Knot &knot) { return knot.beats >= from; });
        if (next == knots.end() || next->beats != from)
            knots.insert(next, {from, frameAt(grid, from), beatsPerBar, (next - 1)->isLost});
    }
    for (Knot &knot : knots) {
        if (knot.beats >= from)
            knot.beatsPerBar = beatsPerBar;
    }
    return gridOrElse(numbered(knots, firstBeat), grid);
}

BeatGrid gridWithBeatAt(const BeatGrid &grid, std::uint64_t frame, std::uint64_t target)
{
    if (grid.isEmpty())
        return grid;
    std::vector<Knot> knots = knotsOf(grid);
    const auto beat = std::llround(grid.beatsAt(static_cast<double>(frame)));
    if (beat < 0)
        return grid;
    const auto next = std::find_if(knots.begin(), knots.end(),
                                   [beat](const Knot &knot) { return knot.beats >= beat; });
    if (next != knots.end() && next->beats == beat)
        next->frame = target;
    else
        knots.insert(next, {beat, target, (next - 1)->beatsPerBar, (next - 1)->isLost});
    const bool isInOrder = std::is_sorted(
        knots.begin(), knots.end(), [](const Knot &a, const Knot &b) { return a.frame < b.frame; });
    if (!isInOrder)
        return grid;
    return gridOrElse(numbered(knots, grid.anchors().front().beat), grid);
}

BeatGrid gridWithoutBeatsAround(const BeatGrid &grid, std::uint64_t frame)
{
    if (!grid.isKnown(static_cast<double>(frame)))
        return grid;
    Anchors kept = grid.anchors();
    auto end = std::find_if(kept.begin(), kept.end(), [frame](const BeatAnchor &anchor) {
        return anchor.isLost && anchor.frame >= frame;
    });
    if (end != kept.end())
        ++end;
    auto begin = end;
    while (begin != kept.begin() && ((begin - 1)->frame >= frame || !(begin - 1)->isLost))
        --begin;
    kept.erase(begin, end);
    return BeatGrid(std::move(kept));
}

} // namespace lyrabox
