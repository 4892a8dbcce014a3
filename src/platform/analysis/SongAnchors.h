#pragma once

#include "platform/analysis/SongAnchor.h"
#include "platform/analysis/SongPrint.h"

#include <cstddef>
#include <cstdint>
#include <stop_token>
#include <vector>

/// Finding a recording again in another copy of it, and where. Any thread; an object belongs to one
/// thread at a time. Frames are those at 44.1 kHz.
namespace lyrabox {

/// Chooses an excerpt each from a song's beginning, middle and end. They have sound that changes,
/// and lie so that they fit to the song at one place only. None if that is not possible: the song
/// is short or silent, or nothing happens in it. Takes a few milliseconds for five minutes.
SongAnchors songAnchors(const SongPrint &print, const std::stop_token &stop = {});

/// Looks for the anchors of many songs in one song.
class AnchorSearch {
public:
    /// Adds the anchors of a song. Sets are numbered from 0. A set that is not complete is never
    /// found.
    void add(const SongAnchors &anchors);

    /// A set that was found.
    struct Found {
        std::size_t set = 0;
        std::int64_t offset = 0; ///< in frames: what must be added to a place of the anchors' song
        double distance = 0.0;   ///< the share of bits that differ, of the worst anchor
    };

    /// The sets whose anchors are all in the song, with offsets that agree within 10 ms; the best
    /// first. A set that fits at two places is not found. Returns early, with nothing, when a stop
    /// is requested.
    std::vector<Found> find(SongPrint &song, const std::stop_token &stop = {}) const;

private:
    struct Anchor {
        std::size_t set;
        SongAnchor anchor;
    };
    std::vector<Anchor> m_anchors;
    std::size_t m_sets = 0;
};

} // namespace lyrabox
