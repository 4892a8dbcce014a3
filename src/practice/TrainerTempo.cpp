#include "practice/TrainerTempo.h"

#include "practice/SongTime.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {
constexpr double secondsPerMinute = 60.0;
constexpr double framesWithoutGrid = practiceRate / 2.0;
} // namespace

double tempoBetween(const BeatGrid &grid, std::uint64_t from, std::uint64_t to)
{
    if (grid.isEmpty() || from >= to)
        return 0.0;
    const double beats =
        grid.beatsAt(static_cast<double>(to)) - grid.beatsAt(static_cast<double>(from));
    return beats * secondsPerMinute * practiceRate / static_cast<double>(to - from);
}

std::uint64_t runUpFrames(const BeatGrid &grid, std::uint64_t start, int beats)
{
    const double count = std::max(0, beats);
    const auto frame = static_cast<double>(start);
    const double from = grid.isEmpty() ? frame - count * framesWithoutGrid
                                       : grid.frameOfBeats(grid.beatsAt(frame) - count);
    return static_cast<std::uint64_t>(std::llround(std::clamp(frame - from, 0.0, frame)));
}

std::optional<double> nextSpeed(SpeedTrainer trainer)
{
    constexpr double longAgo = 1e9; // so the verdict is about the present pass
    const TrainerStrip before = trainer.order().strip;
    for (int pass = before.passesDone; trainer.isRunning() && pass < before.passesNeeded; ++pass) {
        trainer.right(longAgo);
        const TrainerOrder order = trainer.passEnded();
        if (trainer.isRunning() && order.strip.speed != before.speed)
            return order.strip.speed;
    }
    return std::nullopt;
}

} // namespace lyrabox
