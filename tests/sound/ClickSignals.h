#pragma once

#include "platform/audio/ClickTable.h"
#include "sound/Player.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// A song with a pulse at every beat, and the clicks that are heard with it.
namespace lyrabox::test {

struct PulseSong {
    static constexpr std::uint64_t frames = 60 * 44100;
    static constexpr std::uint64_t firstBeat = 5000;
    static constexpr std::uint64_t period = 11025; ///< a quarter of a second
    static constexpr std::uint64_t pulseFrames = 8;

    /// Pulses in the left channel, silence in the right one.
    static float sample(std::uint32_t channel, std::uint64_t frame);
    /// Its beats in bars of 4.
    static std::shared_ptr<const ClickTable> clicks(const ClickPattern &pattern = {});
};

/// The first frames of the clicks in a channel that holds nothing else.
std::vector<double> clicksIn(const std::vector<float> &heard);

/// What is heard in `run`, with the clicks alone in the right channel: the same run without clicks
/// is subtracted. The left channel must be the same in both.
Stereo heardWithClicks(const std::function<void(Player &player, Stereo &heard)> &run);

/// By how many frames the click at `click` is later than the pulse of the song that is next to it.
double lateness(const Stereo &heard, double click, float rate);

} // namespace lyrabox::test
