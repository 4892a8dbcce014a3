#include "sound/ClickSignals.h"

#include "engine/ClicksAndLeadIns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace lyrabox::test {

float PulseSong::sample(std::uint32_t channel, std::uint64_t frame)
{
    const bool isPulse = frame >= firstBeat && (frame - firstBeat) % period < pulseFrames;
    return channel == 0 && isPulse ? 0.8F : 0.0F;
}

std::shared_ptr<const ClickTable> PulseSong::clicks(const ClickPattern &pattern)
{
    std::vector<SongBeat> grid;
    for (std::uint64_t frame = firstBeat; frame < frames; frame += period)
        grid.push_back({.frame = frame, .beat = static_cast<std::uint8_t>(1 + grid.size() % 4)});
    return clickTable(grid, pattern);
}

std::vector<double> clicksIn(const std::vector<float> &heard)
{
    constexpr std::size_t gap = 400;
    std::vector<double> found;
    std::size_t lastSound = 0;
    for (std::size_t i = 0; i < heard.size(); ++i) {
        if (std::abs(heard[i]) < 0.01F)
            continue;
        if (found.empty() || i >= lastSound + gap)
            found.push_back(static_cast<double>(i));
        lastSound = i;
    }
    return found;
}

Stereo heardWithClicks(const std::function<void(Player &, Stereo &)> &run)
{
    Stereo with;
    Stereo without;
    for (Stereo *heard : {&with, &without}) {
        Player player(&PulseSong::sample, PulseSong::frames);
        engine::setClickSound({.loudness = 1.0F, .side = ClickSide::Right, .hasAccents = false});
        if (heard == &with)
            engine::setClicks(PulseSong::clicks());
        run(player, *heard);
    }
    EXPECT_EQ(with.left, without.left);
    for (std::size_t i = 0; i < with.size(); ++i)
        with.right[i] -= without.right[i];
    return with;
}

double lateness(const Stereo &heard, double click, float rate)
{
    const double speed = static_cast<double>(rate);
    const auto reach = static_cast<std::size_t>(std::min(1800.0, 0.4 * PulseSong::period / speed));
    const auto at = static_cast<std::size_t>(click);
    const Burst burst =
        burstBetween(heard.left, at - std::min(at, reach), std::min(at + reach, heard.size()), 0.9);
    return click - (burst.centre - 0.5 * PulseSong::pulseFrames / speed);
}

} // namespace lyrabox::test
