#include "practice/BeatGridEdits.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

namespace {

using Anchors = std::vector<BeatAnchor>;

constexpr double samePlace = 0.15; // of a beat

/// Frames from beat to beat.
double periodAt(const BeatGrid &grid, double frame)
{
    return 60.0 * 44'100.0 / grid.tempoAt(frame);
}

/// Where a grid is cut.
enum class Cut {
    AtBeat, ///< at the beat next to the frame
    AtBar,  ///< at the start of a bar that is at least half a bar away, so that the beats that are
            ///< lost between have room
};

/// The beat of a grid at that many beats, as an anchor.
BeatAnchor anchorAt(const BeatGrid &grid, double beats, BeatAnchor like)
{
    const double frame = grid.frameOfBeats(beats);
    const BarPlace place = grid.placeAt(frame + samePlace * periodAt(grid, frame));
    like.frame = static_cast<std::uint64_t>(std::max(0LL, std::llround(frame)));
    like.bar = place.bar;
    like.beat = static_cast<int>(place.beat);
    return like;
}

/// The anchors of a grid up to a place before a frame, which becomes an anchor.
Anchors before(const BeatGrid &grid, std::uint64_t frame, Cut cut)
{
    Anchors anchors;
    for (const BeatAnchor &anchor : grid.anchors()) {
        if (anchor.frame < frame)
            anchors.push_back(anchor);
    }
    if (anchors.empty() || anchors.back().isLost)
        return anchors;
    double last = std::ceil(grid.beatsAt(static_cast<double>(frame)) - samePlace) - 1.0;
    if (cut == Cut::AtBar) {
        last -= anchors.back().beatsPerBar / 2.0 - 1.0;
        last -= anchorAt(grid, std::floor(last), anchors.back()).beat - 1;
    }
    const BeatAnchor end = anchorAt(grid, std::floor(last), anchors.back());
    if (anchors.size() == grid.anchors().size() && end.frame >= anchors.back().frame)
        return anchors; // it ends earlier by itself
    while (!anchors.empty() && anchors.back().frame >= end.frame)
        anchors.pop_back();
    if (!anchors.empty())
        anchors.push_back(end);
    return anchors;
}

/// The anchors of a grid from a place behind a frame on, which becomes an anchor.
Anchors behind(const BeatGrid &grid, std::uint64_t frame, Cut cut)
{
    Anchors anchors;
    BeatAnchor earlier = grid.anchors().front();
    for (const BeatAnchor &anchor : grid.anchors()) {
        if (anchor.frame > frame)
            anchors.push_back(anchor);
        else
            earlier = anchor;
    }
    if (anchors.empty() || (earlier.frame <= frame && earlier.isLost))
        return anchors;
    double first = std::floor(grid.beatsAt(static_cast<double>(frame)) + samePlace) + 1.0;
    if (cut == Cut::AtBar) {
        first += earlier.beatsPerBar / 2.0 - 1.0;
        const int beat = anchorAt(grid, std::ceil(first), earlier).beat;
        first += beat == 1 ? 0 : earlier.beatsPerBar + 1 - beat;
    }
    const BeatAnchor start = anchorAt(grid, std::ceil(first), earlier);
    if (anchors.size() == grid.anchors().size() && start.frame <= anchors.front().frame)
        return anchors; // it begins later by itself
    while (!anchors.empty() && anchors.front().frame <= start.frame)
        anchors.erase(anchors.begin());
    if (!anchors.empty())
        anchors.insert(anchors.begin(), start);
    return anchors;
}

/// Whether the first of the anchors is the beat that follows on the last of others.
bool continues(const Anchors &anchors, const Anchors &more)
{
    const BeatGrid there(anchors);
    if (there.isEmpty() || more.empty() || anchors.back().isLost)
        return false;
    const auto frame = static_cast<double>(more.front().frame);
    const double beats =
        there.beatsAt(frame) - there.beatsAt(static_cast<double>(anchors.back().frame));
    const BarPlace place = there.placeAt(frame + samePlace * periodAt(there, frame));
    return std::abs(beats - 1.0) < samePlace && static_cast<int>(place.beat) == more.front().beat;
}

/// Puts anchors behind those that are there, with other numbers of bars.
void put(Anchors &anchors, const Anchors &more, bool isContinued)
{
    if (more.empty())
        return;
    int shift = 0;
    if (!anchors.empty()) {
        int bar = anchors.back().bar + 1;
        if (const BeatGrid there(anchors); !there.isEmpty()) {
            const auto frame = static_cast<double>(more.front().frame);
            const int expected = there.placeAt(frame + samePlace * periodAt(there, frame)).bar;
            bar = isContinued ? expected : std::max(bar, expected);
        }
        shift = bar - more.front().bar;
        anchors.back().isLost = !isContinued;
    }
    for (BeatAnchor anchor : more) {
        anchor.bar += shift;
        anchors.push_back(anchor);
    }
}

} // namespace

BeatGrid joinedGrid(const BeatGrid &grid, const BeatGrid &other)
{
    if (grid.isEmpty() || other.isEmpty())
        return grid.isEmpty() ? other : grid;
    Anchors middle = other.anchors();
    middle.back().isLost = false;
    Anchors anchors = before(grid, middle.front().frame, Cut::AtBeat);
    bool isContinued = continues(anchors, middle);
    if (!isContinued)
        anchors = before(grid, middle.front().frame, Cut::AtBar);
    put(anchors, middle, isContinued);
    Anchors end = behind(grid, middle.back().frame, Cut::AtBeat);
    isContinued = continues(anchors, end);
    if (!isContinued)
        end = behind(grid, middle.back().frame, Cut::AtBar);
    put(anchors, end, isContinued);
    // Bars are numbered from the first that begins.
    const int first = anchors.front().bar - (anchors.front().beat == 1 ? 1 : 0);
    for (BeatAnchor &anchor : anchors)
        anchor.bar -= first;
    BeatGrid joined(anchors);
    return joined.anchors().size() == anchors.size() ? joined : grid;
}

} // namespace lyrabox
