#pragma once

#include "practice/HeardTuning.h"

/// How the musician at the screen names tuning and key, whatever the song. Main thread.
namespace lyrabox {

// The instruments: C, B♭, E♭, F, A, G, then a guitar with a capo in fret 1 and so on.
inline constexpr int transposingInstruments = 6;
inline constexpr int lastCapo = 11;
inline constexpr int instrumentCount = transposingInstruments + lastCapo;

/// How many semitones higher than it sounds an instrument reads a note, 0 to 11.
int readAbove(int instrument);
/// The fret of its capo; 0 without one.
int capoOf(int instrument);

/// The musician's A and instrument.
struct SoundSettings {
    double ownA = usualA; ///< Hz, within ownARange, with one decimal
    int instrument = 0;   ///< 0 to instrumentCount - 1

    bool operator==(const SoundSettings &) const = default;
};

/// Brings the numbers within their ranges.
void clean(SoundSettings &settings);

// The user defaults. What is missing or unknown has its usual value.
SoundSettings storedSoundSettings();
void store(const SoundSettings &settings);

} // namespace lyrabox
