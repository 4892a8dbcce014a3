#pragma once

#include "practice/BeatGrid.h"
#include "practice/CountIn.h"
#include "practice/SpeedTrainer.h"

#include <QString>

#include <optional>
#include <vector>

namespace lyrabox {

/// What the player and the pane know of this moment.
struct StandFacts {
    bool hasSong = false;
    QString title = {};
    QString loop = {};    ///< its name or its times; empty without a loop
    int loopColour = 0;   ///< of a kept loop, else 0
    double speed = 100.0; ///< percent
    /// The beats of the song, without beats if they are not known.
    BeatGrid grid = {};
    std::uint64_t frame = 0; ///< that is heard

    /// The silence before the music that is heard now.
    enum class Silence { None, CountIn, Rest };
    Silence silence = Silence::None;
    double silenceLeft = 0.0; ///< frames of the song

    std::optional<CountInLength> countIn = {}; ///< if it is switched on

    TrainerStrip strip = {};
    std::vector<int> ladder = {}; ///< percent; empty without a run
    TempoUnit unit = TempoUnit::Percent;
    std::optional<double> nextSpeed = {};
};

/// A number with the word above it.
struct StandNumber {
    QString caption;
    QString value;

    bool operator==(const StandNumber &) const = default;
};

/// One speed of the ladder.
struct StandStep {
    enum class State { Done, Present, Coming };
    QString text;
    State state = State::Coming;
    double part = 0.0; ///< of the present one that was done, 0.0 to 1.0

    bool operator==(const StandStep &) const = default;
};

/// What the stand view says.
struct StandPage {
    QString title;
    QString loop; ///< empty: there is none
    int loopColour = 0;
    std::vector<StandNumber> numbers; ///< speed; with beats tempo and bar
    int beat = 0;                     ///< that is heard, from 1; 0 if it is not known
    int beats = 0;                    ///< of the bar; 0 if they are not known
    std::vector<StandStep> steps;
    QString passes;  ///< what the trainer says
    QString countIn; ///< how long it is; empty if it is off

    bool operator==(const StandPage &) const = default;
};

/// Pure functions, except that they translate. Main thread.
namespace standText {

/// At most so many steps of a ladder are shown.
inline constexpr int mostSteps = 9;

StandPage page(const StandFacts &facts);

/// The page without the beat, for screen readers: one sentence.
QString spoken(const StandPage &page);

} // namespace standText
} // namespace lyrabox
