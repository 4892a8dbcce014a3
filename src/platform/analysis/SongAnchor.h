#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lyrabox {

/// The fingerprint of three seconds of a song. Frames are those at 44.1 kHz.
struct SongAnchor {
    static constexpr std::size_t steps = 258;

    std::uint64_t at = 0;             ///< the frame of its first step
    std::vector<std::uint32_t> words; ///< `steps` words of a SongPrint, see there

    bool operator==(const SongAnchor &) const = default;
};

/// How many anchors a song has.
constexpr std::size_t anchorsOfSong = 3;

/// The anchors of one song: anchorsOfSong, or none.
using SongAnchors = std::vector<SongAnchor>;

} // namespace lyrabox
