#include "app/practice/MetronomeRules.h"

#include "practice/SongTime.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

namespace lyrabox::metronome {

namespace {

/// How many beats the first and the last tempo of a grid may be trusted beyond its ends.
constexpr double trustedBeats = 16.0;

double beatFramesOf(double tempo)
{
    return 60.0 * static_cast<double>(practiceRate) / tempo;
}

/// Whether the beats at a frame are known, or follow from the known ones close by.
bool hasBeatsAt(const BeatGrid &grid, double frame)
{
    const auto first = static_cast<double>(grid.anchors().front().frame);
    const auto last = static_cast<double>(grid.anchors().back().frame);
    const double reach = trustedBeats * beatFramesOf(grid.tempoAt(frame));
    if (frame < first)
        return first - frame <= reach && !grid.anchors().front().isLost;
    if (frame > last)
        return frame - last <= reach && !grid.anchors()[grid.anchors().size() - 2].isLost;
    return grid.isKnown(frame);
}

/// The length of a beat on the known line that is nearest to a frame: the last one before it, else
/// the first one behind.
double nearestBeatFrames(const BeatGrid &grid, double frame)
{
    const std::vector<BeatAnchor> &anchors = grid.anchors();
    std::optional<double> found;
    for (std::size_t line = 0; line + 1 < anchors.size(); ++line) {
        const auto begin = static_cast<double>(anchors[line].frame);
        if (found && begin > frame)
            break;
        if (!anchors[line].isLost)
            found = beatFramesOf(grid.tempoAt(begin));
    }
    return found.value_or(beatFramesOf(grid.tempoAt(frame)));
}

int beatsPerBarAt(const BeatGrid &grid, double frame)
{
    int beats = grid.anchors().front().beatsPerBar;
    for (const BeatAnchor &anchor : grid.anchors()) {
        if (static_cast<double>(anchor.frame) > frame + 1.0)
            break;
        beats = anchor.beatsPerBar;
    }
    return beats;
}

} // namespace

BeatGrid gridOfLoop(LoopRange loop, const LoopBars &bars)
{
    const int beats = std::clamp(bars.beatsPerBar, BeatGrid::shortestBar, BeatGrid::longestBar);
    const int count = std::clamp(bars.bars, 1, LoopBars::maximumBars);
    return BeatGrid({{.frame = loop.start, .bar = 1, .beat = 1, .beatsPerBar = beats},
                     {.frame = loop.end, .bar = 1 + count, .beat = 1, .beatsPerBar = beats}});
}

std::shared_ptr<const ClickTable> clicksOn(const BeatGrid &grid, std::uint64_t songFrames,
                                           const ClickPattern &pattern)
{
    if (grid.isEmpty())
        return nullptr;
    auto all = std::make_shared<ClickTable>(*clickTable({}, pattern));
    // Each known stretch has a table of its own, so that no beat is divided up to one behind a gap.
    std::vector<SongBeat> stretch;
    const auto endStretch = [&] {
        const std::shared_ptr<const ClickTable> table = clickTable(stretch, pattern);
        all->clicks.insert(all->clicks.end(), table->clicks.begin(), table->clicks.end());
        stretch.clear();
    };
    for (const GridBeat &beat : grid.beatsBetween(0, songFrames)) {
        if (beat.isKnown)
            stretch.push_back({.frame = static_cast<std::uint64_t>(std::llround(beat.frame)),
                               .beat = static_cast<std::uint8_t>(beat.beat)});
        else
            endStretch();
    }
    endStretch();
    return all;
}

LeadIn countInBefore(const BeatGrid &grid, std::uint64_t frame, const CountInLength &length)
{
    if (grid.isEmpty())
        return {};
    const auto place = static_cast<double>(frame);
    if (!hasBeatsAt(grid, place))
        return countIn({.beatFrames = nearestBeatFrames(grid, place),
                        .beatsPerBar = beatsPerBarAt(grid, place)},
                       length);
    const double beatFrames = beatFramesOf(grid.tempoAt(place));
    const double slack = std::min(beatSlack * static_cast<double>(practiceRate), beatFrames / 8.0);
    const auto from = static_cast<std::uint64_t>(std::max(0.0, place - slack));
    const auto to = frame + static_cast<std::uint64_t>(2.0 * beatFrames);
    const std::vector<GridBeat> beats = grid.beatsBetween(from, to);
    if (beats.empty())
        return {};
    const GridBeat &next = beats.front();
    const double toBeat = next.frame - place;
    const bool isOnBeat = toBeat <= slack;
    LeadIn leadIn = countIn({.beatFrames = beatFrames,
                             .framesToBeat = isOnBeat ? 0.0 : toBeat,
                             .nextBeat = next.beat,
                             .beatsPerBar = beatsPerBarAt(grid, next.frame)},
                            length);
    // The clicks lead to the beat, and the music goes on where it really is.
    if (isOnBeat && leadIn.frames > 0)
        leadIn.frames = static_cast<std::uint32_t>(std::lround(leadIn.frames - toBeat));
    return leadIn;
}

LeadIn restBefore(const BeatGrid &grid, std::uint64_t frame, int beats)
{
    const double beatFrames = grid.isEmpty() ? CountInPlace().beatFrames
                                             : nearestBeatFrames(grid, static_cast<double>(frame));
    return rest(beatFrames, beats);
}

} // namespace lyrabox::metronome
