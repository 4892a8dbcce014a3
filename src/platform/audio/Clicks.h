#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

/// What the metronome plays. Plain values. Frames are frames of the song at 44,100 Hz.
namespace lyrabox {

enum class ClickKind : std::uint8_t {
    Accent,      ///< the first beat of a bar
    Beat,        ///< any other beat
    Subdivision, ///< between two beats
};

/// One click at a place in the song.
struct SongClick {
    std::uint64_t frame = 0;
    ClickKind kind = ClickKind::Beat;
    std::uint8_t beat = 1; ///< its beat in the bar, from 1; a subdivision has that of its beat

    bool operator==(const SongClick &) const = default;
};

/// Every click of a song. It is published as a whole and never changed.
struct ClickTable {
    std::vector<SongClick> clicks; ///< in the order of their frames
    /// So many bars sound and so many are silent, in turn, counted as they are played. 0 silent
    /// bars: all of them sound.
    std::uint32_t barsOn = 1;
    std::uint32_t barsOff = 0;
};

enum class ClickTimbre : std::uint8_t { Tick, Wood, Beep };
constexpr std::size_t clickTimbres = 3;

enum class ClickSide : std::uint8_t { Both, Left, Right };

/// How clicks sound.
struct ClickSound {
    float loudness = 0.5F; ///< linear; an accent at 1.0 peaks at full scale
    ClickTimbre timbre = ClickTimbre::Tick;
    ClickSide side = ClickSide::Both;
    bool hasAccents = true; ///< false: an accent sounds like any other beat

    bool operator==(const ClickSound &) const = default;
};

/// Silence before a place in the song, with the clicks of a count-in. Its length is in frames of
/// the song, so n beats of it last n beats at any speed.
struct LeadIn {
    static constexpr std::uint32_t maximumClicks = 64;

    /// A click of the count-in.
    struct Click {
        std::uint32_t frame = 0; ///< from the beginning of the silence; less than `frames`
        ClickKind kind = ClickKind::Beat;

        bool operator==(const Click &) const = default;
    };

    std::uint32_t frames = 0; ///< 0: there is no lead-in
    std::uint32_t clickCount = 0;
    std::array<Click, maximumClicks> clicks{}; ///< the first `clickCount`, in order

    bool operator==(const LeadIn &) const = default;
};
static_assert(std::is_trivially_copyable_v<LeadIn> && std::is_trivially_copyable_v<ClickSound>);

} // namespace lyrabox
