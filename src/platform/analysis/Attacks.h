#pragma once

#include "platform/analysis/SongSamples.h"

#include <cstdint>
#include <optional>
#include <stop_token>
#include <vector>

namespace lyrabox {

/// The place where a note, a beat or a chord begins.
struct Attack {
    std::uint64_t frame = 0; ///< its first frame
    float strength = 0.0F;   ///< the share of the sound that is new, above 0.0, at most 1.0

    friend bool operator==(const Attack &, const Attack &) = default;
};

/// The attacks at the frames from `from` up to, but not including, `to`, in their order. Both may
/// be beyond the end of the song. Sudden attacks are exact to 3 ms; one that swells for longer lies
/// at the first part of its rise. Of attacks less than 30 ms apart only the strongest counts.
///
/// A part of a song has the same attacks as the whole song has there. If a stop is requested, the
/// function returns what it has found. It looks at `stop` every 0.1 ms of work or more often.
///
/// Any thread. A second of the song takes 1 to 2 ms. Throws std::bad_alloc without memory.
std::vector<Attack> findAttacks(const SongSamples &song, std::uint64_t from, std::uint64_t to,
                                const std::stop_token &stop = {});

/// The attack nearest to `frame`, of those at most `before` frames before and `after` frames after
/// it. Of two equally near ones, the earlier. None if there is none.
///
/// Any thread. For 300 ms it takes about a millisecond.
std::optional<Attack> nearestAttack(const SongSamples &song, std::uint64_t frame,
                                    std::uint64_t before, std::uint64_t after);

} // namespace lyrabox
