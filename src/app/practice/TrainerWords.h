#pragma once

#include "practice/SpeedTrainer.h"

#include <QString>

#include <optional>

/// The words for what the trainer does. Main thread.
namespace lyrabox::trainerWords {

/// A speed as the ladder's unit writes it: "75 %", or "92 BPM" if `tempo`, the song's at 100 %, is
/// known and the unit asks for it.
QString speed(double percent, TempoUnit unit, double tempo);
/// The same without the unit.
QString number(double percent, TempoUnit unit, double tempo);

/// What the strip says: "missed · pass 2 of 3 · next 80 %". `next` is the speed that follows, as
/// speed() writes it; it may be empty. Empty if no run is on.
QString strip(const TrainerStrip &strip, const QString &next);
/// The shortest form of it: "2 of 3".
QString shortStrip(const TrainerStrip &strip);

} // namespace lyrabox::trainerWords
