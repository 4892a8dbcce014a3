#include "practice/HeardTuning.h"

#include <cmath>

namespace lyrabox {

namespace {
constexpr double centsOfOctave = 1200.0;
constexpr double centsOfSemitone = 100.0;
} // namespace

double HeardTuning::hertz(double fromCents) const
{
    return ownA * std::exp2(fromCents / centsOfOctave);
}

HeardTuning heardTuning(const SongTuning &song, double pitch, double ownA)
{
    const double shift = pitch - centsOfOctave * std::log2(ownA / usualA);
    const double semitones = std::floor((song.cents + shift) / centsOfSemitone + 0.5);
    const double moved = shift - centsOfSemitone * semitones;
    return {.cents = song.cents + moved,
            .lowest = song.lowest + moved,
            .highest = song.highest + moved,
            .semitones = static_cast<int>(semitones),
            .ownA = ownA};
}

std::optional<int> pitchInTune(const HeardTuning &heard, double pitch)
{
    const double wanted = std::round(pitch - heard.cents);
    if (wanted < pitchRange.minimum || wanted > pitchRange.maximum)
        return std::nullopt;
    return static_cast<int>(wanted);
}

} // namespace lyrabox
