#pragma once

#include "platform/analysis/SongTuning.h"
#include "platform/audio/SoundRanges.h"

#include <optional>

/// What a song's tuning becomes at a pitch, as a musician with an A of their own hears it. Any
/// thread.
namespace lyrabox {

/// The frequencies that a musician's A can have, in Hz. 440 is the usual one.
constexpr ValueRange ownARange{.minimum = 380.0F, .maximum = 480.0F};
constexpr double usualA = 440.0;

/// The distances are in cents above the nearest note of a tuning with the musician's A.
struct HeardTuning {
    double cents = 0.0;  ///< from -50 up to, but not including, 50
    double lowest = 0.0; ///< these two are `cents` if the song does not drift
    double highest = 0.0;
    int semitones = 0; ///< how much higher the song's notes are than those of its KeyGuess
    double ownA = usualA;

    bool drifts() const { return lowest < highest; }
    /// The frequency of the A at so many cents.
    double hertz(double fromCents) const;
};

/// `pitch` is in cents.
HeardTuning heardTuning(const SongTuning &song, double pitch, double ownA);

/// The pitch in whole cents that brings the song in tune, near the present one. None if that is
/// beyond pitchRange.
std::optional<int> pitchInTune(const HeardTuning &heard, double pitch);

} // namespace lyrabox
