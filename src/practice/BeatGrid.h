#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// The beats and bars of a song. Plain values: one thread at a time may use an object. Frames are
/// those of the sound chain (44,100 a second).
namespace lyrabox {

/// A beat whose place is known. From one anchor to the next the tempo is constant.
struct BeatAnchor {
    std::uint64_t frame = 0; ///< up to lastSongPlace
    int bar = 1;             ///< 0 to BeatGrid::lastBar; 0 is the bar of a pick-up
    int beat = 1;            ///< in its bar, 1 to `beatsPerBar`
    int beatsPerBar = 4;     ///< from here on; BeatGrid::shortestBar to BeatGrid::longestBar
    bool isLost = false;     ///< between here and the next anchor the beats are not known

    friend bool operator==(const BeatAnchor &, const BeatAnchor &) = default;
};

/// A place in bars and beats.
struct BarPlace {
    int bar = 1;
    double beat = 1.0; ///< 1.0 at the first beat, below one more than the beats of the bar
};

/// A beat of a grid.
struct GridBeat {
    double frame = 0.0;
    int bar = 1;
    int beat = 1;
    bool isKnown = true; ///< false if it is only reckoned, see BeatGrid::isKnown()
};

/// Anchors with straight lines between them. Before the first and behind the last one the tempo
/// goes on as it is there.
class BeatGrid {
public:
    static constexpr int shortestBar = 2; ///< beats
    static constexpr int longestBar = 12;
    static constexpr int lastBar = 99'999;
    static constexpr double fastest = 1000.0; ///< beats a minute
    static constexpr std::size_t mostAnchors = 2000;

    /// A grid without beats. The functions below that need beats must not be called then.
    BeatGrid() = default;

    /// The grid of anchors in any order. They are sorted by their frames. An anchor is left out if
    /// it has numbers beyond their ranges, if its bar and beat are not later than those of the
    /// anchor before it, or if the beats between the two were faster than `fastest`; so is one
    /// beyond `mostAnchors`. With fewer than two anchors there are no beats.
    explicit BeatGrid(std::vector<BeatAnchor> anchors);

    bool isEmpty() const { return m_anchors.empty(); }
    /// In the order of their frames; none or at least two.
    const std::vector<BeatAnchor> &anchors() const { return m_anchors; }

    /// Whether the beats at a frame are known: it is between the first and the last anchor, and not
    /// where they are lost. They are at every anchor.
    bool isKnown(double frame) const;

    /// How many beats a frame lies behind the first anchor. Negative before it.
    double beatsAt(double frame) const;
    /// The opposite of beatsAt().
    double frameOfBeats(double beats) const;

    BarPlace placeAt(double frame) const;
    /// The opposite of placeAt(). A beat beyond its bar is one of a later bar.
    double frameOf(BarPlace place) const;

    /// Beats a minute at a frame.
    double tempoAt(double frame) const;

    /// The beats from the frame `from` up to, but not including, `to`.
    std::vector<GridBeat> beatsBetween(std::uint64_t from, std::uint64_t to) const;

    friend bool operator==(const BeatGrid &a, const BeatGrid &b)
    {
        return a.m_anchors == b.m_anchors;
    }

private:
    /// The index of the line that a frame, or a number of beats, lies on.
    std::size_t lineAt(double frame) const;
    std::size_t lineOfBeats(double beats) const;
    double period(std::size_t line) const;
    GridBeat beatOf(std::int64_t beats) const;

    std::vector<BeatAnchor> m_anchors;
    std::vector<std::int64_t> m_beats; ///< of each anchor, the beats since the first
};

/// The grid of beats in ascending order, of which that of the index `one` begins a bar: as few
/// anchors as keep every beat within 8 ms of its place. The first bar that begins is bar 1. A bar
/// length beyond its range becomes the nearest valid one. Without two beats, or if `one` is none of
/// them, the grid is empty.
BeatGrid fittedGrid(std::span<const std::uint64_t> beats, std::size_t one, int beatsPerBar);

} // namespace lyrabox
