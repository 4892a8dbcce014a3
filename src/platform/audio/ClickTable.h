#pragma once

#include "platform/audio/Clicks.h"

#include <cstdint>
#include <memory>
#include <span>

namespace lyrabox {

/// A beat of the song.
struct SongBeat {
    std::uint64_t frame = 0;
    std::uint8_t beat = 1; ///< in its bar, from 1; beat 1 is accented

    bool operator==(const SongBeat &) const = default;
};

/// Which beats click.
struct ClickPattern {
    static constexpr int maximumSubdivision = 8;
    static constexpr int maximumBars = 64;

    int subdivision = 1;        ///< clicks per beat, 1 to maximumSubdivision
    bool onlyBackbeats = false; ///< only the beats 2, 4, 6 ..., and no subdivisions
    int barsOn = 1;             ///< 1 to maximumBars
    int barsOff = 0;            ///< 0 to maximumBars; 0: every bar sounds

    bool operator==(const ClickPattern &) const = default;
};

/// Clicks that are closer than this would be heard as one sound.
constexpr std::uint64_t closestClicks = 441; // 10 ms

/// The table of a song's clicks. `beats` are in the order of their frames; a beat that is not at
/// least closestClicks after the one before is left out. The last beat has no subdivisions, because
/// its length is not known. Values of `pattern` outside their range count as the nearest one. Any
/// thread.
std::shared_ptr<const ClickTable> clickTable(std::span<const SongBeat> beats,
                                             const ClickPattern &pattern);

} // namespace lyrabox
