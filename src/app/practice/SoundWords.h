#pragma once

#include "platform/analysis/SongKey.h"
#include "practice/HeardTuning.h"

#include <QString>
#include <QStringList>

/// Tuning and key in words for the user. Main thread.
namespace lyrabox::soundWords {

/// "23 cents flat (A = 434)".
QString tuning(const HeardTuning &heard);

/// "A minor".
QString key(const KeyOfSong &key);

/// "A minor (or C major)".
QString keys(const KeyGuess &guess);

/// A frequency without its unit. A fraction has one decimal.
QString hertz(double hertz);

/// The names of the instruments of SoundSettings.h, in their order.
QStringList instruments();

} // namespace lyrabox::soundWords
