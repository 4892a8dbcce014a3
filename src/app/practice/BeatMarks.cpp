#include "app/practice/BeatMarks.h"

#include <algorithm>
#include <cmath>

namespace lyrabox::beatMarks {

namespace {

/// Beats behind the last known one that still count: those of its bar, and the one that ends it.
double barAround(const BeatGrid &grid, const BeatAnchor &anchor, bool isEnd)
{
    const auto frame = static_cast<double>(anchor.frame);
    const double beats = grid.beatsAt(frame) + (isEnd ? anchor.beatsPerBar : -anchor.beatsPerBar);
    return grid.frameOfBeats(beats);
}

std::uint64_t frameOf(double frame)
{
    return static_cast<std::uint64_t>(std::max(0.0, std::round(frame)));
}

/// The mean length of a beat of the whole grid, in frames.
double meanPeriod(const BeatGrid &grid)
{
    const auto first = static_cast<double>(grid.anchors().front().frame);
    const auto last = static_cast<double>(grid.anchors().back().frame);
    return (last - first) / grid.beatsAt(last);
}

/// The least power of two that makes `distance` at least `wanted`.
int multiple(double distance, double wanted)
{
    constexpr int most = 1 << 20;
    int factor = 1;
    while (distance * factor < wanted && factor < most)
        factor *= 2;
    return factor;
}

/// Calls `use` for every beat between two frames that is shown.
template <typename Use>
void forShownBeats(const BeatGrid &grid, double from, double to, const Use &use)
{
    if (grid.isEmpty() || to <= from)
        return;
    const double first =
        std::max({0.0, from, barAround(grid, grid.anchors().front(), false) - 1.0});
    const double last = std::min(to, barAround(grid, grid.anchors().back(), true) + 1.0);
    if (last <= first)
        return;
    for (const GridBeat &beat : grid.beatsBetween(frameOf(std::floor(first)), frameOf(last) + 1)) {
        if (beat.frame >= from && beat.frame < to && isShown(grid, beat.frame))
            use(beat);
    }
}

} // namespace

bool isShown(const BeatGrid &grid, double frame)
{
    if (grid.isEmpty() || frame < 0.0)
        return false;
    const BeatAnchor &first = grid.anchors().front();
    const BeatAnchor &last = grid.anchors().back();
    if (frame < static_cast<double>(first.frame))
        return frame >= barAround(grid, first, false) - 1.0;
    if (frame > static_cast<double>(last.frame))
        return frame <= barAround(grid, last, true) + 1.0;
    return grid.isKnown(frame);
}

int beatsPerBarAt(const BeatGrid &grid, std::uint64_t frame)
{
    int length = grid.anchors().front().beatsPerBar;
    for (const BeatAnchor &anchor : grid.anchors()) {
        if (anchor.frame <= frame)
            length = anchor.beatsPerBar;
    }
    return length;
}

std::optional<std::uint64_t> nearestBeat(const BeatGrid &grid, double frame, double reach)
{
    if (grid.isEmpty() || reach <= 0.0)
        return std::nullopt;
    const double beat = grid.frameOfBeats(std::round(grid.beatsAt(frame)));
    if (std::abs(beat - frame) > reach || !isShown(grid, beat))
        return std::nullopt;
    return frameOf(beat);
}

Density density(const BeatGrid &grid, double framesPerPoint)
{
    if (grid.isEmpty())
        return {};
    const double beat = meanPeriod(grid) / framesPerPoint;
    const double bar = beat * grid.anchors().front().beatsPerBar;
    return {.hasBeats = beat >= leastDistance,
            .bars = multiple(bar, leastDistance),
            .labels = multiple(bar, labelDistance)};
}

std::vector<Line> lines(const BeatGrid &grid, const Density &density, double columnFrames,
                        std::int64_t first, std::int64_t end, bool hasBars)
{
    std::vector<Line> lines;
    // A beat belongs to the column that its frame is rounded to.
    const double from = (static_cast<double>(first) - 0.5) * columnFrames;
    const double to = (static_cast<double>(end) - 0.5) * columnFrames;
    forShownBeats(grid, from, to, [&](const GridBeat &beat) {
        const bool isBar = beat.beat == 1;
        const bool isDrawn = density.hasBeats || (isBar && (beat.bar - 1) % density.bars == 0);
        if (isDrawn)
            lines.push_back({std::llround(beat.frame / columnFrames), isBar && hasBars});
    });
    return lines;
}

std::vector<Label> labels(const BeatGrid &grid, const Density &density, double from, double to)
{
    std::vector<Label> labels;
    forShownBeats(grid, from, to, [&](const GridBeat &beat) {
        if (beat.beat == 1 && beat.bar > 0 && (beat.bar - 1) % density.labels == 0)
            labels.push_back({beat.frame, beat.bar});
    });
    return labels;
}

std::vector<LoopRange> lostParts(const BeatGrid &grid, LoopRange sounding)
{
    std::vector<LoopRange> parts;
    if (grid.isEmpty())
        return parts;
    const std::vector<BeatAnchor> &anchors = grid.anchors();
    const double before = barAround(grid, anchors.front(), false);
    if (static_cast<double>(sounding.start) < before)
        parts.push_back({sounding.start, std::min(sounding.end, anchors.front().frame)});
    for (std::size_t i = 0; i + 1 < anchors.size(); ++i) {
        if (anchors[i].isLost)
            parts.push_back({anchors[i].frame, anchors[i + 1].frame});
    }
    const double behind = barAround(grid, anchors.back(), true);
    if (static_cast<double>(sounding.end) > behind)
        parts.push_back({std::max(sounding.start, anchors.back().frame), sounding.end});
    return parts;
}

} // namespace lyrabox::beatMarks
