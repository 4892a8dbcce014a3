#include "support/pieces/BeatScore.h"

#include <algorithm>
#include <cmath>

namespace lyrabox::test {

namespace {

constexpr double framesPerMillisecond = 44.1;
constexpr double reach = 70.0 * framesPerMillisecond;

bool beginsBar(const BeatPiece &piece, std::uint64_t frame)
{
    const auto place = static_cast<double>(frame);
    for (std::size_t i = 0; i < piece.beats.size(); ++i) {
        if (piece.beatInBar(i) == 0 && std::abs(place - piece.beats[i]) <= reach)
            return true;
    }
    return false;
}

} // namespace

double BeatScore::error(double share) const
{
    if (errors.empty())
        return 0.0;
    const auto index = static_cast<std::size_t>(share * static_cast<double>(errors.size()));
    return errors[std::min(index, errors.size() - 1)];
}

double BeatScore::shareWithin(double milliseconds) const
{
    const auto end = std::upper_bound(errors.begin(), errors.end(), milliseconds);
    return errors.empty()
               ? 0.0
               : static_cast<double>(end - errors.begin()) / static_cast<double>(errors.size());
}

BeatScore scoreOf(const BeatPiece &piece, std::span<const std::uint64_t> beats, std::size_t one)
{
    BeatScore score;
    std::size_t next = 0;
    for (const double beat : piece.beats) {
        while (next < beats.size() && static_cast<double>(beats[next]) < beat - reach)
            ++next;
        if (next == beats.size())
            break;
        const double distance = std::abs(static_cast<double>(beats[next]) - beat);
        if (distance > reach)
            continue;
        score.errors.push_back(distance / framesPerMillisecond);
        ++next;
    }
    std::sort(score.errors.begin(), score.errors.end());
    score.fMeasure = 2.0 * static_cast<double>(score.errors.size()) /
                     static_cast<double>(piece.beats.size() + beats.size());
    const auto beatsPerBar = static_cast<std::size_t>(piece.beatsPerBar);
    for (std::size_t i = one % beatsPerBar; i < beats.size(); i += beatsPerBar) {
        ++score.bars;
        score.wrongBars += beginsBar(piece, beats[i]) ? 0 : 1;
    }
    return score;
}

} // namespace lyrabox::test
