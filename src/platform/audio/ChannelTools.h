#pragma once

#include "platform/audio/SoundRanges.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>

namespace lyrabox {

/// What a loudspeaker gets of a song's two channels.
enum class ChannelMode : std::uint8_t {
    Both,    ///< each its own
    Mono,    ///< each half the sum
    Left,    ///< both the left channel
    Right,   ///< both the right channel
    Swapped, ///< each the other's
};

/// The range in which each setting of ChannelTools has an effect.
constexpr ValueRange balanceRange{.minimum = -100.0F, .maximum = 100.0F};
constexpr ValueRange centreRange{.minimum = -100.0F, .maximum = 100.0F};
constexpr ValueRange centreFromRange{.minimum = 0.0F, .maximum = 1000.0F};      ///< Hz
constexpr ValueRange centreUpToRange{.minimum = 2000.0F, .maximum = 20'000.0F}; ///< Hz

/// What is done with a song's two channels before everything else. Plain values; the initial ones
/// leave every sample as it is.
struct ChannelTools {
    ChannelMode mode = ChannelMode::Both;
    int balance = 0; ///< -100: only the left loudspeaker; 100: only the right one
    /// -100: without what was mixed into the middle; 100: only that; 0: as it is.
    int centre = 0;
    /// Where the middle begins and ends, in Hz. What lies outside, such as bass, kick drum and
    /// cymbals, does not count as the middle. 0 and 20,000: no limit.
    int centreFrom = 150;
    int centreUpTo = 9000;

    bool operator==(const ChannelTools &) const = default;

    /// Whether every sample stays as it is.
    bool isNeutral() const { return mode == ChannelMode::Both && balance == 0 && centre == 0; }
};
static_assert(std::is_trivially_copyable_v<ChannelTools>);

/// The tools with every number within its range.
constexpr ChannelTools cleanChannelTools(ChannelTools tools)
{
    const auto within = [](int value, const ValueRange &range) {
        return std::clamp(value, static_cast<int>(range.minimum), static_cast<int>(range.maximum));
    };
    tools.mode = std::min(tools.mode, ChannelMode::Swapped);
    tools.balance = within(tools.balance, balanceRange);
    tools.centre = within(tools.centre, centreRange);
    tools.centreFrom = within(tools.centreFrom, centreFromRange);
    tools.centreUpTo = within(tools.centreUpTo, centreUpToRange);
    return tools;
}

} // namespace lyrabox
