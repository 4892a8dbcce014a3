#include "practice/BeatGrid.h"

#include "practice/SongTime.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double framesPerMinute = 60.0 * 44'100.0;
constexpr double shortestPeriod = framesPerMinute / BeatGrid::fastest;

bool isValid(const BeatAnchor &anchor)
{
    return anchor.frame <= lastSongPlace && anchor.bar >= 0 && anchor.bar <= BeatGrid::lastBar &&
           anchor.beatsPerBar >= BeatGrid::shortestBar &&
           anchor.beatsPerBar <= BeatGrid::longestBar && anchor.beat >= 1 &&
           anchor.beat <= anchor.beatsPerBar;
}

/// The beats from one anchor to a later one, counted in the bars of the first.
std::int64_t beatsFrom(const BeatAnchor &a, const BeatAnchor &b)
{
    return std::int64_t{b.bar - a.bar} * a.beatsPerBar + (b.beat - a.beat);
}

} // namespace

BeatGrid::BeatGrid(std::vector<BeatAnchor> anchors)
{
    std::stable_sort(anchors.begin(), anchors.end(),
                     [](const BeatAnchor &a, const BeatAnchor &b) { return a.frame < b.frame; });
    for (const BeatAnchor &anchor : anchors) {
        if (!isValid(anchor) || m_anchors.size() == mostAnchors)
            continue;
        std::int64_t beats = 0;
        if (!m_anchors.empty()) {
            const std::int64_t further = beatsFrom(m_anchors.back(), anchor);
            const auto frames = static_cast<double>(anchor.frame - m_anchors.back().frame);
            if (further <= 0 || frames < shortestPeriod * static_cast<double>(further))
                continue;
            beats = m_beats.back() + further;
        }
        m_anchors.push_back(anchor);
        m_beats.push_back(beats);
    }
    if (m_anchors.size() < 2) {
        m_anchors.clear();
        m_beats.clear();
    }
}

bool BeatGrid::isKnown(double frame) const
{
    if (isEmpty() || frame < static_cast<double>(m_anchors.front().frame) ||
        frame > static_cast<double>(m_anchors.back().frame))
        return false;
    const BeatAnchor &anchor = m_anchors[lineAt(frame)];
    return !anchor.isLost || frame == static_cast<double>(anchor.frame) ||
           frame == static_cast<double>(m_anchors.back().frame);
}

std::size_t BeatGrid::lineAt(double frame) const
{
    const auto next = std::upper_bound(m_anchors.begin() + 1, m_anchors.end() - 1, frame,
                                       [](double value, const BeatAnchor &anchor) {
                                           return value < static_cast<double>(anchor.frame);
                                       });
    return static_cast<std::size_t>(next - m_anchors.begin()) - 1;
}

std::size_t BeatGrid::lineOfBeats(double beats) const
{
    const auto next = std::upper_bound(
        m_beats.begin() + 1, m_beats.end() - 1, beats,
        [](double value, std::int64_t anchor) { return value < static_cast<double>(anchor); });
    return static_cast<std::size_t>(next - m_beats.begin()) - 1;
}

double BeatGrid::period(std::size_t line) const
{
    return static_cast<double>(m_anchors[line + 1].frame - m_anchors[line].frame) /
           static_cast<double>(m_beats[line + 1] - m_beats[line]);
}

double BeatGrid::beatsAt(double frame) const
{
    const std::size_t line = lineAt(frame);
    return static_cast<double>(m_beats[line]) +
           (frame - static_cast<double>(m_anchors[line].frame)) / period(line);
}

double BeatGrid::frameOfBeats(double beats) const
{
    const std::size_t line = lineOfBeats(beats);
    return static_cast<double>(m_anchors[line].frame) +
           (beats - static_cast<double>(m_beats[line])) * period(line);
}

BarPlace BeatGrid::placeAt(double frame) const
{
    const double beats = beatsAt(frame);
    // The bars change their length at an anchor, so the last one has a say of its own.
    const bool isBehind = beats >= static_cast<double>(m_beats.back());
    const std::size_t index = isBehind ? m_anchors.size() - 1 : lineOfBeats(beats);
    const BeatAnchor &anchor = m_anchors[index];
    const double inBar = beats - static_cast<double>(m_beats[index]) + anchor.beat - 1;
    const double bars = std::clamp(std::floor(inBar / anchor.beatsPerBar), -1.0e9, 1.0e9);
    return {.bar = anchor.bar + static_cast<int>(bars),
            .beat = 1.0 + std::max(0.0, inBar - bars * anchor.beatsPerBar)};
}

double BeatGrid::frameOf(BarPlace place) const
{
    const auto isLater = [&place](const BeatAnchor &anchor) {
        return anchor.bar > place.bar || (anchor.bar == place.bar && anchor.beat > place.beat);
    };
    auto next = std::find_if(m_anchors.begin() + 1, m_anchors.end(), isLater);
    const BeatAnchor &anchor = *(next - 1);
    const auto index = static_cast<std::size_t>(next - m_anchors.begin()) - 1;
    return frameOfBeats(static_cast<double>(m_beats[index]) +
                        static_cast<double>(place.bar - anchor.bar) * anchor.beatsPerBar +
                        place.beat - anchor.beat);
}

double BeatGrid::tempoAt(double frame) const
{
    return framesPerMinute / period(lineAt(frame));
}

GridBeat BeatGrid::beatOf(std::int64_t beats) const
{
    const double frame = frameOfBeats(static_cast<double>(beats));
    const bool isBehind = beats >= m_beats.back();
    const std::size_t index =
        isBehind ? m_anchors.size() - 1 : lineOfBeats(static_cast<double>(beats));
    const BeatAnchor &anchor = m_anchors[index];
    const std::int64_t inBar = beats - m_beats[index] + anchor.beat - 1;
    std::int64_t bars = inBar / anchor.beatsPerBar;
    if (inBar % anchor.beatsPerBar < 0)
        --bars;
    return {.frame = frame,
            .bar = anchor.bar + static_cast<int>(bars),
            .beat = static_cast<int>(inBar - bars * anchor.beatsPerBar) + 1,
            .isKnown = isKnown(frame)};
}

std::vector<GridBeat> BeatGrid::beatsBetween(std::uint64_t from, std::uint64_t to) const
{
    std::vector<GridBeat> beats;
    if (isEmpty() || from >= to)
        return beats;
    // Rounding may put a beat that lies on an end of the range on either side of it.
    const auto first = static_cast<std::int64_t>(std::floor(beatsAt(static_cast<double>(from))));
    for (std::int64_t beat = first;; ++beat) {
        const GridBeat found = beatOf(beat);
        if (found.frame >= static_cast<double>(to))
            return beats;
        if (found.frame >= static_cast<double>(from))
            beats.push_back(found);
    }
}

} // namespace lyrabox
