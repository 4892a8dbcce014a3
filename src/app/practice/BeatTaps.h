#pragma once

#include "platform/analysis/TapFit.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

namespace lyrabox {

/// The taps of a player along with a song, up to a pause. Pure decisions; one thread at a time.
class TapSeries {
public:
    /// So many taps give beats.
    static constexpr std::size_t needed = 8;
    /// Later taps are counted, but no longer change the beats: the tempo of a song may drift.
    static constexpr std::size_t used = 16;
    /// A tap begins a new series if more of the song than this was heard since the one before, in
    /// seconds.
    static constexpr double pause = 5.0;

    /// Adds a tap at a frame. `heard`: how many seconds of the song passed since the tap before.
    void tap(std::uint64_t frame, double heard);
    void clear();

    std::size_t count() const { return m_count; }
    /// Whether there are enough taps for beats.
    bool isComplete() const { return m_count >= needed; }
    /// Whether one more tap can change the beats.
    bool isOpen() const { return m_count < used; }
    /// The place of the first tap. There must be one.
    std::uint64_t first() const { return m_frames.front(); }

    /// What the taps are so far.
    std::variant<TappedBeats, TapFault> fit() const;
    /// The song's tempo so far, in beats a minute. None if the taps are no beats.
    std::optional<double> tempo() const;

private:
    std::size_t m_count = 0;
    std::vector<std::uint64_t> m_frames; ///< of the taps that are used
};

} // namespace lyrabox
