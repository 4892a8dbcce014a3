#pragma once

#include "platform/analysis/SongPartials.h"

#include <optional>

namespace lyrabox {

/// A key. The page that shows it gives it its name.
struct KeyOfSong {
    int tonic = 0; ///< semitones above C, 0 to 11
    bool isMinor = false;

    bool operator==(const KeyOfSong &) const = default;
};

/// The same key so many semitones higher.
KeyOfSong transposed(KeyOfSong key, int semitones);

/// The two keys that fit best. Neither is a claim: a key and its relative share their notes.
struct KeyGuess {
    KeyOfSong first;
    KeyOfSong second;

    bool operator==(const KeyGuess &) const = default;
};

/// The key of a song that is tuned `cents` above A = 440 Hz. None if too few notes sound. Any
/// thread. It takes a few milliseconds for four minutes.
std::optional<KeyGuess> songKey(const SongPartials &song, double cents);

} // namespace lyrabox
