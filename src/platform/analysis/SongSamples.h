#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

namespace lyrabox {

/// A view of the samples of a song. Everything in this folder reads songs through it. The owner of
/// the samples keeps them alive and unchanged while a function of this folder runs.
///
/// Full scale is ±1.0. Samples that are not finite, and those beyond ±1.0e6, count as damage and
/// are read as 0.0.
struct SongSamples {
    std::span<const float> left;
    std::span<const float> right; ///< as long as `left`; the same span if the song is mono
    double sampleRate = 44100.0;  ///< frames per second, above 0

    std::uint64_t frames() const { return left.size(); }

    /// Whether both channels are the same, so that there is nothing beside the middle. Takes a few
    /// milliseconds for a mono song of four minutes, and no time for a stereo one.
    bool isMono() const { return left.data() == right.data() || std::ranges::equal(left, right); }

    /// The frames from `first` on, `count` of them. Both must be within the song.
    SongSamples part(std::uint64_t first, std::uint64_t count) const
    {
        return {left.subspan(first, count), right.subspan(first, count), sampleRate};
    }
};

} // namespace lyrabox
